// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"

#include <QRectF>

#include <vector>

/// A small simulation of charged particles joined by springs, in the manner of P. Eades, "A heuristic for graph
/// drawing" (1984). It knows nothing of graphs' nodes or of widgets.
namespace Kova::ParticleSystem {

/// What a simulation starts from: one record a particle.
struct Node {
    double x;
    double y;
    /// Indices into the vector that holds this record; its own index and indices outside the vector are ignored.
    std::vector<int> neighbours;
};

struct Particle {
    double x = 0, y = 0;
    double vx = 0, vy = 0;
    /// The force of the current step.
    double fx = 0, fy = 0;
    double mass = 1.0;
    /// The particles that springs join this one to, not owned.
    std::vector<Particle*> neighbours;
};

class VISUALIZATION_EXPORT ParticleSystem {
public:
    ParticleSystem() = default;
    ParticleSystem(const ParticleSystem&) = delete;
    ParticleSystem& operator=(const ParticleSystem&) = delete;

    /// Takes over positions and springs. A particle that stood before at the same index keeps its velocity, and what it
    /// weighs grows again by 5 a neighbour; clear() first for a fresh start. Reseeds the C library's random generator.
    void initialize(const std::vector<Node>& nodes);

    /// Forgets the particles; the coefficients stay.
    void clear();

    void makeStep();

    /// Computes every particle's force from springs and charges.
    /// @return the smallest distance between two particles, within [1, 10000].
    double calculateForces();

    /// The largest speed that the present forces will give, damping included; 0 without particles.
    [[nodiscard]] double findMaxVelocity() const;

    /// Moves every particle by the present forces and the present time step, and computes the energy anew.
    void updatePositions();

    /// The sum of all masses.
    [[nodiscard]] double mass() const;

    /// The bounding rectangle of the particles; all zero without particles.
    [[nodiscard]] QRectF rect() const;

    [[nodiscard]] const std::vector<Particle>& particles() const { return m_particles; }
    [[nodiscard]] double timeStep() const { return m_timeStep; }
    /// The energy that the last update of positions left: a measure for deciding when to stop, not a physical quantity.
    [[nodiscard]] double energy() const { return m_energy; }

    void setDamping(double damping) { m_damping = damping; }
    void setCoulombCoef(double coefficient) { m_coulombCoef = coefficient; }
    void setSpringLength(double length) { m_springLength = length; }
    void setHookeCoef(double coefficient) { m_hookeCoef = coefficient; }
    void setRand(int seed) { m_randomSeed = seed; }

private:
    void addSprings();
    double addChargesToParticles();

    std::vector<Particle> m_particles;
    double m_timeStep = 0;
    double m_damping = 0.75;
    double m_coulombCoef = 3000.0;
    double m_springLength = 100.0;
    double m_hookeCoef = 1.0;
    double m_energy = 0;
    int m_randomSeed = 0;
};

} // namespace Kova::ParticleSystem
