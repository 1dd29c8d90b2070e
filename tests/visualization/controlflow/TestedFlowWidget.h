// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/controlflow/ControlFlowGraphWidget.h"
#include "visualization/textgraph/EdgeBase.h"
#include "visualization/textgraph/GraphNodeBase.h"

#include <QCoreApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QStringList>

/// A widget that lets tests look inside and counts its repaints.
class TestedFlowWidget : public Kova::GUI::ControlFlowGraph::ControlFlowGraphWidget {
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

    /// Sends the viewport a mouse event.
    void mouse(QEvent::Type type, const QPoint& position, Qt::MouseButton button = Qt::NoButton,
               Qt::MouseButtons buttons = Qt::NoButton) {
        QMouseEvent event(type, position, viewport()->mapToGlobal(position), button, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(viewport(), &event);
    }

    int repaints = 0;

protected:
    void paintEvent(QPaintEvent* event) override {
        ++repaints;
        ControlFlowGraphWidget::paintEvent(event);
    }
};
