// SPDX-License-Identifier: MIT
#include "shell/window/WelcomePage.h"

#include <QKeySequence>

namespace Kova::Shell {

WelcomePage::WelcomePage(QWidget* parent) : QLabel(parent) {
    const QString key = QKeySequence(QKeySequence::Open).toString(QKeySequence::NativeText);
    setAlignment(Qt::AlignCenter);
    setTextFormat(Qt::RichText);
    setBackgroundRole(QPalette::Base);
    setForegroundRole(QPalette::Text);
    setAutoFillBackground(true);
    setText(tr("<p style='font-size: 20px; color: #333'>No program is open</p>"
               "<p style='font-size: 14px; color: #666; line-height: 150%'>Press <b>%1</b> to open C files,<br>"
               "drop them here,<br>or name them on the command line: <b>kova-shell FILE...</b></p>")
                .arg(key));
}

} // namespace Kova::Shell
