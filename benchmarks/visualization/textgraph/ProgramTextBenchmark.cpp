// SPDX-License-Identifier: MIT
#include "benchmarks/environment/printing/GeneratedBlock.h"
#include "benchmarks/environment/printing/NullSink.h"
#include "environment/printing/ProgramTextBuilder.h"
#include "visualization/textgraph/ProgramText.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

using namespace Kova;

namespace {

std::unique_ptr<Tessel::BlockStatement> makeBlock(Benchmark::GeneratedBlock& generator, benchmark::State& state) {
    return generator.make(static_cast<std::size_t>(state.range(0)));
}

/// The plain way: the same text into a sink that drops it.
void nullSink(benchmark::State& state) {
    Benchmark::GeneratedBlock generator;
    const auto block = makeBlock(generator, state);
    for (auto _ : state) {
        Benchmark::NullSink sink;
        Shared::ProgramTextBuilder builder(sink, {});
        block->accept(builder);
    }
}

template <void build(GUI::TextGraph::ProgramLines&, Tessel::StatementBase&)>
void programText(benchmark::State& state) {
    Benchmark::GeneratedBlock generator;
    const auto block = makeBlock(generator, state);
    for (auto _ : state) {
        GUI::TextGraph::ProgramLines lines;
        build(lines, *block);
        benchmark::DoNotOptimize(lines);
        state.PauseTiming();
        lines.clear();
        state.ResumeTiming();
    }
}

/// What the allocator gave out for the words, beyond the characters themselves.
void memory(benchmark::State& state) {
    Benchmark::GeneratedBlock generator;
    const auto block = makeBlock(generator, state);
    for (auto _ : state) {
        const std::size_t before = mallinfo2().uordblks;
        GUI::TextGraph::ProgramLines lines;
        GUI::TextGraph::buildExprProgramText(lines, *block);
        const std::size_t used = mallinfo2().uordblks - before;
        std::size_t words = 0;
        std::size_t characters = 0;
        for (const auto& line : lines) {
            words += line.size();
            for (const auto& word : line)
                characters += word.text.size();
        }
        state.counters["words"] = static_cast<double>(words);
        state.counters["bytes_a_word"] = static_cast<double>(used - characters) / static_cast<double>(words);
    }
}

} // namespace

BENCHMARK(nullSink)->Arg(200)->Arg(2000)->Arg(20000)->Unit(benchmark::kMicrosecond);
BENCHMARK(programText<GUI::TextGraph::buildStmtProgramText>)
    ->Name("statements")
    ->Arg(200)
    ->Arg(2000)
    ->Arg(20000)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(programText<GUI::TextGraph::buildExprProgramText>)
    ->Name("expressions")
    ->Arg(200)
    ->Arg(2000)
    ->Arg(20000)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(memory)->Arg(2000)->Iterations(1);

BENCHMARK_MAIN();
