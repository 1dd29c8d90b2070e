// SPDX-License-Identifier: MIT
#include "benchmarks/environment/printing/GeneratedBlock.h"
#include "environment/printing/IProgramOutputStream.h"
#include "environment/printing/ProgramTextBuilder.h"

#include <benchmark/benchmark.h>

using namespace Kova;

namespace {

class CountingSink final : public Shared::IProgramOutputStream {
public:
    void write(const char* /*text*/, Tessel::TesselBase& /*node*/) override { ++pieces; }
    void writeNewLine(const char* /*text*/, Tessel::TesselBase& /*node*/) override { ++lines; }

    std::size_t pieces = 0;
    std::size_t lines = 0;
};

/// A block of as many lines as the argument says, into a sink that drops them.
void printBlock(benchmark::State& state) {
    Benchmark::GeneratedBlock generator;
    const auto block = generator.make(static_cast<std::size_t>(state.range(0)));
    CountingSink sink;
    for (auto _ : state) {
        sink = CountingSink();
        Shared::ProgramTextBuilder builder(sink, {});
        block->accept(builder);
    }
    state.counters["lines"] = static_cast<double>(sink.lines);
    state.counters["pieces"] = static_cast<double>(sink.pieces + sink.lines);
    state.counters["time_a_line"] = benchmark::Counter(
        static_cast<double>(sink.lines), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

} // namespace

BENCHMARK(printBlock)->Arg(2000)->Arg(20000)->Arg(100000)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
