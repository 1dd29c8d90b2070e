// SPDX-License-Identifier: MIT
// The graphs that the benchmarks of the generic graph work on.
#pragma once

#include "visualization/graphcore/GenericGraphWidgetBase.h"

#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <cstddef>
#include <random>
#include <string>

namespace Kova::GUI::GenericGraph {

enum class Links {
    Near,  ///< to nodes at most five cells away
    Random ///< between any two nodes: long edges everywhere
};

/// A widget of 1280 × 800 pixels with side × side nodes on a grid, 150 units apart, and two edges a node.
class SampleGraph : public GenericGraphWidgetBase {
public:
    static constexpr int pitch = 150;

    explicit SampleGraph(int side, Links links = Links::Near) {
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setFrameShape(QFrame::NoFrame);
        resize(1280, 800);
        addNodes(side);
        addEdges(side, links);
        updateCollisions();
        updateMap();
        show();
    }

    using GenericGraphWidgetBase::edgeBounds;
    using GenericGraphWidgetBase::edgePolygons;
    using GenericGraphWidgetBase::labelFont;
    using GenericGraphWidgetBase::mouseMoveEvent;
    using GenericGraphWidgetBase::wheelEvent;

    void scrollToMiddle() {
        horizontalScrollBar()->setValue(horizontalScrollBar()->maximum() / 2);
        verticalScrollBar()->setValue(verticalScrollBar()->maximum() / 2);
    }

    /// What a view without culling does.
    bool drawsEverything = false;

protected:
    void paintEvent(QPaintEvent* event) override {
        if (!drawsEverything) {
            GenericGraphWidgetBase::paintEvent(event);
            return;
        }
        QPainter painter(viewport());
        painter.translate(-horizontalScrollBar()->value(), -verticalScrollBar()->value());
        painter.scale(getScale(), getScale());
        painter.setRenderHint(QPainter::Antialiasing);
        drawGraph(painter);
    }

private:
    void addNodes(int side) {
        for (int i = 0; i < side * side; ++i)
            nodes().push_back(new NodeBase(QStringLiteral("node%1").arg(i)));
        updateNodeSizes();
        for (int i = 0; i < side * side; ++i)
            nodes()[static_cast<std::size_t>(i)]->moveTo(pitch / 2 + i % side * pitch, pitch / 2 + i / side * pitch);
    }

    void addEdges(int side, Links links) {
        std::mt19937 generator(1);
        const auto anyOf = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(generator); };
        for (int i = 0; i < 2 * side * side; ++i) {
            const int column = i / 2 % side;
            const int row = i / 2 / side;
            int toColumn = column;
            int toRow = row;
            while (toColumn == column && toRow == row) {
                const int reach = links == Links::Near ? 5 : side;
                toColumn = anyOf(std::max(0, column - reach), std::min(side - 1, column + reach));
                toRow = anyOf(std::max(0, row - reach), std::min(side - 1, row + reach));
            }
            auto* edge = new EdgeBase(nodes()[static_cast<std::size_t>(row * side + column)],
                                      nodes()[static_cast<std::size_t>(toRow * side + toColumn)]);
            edges().push_back(edge);
            edge->updatePos();
        }
    }
};

} // namespace Kova::GUI::GenericGraph
