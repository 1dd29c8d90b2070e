// SPDX-License-Identifier: MIT
// What the mouse costs in a large graph: hovering, a wheel notch, a step of dragging a node.
#include "SampleGraph.h"
#include "SampleScene.h"
#include "benchmarks/visualization/WidgetBenchmarks.h"
#include "tests/visualization/graphcore/PlainGraph.h"

#include <QApplication>
#include <QWheelEvent>

#include <benchmark/benchmark.h>

#include <random>
#include <vector>

namespace {

using namespace Kova::GUI::GenericGraph;

constexpr QPoint probes[] = {{0, 0}, {-1, 0}, {1, 0}, {0, -1}, {0, 1}};

std::vector<QPoint> positions(const SampleGraph& graph) {
    std::mt19937 generator(2);
    std::uniform_int_distribution<int> x(0, graph.getGraphSize().width());
    std::uniform_int_distribution<int> y(0, graph.getGraphSize().height());
    std::vector<QPoint> points(1024);
    for (QPoint& point : points)
        point = QPoint(x(generator), y(generator));
    return points;
}

/// One question of a mouse move: the node under the mouse, then the edge at it or one unit beside it.
template <typename FindNode, typename FindEdge>
void hover(benchmark::State& state, const SampleGraph& graph, FindNode findNode, FindEdge findEdge) {
    const std::vector<QPoint> points = positions(graph);
    std::size_t next = 0;
    for (auto _ : state) {
        const QPoint& point = points[next++ % points.size()];
        benchmark::DoNotOptimize(findNode(point));
        EdgeBase* edge = nullptr;
        for (const QPoint& probe : probes) {
            edge = findEdge(point + probe);
            if (edge)
                break;
        }
        benchmark::DoNotOptimize(edge);
    }
}

void hoverWidget(benchmark::State& state, Links links) {
    const SampleGraph graph(static_cast<int>(state.range(0)), links);
    hover(
        state, graph, [&](const QPoint& point) { return graph.findNodeByPosition(point); },
        [&](const QPoint& point) { return graph.findEdgeByPosition(point); });
}

void hoverPlainWalk(benchmark::State& state, Links links) {
    const SampleGraph graph(static_cast<int>(state.range(0)), links);
    hover(
        state, graph, [&](const QPoint& point) { return plainFindNode(graph.getNodes(), point); },
        [&](const QPoint& point) {
            return plainFindEdge(graph.getEdges(), graph.edgeBounds(), graph.edgePolygons(), point);
        });
}

/// The scene answers for nodes and edges at once, and once: with a tolerance of one unit instead of five probes.
void hoverScene(benchmark::State& state, Links links) {
    SampleGraph graph(static_cast<int>(state.range(0)), links);
    const SampleScene scene(graph);
    const std::vector<QPoint> points = positions(graph);
    scene.scene.items(QRectF(points[0], QSizeF(3.0, 3.0)));
    std::size_t next = 0;
    for (auto _ : state) {
        const QRectF around(points[next++ % points.size()] - QPoint(1, 1), QSizeF(3.0, 3.0));
        benchmark::DoNotOptimize(scene.scene.items(around, Qt::IntersectsItemShape));
    }
}

void wheelNotch(benchmark::State& state) {
    SampleGraph graph(static_cast<int>(state.range(0)));
    graph.scrollToMiddle();
    QApplication::processEvents();
    int delta = -120;
    for (auto _ : state) {
        const QPointF position(640.0, 400.0);
        QWheelEvent event(position, graph.viewport()->mapToGlobal(position.toPoint()), QPoint(), QPoint(0, delta),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        graph.wheelEvent(&event);
        delta = -delta;
    }
}

/// A notch that makes the whole map anew, as it has to without knowing what changed.
void wheelNotchFullMap(benchmark::State& state) {
    const SampleGraph graph(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(plainHitMap(graph.getEdges()));
}

void moveMiddleNode(const SampleGraph& graph, int step) {
    NodeBase& node = *graph.getNodes()[graph.getNodes().size() / 2];
    node.move(step % 2 == 0 ? 7 : -7, step % 4 < 2 ? 5 : -5);
}

void dragStep(benchmark::State& state, Links links) {
    SampleGraph graph(static_cast<int>(state.range(0)), links);
    int step = 0;
    for (auto _ : state) {
        moveMiddleNode(graph, step++);
        graph.updateCollisions();
    }
}

void dragStepPlain(benchmark::State& state, Links links) {
    SampleGraph graph(static_cast<int>(state.range(0)), links);
    int step = 0;
    for (auto _ : state) {
        moveMiddleNode(graph, step++);
        benchmark::DoNotOptimize(plainShapes(graph.getNodes(), graph.getEdges()));
    }
}

/// The end of a drag: the map is brought up to date with one moved node.
void release(benchmark::State& state, Links links) {
    SampleGraph graph(static_cast<int>(state.range(0)), links);
    int step = 0;
    for (auto _ : state) {
        moveMiddleNode(graph, step++);
        graph.updateMap();
    }
}

/// For what takes seconds a question in the largest graph.
void smallerSizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Unit(benchmark::kMicrosecond)->ArgName("side")->Arg(32)->Arg(100);
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Unit(benchmark::kMicrosecond)->ArgName("side")->Arg(32)->Arg(100)->Arg(200);
}

BENCHMARK_CAPTURE(hoverWidget, near, Links::Near)->Apply(sizes);
BENCHMARK_CAPTURE(hoverPlainWalk, near, Links::Near)->Apply(sizes);
BENCHMARK_CAPTURE(hoverScene, near, Links::Near)->Apply(sizes);
BENCHMARK_CAPTURE(hoverWidget, random, Links::Random)->Apply(sizes);
BENCHMARK_CAPTURE(hoverPlainWalk, random, Links::Random)->Apply(sizes);
BENCHMARK_CAPTURE(hoverScene, random, Links::Random)->Apply(smallerSizes);
BENCHMARK(wheelNotch)->Apply(sizes);
BENCHMARK(wheelNotchFullMap)->Apply(sizes);
BENCHMARK_CAPTURE(dragStep, near, Links::Near)->Apply(sizes);
BENCHMARK_CAPTURE(dragStep, random, Links::Random)->Apply(sizes);
BENCHMARK_CAPTURE(dragStepPlain, near, Links::Near)->Apply(smallerSizes);
BENCHMARK_CAPTURE(release, near, Links::Near)->Apply(sizes);
BENCHMARK_CAPTURE(release, random, Links::Random)->Apply(sizes);

} // namespace

int main(int argc, char** argv) {
    return Kova::Benchmark::runWithWidgets(argc, argv);
}
