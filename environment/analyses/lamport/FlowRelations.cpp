// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/FlowRelations_p.h"

#include <isl/flow.h>
#include <isl/map.h>

#include <memory>

namespace DepGraph {
namespace {

/// What isl hands back to the callbacks.
struct Node {
    const std::vector<Access>* accesses;
    std::size_t access;
};

struct Piece {
    std::size_t source;
    isl::map relation;
};

/// Twice the number of common loops, and 1 more when the first comes before the second within an iteration of them.
int findLevel(void* first, void* second) {
    const Node& before = *static_cast<const Node*>(first);
    const Node& after = *static_cast<const Node*>(second);
    const std::vector<Access>& accesses = *before.accesses;
    const std::size_t common = countCommonLoops(accesses[before.access], accesses[after.access]);
    return 2 * static_cast<int>(common) + (isInOrder(accesses, before.access, after.access, common) ? 1 : 0);
}

isl_stat collectPiece(isl_map* relation, int /*must*/, void* source, void* pieces) {
    static_cast<std::vector<Piece>*>(pieces)->push_back(
        {static_cast<const Node*>(source)->access, isl::manage(relation)});
    return isl_stat_ok;
}

template <class T>
T* checked(T* result, isl::ctx context) {
    if (result == nullptr)
        isl::exception::throw_last_error(context);
    return result;
}

} // namespace

std::unordered_map<std::size_t, isl::map> FlowRelations::compute(const isl::map& targetElements) const {
    std::vector<Node> nodes;
    nodes.reserve(m_sources.size());
    Node target{&m_accesses, m_target};
    isl_access_info* info =
        isl_access_info_alloc(targetElements.copy(), &target, findLevel, static_cast<int>(m_sources.size()));
    for (const Source& source : m_sources) {
        const Access& access = m_accesses[source.access];
        const bool definite = access.writes && access.assumption.doubt == Doubt::None;
        info = isl_access_info_add_source(info, source.elements.copy(), definite ? 1 : 0,
                                          &nodes.emplace_back(Node{&m_accesses, source.access}));
    }
    const std::unique_ptr<isl_flow, decltype(&isl_flow_free)> flow(
        checked(isl_access_info_compute_flow(info), targetElements.ctx()), &isl_flow_free);
    std::vector<Piece> pieces;
    if (isl_flow_foreach(flow.get(), collectPiece, &pieces) != isl_stat_ok)
        isl::exception::throw_last_error(targetElements.ctx());
    std::unordered_map<std::size_t, isl::map> relations;
    for (const Piece& piece : pieces) {
        isl::map& relation = relations[piece.source];
        relation = relation.is_null() ? piece.relation : relation.unite(piece.relation);
    }
    return relations;
}

} // namespace DepGraph
