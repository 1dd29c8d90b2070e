// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>

#include <benchmark/benchmark.h>

namespace Kova::Benchmark {

/// What main() does in a program whose benchmarks make widgets. @return the program's exit status.
inline int runWithWidgets(int argc, char** argv) {
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

} // namespace Kova::Benchmark
