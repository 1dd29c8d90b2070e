// SPDX-License-Identifier: MIT
// What the mouse does to a source selector, and how it is drawn.
#include "environment/tessel/StatementBase.h"
#include "visualization/graphcore/Rounding.h"
#include "visualization/sourceselector/SourceSelector.h"
#include "visualization/textgraph/CellPainter.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace Kova::GUI {

namespace {

using Tessel::StatementBase;
using Tessel::TesselBase;

constexpr int hoverSlot = 1;

/// Whichever of the two comes first; empty when they are not statements of one block.
Tessel::ProgramFragment fragmentBetween(TesselBase* one, TesselBase* other) {
    Tessel::ProgramFragment fragment;
    auto* anchor = dynamic_cast<StatementBase*>(one);
    auto* current = dynamic_cast<StatementBase*>(other);
    if (anchor == nullptr || current == nullptr)
        return fragment;
    if (Tessel::ProgramFragment::isFragment(*anchor, *current))
        fragment.set(*anchor, *current);
    else if (Tessel::ProgramFragment::isFragment(*current, *anchor))
        fragment.set(*current, *anchor);
    return fragment;
}

} // namespace

TesselBase* SourceSelector::getNodeByPos(const QPoint& position) const {
    const SStringPart* part = getPartByMouse(position);
    return part != nullptr ? part->node : nullptr;
}

const SourceSelector::SStringPart* SourceSelector::getPartByMouse(const QPoint& position) const {
    if (m_lineHeight <= 0 || m_charWidth <= 0)
        return nullptr;
    const int line = (position.y() + verticalScrollBar()->value() - m_descent) / m_lineHeight;
    const int column = (position.x() + horizontalScrollBar()->value()) / m_charWidth;
    if (line < 0 || line >= m_text->getLineCount())
        return nullptr;
    int end = 0;
    for (const SStringPart& part : m_text->getLine(line)) {
        end += part.text.size();
        if (end > column)
            return &part;
    }
    return nullptr;
}

int SourceSelector::getMarkForEvent(const QMouseEvent& event) const {
    return m_eventMap.value(static_cast<int>(event.buttons()) | static_cast<int>(event.modifiers()), -1);
}

void SourceSelector::mousePressEvent(QMouseEvent* event) {
    const int slot = getMarkForEvent(*event);
    if (!isSlot(slot))
        return;
    TesselBase* node = getNodeByPos(event->pos());
    clearSelection(slot);
    m_hover.clear();
    markNode(node, slot);
    storeMark(slot, node);
    // Whoever heard of the change may have changed the number of marks.
    if (isSlot(slot))
        m_marks[static_cast<std::size_t>(slot)].fragment.setEmpty();
    viewport()->update();
}

void SourceSelector::mouseMoveEvent(QMouseEvent* event) {
    if (getMarksNum() <= 0)
        return;
    TesselBase* node = getNodeByPos(event->pos());
    if (!m_fragmentSelection || event->buttons() == Qt::NoButton) {
        hover(node);
    } else if (const int slot = getMarkForEvent(*event); isSlot(slot)) {
        m_hover.clear();
        if (node != nullptr)
            dragTo(*node, slot);
    }
    viewport()->update();
}

// The node where the drag began stays what the mark holds.
void SourceSelector::dragTo(TesselBase& node, int slot) {
    Mark& mark = m_marks[static_cast<std::size_t>(slot)];
    if (mark.node == nullptr || mark.node == &node)
        return;
    clearSelection(slot);
    mark.fragment = fragmentBetween(mark.node, &node);
    if (mark.fragment.isEmpty())
        markNode(mark.node, slot);
    else
        markFragment(mark.fragment, slot);
}

void SourceSelector::hover(TesselBase* node) {
    m_hover.clear();
    clearSelection(hoverSlot);
    markNode(node, hoverSlot);
}

// What the mouse was over stays lit until it comes back.
void SourceSelector::leaveEvent(QEvent* /*event*/) {
    clearSelection(hoverSlot);
}

void SourceSelector::resizeEvent(QResizeEvent* /*event*/) {
    updateScrollBars();
}

// The lines to draw are counted along the width of what is exposed.
void SourceSelector::paintEvent(QPaintEvent* event) {
    if (m_lineHeight <= 0)
        return;
    QPainter painter(viewport());
    painter.translate(-horizontalScrollBar()->value(), -verticalScrollBar()->value());
    painter.setClipRect(event->rect().translated(horizontalScrollBar()->value(), verticalScrollBar()->value()));
    const QRect exposed = event->rect();
    const int first = (verticalScrollBar()->value() + exposed.left()) / m_lineHeight;
    const int count = (exposed.right() - exposed.left() + 1) / m_lineHeight;
    drawLines(painter, first, std::min(first + count + 1, m_text->getLineCount()));
}

void SourceSelector::drawLines(QPainter& painter, int first, int end) const {
    TextGraph::CellPainter cells(painter, m_font, m_charWidth);
    painter.setBackgroundMode(Qt::OpaqueMode);
    const QRectF visible = painter.hasClipping() ? painter.clipBoundingRect() : QRectF(QPoint(0, 0), getTextSize());
    for (int line = std::max(first, 0); line < end; ++line) {
        int x = 0;
        for (const SStringPart& part : m_text->getLine(line)) {
            const int width = m_charWidth * part.text.size();
            // Letters lean over the edges of their cells by less than a cell.
            if (x + width + m_charWidth >= visible.left() && x - m_charWidth <= visible.right()) {
                const SSelParams& params = paramsOf(part);
                painter.setPen(QColor::fromRgba(params.textColor));
                painter.setBackground(params.brush);
                cells.draw(x, (line + 1) * m_lineHeight, part.text);
            }
            x += width;
        }
    }
}

const SourceSelector::SSelParams& SourceSelector::paramsOf(const SStringPart& part) const {
    if (m_hover.contains(*part.node))
        return m_slots[hoverSlot];
    const int slot = m_selection.getSlot(*part.node);
    return m_slots[isSlot(slot) ? slot : 0];
}

} // namespace Kova::GUI
