// SPDX-License-Identifier: MIT
// How long a repaint of the whole viewport takes: culled, drawing everything, and by a QGraphicsView.
#include "SampleGraph.h"
#include "SampleScene.h"
#include "benchmarks/visualization/WidgetBenchmarks.h"

#include <QApplication>

#include <benchmark/benchmark.h>

namespace {

using namespace Kova::GUI::GenericGraph;

/// Arguments: nodes along a side, scale in percent, 1 for a viewport as large as the scaled picture.
void prepare(SampleGraph& graph, const benchmark::State& state) {
    const double scale = static_cast<double>(state.range(1)) / 100.0;
    if (state.range(2) != 0)
        graph.resize(QSize(graph.getGraphSize() * scale));
    graph.setScale(scale);
    graph.scrollToMiddle();
    QApplication::processEvents();
}

void repaintWidget(benchmark::State& state, Links links, bool everything) {
    SampleGraph graph(static_cast<int>(state.range(0)), links);
    graph.drawsEverything = everything;
    prepare(graph, state);
    for (auto _ : state)
        graph.viewport()->repaint();
}

void repaintView(benchmark::State& state, Links links) {
    SampleGraph graph(static_cast<int>(state.range(0)), links);
    prepare(graph, state);
    SampleScene scene(graph);
    scene.view.scale(graph.getScale(), graph.getScale());
    scene.view.centerOn(scene.scene.sceneRect().center());
    QApplication::processEvents();
    for (auto _ : state)
        scene.view.viewport()->repaint();
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Unit(benchmark::kMillisecond)->ArgNames({"side", "percent", "whole"});
    for (const int side : {32, 100, 200}) {
        benchmark->Args({side, 100, 0});
        benchmark->Args({side, 10, 0});
        if (side <= 100)
            benchmark->Args({side, 10, 1});
    }
}

BENCHMARK_CAPTURE(repaintWidget, near_culled, Links::Near, false)->Apply(sizes);
BENCHMARK_CAPTURE(repaintWidget, near_everything, Links::Near, true)->Apply(sizes);
BENCHMARK_CAPTURE(repaintView, near_view, Links::Near)->Apply(sizes);
BENCHMARK_CAPTURE(repaintWidget, random_culled, Links::Random, false)->Apply(sizes);
BENCHMARK_CAPTURE(repaintWidget, random_everything, Links::Random, true)->Apply(sizes);
BENCHMARK_CAPTURE(repaintView, random_view, Links::Random)->Apply(sizes);

} // namespace

int main(int argc, char** argv) {
    return Kova::Benchmark::runWithWidgets(argc, argv);
}
