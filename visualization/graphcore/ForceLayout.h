// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/graphcore/LayoutManager.h"
#include "visualization/graphcore/ParticleSystem.h"

#include <map>
#include <memory>
#include <vector>

namespace Kova::GUI::GenericGraph {

/// Refines another layout's placement by simulating the nodes as charged particles with springs for edges, and sets the
/// nodes without edges on a rectangular ring around the result. The time is quadratic in the number of nodes that have
/// edges, at most 1000 steps.
class VISUALIZATION_EXPORT ForceLayout : public LayoutManager {
public:
    /// @param initial gives the placement that the simulation starts from; owned from here on. Null: the nodes start
    /// where they stand.
    explicit ForceLayout(LayoutManager* initial);
    ~ForceLayout() override;

    /// initialize(), simulate() and shutdown(). The result does not depend on earlier runs of the same object.
    void layOut(const std::vector<NodeBase*>& nodes) override;

    /// Runs the initial layout and makes a particle of every node that has an edge.
    void initialize(const std::vector<NodeBase*>& nodes);

    /// Steps until the system's energy is at most half its mass, but 102 steps at least and 1000 at most; none without
    /// particles.
    void simulate();

    /// Moves the nodes to where their particles are, shifted so that the picture starts at (50, 50), or at (80, 100)
    /// within the ring.
    void shutdown();

    /// Numbers the nodes in list order: first those with at least one entry in their edge lists, then the others.
    void buildNumeration(const std::vector<NodeBase*>& nodes);

private:
    [[nodiscard]] ParticleSystem::Node makeParticle(const NodeBase& node) const;
    void addNeighbour(NodeBase* neighbour, std::vector<int>& indices) const;
    void placeOnRing(double width, double height) const;

    std::unique_ptr<LayoutManager> m_initial;
    ParticleSystem::ParticleSystem m_particles;
    std::map<NodeBase*, int> m_numbers;
    int m_connectedCount = 0;
    /// The numbered nodes by number: a walk over m_numbers would follow addresses.
    std::vector<NodeBase*> m_nodesByNumber;
};

} // namespace Kova::GUI::GenericGraph
