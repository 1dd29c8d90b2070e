// SPDX-License-Identifier: MIT
#include "visualization/controlflow/StandInLayout.h"

#include "visualization/graphcore/EdgeBase.h"
#include "visualization/graphcore/GraphvisLayout.h"
#include "visualization/graphcore/NodeBase.h"

#include <QHash>
#include <QRegularExpression>

#include <memory>

namespace Kova::GUI::ControlFlowGraphExpr {

using GenericGraph::EdgeBase;
using GenericGraph::NodeBase;

namespace {

/// Below the 16384 bytes that dot takes at a time, whatever the characters.
constexpr int longestPiece = 4000;

QChar readable(QChar character) {
    switch (character.unicode()) {
    case '"':
        return QLatin1Char('\'');
    case '\\':
        return QLatin1Char('/');
    case '\n':
        return character;
    default:
        return character.isPrint() || character.isSurrogate() ? character : QLatin1Char(' ');
    }
}

/// Nodes and edges as dot is to see them.
class StandIns {
public:
    explicit StandIns(const std::vector<NodeBase*>& nodes) : m_originals(nodes) {
        QHash<const NodeBase*, NodeBase*> standInOf;
        for (const NodeBase* node : nodes) {
            m_owned.push_back(std::make_unique<NodeBase>(StandInLayout::readableText(node->getText())));
            standInOf.insert(node, m_owned.back().get());
        }
        for (const NodeBase* node : nodes) {
            for (const EdgeBase* edge : node->getOutgoingEdges()) {
                NodeBase* target = edge != nullptr ? standInOf.value(edge->getTarget()) : nullptr;
                if (target != nullptr)
                    m_edges.push_back(std::make_unique<EdgeBase>(standInOf.value(node), target));
            }
        }
    }

    [[nodiscard]] std::vector<NodeBase*> nodes() const {
        std::vector<NodeBase*> nodes;
        for (const std::unique_ptr<NodeBase>& node : m_owned)
            nodes.push_back(node.get());
        return nodes;
    }
    /// Moves the originals to where their stand-ins are.
    void copyCenters() const {
        for (std::size_t i = 0; i < m_owned.size(); ++i)
            m_originals[i]->moveTo(m_owned[i]->getCenter().x(), m_owned[i]->getCenter().y());
    }

private:
    const std::vector<NodeBase*>& m_originals;
    std::vector<std::unique_ptr<NodeBase>> m_owned;
    // Go first: they detach themselves from their nodes.
    std::vector<std::unique_ptr<EdgeBase>> m_edges;
};

} // namespace

void StandInLayout::layOut(const std::vector<NodeBase*>& nodes) {
    const StandIns standIns(nodes);
    GenericGraph::GraphvisLayout layout;
    layout.layOut(standIns.nodes());
    m_succeeded = layout.hasSucceeded();
    if (m_succeeded)
        standIns.copyCenters();
}

// A text for dot is in quotes; several of them, joined by +, are one.
QString StandInLayout::readableText(const QString& text) {
    // What dot takes for a single character, such as `&lt;`.
    static const QRegularExpression characterName(QStringLiteral("&(#?\\w+;)"));
    QString plain = text;
    for (QChar& character : plain)
        character = readable(character);
    plain.replace(characterName, QStringLiteral("+\\1"));
    QString pieces = plain.left(longestPiece);
    for (int i = longestPiece; i < plain.size(); i += longestPiece)
        pieces += QStringLiteral("\" + \"") + plain.mid(i, longestPiece);
    return pieces;
}

} // namespace Kova::GUI::ControlFlowGraphExpr
