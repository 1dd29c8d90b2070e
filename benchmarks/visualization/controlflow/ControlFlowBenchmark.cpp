// SPDX-License-Identifier: MIT
// What it takes to show where control goes in a function, from the tree to the picture on the screen; and the parts
// that nobody can save: the analysis, and printing the text.
#include "benchmarks/environment/printing/NullSink.h"
#include "benchmarks/frontends/c/FunctionBody.h"
#include "benchmarks/visualization/WidgetBenchmarks.h"
#include "benchmarks/visualization/controlflow/GeneratedFunction.h"
#include "environment/analyses/controlflow/ControlFlowGraph.h"
#include "environment/analyses/controlflow/ControlFlowGraphExpr.h"
#include "environment/analyses/controlflow/ControlFlowGraphExprBuilder.h"
#include "environment/printing/OutToC.h"
#include "environment/printing/ProgramTextBuilder.h"
#include "visualization/controlflow/ControlFlowGraphExprWidget.h"
#include "visualization/controlflow/ControlFlowGraphWidget.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Kova;
using Benchmark::FunctionBody;
using GUI::ControlFlowGraph::ControlFlowGraphWidget;
using GUI::ControlFlowGraphExpr::ControlFlowGraphExprWidget;

namespace {

std::string functionOf(const benchmark::State& state) {
    return Benchmark::generateFunction(static_cast<std::size_t>(state.range(0)));
}

/// While it lives, what runs as `dot` answers at once with nodes in a column, so that its own time does not count.
class InstantGraphviz {
public:
    explicit InstantGraphviz(std::size_t nodes) : m_path(qgetenv("PATH")) {
        QFile plain(m_folder.filePath("plain"));
        plain.open(QIODevice::WriteOnly);
        plain.write("graph 1 1 " + QByteArray::number(static_cast<qulonglong>(nodes)) + "\n");
        for (std::size_t i = 0; i < nodes; ++i) {
            const QByteArray number = QByteArray::number(static_cast<qulonglong>(i));
            plain.write("node N" + number + " 3.25 " + number + ".5 1.75 0.5 text solid box black lightgrey\n");
        }
        plain.write("stop\n");
        QFile dot(m_folder.filePath("dot"));
        dot.open(QIODevice::WriteOnly);
        dot.write("#!/bin/sh\n/bin/cat " + QFile::encodeName(plain.fileName()) + " > /tmp/1.dot.plain\n");
        dot.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        qputenv("PATH", QFile::encodeName(m_folder.path()));
    }
    ~InstantGraphviz() { qputenv("PATH", m_path); }
    InstantGraphviz(const InstantGraphviz&) = delete;
    InstantGraphviz& operator=(const InstantGraphviz&) = delete;

private:
    QTemporaryDir m_folder;
    QByteArray m_path;
};

/// The text alone, into a sink that drops it.
void nullSink(benchmark::State& state) {
    FunctionBody body(functionOf(state));
    for (auto _ : state) {
        Benchmark::NullSink sink;
        Shared::ProgramTextBuilder builder(sink, {});
        body.get().accept(builder);
    }
}

void statementAnalysis(benchmark::State& state) {
    FunctionBody body(functionOf(state));
    std::size_t statements = 0;
    for (auto _ : state)
        statements = ::ControlFlowGraph(body.get()).getStatements().size();
    state.counters["statements"] = static_cast<double>(statements);
}

void overTheText(benchmark::State& state) {
    FunctionBody body(functionOf(state));
    ControlFlowGraphWidget widget;
    widget.resize(1280, 800);
    widget.show();
    for (auto _ : state) {
        widget.onNewBlock(&body.get(), true);
        widget.makeRoomAbove();
        widget.viewport()->repaint();
    }
    state.counters["lines"] = widget.getLines().size();
    state.counters["arrows"] = widget.getEdges().size();
}

void expressionAnalysis(benchmark::State& state) {
    FunctionBody body(functionOf(state));
    for (auto _ : state) {
        ::ControlFlowGraphExpr graph;
        ControlFlowGraphExprBuilder(true).build(body.get(), graph);
        benchmark::DoNotOptimize(graph.getBasicBlocks().data());
    }
}

/// The texts of all blocks, and nothing done with them.
void expressionTexts(benchmark::State& state) {
    FunctionBody body(functionOf(state));
    ::ControlFlowGraphExpr graph;
    ControlFlowGraphExprBuilder(true).build(body.get(), graph);
    for (auto _ : state)
        for (const ::ControlFlowGraphExpr::BasicBlock* block : graph.getBasicBlocks())
            for (const Tessel::ExpressionBase* expression : block->getExpressions())
                benchmark::DoNotOptimize(Backends::OutToC::expressionToString(*expression));
}

void showBlocks(benchmark::State& state, bool usesGraphviz) {
    FunctionBody body(functionOf(state));
    ControlFlowGraphExprWidget widget;
    widget.resize(1280, 800);
    widget.show();
    widget.setUsesGraphviz(false);
    widget.onNewStatement(&body.get());
    const InstantGraphviz graphviz(widget.getNodes().size());
    widget.setUsesGraphviz(usesGraphviz);
    for (auto _ : state) {
        widget.onNewStatement(&body.get());
        widget.viewport()->repaint();
    }
    state.counters["blocks"] = static_cast<double>(widget.getNodes().size());
    state.counters["arrows"] = static_cast<double>(widget.getEdges().size());
    if (widget.hasGraphvizFailed())
        state.SkipWithError("what stands for dot was not run");
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgName("lines")->Arg(200)->Arg(2000)->Arg(8000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(nullSink)->Apply(sizes);
BENCHMARK(statementAnalysis)->Apply(sizes);
BENCHMARK(overTheText)->Apply(sizes);
BENCHMARK(expressionAnalysis)->Apply(sizes);
BENCHMARK(expressionTexts)->Apply(sizes);
BENCHMARK_CAPTURE(showBlocks, instant_dot, true)->Apply(sizes);
BENCHMARK_CAPTURE(showBlocks, rows, false)->Apply(sizes);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return Benchmark::runWithWidgets(argc, argv);
}
