// SPDX-License-Identifier: MIT
#include "shell/window/StatusFields.h"

#include <QCoreApplication>
#include <QLabel>
#include <QStatusBar>

#include <cmath>

namespace Kova::Shell {

namespace {

QString translate(const char* text) {
    return QCoreApplication::translate("StatusFields", text);
}

QLabel* addField(QStatusBar& bar, const QString& name, const QString& toolTip) {
    auto* label = new QLabel(&bar);
    label->setObjectName(name);
    label->setToolTip(toolTip);
    label->setContentsMargins(6, 0, 6, 0);
    bar.addPermanentWidget(label);
    label->hide();
    return label;
}

void setField(QLabel& label, const QString& text) {
    label.setText(text);
    label.setVisible(!text.isEmpty());
}

} // namespace

StatusFields::StatusFields(QStatusBar& bar)
    : m_subject(addField(bar, "subject", translate("What is shown"))),
      m_summary(addField(bar, "summary", translate("What is in the picture"))),
      m_files(addField(bar, "files", translate("Files of the program"))),
      m_scale(addField(bar, "zoom", translate("Zoom"))) {}

void StatusFields::setSubject(const QString& title) {
    setField(*m_subject, title);
}

void StatusFields::setSummary(const QString& summary) {
    setField(*m_summary, summary);
}

void StatusFields::setFileCount(int count) {
    setField(*m_files, count == 0 ? QString() : translate(count == 1 ? "%1 file" : "%1 files").arg(count));
}

void StatusFields::setScale(double scale) {
    setField(*m_scale, QString("%1 %").arg(std::lround(scale * 100.0)));
}

void StatusFields::hideScale() {
    setField(*m_scale, QString());
}

} // namespace Kova::Shell
