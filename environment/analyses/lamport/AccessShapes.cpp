// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/AccessShapes_p.h"
#include "environment/analyses/lamport/IslBound_p.h"
#include "environment/analyses/lamport/OperationLimit_p.h"

#include <isl/ilp.h>
#include <isl/val.h>

#include <functional>

namespace DepGraph {
namespace {

/// Bounds and forms are short cuts: what takes longer than this is left to the exact test.
constexpr unsigned long shapeOperations = 50'000;

bool isBox(const DomainShape& shape) {
    isl::set box = isl::set::universe(shape.set.space());
    for (std::size_t loop = 0; loop < shape.ranges.size(); ++loop) {
        const IterationRange& range = shape.ranges[loop];
        if (!range.isBounded())
            return false;
        const auto position = static_cast<unsigned>(loop);
        const auto bound = [&](long value) { return isl_val_int_from_si(shape.set.ctx().get(), value); };
        box = isl::manage(isl_set_lower_bound_val(box.release(), isl_dim_set, position, bound(range.low)));
        box = isl::manage(isl_set_upper_bound_val(box.release(), isl_dim_set, position, bound(range.high)));
    }
    return box.is_subset(shape.set);
}

void readRanges(DomainShape& shape) {
    shape.isEmpty = shape.set.is_empty();
    if (shape.isEmpty)
        return;
    for (std::size_t loop = 0; loop < shape.ranges.size(); ++loop) {
        const int position = static_cast<int>(loop);
        IterationRange& range = shape.ranges[loop];
        range.low = readBound(shape.set.dim_min_val(position), -IterationRange::unbounded);
        range.high = readBound(shape.set.dim_max_val(position), IterationRange::unbounded);
    }
    shape.isBox = isBox(shape);
}

/// Equal domains and subscripts have equal addresses here.
std::size_t hashShape(const AccessShape& shape) {
    std::size_t result = std::hash<const void*>()(shape.domain);
    for (const SubscriptShape* subscript : shape.subscripts)
        result = result * 31 + std::hash<const void*>()(subscript);
    return result;
}

} // namespace

AccessShapes::AccessShapes(isl::ctx context, const std::vector<Access>& accesses) : m_context(context) {
    m_shapeOf.reserve(accesses.size());
    for (const Access& access : accesses)
        m_shapeOf.push_back(addShape(access));
}

const DomainShape* AccessShapes::addDomain(const isl::set& set) {
    const std::uint32_t hash = isl_set_get_hash(set.get());
    const auto [first, last] = m_domainsByHash.equal_range(hash);
    for (auto entry = first; entry != last; ++entry)
        if (isl_set_plain_is_equal(entry->second->set.get(), set.get()) == isl_bool_true)
            return entry->second;
    DomainShape shape;
    shape.set = set;
    shape.ranges.assign(set.tuple_dim(), {-IterationRange::unbounded, IterationRange::unbounded});
    try {
        const OperationLimit limit(m_context, shapeOperations);
        readRanges(shape);
        shape.parts = readParts(shape.set, m_unknowns);
    } catch (const isl::exception&) {
        shape.isBox = false;
    }
    return m_domainsByHash.emplace(hash, &m_domains.emplace_back(std::move(shape)))->second;
}

const SubscriptShape* AccessShapes::addSubscript(const isl::pw_aff& function, const DomainShape* domain) {
    if (function.is_null())
        return &m_unknownSubscript;
    const std::uint32_t hash = isl_pw_aff_get_hash(function.get());
    const auto [first, last] = m_subscriptsByHash.equal_range(hash);
    for (auto entry = first; entry != last; ++entry)
        if (entry->second->domain == domain &&
            isl_pw_aff_plain_is_equal(entry->second->function.get(), function.get()) == isl_bool_true)
            return entry->second;
    SubscriptShape shape{function, domain, std::nullopt};
    try {
        const OperationLimit limit(m_context, shapeOperations);
        shape.form = readLinearForm(function, domain->set, m_unknowns);
    } catch (const isl::exception&) {
        shape.form.reset();
    }
    return m_subscriptsByHash.emplace(hash, &m_subscripts.emplace_back(std::move(shape)))->second;
}

const AccessShape* AccessShapes::addShape(const Access& access) {
    AccessShape shape;
    shape.domain = addDomain(access.domain);
    for (const std::optional<isl::pw_aff>& subscript : access.subscripts)
        shape.subscripts.push_back(subscript ? addSubscript(*subscript, shape.domain) : &m_unknownSubscript);
    const std::size_t hash = hashShape(shape);
    const auto [first, last] = m_shapesByHash.equal_range(hash);
    for (auto entry = first; entry != last; ++entry)
        if (entry->second->domain == shape.domain && entry->second->subscripts == shape.subscripts)
            return entry->second;
    shape.number = static_cast<std::uint32_t>(m_shapes.size());
    return m_shapesByHash.emplace(hash, &m_shapes.emplace_back(std::move(shape)))->second;
}

} // namespace DepGraph
