// SPDX-License-Identifier: MIT
#include "shell/window/LineNumberMargin.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>
#include <QWheelEvent>

namespace Kova::Shell {

namespace {

/// In pixels, on both sides of the numbers.
constexpr int padding = 6;

QTextBlock blockAt(const QPlainTextEdit& text, int y) {
    return text.cursorForPosition({0, y}).block();
}

} // namespace

LineNumberMargin::LineNumberMargin(QPlainTextEdit& text) : QWidget(&text), m_text(text) {
    setCursor(Qt::ArrowCursor);
    connect(&text, &QPlainTextEdit::updateRequest, this, qOverload<>(&QWidget::update));
}

int LineNumberMargin::widthOfNumbers() const {
    const QString widest(QString::number(m_text.blockCount()).length(), '9');
    return m_text.fontMetrics().horizontalAdvance(widest) + 2 * padding;
}

int LineNumberMargin::lineAt(int y) const {
    const QTextBlock block = blockAt(m_text, y);
    QTextCursor end(block);
    end.movePosition(QTextCursor::EndOfBlock);
    return y >= 0 && y <= m_text.cursorRect(end).bottom() ? block.blockNumber() + 1 : 0;
}

void LineNumberMargin::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), palette().color(QPalette::AlternateBase));
    painter.setFont(m_text.font());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    for (QTextBlock block = blockAt(m_text, event->rect().top()); block.isValid(); block = block.next()) {
        const QRect line = m_text.cursorRect(QTextCursor(block));
        if (line.top() > event->rect().bottom())
            break;
        painter.drawText(QRect(0, line.top(), width() - padding, line.height()), Qt::AlignRight | Qt::AlignVCenter,
                         QString::number(block.blockNumber() + 1));
    }
}

void LineNumberMargin::mousePressEvent(QMouseEvent* event) {
    const int line = event->button() == Qt::LeftButton ? lineAt(event->y()) : 0;
    if (line > 0)
        Q_EMIT lineClicked(line);
}

void LineNumberMargin::wheelEvent(QWheelEvent* event) {
    QCoreApplication::sendEvent(m_text.verticalScrollBar(), event);
}

} // namespace Kova::Shell
