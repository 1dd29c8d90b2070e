// SPDX-License-Identifier: MIT
#include "benchmarks/frontends/c/GeneratedProgram.h"
#include "environment/analyses/callgraph/CallGraph.h"
#include "environment/tessel/ProgramUnit.h"
#include "frontends/c/CFrontend.h"
#include "frontends/c/ClangSession_p.h"
#include "frontends/c/CrashGuard_p.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <fstream>
#include <malloc.h>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

// What opening a C file costs: Clang's own parse of it, against the whole of reading, tree and call graph. The peak of
// memory is that of a process of its own, forked for it, less what the process had before.
namespace {

using namespace Kova;

std::string writeProgram(std::size_t lines) {
    const std::string path = "/tmp/kova-bench-" + std::to_string(getpid()) + ".c";
    std::ofstream(path) << Benchmark::generateProgram(lines);
    return path;
}

void parseOnly(const std::string& path) {
    const Frontends::COptions options;
    std::stringstream text;
    text << std::ifstream(path).rdbuf();
    Tessel::ProgramUnit program;
    Frontends::ClangSession session(options, path, text.str(), program);
    session.setBuildsTree(false);
    if (!Frontends::runGuarded([&session] { session.run(); }) || session.hadErrors())
        std::abort();
}

void openWhole(const std::string& path) {
    Tessel::ProgramUnit program;
    if (Frontends::CFrontend({}).read(path, program) != Frontends::CFrontend::Result::Complete)
        std::abort();
    CallGraph graph(&program);
    benchmark::DoNotOptimize(graph.getGraph().size());
}

/// A line of the kernel's account of this process, in KiB.
long accountOf(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind(name + ':', 0) == 0)
            return std::stol(line.substr(name.size() + 1));
    return 0;
}

/// How much more memory, in MiB, a process comes to hold while it does the work.
double peakOf(void (*work)(const std::string&), const std::string& path) {
    int ends[2];
    if (pipe(ends) != 0)
        std::abort();
    const pid_t child = fork();
    if (child == 0) {
        // The parent's measuring leaves free memory behind, which the child would use up unseen.
        malloc_trim(0);
        const long before = accountOf("VmRSS");
        std::ofstream("/proc/self/clear_refs") << "5"; // resets the peak to the present
        work(path);
        const long grown = accountOf("VmHWM") - before;
        _exit(write(ends[1], &grown, sizeof grown) == sizeof grown ? 0 : 1);
    }
    long grown = 0;
    if (read(ends[0], &grown, sizeof grown) != sizeof grown)
        std::abort();
    waitpid(child, nullptr, 0);
    close(ends[0]);
    close(ends[1]);
    return static_cast<double>(grown) / 1024.0;
}

void run(benchmark::State& state, void (*work)(const std::string&)) {
    const std::string path = writeProgram(static_cast<std::size_t>(state.range(0)));
    state.counters["peak_MiB"] = peakOf(work, path);
    for (auto step : state)
        work(path);
    unlink(path.c_str());
}

void clangParse(benchmark::State& state) {
    run(state, parseOnly);
}
void open(benchmark::State& state) {
    run(state, openWhole);
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(2000)->Arg(20000)->Arg(80000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();
}

BENCHMARK(clangParse)->Apply(sizes);
BENCHMARK(open)->Apply(sizes);

} // namespace

BENCHMARK_MAIN();
