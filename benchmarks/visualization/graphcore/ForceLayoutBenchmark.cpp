// SPDX-License-Identifier: MIT
#include "tests/visualization/graphcore/PlainParticles.h"
#include "visualization/graphcore/ChargeForces.h"
#include "visualization/graphcore/ParticleSystem.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <random>
#include <utility>

// One charge step (springs, charges of all pairs) over connected nodes with twice as many edges, as a system of
// particles computes it, against the plain double loop; and the bare charges with each instruction set.

namespace {

using Kova::ParticleSystem::InstructionSet;

PlainParticles::Simulation plainGraph(std::size_t count) {
    std::mt19937 random(20240601);
    std::uniform_real_distribution<double> place(0.0, 150.0 * std::sqrt(static_cast<double>(count)));
    std::vector<std::vector<std::size_t>> neighbours(count);
    const auto join = [&](std::size_t a, std::size_t b) {
        neighbours[a].push_back(b);
        neighbours[b].push_back(a);
    };
    for (std::size_t i = 1; i < count; ++i)
        join(i, random() % i);
    for (std::size_t i = 0; i <= count; ++i)
        join(random() % (count / 2), count / 2 + random() % (count / 2));
    PlainParticles::Simulation simulation;
    for (std::size_t i = 0; i < count; ++i) {
        const double x = place(random);
        simulation.add(x, place(random), std::move(neighbours[i]));
    }
    return simulation;
}

std::vector<Kova::ParticleSystem::Node> nodesOf(const PlainParticles::Simulation& simulation) {
    std::vector<Kova::ParticleSystem::Node> nodes;
    for (const PlainParticles::Particle& particle : simulation.particles)
        nodes.push_back({particle.x, particle.y, {particle.neighbours.begin(), particle.neighbours.end()}});
    return nodes;
}

void countPairs(benchmark::State& state) {
    const auto n = static_cast<double>(state.range(0));
    state.counters["pair"] = benchmark::Counter(n * (n - 1) / 2, benchmark::Counter::kIsIterationInvariantRate |
                                                                     benchmark::Counter::kInvert);
}

void plainStep(benchmark::State& state) {
    PlainParticles::Simulation simulation = plainGraph(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(simulation.calculateForces());
    countPairs(state);
}

void particleSystemStep(benchmark::State& state) {
    PlainParticles::Simulation plain = plainGraph(static_cast<std::size_t>(state.range(0)));
    Kova::ParticleSystem::ParticleSystem system;
    system.initialize(nodesOf(plain));
    for (int step = 0; step < 3; ++step) {
        system.makeStep();
        plain.makeStep();
    }
    for (std::size_t i = 0; i < plain.particles.size(); ++i) {
        const double ours[] = {system.particles()[i].x, system.particles()[i].y};
        const double plains[] = {plain.particles[i].x, plain.particles[i].y};
        if (std::memcmp(ours, plains, sizeof ours) != 0)
            state.SkipWithError("positions differ from the plain loop's");
    }
    system.initialize(nodesOf(plainGraph(static_cast<std::size_t>(state.range(0)))));
    for (auto _ : state)
        benchmark::DoNotOptimize(system.calculateForces());
    countPairs(state);
}

template <InstructionSet Set>
void charges(benchmark::State& state) {
    if (!Kova::ParticleSystem::isSupported(Set)) {
        state.SkipWithError("not on this processor");
        return;
    }
    const PlainParticles::Simulation plain = plainGraph(static_cast<std::size_t>(state.range(0)));
    Kova::ParticleSystem::ChargeArrays arrays;
    for (const PlainParticles::Particle& particle : plain.particles) {
        arrays.x.push_back(particle.x);
        arrays.y.push_back(particle.y);
        arrays.mass.push_back(particle.mass);
        arrays.fx.push_back(0);
        arrays.fy.push_back(0);
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(Kova::ParticleSystem::addCharges(arrays, 3000.0, Set));
    countPairs(state);
}

} // namespace

BENCHMARK(plainStep)->Arg(300)->Arg(1000)->Arg(3000)->Unit(benchmark::kMicrosecond);
BENCHMARK(particleSystemStep)->Arg(300)->Arg(1000)->Arg(3000)->Unit(benchmark::kMicrosecond);
BENCHMARK(charges<InstructionSet::Portable>)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(charges<InstructionSet::Sse2>)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(charges<InstructionSet::Avx2>)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(charges<InstructionSet::Avx512>)->Arg(1000)->Unit(benchmark::kMicrosecond);

BENCHMARK_MAIN();
