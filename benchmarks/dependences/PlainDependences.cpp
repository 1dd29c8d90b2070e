// SPDX-License-Identifier: MIT
#include "benchmarks/dependences/PlainDependences.h"

#include <benchmark/benchmark.h>
#include <isl/aff.h>
#include <isl/map.h>
#include <isl/set.h>

#include <sstream>

namespace Kova::Benchmark {
namespace {

isl::map projectOut(isl::map map, isl_dim_type type, unsigned from) {
    const unsigned count = static_cast<unsigned>(isl_map_dim(map.get(), type)) - from;
    return isl::manage(isl_map_project_out(map.release(), type, from, count));
}

void describe(const isl::map& part, unsigned commonLoops) {
    const isl::set distances = projectOut(projectOut(part, isl_dim_in, commonLoops), isl_dim_out, commonLoops).deltas();
    for (unsigned loop = 0; loop < commonLoops; ++loop) {
        benchmark::DoNotOptimize(distances.dim_min_val(static_cast<int>(loop)));
        benchmark::DoNotOptimize(distances.dim_max_val(static_cast<int>(loop)));
    }
    const isl::set unknowns = isl::manage(isl_map_params(part.copy()));
    benchmark::DoNotOptimize(isl::manage(isl_set_remove_redundancies(unknowns.coalesce().release())));
}

} // namespace

PlainDependences::PlainDependences(const DepGraph::AccessModel& model) {
    for (const DepGraph::Access& access : model.getAccesses()) {
        isl::map elements = isl::manage(isl_map_from_domain(access.domain.copy()));
        for (const std::optional<isl::pw_aff>& subscript : access.subscripts)
            elements =
                isl::manage(isl_map_flat_range_product(elements.release(), isl_map_from_pw_aff(subscript->copy())));
        std::ostringstream text;
        text << elements;
        m_relations.push_back({&access, elements, text.str()});
    }
}

void PlainDependences::readRelations() {
    for (Relation& relation : m_relations)
        relation.elements = isl::map(relation.elements.ctx(), relation.text);
}

std::size_t PlainDependences::find(Questions questions) const {
    std::size_t found = 0;
    for (const Relation& source : m_relations)
        for (const Relation& target : m_relations)
            if (source.access->memory == target.access->memory) {
                const bool inOrder = source.access->occurrence != target.access->occurrence &&
                                     source.access->positions < target.access->positions;
                found += findPair(source, target, inOrder, questions);
            }
    return found;
}

std::size_t PlainDependences::findPair(const Relation& source, const Relation& target, bool inOrder,
                                       Questions questions) const {
    const auto commonLoops = static_cast<unsigned>(source.access->loops.size());
    std::size_t found = 0;
    const auto ask = [&](const isl::map& part) {
        if (part.is_empty())
            return;
        ++found;
        if (questions == Questions::CarriersAndDistances)
            describe(part, commonLoops);
    };
    isl::map same = source.elements.apply_range(target.elements.reverse());
    for (unsigned loop = 0; loop < commonLoops; ++loop) {
        const int position = static_cast<int>(loop);
        ask(isl::manage(isl_map_order_lt(same.copy(), isl_dim_in, position, isl_dim_out, position)));
        same = isl::manage(isl_map_equate(same.release(), isl_dim_in, position, isl_dim_out, position));
    }
    if (inOrder)
        ask(same);
    return found;
}

} // namespace Kova::Benchmark
