// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/IslSpaces_p.h"
#include "environment/analyses/lamport/TypeFacts_p.h"
#include "environment/analyses/lamport/Unknowns_p.h"
#include "environment/tessel/DeclarationBase.h"

#include <isl/set.h>

#include <algorithm>

namespace DepGraph {

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

/// @param withWide whether to keep to the limits of wide types too, which programs hardly reach.
isl::set within(const isl::set& vectors, const isl::pw_aff& value, IntegerType type, bool withWide) {
    const isl::ctx context = vectors.ctx();
    const bool isNarrow = type.bits < 32;
    const isl::val end = powerOfTwo(context, type.isSigned ? type.bits - 1 : type.bits);
    const isl::val first = type.isSigned ? end.neg() : isl::val(context, 0);
    isl::set result = vectors;
    if (withWide || isNarrow || !type.isSigned)
        result = result.intersect(value.ge_set(constantOn(context, loopsOf(vectors), first)));
    if (withWide || isNarrow)
        result = result.intersect(value.lt_set(constantOn(context, loopsOf(vectors), end)));
    return result;
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

isl::set Unknowns::withinTypes(isl::set vectors) const {
    for (const Unknown& unknown : m_unknowns) {
        const std::optional<IntegerType> type = asInteger(unknown.type);
        const int position = isl_set_find_dim_by_name(vectors.get(), isl_dim_param, unknown.name.c_str());
        const bool isMet = position >= 0 && isl_set_involves_dims(vectors.get(), isl_dim_param,
                                                                  static_cast<unsigned>(position), 1) == isl_bool_true;
        if (type && type->bits != 0 && isMet)
            vectors = within(vectors, unknownOn(vectors.ctx(), loopsOf(vectors), unknown.name), *type, false);
    }
    return vectors;
}

} // namespace DepGraph
