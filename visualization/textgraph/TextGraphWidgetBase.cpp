// SPDX-License-Identifier: MIT
#include "visualization/textgraph/TextGraphWidgetBase.h"

#include "visualization/graphcore/Rounding.h"
#include "visualization/textgraph/EdgeBase.h"
#include "visualization/textgraph/NodeBase.h"

#include <QAction>
#include <QFontMetrics>
#include <QScrollBar>

namespace Kova::GUI::TextGraph {

namespace {

constexpr int defaultPointSize = 14;

} // namespace

TextGraphWidgetBase::TextGraphWidgetBase(QWidget* parent) : GraphWidgetBase(parent) {
    setFont(QFont(QStringLiteral("Monospace"), defaultPointSize));
    setMouseTracking(true);
    setMouseScroll(true);
}

TextGraphWidgetBase::~TextGraphWidgetBase() {
    destroyItems();
}

void TextGraphWidgetBase::clear() {
    destroyItems();
    m_builded = false;
    m_selectedEdge = -1;
    m_pressedNode = QPoint(-1, -1);
    GraphWidgetBase::clear();
}

void TextGraphWidgetBase::destroyItems() {
    for (const NodesLine& line : qAsConst(m_lines))
        qDeleteAll(line.nodes);
    m_lines.clear();
    m_edges.clear();
}

void TextGraphWidgetBase::setFont(const QFont& font) {
    m_font = font;
    m_cell = CellSize(QFontMetrics(font));
    verticalScrollBar()->setSingleStep(m_cell.lineHeight);
    horizontalScrollBar()->setSingleStep(m_cell.charWidth);
}

void TextGraphWidgetBase::createMenu() {
    m_menu.addAction(m_saveImageAction);
    m_menu.addAction(m_saveSvgAction);
}

void TextGraphWidgetBase::setBuilded() {
    m_builded = true;
    m_pressedNode = QPoint(-1, -1);
    m_saveImageAction->setEnabled(true);
    m_saveSvgAction->setEnabled(true);
}

void TextGraphWidgetBase::updateMap() {
    if (!m_builded)
        return;
    const auto count = static_cast<std::size_t>(m_edges.size());
    bool changed = m_mappedCurves.size() != count;
    // Hidden edges and those that were never mapped have the same curve, and the same empty entry.
    m_mappedCurves.resize(count);
    m_hitMap.resize(count);
    for (std::size_t i = 0; i < count; ++i) {
        const EdgeBase& edge = *m_edges.at(static_cast<int>(i));
        const ArrowCurve curve = edge.getCurve();
        if (curve == m_mappedCurves[i])
            continue;
        m_mappedCurves[i] = curve;
        m_hitMap.setPath(i, edge.getShape());
        changed = true;
    }
    if (changed)
        m_hitMap.buildIndex();
}

int TextGraphWidgetBase::getLineByPoint(const QPoint& point) const {
    for (int i = 0; i < m_lines.size(); ++i) {
        const int y = m_lines.at(i).y;
        if (qint64{y} - m_cell.lineHeight < point.y() && point.y() < y)
            return i;
    }
    return -1;
}

QPoint TextGraphWidgetBase::getNodeByCurPos(const QPoint& point) const {
    const int line = getLineByPoint(point);
    if (line == -1)
        return {-1, -1};
    const QList<NodeBase*>& nodes = m_lines.at(line).nodes;
    for (int i = 0; i < nodes.size(); ++i) {
        if (nodes.at(i)->getPos().x() < point.x() && point.x() < nodes.at(i)->getRightEnd())
            return {line, i};
    }
    return {line, -1};
}

QPoint TextGraphWidgetBase::getNodeCoords(const NodeBase* node) const {
    for (int i = 0; i < m_lines.size(); ++i) {
        const int index = m_lines.at(i).nodes.indexOf(const_cast<NodeBase*>(node));
        if (index != -1)
            return {i, index};
    }
    return {-1, -1};
}

int TextGraphWidgetBase::getEdgeByPos(const QPoint& point) const {
    // The map may be older than the edges.
    return m_hitMap.findFirst(point, static_cast<std::size_t>(m_edges.size()));
}

void TextGraphWidgetBase::selectEdge(int index) {
    const int selected = index >= 0 && index < m_edges.size() ? index : -1;
    if (selected == m_selectedEdge)
        return;
    m_selectedEdge = selected;
    viewport()->update();
}

void TextGraphWidgetBase::scrollToEdge(int index) {
    if (index < 0 || index >= m_edges.size() || !m_edges.at(index)->isVisible())
        return;
    const QRectF bounds = controlRect(m_edges.at(index)->getCurve());
    const QPointF start = m_edges.at(index)->getCurve().start;
    const auto reveal = [this](QScrollBar* bar, double low, double high, double point, int page) {
        const bool fits = (high - low) * getScale() <= page;
        const double from = (fits ? low : point) * getScale();
        const double to = (fits ? high : point) * getScale();
        if (from < bar->value() || to > static_cast<double>(bar->value()) + page)
            bar->setValue(roundHalfAway((from + to - page) / 2.0));
    };
    reveal(horizontalScrollBar(), bounds.left(), bounds.right(), start.x(), viewport()->width());
    reveal(verticalScrollBar(), bounds.top(), bounds.bottom(), start.y(), viewport()->height());
}

} // namespace Kova::GUI::TextGraph
