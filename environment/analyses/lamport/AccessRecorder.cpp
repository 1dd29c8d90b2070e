// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/AccessRecorder_p.h"
#include "environment/analyses/lamport/IslSpaces_p.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/VariableReference.h"

namespace DepGraph {

using namespace Kova::Tessel;

namespace {

isl::set allFromZero(isl::ctx context, unsigned loops) {
    isl::set result = allVectors(context, loops);
    for (unsigned loop = 0; loop < loops; ++loop)
        result = result.intersect(
            iterationOn(context, loops, loop).ge_set(constantOn(context, loops, isl::val(context, 0))));
    return result;
}

} // namespace

Access AccessRecorder::makeHere() {
    Access access;
    access.loops = m_course.getNest().getLoops();
    access.positions = m_course.getPositions();
    m_course.advance();
    access.domain = m_course.getReach().domain;
    if (m_disorder != nullptr) {
        access.domain = allFromZero(m_course.getContext(), m_course.getDepth());
        access.assumption = {Doubt::Jump, m_disorder};
    }
    return access;
}

void AccessRecorder::note(const Place& place, bool writes) {
    const bool isVariable = !place.memory.pointee && place.memory.members.empty();
    if (isVariable && m_disorder == nullptr && m_loops.isExplained(*place.memory.variable))
        return;
    Access access = makeHere();
    access.occurrence = place.leaf;
    access.memory = place.memory;
    access.writes = writes;
    if (m_disorder == nullptr) {
        access.assumption = place.assumption;
        addSubscripts(access, place);
        if (access.assumption.doubt == Doubt::None)
            access.assumption = m_course.getReach().assumption;
    }
    m_accesses.push_back(std::move(access));
}

void AccessRecorder::noteFollowed(const Place& pointer) {
    // A pointer that stays the same is a name for the memory, not data.
    if (!m_course.getFacts().isUnchanged(pointer))
        note(pointer, false);
}

void AccessRecorder::noteDeclaration(const VariableDeclaration& variable) {
    if (m_disorder == nullptr && m_loops.isExplained(variable))
        return;
    Access access = makeHere();
    access.memory.variable = &variable;
    access.writes = true;
    if (access.assumption.doubt == Doubt::None)
        access.assumption = m_course.getReach().assumption;
    m_declarations.push_back(std::move(access));
}

void AccessRecorder::addSubscripts(Access& access, const Place& place) {
    if (place.isWhole)
        return;
    if (!m_course.getFacts().isReachedByFixed(place)) {
        access.assumption = {Doubt::Pointer, place.pointers.back()};
        return;
    }
    for (const IndexSum& sum : place.subscripts) {
        std::optional<isl::pw_aff> value;
        const bool isDone = m_course.guarded([&] { value = m_course.getReader().readSubscript(sum); });
        if (!value && access.assumption.doubt == Doubt::None)
            access.assumption = {isDone ? Doubt::Subscript : Doubt::WorkLimit,
                                 sum.terms.empty() ? nullptr : sum.terms.back().expression};
        access.subscripts.push_back(std::move(value));
    }
}

std::vector<Access> AccessRecorder::finished(std::vector<Access> accesses) const {
    for (Access& access : accesses) {
        isl::set domain;
        if (m_course.guarded([&] { domain = m_course.getUnknowns().withinTypes(access.domain, access.subscripts); }))
            access.domain = domain;
        else if (access.assumption.doubt == Doubt::None)
            access.assumption = {Doubt::WorkLimit, nullptr};
    }
    return accesses;
}

} // namespace DepGraph
