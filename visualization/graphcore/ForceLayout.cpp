// SPDX-License-Identifier: MIT
#include "visualization/graphcore/ForceLayout.h"

#include "visualization/graphcore/EdgeBase.h"
#include "visualization/graphcore/NodeBase.h"
#include "visualization/graphcore/Rounding.h"

#include <QPointF>

#include <algorithm>
#include <cstddef>

namespace Kova::GUI::GenericGraph {
namespace {

constexpr int StepsBeforeEnergyCounts = 100;
constexpr int MostSteps = 1000;
constexpr double RingLeft = 50.0;
constexpr double RingTop = 50.0;

bool isIsolated(const NodeBase& node) {
    return node.getIncomingEdges().empty() && node.getOutgoingEdges().empty();
}

/// A simulation that ran away must not leave coordinates that boxes cannot be added to.
int toCoordinate(double value) {
    return truncated(std::clamp(value, -1e9, 1e9));
}

/// The point at distance t from the upper left corner of a ring, clockwise along its sides.
QPointF pointOnRing(double t, double width, double height) {
    if (t < width)
        return {RingLeft + t, RingTop};
    if (t < width + height)
        return {RingLeft + width, RingTop + t - width};
    if (t < 2 * width + height)
        return {RingLeft + width - (t - width - height), RingTop + height};
    return {RingLeft, RingTop + height - (t - 2 * width - height)};
}

} // namespace

ForceLayout::ForceLayout(LayoutManager* initial) : m_initial(initial) {}

ForceLayout::~ForceLayout() = default;

void ForceLayout::layOut(const std::vector<NodeBase*>& nodes) {
    initialize(nodes);
    simulate();
    shutdown();
}

void ForceLayout::initialize(const std::vector<NodeBase*>& nodes) {
    if (m_initial)
        m_initial->layOut(nodes);
    buildNumeration(nodes);
    std::vector<ParticleSystem::Node> particles;
    particles.reserve(static_cast<std::size_t>(m_connectedCount));
    for (int i = 0; i < m_connectedCount; ++i)
        particles.push_back(makeParticle(*m_nodesByNumber[static_cast<std::size_t>(i)]));
    // Fresh particles: those of an earlier run would bring their velocities along.
    m_particles.clear();
    m_particles.initialize(particles);
}

void ForceLayout::buildNumeration(const std::vector<NodeBase*>& nodes) {
    m_numbers.clear();
    m_nodesByNumber.clear();
    for (const bool isolated : {false, true}) {
        for (NodeBase* node : nodes) {
            if (isIsolated(*node) == isolated &&
                m_numbers.emplace(node, static_cast<int>(m_nodesByNumber.size())).second)
                m_nodesByNumber.push_back(node);
        }
        if (!isolated)
            m_connectedCount = static_cast<int>(m_nodesByNumber.size());
    }
}

ParticleSystem::Node ForceLayout::makeParticle(const NodeBase& node) const {
    const QPoint center = node.getCenter();
    ParticleSystem::Node particle{static_cast<double>(center.x()), static_cast<double>(center.y()), {}};
    for (const EdgeBase* edge : node.getIncomingEdges()) {
        if (edge)
            addNeighbour(edge->getSource(), particle.neighbours);
    }
    for (const EdgeBase* edge : node.getOutgoingEdges()) {
        if (edge)
            addNeighbour(edge->getTarget(), particle.neighbours);
    }
    return particle;
}

/// A neighbour that was not given to the layout pulls nothing.
void ForceLayout::addNeighbour(NodeBase* neighbour, std::vector<int>& indices) const {
    const auto found = m_numbers.find(neighbour);
    if (found != m_numbers.end())
        indices.push_back(found->second);
}

void ForceLayout::simulate() {
    const double threshold = m_particles.mass() * 0.5;
    double energy = threshold * 1.01;
    for (int step = 0; energy > threshold && step < MostSteps; ++step) {
        m_particles.makeStep();
        if (step > StepsBeforeEnergyCounts)
            energy = m_particles.energy();
    }
}

void ForceLayout::shutdown() {
    const QRectF rect = m_particles.rect();
    const bool hasRing = m_nodesByNumber.size() > static_cast<std::size_t>(m_connectedCount);
    const QPointF offset = rect.topLeft() - (hasRing ? QPointF(80, 100) : QPointF(50, 50));
    for (std::size_t i = 0; i < m_particles.particles().size(); ++i) {
        const ParticleSystem::Particle& particle = m_particles.particles()[i];
        m_nodesByNumber[i]->moveTo(toCoordinate(particle.x - offset.x()), toCoordinate(particle.y - offset.y()));
    }
    if (hasRing)
        placeOnRing(rect.width() + 60, rect.height() + 300);
}

void ForceLayout::placeOnRing(double width, double height) const {
    const double perimeter = 2 * width + 2 * height;
    const auto first = static_cast<std::size_t>(m_connectedCount);
    const auto count = static_cast<double>(m_nodesByNumber.size() - first);
    for (std::size_t i = first; i < m_nodesByNumber.size(); ++i) {
        const QPointF point = pointOnRing(static_cast<double>(i - first) * perimeter / count, width, height);
        m_nodesByNumber[i]->moveTo(toCoordinate(point.x()), toCoordinate(point.y()));
    }
}

} // namespace Kova::GUI::GenericGraph
