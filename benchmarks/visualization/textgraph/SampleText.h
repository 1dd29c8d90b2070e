// SPDX-License-Identifier: MIT
// The text graph that the benchmarks work on.
#pragma once

#include "tests/visualization/textgraph/TestTextGraph.h"
#include "visualization/textgraph/CellPainter.h"

#include <QPainter>

#include <vector>

namespace Kova::GUI::TextGraph {

enum class Arrows {
    Near, ///< to words at most ten lines away
    Any,  ///< to any word: long arrows everywhere
    Hub   ///< all from one word to any other
};

/// A viewport of 1280 × 800 pixels over lines of 12 words, ten arrows a line.
class SampleText : public TestTextGraph {
public:
    static constexpr int wordsPerLine = 12;
    static constexpr int arrowsPerLine = 10;

    /// Everything up to a picture that can be shown and hovered.
    SampleText(int lineCount, Arrows arrows) : TestTextGraph(QSize(1280, 800)) {
        build(lineCount, arrows);
        show();
    }
    SampleText() : TestTextGraph(QSize(1280, 800)) {}

    void build(int lineCount, Arrows arrows) {
        std::mt19937 generator(1);
        clear();
        addRandom(generator, lineCount, wordsPerLine, arrows == Arrows::Hub ? 0 : arrowsPerLine * lineCount,
                  arrows == Arrows::Near ? 10 : lineCount);
        if (arrows == Arrows::Hub)
            addHub(generator, lineCount);
        reorder(true, 2);
        finish();
    }
    void scrollToMiddle() { scrollTo(horizontalScrollBar()->maximum() / 2, verticalScrollBar()->maximum() / 2); }

    /// What a view without culling does.
    bool drawsEverything = false;

    void drawGraph(QPainter& painter) override {
        if (!drawsEverything) {
            TestTextGraph::drawGraph(painter);
            return;
        }
        CellPainter cells(painter, getFont(), getCharWidth());
        for (const NodesLine& line : getLines()) {
            for (const NodeBase* node : line.nodes)
                cells.draw(*node);
        }
        for (int i = 0; i < getEdges().size(); ++i)
            getEdges().at(i)->draw(painter, i == getSelectedEdge());
    }

private:
    void addHub(std::mt19937& generator, int lineCount) {
        const auto any = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(generator); };
        static const QColor colors[] = {Qt::blue, Qt::red, Qt::darkGreen, Qt::magenta};
        GraphNodeBase* hub = node(lineCount / 2, 3);
        for (int i = 0; i < arrowsPerLine * lineCount; ++i)
            join(hub, node(any(0, lineCount - 1), any(0, wordsPerLine - 1)), colors[i % 4]);
        moveCloseLinesApart();
    }
};

} // namespace Kova::GUI::TextGraph
