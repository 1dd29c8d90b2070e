// SPDX-License-Identifier: MIT
// What a text graph costs: building, filtering, hovering, dragging, repainting; and against plain ways to do it.
#include "SampleText.h"
#include "tests/visualization/textgraph/PlainPorts.h"

#include <QApplication>

#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <vector>

namespace {

using namespace Kova::GUI::TextGraph;

/// Layout of the words, nodes, edges with their ports, lines moved apart, three rounds of sorting, hit map.
void build(benchmark::State& state, Arrows arrows) {
    SampleText graph;
    for (auto _ : state)
        graph.build(static_cast<int>(state.range(0)), arrows);
}

/// A kind of arrows is hidden or shown: ports, sorting, hit map, repaint.
void filterChange(benchmark::State& state, Arrows arrows) {
    SampleText graph(static_cast<int>(state.range(0)), arrows);
    graph.scrollToMiddle();
    QApplication::processEvents();
    bool all = true;
    for (auto _ : state) {
        all = !all;
        graph.filter = [all](const EdgeBase* edge) { return all || edge->getPen().color() != Qt::red; };
        graph.updateEdgesVisibility();
        graph.updateMap();
        graph.viewport()->repaint();
    }
}

std::vector<QPoint> positions(const SampleText& graph) {
    std::mt19937 generator(2);
    std::uniform_int_distribution<int> x(0, graph.getGraphSize().width());
    std::uniform_int_distribution<int> y(0, graph.getGraphSize().height());
    std::vector<QPoint> points(1024);
    for (QPoint& point : points)
        point = QPoint(x(generator), y(generator));
    return points;
}

/// The edge at a point or one unit beside it.
template <typename FindEdge>
void hover(benchmark::State& state, Arrows arrows, FindEdge findEdge) {
    static constexpr QPoint probes[] = {{0, 0}, {-1, 0}, {1, 0}, {0, -1}, {0, 1}};
    const SampleText graph(static_cast<int>(state.range(0)), arrows);
    const std::vector<QPoint> points = positions(graph);
    std::size_t next = 0;
    for (auto _ : state) {
        const QPoint& point = points[next++ % points.size()];
        int edge = -1;
        for (const QPoint& probe : probes) {
            edge = findEdge(graph, point + probe);
            if (edge != -1)
                break;
        }
        benchmark::DoNotOptimize(edge);
    }
}

void hoverWidget(benchmark::State& state, Arrows arrows) {
    hover(state, arrows, [](const SampleText& graph, const QPoint& point) { return graph.getEdgeByPos(point); });
}

bool isOnPiece(const QPointF& a, const QPointF& b, const QPoint& point) {
    const QPointF from(std::round(a.x()), std::round(a.y()));
    const QPointF along = QPointF(std::round(b.x()), std::round(b.y())) - from;
    const QPointF off = QPointF(point) - from;
    const double squared = QPointF::dotProduct(along, along);
    const double cross = along.x() * off.y() - along.y() * off.x();
    const double dot = QPointF::dotProduct(along, off);
    return std::abs(cross) <= std::sqrt(squared) / 2.0 && dot >= 0.0 && dot <= squared;
}

/// From the first edge to the last, rectangle by rectangle, piece by piece.
int plainFindEdge(const SampleText& graph, const QPoint& point) {
    for (int i = 0; i < graph.edgeRects().size(); ++i) {
        if (!graph.edgeRects().at(i).contains(point))
            continue;
        for (const QPolygonF& polygon : graph.edgePolygons().at(i)) {
            for (int k = 1; k < polygon.size(); ++k) {
                if (isOnPiece(polygon.at(k - 1), polygon.at(k), point))
                    return i;
            }
        }
    }
    return -1;
}

void hoverPlainWalk(benchmark::State& state, Arrows arrows) {
    hover(state, arrows, plainFindEdge);
}

/// A step of dragging a line in the middle.
void dragStep(benchmark::State& state, Arrows arrows, bool repainted) {
    const int lineCount = static_cast<int>(state.range(0));
    SampleText graph(lineCount, arrows);
    graph.scrollToMiddle();
    QApplication::processEvents();
    const QPoint middle = graph.middleOf(lineCount / 2, 2) - graph.scrolled();
    graph.press(middle);
    int step = 0;
    for (auto _ : state) {
        ++step;
        graph.drag(middle + QPoint(step % 5, step % 7));
        if (repainted)
            graph.viewport()->repaint();
    }
}

/// Letting a line go that was moved: sorting and the hit map for half of the edges.
void dragEnd(benchmark::State& state, Arrows arrows) {
    const int lineCount = static_cast<int>(state.range(0));
    SampleText graph(lineCount, arrows);
    int way = 3;
    for (auto _ : state) {
        way = -way;
        const QPoint middle = graph.middleOf(lineCount / 2, 2);
        graph.press(middle);
        graph.drag(middle - QPoint(0, way));
        graph.release(middle);
    }
}

void repaint(benchmark::State& state, Arrows arrows, bool everything) {
    SampleText graph(static_cast<int>(state.range(0)), arrows);
    graph.drawsEverything = everything;
    graph.scrollToMiddle();
    QApplication::processEvents();
    for (auto _ : state)
        graph.viewport()->repaint();
}

/// A node with a port for each of many edges, which lead farther and farther left, except for the first, which leads
/// leftmost: every edge has to pass all others but the first, one by one.
template <typename AddNode, typename AddEdge>
void fillCrowd(int ports, AddNode addNode, AddEdge addEdge) {
    addNode(QPoint(2 * ports, 20), QRect(0, -15, 4 * ports, 20));
    addNode(QPoint(-1000, 60), QRect(0, -15, 60, 20));
    for (int i = 1; i < ports; ++i)
        addNode(QPoint(8 * (ports - i), 60 + i % 3 * 24), QRect(0, -15, 60, 20));
    for (int i = 1; i <= ports; ++i)
        addEdge(static_cast<std::size_t>(i));
}

void sortCrowd(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        std::vector<std::unique_ptr<GraphNodeBase>> nodes;
        EdgesList edges;
        fillCrowd(
            static_cast<int>(state.range(0)),
            [&](const QPoint& pos, const QRect& rect) {
                nodes.push_back(std::make_unique<GraphNodeBase>(pos, QString()));
                nodes.back()->setRect(rect);
            },
            [&](std::size_t to) { edges.add(new EdgeBase(nodes[0].get(), nodes[to].get())); });
        state.ResumeTiming();
        nodes[0]->reorder(4);
    }
}

