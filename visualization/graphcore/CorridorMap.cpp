// SPDX-License-Identifier: MIT
#include "visualization/graphcore/CorridorMap.h"

#include "visualization/graphcore/EdgeBase.h"
#include "visualization/graphcore/NodeBase.h"
#include "visualization/graphcore/SegmentTests.h"

#include <algorithm>

namespace Kova::GUI::GenericGraph {

namespace {

/// With more changes than this, looking at every edge for each of them costs more than examining all edges.
constexpr std::size_t mostChanges = 32;

} // namespace

void CorridorMap::update(const std::vector<NodeBase*>& nodes, const std::vector<EdgeBase*>& edges) {
    const Changes changes = updatePlaces(nodes);
    if (changes.all || !changes.places.empty())
        buildGrid();
    const std::size_t known = changes.all ? 0 : std::min(m_edges.size(), edges.size());
    m_edges.resize(edges.size());
    for (std::size_t i = 0; i < edges.size(); ++i) {
        const NodeBase* source = edges[i]->getSource();
        const NodeBase* target = edges[i]->getTarget();
        const Corridor now{source, target, source->getCenter(), target->getCenter(), false};
        Corridor& kept = m_edges[i];
        const bool same =
            i < known && kept.source == source && kept.target == target && kept.a == now.a && kept.b == now.b;
        const auto concerns = [&kept](const Place& place) { return blocks(place, kept); };
        if (same && std::none_of(changes.places.begin(), changes.places.end(), concerns))
            continue;
        kept = now;
        kept.blocked = source != target && examine(now);
    }
}

CorridorMap::Changes CorridorMap::updatePlaces(const std::vector<NodeBase*>& nodes) {
    Changes changes;
    changes.all = nodes.size() != m_places.size();
    m_places.resize(nodes.size());
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const Place now{nodes[i], nodes[i]->getCenter(), nodes[i]->isVisible()};
        Place& kept = m_places[i];
        if (kept.node == now.node && kept.center == now.center && kept.visible == now.visible)
            continue;
        if (!changes.all) {
            changes.places.push_back(kept);
            changes.places.push_back(now);
            changes.all = changes.places.size() > mostChanges;
        }
        kept = now;
    }
    if (changes.all)
        changes.places.clear();
    return changes;
}

void CorridorMap::buildGrid() {
    CellGrid::Plan plan;
    for (const Place& place : m_places)
        plan.addSegment(place.center, place.center);
    m_grid = CellGrid(plan);
    m_cells.build(m_grid.cellCount(), [this](auto enter) {
        for (const Place& place : m_places) {
            if (place.visible)
                enter(m_grid.cellAt(place.center), place);
        }
    });
}

bool CorridorMap::examine(const Corridor& corridor) const {
    if (m_grid.isEmpty())
        return false;
    return m_grid.visitCorridor(corridor.a, corridor.b, corridorMargin, corridorReach, [&](int cell) {
        const auto places = m_cells.at(cell);
        return std::any_of(places.begin(), places.end(), [&](const Place& place) { return blocks(place, corridor); });
    });
}

bool CorridorMap::blocks(const Place& place, const Corridor& corridor) {
    return place.visible && place.node != corridor.source && place.node != corridor.target &&
           isInCorridor(corridor.a, corridor.b, place.center);
}

} // namespace Kova::GUI::GenericGraph
