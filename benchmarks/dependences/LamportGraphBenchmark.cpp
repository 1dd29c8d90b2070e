// SPDX-License-Identifier: MIT
#include "benchmarks/dependences/NestPrograms.h"
#include "benchmarks/dependences/PlainDependences.h"
#include "benchmarks/frontends/c/FunctionBody.h"
#include "environment/analyses/lamport/LamportGraph.h"

#include <benchmark/benchmark.h>

// What finding dependences costs, from the tree to the arrows, against isl asked about every pair of accesses.
namespace {

using namespace Kova;
using Benchmark::PlainDependences;
using DepGraph::LamportGraph;

std::size_t countCarriers(const LamportGraph& graph) {
    std::size_t carriers = 0;
    for (const DepGraph::LampArrow* arrow : graph.getArrows())
        carriers += arrow->getCarriers().size();
    return carriers;
}

void analyse(benchmark::State& state, const std::string& text, DepGraph::EN_RefineMethod method) {
    Benchmark::FunctionBody body(text);
    std::size_t arrows = 0;
    std::size_t carriers = 0;
    for (auto _ : state) {
        LamportGraph graph;
        graph.Build(body.get(), DepGraph::BP_DEFAULT, true);
        graph.Refine(method);
        arrows = graph.getArrows().size();
        carriers = countCarriers(graph);
    }
    state.counters["arrows"] = static_cast<double>(arrows);
    state.counters["carriers"] = static_cast<double>(carriers);
}

enum class Relations { Ready, Read };

void askIsl(benchmark::State& state, const std::string& text, Relations relations,
            PlainDependences::Questions questions) {
    Benchmark::FunctionBody body(text);
    const DepGraph::AccessModel model(body.get());
    PlainDependences plain(model);
    std::size_t carriers = 0;
    for (auto _ : state) {
        if (relations == Relations::Read)
            plain.readRelations();
        carriers = plain.find(questions);
    }
    state.counters["carriers"] = static_cast<double>(carriers);
    LamportGraph graph;
    graph.Build(body.get(), DepGraph::BP_DEFAULT, true);
    graph.Refine(DepGraph::RM_EXACT);
    if (carriers != countCarriers(graph))
        state.SkipWithError("isl and the analysis find different numbers of carriers");
}

std::string nestOf(const benchmark::State& state) {
    return state.range(0) == 1 ? Benchmark::writeWavefront()
                               : Benchmark::writeNest(static_cast<std::size_t>(state.range(0)));
}

void exact(benchmark::State& state) {
    analyse(state, nestOf(state), DepGraph::RM_EXACT);
}
void quick(benchmark::State& state) {
    analyse(state, nestOf(state), DepGraph::RM_QUICK_TESTS);
}
void valueBased(benchmark::State& state) {
    analyse(state, nestOf(state), DepGraph::RM_VALUE_BASED);
}
/// From the tree to the accesses alone.
void accesses(benchmark::State& state) {
    Benchmark::FunctionBody body(nestOf(state));
    for (auto _ : state)
        benchmark::DoNotOptimize(DepGraph::AccessModel(body.get()).getAccesses().size());
}
void islCarriers(benchmark::State& state) {
    askIsl(state, nestOf(state), Relations::Ready, PlainDependences::Questions::Carriers);
}
void islReadAndCarriers(benchmark::State& state) {
    askIsl(state, nestOf(state), Relations::Read, PlainDependences::Questions::Carriers);
}
void islCarriersAndDistances(benchmark::State& state) {
    askIsl(state, nestOf(state), Relations::Ready, PlainDependences::Questions::CarriersAndDistances);
}
void islReadCarriersAndDistances(benchmark::State& state) {
    askIsl(state, nestOf(state), Relations::Read, PlainDependences::Questions::CarriersAndDistances);
}
void straight(benchmark::State& state) {
    analyse(state, Benchmark::writeStraight(static_cast<std::size_t>(state.range(0))), DepGraph::RM_EXACT);
}

/// Statements in the nest; 1: the wavefront of six accesses.
void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1)->Arg(4)->Arg(12)->Arg(36)->Unit(benchmark::kMillisecond);
}

BENCHMARK(exact)->Apply(sizes);
BENCHMARK(accesses)->Apply(sizes);
BENCHMARK(islCarriers)->Apply(sizes);
BENCHMARK(islReadAndCarriers)->Apply(sizes);
BENCHMARK(islCarriersAndDistances)->Apply(sizes);
BENCHMARK(islReadCarriersAndDistances)->Apply(sizes);
BENCHMARK(quick)->Apply(sizes);
BENCHMARK(valueBased)->Arg(1)->Arg(4)->Arg(12)->Unit(benchmark::kMillisecond);
BENCHMARK(straight)->Arg(300)->Arg(1000)->Arg(3000)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
