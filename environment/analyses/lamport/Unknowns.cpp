// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/IslSpaces_p.h"
#include "environment/tessel/service/TypeFacts.h"
#include "environment/analyses/lamport/Unknowns_p.h"
#include "environment/tessel/DeclarationBase.h"

#include <isl/set.h>

#include <algorithm>

namespace DepGraph {

using namespace Kova::Tessel::Service;

namespace {

/// As the source writes it; empty where that takes more than members.
std::string textOf(const Place& place) {
    const bool isFirst = std::all_of(place.subscripts.begin(), place.subscripts.end(),
                                     [](const IndexSum& sum) { return sum.terms.empty(); });
    if (place.memory.loaded || !isFirst || place.subscripts.size() > (place.memory.pointee ? 1u : 0u))
        return {};
    std::string text = place.memory.variable->getName();
    if (place.memory.pointee && place.memory.members.empty())
        text.insert(0, "*");
    const char* separator = place.memory.pointee ? "->" : ".";
    for (const Kova::Tessel::DeclarationBase* member : place.memory.members) {
        text += separator + member->getName();
        separator = ".";
    }
    return text;
}

bool involves(const isl::set& vectors, const std::string& unknown) {
    const int position = isl_set_find_dim_by_name(vectors.get(), isl_dim_param, unknown.c_str());
    return position >= 0 &&
           isl_set_involves_dims(vectors.get(), isl_dim_param, static_cast<unsigned>(position), 1) == isl_bool_true;
}

} // namespace

std::optional<std::string> Unknowns::nameOf(const Place& place) {
    std::string text = textOf(place);
    if (text.empty() || place.isInUnion)
        return std::nullopt;
    const auto [entry, isNew] = m_names.try_emplace({place.memory.variable, text});
    if (isNew) {
        while (!m_taken.insert(text).second)
            text += '\'';
        entry->second = text;
        m_unknowns.push_back({text, place.type});
    }
    return entry->second;
}

isl::set Unknowns::rangesOn(isl::ctx context, unsigned loops) const {
    isl::set ranges = allVectors(context, loops);
    for (const Unknown& unknown : m_unknowns)
        if (const std::optional<IntegerType> type = asInteger(unknown.type); type && type->bits != 0)
            ranges = within(ranges, unknownOn(context, loops, unknown.name), *type, true);
    return ranges;
}

isl::set Unknowns::withinTypes(isl::set vectors, const std::vector<std::optional<isl::pw_aff>>& values) const {
    const isl::set original = vectors;
    for (const Unknown& unknown : m_unknowns) {
        const std::optional<IntegerType> type = asInteger(unknown.type);
        // The limits of wide signed types are far from what programs reach.
        if (!type || type->bits == 0 || (type->isSigned && type->bits >= 32))
            continue;
        const bool isMet =
            involves(original, unknown.name) ||
            std::any_of(values.begin(), values.end(), [&unknown](const std::optional<isl::pw_aff>& value) {
                return value && value->involves_param(unknown.name);
            });
        if (isMet)
            vectors = within(vectors, unknownOn(vectors.ctx(), loopsOf(vectors), unknown.name), *type, type->bits < 32);
    }
    return vectors;
}

} // namespace DepGraph
