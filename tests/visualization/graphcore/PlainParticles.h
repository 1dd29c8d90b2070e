// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

/// The particle simulation written down plainly, one pair after the other: what tests compare with and benchmarks
/// measure against.
namespace PlainParticles {

struct Particle {
    double x = 0, y = 0, vx = 0, vy = 0, fx = 0, fy = 0, mass = 1.0;
    std::vector<std::size_t> neighbours;
};

struct Simulation {
    std::vector<Particle> particles;
    double timeStep = 1e-7;
    double damping = 0.75, coulomb = 3000.0, springLength = 100.0, hooke = 1.0;
    double energy = 0;

    void add(double x, double y, std::vector<std::size_t> neighbours) {
        Particle particle;
        particle.x = x;
        particle.y = y;
        particle.mass = 1.0 + 5.0 * static_cast<double>(neighbours.size());
        particle.neighbours = std::move(neighbours);
        particles.push_back(std::move(particle));
    }

    void addSprings() {
        for (Particle& p : particles) {
            for (const std::size_t index : p.neighbours) {
                const Particle& q = particles[index];
                const double dx = p.x - q.x, dy = p.y - q.y;
                const double distance = std::max(1.0, std::sqrt(dx * dx + dy * dy));
                const double stretch = distance - springLength;
                if (stretch > 0) {
                    p.fx += dx / distance * (-hooke * stretch);
                    p.fy += dy / distance * (-hooke * stretch);
                }
            }
        }
    }

    double addCharges() {
        double smallest = 10000.0;
        for (std::size_t i = 0; i < particles.size(); ++i) {
            for (std::size_t j = 0; j < i; ++j) {
                Particle& p = particles[i];
                Particle& q = particles[j];
                const double dx = p.x - q.x, dy = p.y - q.y;
                double d = std::sqrt(dx * dx + dy * dy);
                double cube = d * d * d;
                if (d < 1)
                    d = cube = 1;
                const double k = coulomb * p.mass * q.mass / cube;
                p.fx += dx * k;
                p.fy += dy * k;
                q.fx -= dx * k;
                q.fy -= dy * k;
                smallest = std::min(smallest, d);
            }
        }
        return smallest;
    }

    double calculateForces() {
        for (Particle& p : particles)
            p.fx = p.fy = 0;
        addSprings();
        return addCharges();
    }

    void makeStep() {
        const double smallest = calculateForces();
        double fastest = 0;
        for (const Particle& p : particles)
            fastest = std::max(fastest, std::sqrt(std::pow(p.vx + p.fx, 2) + std::pow(p.vy + p.fy, 2)) * damping);
        const double ratio = fastest > 0 ? smallest / (fastest * 4.0) : 0.5;
        timeStep = (std::clamp(ratio, 0.0001, 0.5) + timeStep) * 0.5;
        energy = 0;
        for (Particle& p : particles) {
            p.vx = (p.vx + p.fx) * damping;
            p.vy = (p.vy + p.fy) * damping;
            p.x += p.vx * timeStep;
            p.y += p.vy * timeStep;
            energy += p.mass * (p.vx * p.vx + p.vy);
        }
    }

    /// Steps until the energy is at most a share of the mass, looked at only after 102 steps, 1000 steps at most.
    /// @return the number of steps made.
    int run(double share = 0.5) {
        double mass = 0;
        for (const Particle& p : particles)
            mass += p.mass;
        int steps = 0;
        bool settled = particles.empty();
        while (!settled && steps < 1000) {
            makeStep();
            ++steps;
            settled = steps >= 102 && !(energy > mass * share);
        }
        return steps;
    }
};

} // namespace PlainParticles
