// SPDX-License-Identifier: MIT
#include "shell/window/KeysDialog.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

namespace Kova::Shell {

namespace {

QString row(const QString& key, const QString& meaning) {
    return QString("<tr><td><b>%1</b></td><td>%2</td></tr>").arg(key.toHtmlEscaped(), meaning.toHtmlEscaped());
}

} // namespace

KeysDialog::KeysDialog(const QList<QAction*>& actions, QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("Keys"));
    QString rows;
    for (const QAction* action : actions)
        if (!action->shortcut().isEmpty())
            rows += row(QKeySequence::listToString(action->shortcuts(), QKeySequence::NativeText), action->statusTip());
    rows += row(tr("Wheel"), tr("Zoom about the mouse"));
    rows += row(tr("Drag"), tr("Move the picture; on a box: move the box"));
    rows += row(tr("Right click"), tr("The view's actions"));
    rows += row(tr("Double click"), tr("In the console: go to the place in the program"));

    auto* table = new QLabel("<table cellpadding='4'>" + rows + "</table>", this);
    table->setTextFormat(Qt::RichText);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(table);
    layout->addWidget(buttons);
}

} // namespace Kova::Shell
