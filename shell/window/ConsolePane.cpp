// SPDX-License-Identifier: MIT
#include "shell/window/ConsolePane.h"

#include "environment/core/Console.h"
#include "environment/tessel/Diagnostic.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>

namespace Kova::Shell {

namespace {

constexpr int mostLines = 5000;
constexpr int fileRole = Qt::UserRole;
constexpr int lineRole = Qt::UserRole + 1;

/// Dark enough to be read on a light ground.
QColor colourOf(int level) {
    if (level >= Console::Error)
        return QColor(0xb0, 0x00, 0x20);
    if (level == Console::AuxUnavailable)
        return QColor(0x6a, 0x3f, 0xa0);
    if (level == Console::Warning)
        return QColor(0x9a, 0x5b, 0x00);
    return level == Console::Info ? QColor(0x20, 0x20, 0x20) : QColor(0x70, 0x70, 0x70);
}

int levelOf(Tessel::Diagnostic::Level level) {
    switch (level) {
    case Tessel::Diagnostic::Level::Note:
        return Console::Info;
    case Tessel::Diagnostic::Level::Warning:
        return Console::Warning;
    case Tessel::Diagnostic::Level::Error:
        break;
    }
    return Console::Error;
}

} // namespace

ConsolePane::ConsolePane(QWidget* parent) : QListWidget(parent) {
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setUniformItemSizes(true);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    auto* copy = new QAction(tr("&Copy"), this);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    connect(copy, &QAction::triggered, this, &ConsolePane::copyLines);
    auto* clearAll = new QAction(tr("C&lear"), this);
    connect(clearAll, &QAction::triggered, this, &ConsolePane::clear);
    addActions({copy, clearAll});
    connect(this, &QListWidget::itemDoubleClicked, this, &ConsolePane::pick);
}

void ConsolePane::append(const Message& message) {
    appendLine(message.tag.isEmpty() ? message.text : message.tag + ": " + message.text, message.level);
}

void ConsolePane::append(const Tessel::Diagnostic& diagnostic) {
    QListWidgetItem& item = appendLine(QString::fromStdString(Tessel::toString(diagnostic)), levelOf(diagnostic.level));
    item.setData(fileRole, QString::fromStdString(diagnostic.file));
    item.setData(lineRole, static_cast<int>(diagnostic.line));
}

QListWidgetItem& ConsolePane::appendLine(const QString& text, int level) {
    if (count() >= mostLines)
        delete takeItem(0);
    auto* item = new QListWidgetItem(text, this);
    item->setForeground(colourOf(level));
    item->setToolTip(text);
    scrollToBottom();
    return *item;
}

void ConsolePane::copyLines() const {
    QStringList lines;
    for (int row = 0; row < count(); ++row)
        if (item(row)->isSelected())
            lines.append(item(row)->text());
    if (!lines.isEmpty())
        QApplication::clipboard()->setText(lines.join('\n'));
}

void ConsolePane::pick(const QListWidgetItem* item) {
    const int line = item->data(lineRole).toInt();
    if (line > 0)
        Q_EMIT placePicked(item->data(fileRole).toString(), line);
}

} // namespace Kova::Shell
