// SPDX-License-Identifier: MIT
// Where lines and words are, and in which order the arrows leave them.
#include "visualization/graphcore/Rounding.h"
#include "visualization/textgraph/EdgeBase.h"
#include "visualization/textgraph/GraphNodeBase.h"
#include "visualization/textgraph/Saturated.h"
#include "visualization/textgraph/TextGraphWidgetBase.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace Kova::GUI::TextGraph {

namespace {

/// How much farther apart lines are when an edge joins them.
constexpr int edgeRoom = 50;

/// Whether an edge joins what is at the height of a line to what is at the height of the next one, while lines are
/// moved down from the top.
class JoinedHeights {
public:
    JoinedHeights(const QList<NodesLine>& lines, const EdgesList& edges)
        : m_lines(lines),
          m_edges(edges),
          m_isOrderly(isOrderly(lines)) {
        if (!m_isOrderly)
            return;
        for (const NodesLine& line : lines)
            m_heights.push_back(line.y);
        for (const EdgeBase* edge : edges)
            m_pairs.emplace_back(std::minmax({heightOf(edge->getFrom()), heightOf(edge->getTo())}));
        std::sort(m_pairs.begin(), m_pairs.end());
    }

    /// Whether each line is below the one before it, with its nodes.
    [[nodiscard]] bool areInOrder() const { return m_isOrderly; }

    /// A line has moved as far as the next one when its turn comes, and those above it less far. So only its own nodes
    /// are at its height, and the heights from before tell who is joined, unless the lines were in disorder.
    [[nodiscard]] bool areJoined(int line) const {
        if (!m_isOrderly)
            return areJoinedNow(m_lines.at(line).y, m_lines.at(line + 1).y);
        const auto index = static_cast<std::size_t>(line);
        return std::binary_search(m_pairs.begin(), m_pairs.end(), std::pair(m_heights[index], m_heights[index + 1]));
    }

private:
    static int heightOf(const NodeBase* node) { return node->getPos().y(); }

    static bool isOrderly(const QList<NodesLine>& lines) {
        for (int i = 0; i < lines.size(); ++i) {
            if (i > 0 && lines.at(i).y <= lines.at(i - 1).y)
                return false;
            for (const NodeBase* node : lines.at(i).nodes) {
                if (heightOf(node) != lines.at(i).y)
                    return false;
            }
        }
        return true;
    }

    [[nodiscard]] bool areJoinedNow(int height, int next) const {
        const std::pair<int, int> wanted = std::minmax({height, next});
        return std::any_of(m_edges.begin(), m_edges.end(), [&](const EdgeBase* edge) {
            return std::minmax({heightOf(edge->getFrom()), heightOf(edge->getTo())}) == wanted;
        });
    }

    const QList<NodesLine>& m_lines;
    const EdgesList& m_edges;
    bool m_isOrderly;
    std::vector<int> m_heights;
    std::vector<std::pair<int, int>> m_pairs;
};

/// The highest point of an edge, wherever its ports are along their words: they wander when other edges come and go,
/// and an arc rises by an eighth of its length.
double highestPoint(const EdgeBase& edge) {
    const double top = edge.getShape().boundingRect().top();
    if (edge.getShapeType() != EdgeBase::Arc)
        return top;
    return top - (edge.getFrom()->getRect().width() + edge.getTo()->getRect().width()) / 8.0;
}

/// Half the pen of a selected edge, and what smoothing adds.
constexpr double penRoom = 2.0;

enum PortOrder : int { StraightEdges = 1, AllEdges = 4 };

} // namespace

void TextGraphWidgetBase::shiftLines(int line, int dy) {
    if (line < 0 || line >= m_lines.size())
        return;
    if (line > 0 && qint64{m_lines.at(line).y} + dy <= qint64{m_lines.at(line - 1).y} + m_cell.lineHeight)
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
        setGraphSize(getGraphSize().width(), saturated(qint64{m_lines.last().y} + m_cell.lineHeight));
}

// What shiftLines() does pair by pair; but each line moves once, not once for each pair above it.
void TextGraphWidgetBase::spreadLines(const std::function<bool(int)>& areJoined) {
    int shift = 0;
    for (int i = 0; i + 1 < m_lines.size(); ++i) {
        const qint64 moved = qint64{m_lines.at(i + 1).y} + shift + edgeRoom;
        const qint64 lowest = qint64{m_lines.constLast().y} + shift + edgeRoom;
        if (areJoined(i) && moved > qint64{m_lines.at(i).y} + m_cell.lineHeight && fitsInt(lowest))
            shift += edgeRoom;
        if (shift != 0)
            m_lines[i + 1].setY(m_lines.at(i + 1).y + shift);
    }
}

void TextGraphWidgetBase::moveCloseLinesApart() {
    const JoinedHeights joined(m_lines, m_edges);
    if (joined.areInOrder()) {
        spreadLines([&joined](int line) { return joined.areJoined(line); });
    } else {
        for (int i = 0; i + 1 < m_lines.size(); ++i) {
            if (joined.areJoined(i))
                shiftLines(i + 1, edgeRoom);
        }
    }
    // Every line can be scrolled to and is exported.
    fitHeight();
}

void TextGraphWidgetBase::makeRoomAbove() {
    double top = penRoom;
    for (const EdgeBase* edge : m_edges) {
        if (edge->isVisible())
            top = std::min(top, highestPoint(*edge));
    }
    if (top >= penRoom)
        return;
    shiftLines(0, roundHalfAway(std::ceil(penRoom - top)));
    fitHeight();
    updateMap();
    viewport()->update();
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
