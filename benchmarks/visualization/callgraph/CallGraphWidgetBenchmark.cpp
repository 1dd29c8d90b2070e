// SPDX-License-Identifier: MIT
#include "benchmarks/visualization/WidgetBenchmarks.h"
#include "environment/analyses/callgraph/CallGraph.h"
#include "tests/visualization/callgraph/SampleProgram.h"
#include "visualization/callgraph/CallGraphWidget.h"

#include <benchmark/benchmark.h>

#include <random>
#include <string>
#include <vector>

// Opening the call graph of a program with twice as many calls as procedures: the whole entry, the analysis alone, and
// the conversion of its result into lists of texts alone. What remains of the entry is nearly all force layout.

namespace {

class OpenWidget : public Kova::GUI::CallGraph::CallGraphWidget {
public:
    using CallGraphWidget::callGraphToLists;
};

void fill(SampleProgram& program, int count) {
    std::mt19937 random(20240601);
    Kova::Tessel::TranslationUnit& file = program.addFile("large.c");
    std::vector<SampleProgram::Procedure*> procedures;
    for (int i = 0; i < count; ++i)
        procedures.push_back(&SampleProgram::addProcedure(file, "procedure_" + std::to_string(i)));
    const auto size = procedures.size();
    for (std::size_t i = 1; i < size; ++i)
        SampleProgram::addCall(*procedures[random() % i], *procedures[i], "1");
    for (std::size_t i = 0; i <= size; ++i)
        SampleProgram::addCall(*procedures[random() % size], *procedures[random() % size], "2");
}

void openProgram(benchmark::State& state) {
    SampleProgram program;
    fill(program, static_cast<int>(state.range(0)));
    OpenWidget widget;
    widget.resize(1280, 800);
    for (auto _ : state)
        widget.onNewProgram(program.unit());
}

void analyseProgram(benchmark::State& state) {
    SampleProgram program;
    fill(program, static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const ::CallGraph graph(&program.unit());
        benchmark::DoNotOptimize(graph.getGraph().size());
    }
}

void convertToLists(benchmark::State& state) {
    SampleProgram program;
    fill(program, static_cast<int>(state.range(0)));
    const ::CallGraph graph(&program.unit());
    for (auto _ : state) {
        std::vector<std::string> names;
        std::vector<std::pair<int, int>> edges;
        std::vector<Kova::Tessel::SubroutineDeclaration*> declarations;
        std::vector<std::vector<std::string>> edgeCalls;
        OpenWidget::callGraphToLists(graph, names, edges, declarations, edgeCalls);
        benchmark::DoNotOptimize(edges.data());
    }
}

} // namespace

BENCHMARK(openProgram)->Arg(200)->Arg(1000)->Arg(5000)->Unit(benchmark::kMillisecond);
BENCHMARK(analyseProgram)->Arg(200)->Arg(1000)->Arg(5000)->Unit(benchmark::kMillisecond);
BENCHMARK(convertToLists)->Arg(200)->Arg(1000)->Arg(5000)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return Kova::Benchmark::runWithWidgets(argc, argv);
}
