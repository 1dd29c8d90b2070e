// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/Place_p.h"

#include <isl/cpp.h>

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace DepGraph {

/// Names the values that a block uses and does not change, as a person would: `n`, `s.n`, `p->n`. A second variable of
/// the same name, in an inner block, gets a prime.
class Unknowns {
public:
    /// The name for the value of a scalar. Null for a place that no name can be given to.
    [[nodiscard]] std::optional<std::string> nameOf(const Place& place);

    /// All values that the types of the named unknowns hold; no constraint where a type is not known.
    /// @param loops of the vectors that the set is of.
    [[nodiscard]] isl::set rangesOn(isl::ctx context, unsigned loops) const;
    /// The vectors without those where an unknown that they or the values depend on is beyond its type: a negative one
    /// of an unsigned type, a large one of a narrow type. The limits of wide types are left alone.
    /// @param values functions of the vectors, as far as they are known.
    [[nodiscard]] isl::set withinTypes(isl::set vectors, const std::vector<std::optional<isl::pw_aff>>& values) const;

private:
    struct Unknown {
        std::string name;
        const Kova::Tessel::Type* type;
    };
    using Key = std::pair<const Kova::Tessel::DeclarationBase*, std::string>;

    // Looked up, never walked.
    std::map<Key, std::string> m_names;
    std::set<std::string> m_taken;
    std::vector<Unknown> m_unknowns;
};

} // namespace DepGraph
