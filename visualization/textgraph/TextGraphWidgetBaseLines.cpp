// SPDX-License-Identifier: MIT
// Where lines and words are, and in which order the arrows leave them.
#include "visualization/textgraph/EdgeBase.h"
#include "visualization/textgraph/GraphNodeBase.h"
#include "visualization/textgraph/Saturated.h"
#include "visualization/textgraph/TextGraphWidgetBase.h"

#include <algorithm>
#include <limits>

namespace Kova::GUI::TextGraph {

namespace {

/// How much farther apart lines are when an edge joins them.
constexpr int edgeRoom = 50;

enum PortOrder : int { StraightEdges = 1, AllEdges = 4 };

} // namespace

void TextGraphWidgetBase::shiftLines(int line, int dy) {
    if (line < 0 || line >= m_lines.size())
        return;
    if (line > 0 && qint64{m_lines.at(line).y} + dy <= qint64{m_lines.at(line - 1).y} + m_lineHeight)
        return;
    const auto leavesRange = [dy](const NodesLine& moved) { return !fitsInt(qint64{moved.y} + dy); };
    if (std::any_of(m_lines.cbegin() + line, m_lines.cend(), leavesRange))
        return;
    for (int i = line; i < m_lines.size(); ++i)
        m_lines[i].setY(m_lines.at(i).y + dy);
}

void TextGraphWidgetBase::sprainLine(const QPoint& node, int dx) {
    if (node.x() < 0 || node.x() >= m_lines.size())
        return;
    const QList<NodeBase*>& nodes = m_lines.at(node.x()).nodes;
    const int first = node.y();
    if (first < 0 || first >= nodes.size())
        return;
    const qint64 newX = qint64{nodes.at(first)->getPos().x()} + dx;
    const int leftmost = first > 0 ? nodes.at(first - 1)->getRightEnd() : 0;
    if ((dx < 0 && newX < leftmost) || dx == 0)
        return;
    for (int i = first; i < nodes.size(); ++i) {
        const QPoint pos = nodes.at(i)->getPos();
        nodes.at(i)->setPos(QPoint(saturated(qint64{pos.x()} + dx), pos.y()));
    }
    fitWidth();
}

void TextGraphWidgetBase::fitWidth() {
    int width = std::numeric_limits<int>::min();
    for (const NodesLine& line : qAsConst(m_lines)) {
        if (!line.nodes.isEmpty())
            width = std::max(width, line.nodes.last()->getRightEnd());
    }
    setGraphSize(width, getGraphSize().height());
}

void TextGraphWidgetBase::fitHeight() {
    if (!m_lines.isEmpty())
        setGraphSize(getGraphSize().width(), saturated(qint64{m_lines.last().y} + m_lineHeight));
}

bool TextGraphWidgetBase::areJoined(int upperY, int lowerY) const {
    return std::any_of(m_edges.begin(), m_edges.end(), [&](const EdgeBase* edge) {
        const int fromY = edge->getFrom()->getPos().y();
        const int toY = edge->getTo()->getPos().y();
        return (fromY == upperY && toY == lowerY) || (fromY == lowerY && toY == upperY);
    });
}

void TextGraphWidgetBase::moveCloseLinesApart() {
    for (int i = 0; i + 1 < m_lines.size(); ++i) {
        if (areJoined(m_lines.at(i).y, m_lines.at(i + 1).y))
            shiftLines(i + 1, edgeRoom);
    }
    // Every line can be scrolled to and is exported.
    fitHeight();
}

void TextGraphWidgetBase::reorder(bool full, int rounds) {
    for (int round = 0; round < rounds; ++round) {
        for (const NodesLine& line : qAsConst(m_lines)) {
            for (NodeBase* node : line.nodes) {
                if (auto* graphNode = dynamic_cast<GraphNodeBase*>(node))
                    graphNode->reorder(full ? AllEdges : StraightEdges);
            }
        }
    }
}

void TextGraphWidgetBase::updateEdgesVisibility() {
    for (EdgeBase* edge : m_edges)
        edge->setVisible(filterEdge(edge));
    reorder(true, 1);
}

} // namespace Kova::GUI::TextGraph
