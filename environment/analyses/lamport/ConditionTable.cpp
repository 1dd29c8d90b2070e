// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/ConditionTable_p.h"
#include "environment/analyses/lamport/ConditionText_p.h"

#include <isl/constraint.h>
#include <isl/set.h>
#include <isl/space.h>

#include <algorithm>

namespace DepGraph {
namespace {

using Row = LinearSystem::Row;

long getFactor(const Row& row, std::size_t unknown, std::size_t unknowns) {
    return row.factors[row.factors.size() - unknowns + unknown];
}

std::string makeKey(const Row& row, const std::vector<int>& unknowns) {
    std::string key = (row.equality ? "=" : ">") + std::to_string(row.constant);
    for (std::size_t i = 0; i < unknowns.size(); ++i)
        if (getFactor(row, i, unknowns.size()) != 0)
            key += ',' + std::to_string(unknowns[i]) + ':' + std::to_string(getFactor(row, i, unknowns.size()));
    return key;
}

std::string join(std::vector<std::string> keys, char separator) {
    std::sort(keys.begin(), keys.end());
    keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
    std::string key;
    for (const std::string& part : keys)
        key += part + separator;
    return key;
}

/// The same for the same rows, however often and in whatever order they come.
std::string makeKey(const std::vector<ConditionTable::Rows>& alternatives, const std::vector<int>& unknowns) {
    std::vector<std::string> keys;
    for (const ConditionTable::Rows& rows : alternatives) {
        std::vector<std::string> parts;
        for (const Row& row : rows)
            parts.push_back(makeKey(row, unknowns));
        keys.push_back(join(std::move(parts), ';'));
    }
    return join(std::move(keys), '|');
}

isl_constraint* setFactor(isl_constraint* constraint, std::size_t unknown, long factor) {
    isl_val* value = isl_val_int_from_si(isl_constraint_get_ctx(constraint), factor);
    return isl_constraint_set_coefficient_val(constraint, isl_dim_param, static_cast<int>(unknown), value);
}

isl::set addRow(isl::set set, const Row& row, std::size_t unknowns) {
    isl_local_space* space = isl_local_space_from_space(isl_set_get_space(set.get()));
    isl_constraint* constraint =
        row.equality ? isl_constraint_alloc_equality(space) : isl_constraint_alloc_inequality(space);
    for (std::size_t i = 0; i < unknowns; ++i)
        constraint = setFactor(constraint, i, getFactor(row, i, unknowns));
    constraint = isl_constraint_set_constant_val(constraint, isl_val_int_from_si(set.ctx().get(), row.constant));
    return isl::manage(isl_set_add_constraint(set.release(), constraint));
}

} // namespace

const std::string& ConditionTable::describe(const std::vector<int>& unknowns, const std::vector<Rows>& alternatives) {
    const std::string key = makeKey(alternatives, unknowns);
    const auto known = m_texts.find(key);
    if (known != m_texts.end())
        return known->second;
    return m_texts.emplace(key, describeCondition(makeSet(unknowns, alternatives))).first->second;
}

isl::set ConditionTable::makeSet(const std::vector<int>& unknowns, const std::vector<Rows>& alternatives) {
    isl_space* named = isl_space_params_alloc(m_context.get(), static_cast<unsigned>(unknowns.size()));
    for (std::size_t i = 0; i < unknowns.size(); ++i)
        named = isl_space_set_dim_id(named, isl_dim_param, static_cast<unsigned>(i),
                                     m_names.getUnknown(unknowns[i]).copy());
    const isl::space space = isl::manage(named);
    isl::set set = isl::set::empty(space);
    for (const Rows& rows : alternatives) {
        isl::set part = isl::set::universe(space);
        for (const Row& row : rows)
            part = addRow(part, row, unknowns.size());
        set = set.unite(part);
    }
    return set;
}

} // namespace DepGraph