void sortCrowdPlainly(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        PlainPorts graph;
        fillCrowd(
            static_cast<int>(state.range(0)),
            [&](const QPoint& pos, const QRect& rect) {
                graph.nodes.push_back({pos, rect, {}, {}});
            },
            [&](std::size_t to) { graph.addEdge(0, to); });
        state.ResumeTiming();
        graph.reorder(0, 4);
    }
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgName("lines")->Arg(100)->Arg(500)->Arg(3000);
}
void milliseconds(benchmark::internal::Benchmark* benchmark) {
    benchmark->Unit(benchmark::kMillisecond)->Apply(sizes);
}
void crowds(benchmark::internal::Benchmark* benchmark) {
    benchmark->Unit(benchmark::kMillisecond)->ArgName("ports")->Arg(50)->Arg(500)->Arg(5000);
}

BENCHMARK_CAPTURE(build, near, Arrows::Near)->Apply(milliseconds);
BENCHMARK_CAPTURE(build, any, Arrows::Any)->Apply(milliseconds);
BENCHMARK_CAPTURE(build, hub, Arrows::Hub)->Apply(milliseconds);
BENCHMARK_CAPTURE(filterChange, near, Arrows::Near)->Apply(milliseconds);
BENCHMARK_CAPTURE(filterChange, any, Arrows::Any)->Apply(milliseconds);
BENCHMARK_CAPTURE(filterChange, hub, Arrows::Hub)->Apply(milliseconds);
BENCHMARK_CAPTURE(hoverWidget, near, Arrows::Near)->Apply(sizes);
BENCHMARK_CAPTURE(hoverPlainWalk, near, Arrows::Near)->Apply(sizes);
BENCHMARK_CAPTURE(hoverWidget, any, Arrows::Any)->Apply(sizes);
BENCHMARK_CAPTURE(hoverPlainWalk, any, Arrows::Any)->Apply(sizes);
BENCHMARK_CAPTURE(dragStep, near_repainted, Arrows::Near, true)->Apply(milliseconds);
BENCHMARK_CAPTURE(dragStep, any_repainted, Arrows::Any, true)->Apply(milliseconds);
BENCHMARK_CAPTURE(dragStep, any_alone, Arrows::Any, false)->Apply(milliseconds);
BENCHMARK_CAPTURE(dragEnd, near, Arrows::Near)->Apply(milliseconds);
BENCHMARK_CAPTURE(dragEnd, any, Arrows::Any)->Apply(milliseconds);
BENCHMARK_CAPTURE(repaint, near_culled, Arrows::Near, false)->Apply(milliseconds);
BENCHMARK_CAPTURE(repaint, near_everything, Arrows::Near, true)->Apply(milliseconds);
BENCHMARK_CAPTURE(repaint, any_culled, Arrows::Any, false)->Apply(milliseconds);
BENCHMARK_CAPTURE(repaint, any_everything, Arrows::Any, true)->Apply(milliseconds);
BENCHMARK(sortCrowd)->Apply(crowds);
BENCHMARK(sortCrowdPlainly)->Apply(crowds);

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
