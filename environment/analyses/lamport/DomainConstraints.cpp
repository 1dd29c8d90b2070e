// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/DomainConstraints_p.h"

#include <isl/constraint.h>
#include <isl/set.h>

#include <memory>

namespace DepGraph {
namespace {

constexpr unsigned mostParts = 3;

using ConstraintPtr = std::unique_ptr<isl_constraint, decltype(&isl_constraint_free)>;
using ConstraintListPtr = std::unique_ptr<isl_constraint_list, decltype(&isl_constraint_list_free)>;

/// False when a constraint is not linear.
bool readPart(const isl::basic_set& set, UnknownNumbers& unknowns, DomainPart& part) {
    if (isl_basic_set_dim(set.get(), isl_dim_div) > 0)
        return false;
    const ConstraintListPtr list(isl_basic_set_get_constraint_list(set.get()), &isl_constraint_list_free);
    const int count = isl_constraint_list_n_constraint(list.get());
    for (int i = 0; i < count; ++i) {
        const ConstraintPtr constraint(isl_constraint_list_get_constraint(list.get(), i), &isl_constraint_free);
        std::optional<LinearForm> form =
            readLinearForm(isl::manage(isl_constraint_get_aff(constraint.get())), unknowns);
        if (!form)
            return false;
        part.push_back({std::move(*form), isl_constraint_is_equality(constraint.get()) == isl_bool_true});
    }
    return count == isl_basic_set_n_constraint(set.get());
}

} // namespace

std::optional<std::vector<DomainPart>> readParts(const isl::set& domain, UnknownNumbers& unknowns) {
    if (domain.n_basic_set() > mostParts)
        return std::nullopt;
    std::vector<DomainPart> parts;
    bool linear = true;
    domain.foreach_basic_set(
        [&](const isl::basic_set& set) { linear = linear && readPart(set, unknowns, parts.emplace_back()); });
    return linear ? std::optional(std::move(parts)) : std::nullopt;
}

} // namespace DepGraph
