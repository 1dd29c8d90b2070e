// SPDX-License-Identifier: MIT
// A generic graph widget that tests fill by hand or at random.
#pragma once

#include "visualization/graphcore/GenericGraphWidgetBase.h"

#include <QMouseEvent>
#include <QScrollBar>

#include <random>

namespace Kova::GUI::GenericGraph {

/// Counts how often it is drawn.
class CountedNode : public NodeBase {
public:
    using NodeBase::NodeBase;
    void draw(QPainter& painter, bool selected) const override {
        ++drawn;
        NodeBase::draw(painter, selected);
    }
    mutable int drawn = 0;
};

class TestGraph : public GenericGraphWidgetBase {
public:
    explicit TestGraph(const QSize& viewportSize = QSize(400, 300)) {
        setFrameShape(QFrame::NoFrame);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        resize(viewportSize);
        show();
    }

    using GenericGraphWidgetBase::contextMenu;
    using GenericGraphWidgetBase::edgeBounds;
    using GenericGraphWidgetBase::edgePolygons;
    using GenericGraphWidgetBase::edges;
    using GenericGraphWidgetBase::grabbedNode;
    using GenericGraphWidgetBase::hoveredEdge;
    using GenericGraphWidgetBase::hoveredNode;
    using GenericGraphWidgetBase::labelFont;
    using GenericGraphWidgetBase::nodes;
    using GenericGraphWidgetBase::setEventHandler;
    using GenericGraphWidgetBase::setLabelFont;

    CountedNode* addNode(const QString& text, const QPoint& center, const QSize& size = QSize(41, 21)) {
        auto* node = new CountedNode(text);
        node->setSize(size.width(), size.height());
        nodes().push_back(node);
        node->moveTo(center.x(), center.y());
        return node;
    }

    EdgeBase* addEdge(NodeBase* source, NodeBase* target) {
        auto* edge = new EdgeBase(source, target);
        edges().push_back(edge);
        if (source == target)
            edge->setShapeKind(EdgeBase::Loop);
        edge->updatePos();
        return edge;
    }

    /// Boxes smaller than their labels among them, labelled edges, wide pens, arcs and loops.
    void addRandom(std::mt19937& generator, int nodeCount, int edgeCount, int extent) {
        const auto any = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(generator); };
        for (int i = 0; i < nodeCount; ++i) {
            const QString text(any(0, 5) == 0 ? QStringLiteral("a label wider than its box")
                                              : QStringLiteral("n%1").arg(i));
            addNode(text, QPoint(any(-20, extent), any(-20, extent)), QSize(any(4, 90), any(4, 40)));
        }
        for (int i = 0; i < edgeCount; ++i) {
            const auto anyNode = [&] { return nodes()[static_cast<std::size_t>(any(0, nodeCount - 1))]; };
            EdgeBase* edge = addEdge(anyNode(), anyNode());
            edge->setBendIndex(any(0, 3) == 0 ? any(1, 5) : 0);
            if (any(0, 3) == 0)
                edge->setText(QStringLiteral("edge %1").arg(i));
            if (any(0, 5) == 0)
                edge->setPen(QPen(QBrush(Qt::darkGreen), any(1, 12), Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        }
        updateCollisions();
        updateMap();
    }

    /// Each hands an event to the view as its viewport does; true when it was accepted.
    bool press(const QPoint& position, Qt::MouseButton button = Qt::LeftButton) {
        return mouse(QEvent::MouseButtonPress, position, button, button);
    }
    bool release(const QPoint& position, Qt::MouseButton button = Qt::LeftButton) {
        return mouse(QEvent::MouseButtonRelease, position, button, Qt::NoButton);
    }
    bool doubleClick(const QPoint& position) {
        return mouse(QEvent::MouseButtonDblClick, position, Qt::LeftButton, Qt::LeftButton);
    }
    bool moveMouse(const QPoint& position, Qt::MouseButtons buttons = Qt::NoButton) {
        return mouse(QEvent::MouseMove, position, Qt::NoButton, buttons);
    }

private:
    bool mouse(QEvent::Type type, const QPoint& position, Qt::MouseButton button, Qt::MouseButtons buttons) {
        QMouseEvent event(type, position, viewport()->mapToGlobal(position), button, buttons, Qt::NoModifier);
        viewportEvent(&event);
        return event.isAccepted();
    }
};

} // namespace Kova::GUI::GenericGraph
