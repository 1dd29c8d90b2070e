// SPDX-License-Identifier: MIT
#include "shell/window/DockedSelector.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace Kova::Shell {

void DockedSelector::paintEvent(QPaintEvent* event) {
    const QPoint corner(horizontalScrollBar()->value(), verticalScrollBar()->value());
    const QRect exposed = event->rect().translated(corner);
    QPainter painter(viewport());
    painter.translate(-corner);
    painter.setClipRect(exposed);
    // The descenders of a line are within the next one.
    const int height = std::max(QFontMetrics(getFont()).height(), 1);
    const int end = std::min(exposed.bottom() / height + 1, getText().getLineCount());
    drawLines(painter, exposed.top() / height - 1, end);
}

} // namespace Kova::Shell
