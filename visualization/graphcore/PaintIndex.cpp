// SPDX-License-Identifier: MIT
#include "visualization/graphcore/PaintIndex.h"

#include "visualization/graphcore/PaintExtent.h"
#include "visualization/graphcore/Rounding.h"
#include "visualization/graphcore/StrokeMargin.h"

#include <QPainter>

#include <cmath>
#include <optional>

namespace Kova::GUI::GenericGraph {

namespace {

/// Paints items for their extent; the painter is made for the first one.
class Measure {
public:
    Measure(const QFont& font, const QPaintDevice& model) : m_extent(model), m_font(font) {}

    template <typename Item>
    QRectF operator()(const Item& item) {
        if (!m_painter.isActive()) {
            m_painter.begin(&m_extent);
            m_painter.setFont(m_font);
            // As the painter has it, so that comparing takes no time.
            m_font = m_painter.font();
        }
        // Whatever the item before has left: its fault must not misplace the others. Saving and restoring would not see
        // to an item that saves once too often.
        if (!m_painter.deviceTransform().isIdentity())
            m_painter.resetTransform();
        if (m_painter.font() != m_font)
            m_painter.setFont(m_font);
        m_extent.reset();
        item.draw(m_painter, false);
        return m_extent.bounds();
    }

private:
    PaintExtent m_extent;
    QFont m_font;
    QPainter m_painter;
};

/// The extent of an edge without a label.
QRectF strokeExtent(const EdgeBase& edge) {
    const std::optional<double> margin = strokeMargin(edge.getPen());
    if (!margin)
        return unboundedExtent();
    return controlRect(edge.getCurve()).adjusted(-*margin, -*margin, *margin, *margin);
}

/// Of an edge whose extent touches the area: whether its line does. Those with a label count as a whole.
bool strokeTouches(const EdgeBase& edge, const QRectF& area) {
    if (!edge.getText().isEmpty())
        return true;
    const std::optional<double> margin = strokeMargin(edge.getPen());
    return !margin || stripTouches(edge.getCurve(), area, *margin);
}

} // namespace

PaintIndex::Box PaintIndex::Box::around(const QRectF& rect) {
    if (rect.isNull())
        return {};
    return {truncated(std::floor(rect.left())), truncated(std::floor(rect.top())), truncated(std::ceil(rect.right())),
            truncated(std::ceil(rect.bottom()))};
}

bool PaintIndex::Box::touches(const Box& other) const {
    return left <= other.right && right >= other.left && top <= other.bottom && bottom >= other.top && left <= right;
}

bool PaintIndex::Box::isWithin(const Box& other) const {
    return left >= other.left && right <= other.right && top >= other.top && bottom <= other.bottom;
}

void PaintIndex::update(const std::vector<NodeBase*>& nodes, const std::vector<EdgeBase*>& edges, const QFont& font,
                        const QPaintDevice& device) {
    if (m_dpi != device.logicalDpiY() || m_font != font) {
        m_changedNodes.forget();
        m_changedEdges.forget();
        m_font = font;
        m_dpi = device.logicalDpiY();
    }
    Measure measure(font, device);
    m_nodes.resize(nodes.size());
    m_edges.resize(edges.size());
    m_changedNodes.update(nodes, [&](std::size_t i) { m_nodes[i] = Box::around(measure(*nodes[i])); });
    m_changedEdges.update(edges, [&](std::size_t i) {
        const EdgeBase& edge = *edges[i];
        m_edges[i] = Box::around(edge.getText().isEmpty() ? strokeExtent(edge) : measure(edge));
    });
}

std::vector<std::size_t> PaintIndex::edgesIn(const std::vector<EdgeBase*>& edges, const QRectF& area,
                                             const EdgeBase* selected) const {
    const Box box = Box::around(area);
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < m_edges.size(); ++i) {
        const bool near = m_edges[i].touches(box) && (m_edges[i].isWithin(box) || strokeTouches(*edges[i], area));
        if (near || edges[i] == selected)
            found.push_back(i);
    }
    return found;
}

std::vector<std::size_t> PaintIndex::nodesIn(const std::vector<NodeBase*>& nodes, const QRectF& area,
                                             const NodeBase* selected) const {
    const Box box = Box::around(area);
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < m_nodes.size(); ++i) {
        if (m_nodes[i].touches(box) || nodes[i] == selected)
            found.push_back(i);
    }
    return found;
}

} // namespace Kova::GUI::GenericGraph
