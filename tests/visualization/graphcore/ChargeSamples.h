// SPDX-License-Identifier: MIT
// Particles for tests of the charge step, and the plain loop as its judge.
#pragma once

#include "tests/visualization/graphcore/PlainParticles.h"
#include "visualization/graphcore/ChargeForces.h"
#include "visualization/graphcore/ChargeTiles_p.h"

#include <cmath>
#include <cstring>
#include <random>
#include <utility>
#include <vector>

namespace ChargeSamples {

/// How particles lie.
enum class Spread { Wide, Crowded, OneRow, AllInOnePlace, JustBelowPowersOfTwo, Huge };

inline PlainParticles::Simulation randomParticles(std::size_t count, Spread spread, unsigned seed) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> wide(-9000.0, 9000.0);
    std::uniform_int_distribution<int> crowded(0, 3);
    std::uniform_int_distribution<int> degree(0, 12);
    PlainParticles::Simulation simulation;
    for (std::size_t i = 0; i < count; ++i) {
        double x = wide(random), y = wide(random);
        if (spread == Spread::Crowded) {
            x = crowded(random) * 0.25;
            y = crowded(random) * 0.75;
        } else if (spread == Spread::OneRow) {
            y = 5.0;
        } else if (spread == Spread::AllInOnePlace) {
            x = y = 7.5;
        } else if (spread == Spread::JustBelowPowersOfTwo) {
            // Half of the particles in one place, so that cubes of distances have fractions that are nearly all ones.
            x = i % 2 == 0 ? 0.0 : std::ldexp(1.0 - std::ldexp(crowded(random), -53), static_cast<int>(i % 7));
            y = 0;
        } else if (spread == Spread::Huge) {
            x *= i % 3 == 0 ? 1e60 : 1e110;
            y *= 1e-60;
        }
        simulation.add(x, y, {});
        PlainParticles::Particle& particle = simulation.particles.back();
        particle.mass = i % 2 == 0 ? 1.0 + 5.0 * degree(random) : std::abs(wide(random));
        particle.fx = wide(random) * 1e-3;
        particle.fy = i % 3 == 0 ? 0.0 : wide(random);
    }
    return simulation;
}

inline Kova::ParticleSystem::ChargeArrays arraysOf(const PlainParticles::Simulation& simulation) {
    Kova::ParticleSystem::ChargeArrays arrays;
    for (const PlainParticles::Particle& particle : simulation.particles) {
        arrays.x.push_back(particle.x);
        arrays.y.push_back(particle.y);
        arrays.mass.push_back(particle.mass);
        arrays.fx.push_back(particle.fx);
        arrays.fy.push_back(particle.fy);
    }
    return arrays;
}

inline bool sameBits(double a, double b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

inline Kova::ParticleSystem::ChargeView viewOf(Kova::ParticleSystem::ChargeArrays& arrays) {
    return {arrays.x.data(), arrays.y.data(), arrays.mass.data(), arrays.fx.data(), arrays.fy.data(), arrays.x.size()};
}

/// All spreads with their names.
inline std::vector<std::pair<const char*, Spread>> spreads() {
    return {{"wide", Spread::Wide},
            {"crowded", Spread::Crowded},
            {"one row", Spread::OneRow},
            {"all in one place", Spread::AllInOnePlace},
            {"below powers of two", Spread::JustBelowPowersOfTwo},
            {"huge", Spread::Huge}};
}

/// Whether a charge step add(arrays, coulomb) gives, bit for bit, forces and distance of the plain loop.
template <class Add>
bool equalsThePlainLoop(PlainParticles::Simulation plain, Add add) {
    Kova::ParticleSystem::ChargeArrays arrays = arraysOf(plain);
    const double smallest = add(arrays, plain.coulomb);
    bool equal = sameBits(smallest, plain.addCharges());
    for (std::size_t i = 0; i < plain.particles.size(); ++i)
        equal = equal && sameBits(arrays.fx[i], plain.particles[i].fx) && sameBits(arrays.fy[i], plain.particles[i].fy);
    return equal;
}

/// The same for every spread and every number of particles below the given one.
template <class Add>
bool equalsThePlainLoopBelow(std::size_t count, Add add) {
    for (const auto& named : spreads()) {
        for (std::size_t n = 0; n < count; ++n) {
            if (!equalsThePlainLoop(randomParticles(n, named.second, static_cast<unsigned>(n)), add))
                return false;
        }
    }
    return true;
}

} // namespace ChargeSamples
