// SPDX-License-Identifier: MIT
// The same graph as items of a QGraphicsScene, the usual way to draw graphs with Qt: the peer to measure against.
#pragma once

#include "SampleGraph.h"

#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QGraphicsView>

namespace Kova::GUI::GenericGraph {

class NodeItem : public QGraphicsItem {
public:
    explicit NodeItem(const NodeBase& node, const QFont& font) : m_node(node), m_font(font) {}
    [[nodiscard]] QRectF boundingRect() const override { return QRectF(m_node.getRect()).adjusted(-1, -1, 1, 1); }
    void paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) override {
        painter->setFont(m_font);
        m_node.draw(*painter, false);
    }

private:
    const NodeBase& m_node;
    QFont m_font;
};

class EdgeItem : public QGraphicsItem {
public:
    explicit EdgeItem(const EdgeBase& edge) : m_edge(edge), m_path(edge.getShape()) {}
    [[nodiscard]] QRectF boundingRect() const override { return m_path.boundingRect().adjusted(-1, -1, 1, 1); }
    /// The line with half a unit on each side: what a click on an edge means.
    [[nodiscard]] QPainterPath shape() const override {
        QPainterPathStroker stroker;
        stroker.setWidth(1.0);
        return stroker.createStroke(m_path);
    }
    void paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) override { m_edge.draw(*painter, false); }

private:
    const EdgeBase& m_edge;
    QPainterPath m_path;
};

class SampleScene {
public:
    explicit SampleScene(SampleGraph& graph) {
        for (const EdgeBase* edge : graph.getEdges())
            scene.addItem(new EdgeItem(*edge));
        for (const NodeBase* node : graph.getNodes())
            scene.addItem(new NodeItem(*node, graph.labelFont()));
        scene.setSceneRect(0, 0, graph.getGraphSize().width(), graph.getGraphSize().height());
        view.setScene(&scene);
        view.setRenderHint(QPainter::Antialiasing);
        view.setViewportUpdateMode(QGraphicsView::FullViewportUpdate);
        view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.setFrameShape(QFrame::NoFrame);
        view.resize(graph.size());
        view.show();
    }

    QGraphicsScene scene;
    QGraphicsView view;
};

} // namespace Kova::GUI::GenericGraph
