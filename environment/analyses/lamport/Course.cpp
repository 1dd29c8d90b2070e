// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/Course_p.h"
#include "environment/analyses/lamport/IslSpaces_p.h"
#include "environment/analyses/lamport/OperationLimit_p.h"
#include "environment/tessel/ExpressionBase.h"

#include <isl/set.h>

namespace DepGraph {

using namespace Kova::Tessel;

namespace {

/// Of isl for one condition, subscript or loop.
constexpr unsigned long operationsOfStep = 300'000;
/// Sets of more pieces are too much for whoever has to work with them.
constexpr int mostPieces = 40;

} // namespace

Course::Course(isl::ctx context, const BlockFacts& facts)
    : m_context(context),
      m_facts(facts),
      m_reader(context, m_facts, m_unknowns),
      m_reach{allVectors(context, 0), {}} {}

AffineReader& Course::getReader() {
    m_reader.setPoint(m_nest, m_reach.domain);
    return m_reader;
}

void Course::stop() {
    m_reach.domain = isl::manage(isl_set_empty(isl_set_get_space(m_reach.domain.get())));
}

bool Course::guarded(const std::function<void()>& work) const {
    const OperationLimit limit(m_context, operationsOfStep);
    try {
        work();
        return true;
    } catch (const isl::exception&) {
        return false;
    }
}

std::pair<Reach, Reach> Course::split(const Reach& reach, const ExpressionBase& condition) {
    Truth truth;
    m_reader.setPoint(m_nest, reach.domain);
    std::pair<Reach, Reach> parts(reach, reach);
    const bool isRead = guarded([&] { truth = m_reader.readCondition(condition); });
    if (isRead)
        parts = {narrowed(reach, truth.maybeTrue, &condition), narrowed(reach, truth.maybeFalse, &condition)};
    for (Reach* part : {&parts.first, &parts.second}) {
        if (!isRead)
            part->doubt(Doubt::WorkLimit, &condition);
        else if (truth.unread != nullptr)
            part->doubt(Doubt::Condition, truth.unread);
    }
    return parts;
}

Reach Course::narrowed(const Reach& reach, const isl::set& domain, const TesselBase* where) const {
    Reach result = reach;
    isl::set narrow;
    const bool isDone = guarded([&] { narrow = reach.domain.intersect(domain).coalesce(); });
    if (isDone && isl_set_n_basic_set(narrow.get()) <= mostPieces)
        result.domain = narrow;
    else
        result.doubt(Doubt::WorkLimit, where);
    return result;
}

Reach Course::united(const Reach& first, const Reach& second, const TesselBase* where) const {
    Reach result = first;
    result.doubt(second.assumption.doubt, second.assumption.where);
    isl::set both;
    const bool isDone = guarded([&] { both = first.domain.unite(second.domain).coalesce(); });
    if (isDone && isl_set_n_basic_set(both.get()) <= mostPieces) {
        result.domain = both;
    } else {
        result.domain = allVectors(m_context, getDepth());
        result.doubt(Doubt::WorkLimit, where);
    }
    return result;
}

void Course::enterLoop(const LoopStatement& loop) {
    m_nest.enter(loop);
    m_positions.push_back(0);
}

void Course::leaveLoop() {
    m_nest.leave();
    m_positions.pop_back();
    ++m_positions.back();
}

} // namespace DepGraph
