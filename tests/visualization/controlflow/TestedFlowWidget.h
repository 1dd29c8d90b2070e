// SPDX-License-Identifier: MIT
#pragma once

#include "tests/visualization/graphcore/ObservedWidget.h"
#include "visualization/controlflow/ControlFlowGraphWidget.h"
#include "visualization/textgraph/EdgeBase.h"
#include "visualization/textgraph/GraphNodeBase.h"

#include <QMenu>
#include <QStringList>

/// A widget that lets tests look inside.
class TestedFlowWidget : public ObservedWidget<Kova::GUI::ControlFlowGraph::ControlFlowGraphWidget> {
public:
    using ControlFlowGraphWidget::convertTextToNodes;
    using ControlFlowGraphWidget::edgePolygons;
    using ControlFlowGraphWidget::heldNode;
    using ControlFlowGraphWidget::menu;

    [[nodiscard]] const Kova::GUI::TextGraph::EdgeBase& edge(int index) const { return *getEdges().at(index); }
    /// The only node of a line.
    [[nodiscard]] const Kova::GUI::TextGraph::NodeBase& node(int line) const {
        return *getLines().at(line).nodes.at(0);
    }
    [[nodiscard]] QStringList texts() const {
        QStringList texts;
        for (const Kova::GUI::TextGraph::NodesLine& line : getLines())
            texts.append(line.nodes.size() == 1 ? line.nodes.first()->getText() : QString("?"));
        return texts;
    }
    /// All edges by the lines, from 0, that they join, as "source>target".
    [[nodiscard]] QStringList arrows() const {
        QStringList arrows;
        for (const Kova::GUI::TextGraph::EdgeBase* shown : getEdges())
            arrows.append(
                QString("%1>%2").arg(getNodeCoords(shown->getFrom()).x()).arg(getNodeCoords(shown->getTo()).x()));
        return arrows;
    }
};
