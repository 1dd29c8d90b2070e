// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/AccessModel_p.h"
#include "environment/analyses/lamport/StatementWalker_p.h"
#include "environment/tessel/ExpressionBase.h"

#include <isl/ctx.h>
#include <isl/options.h>

#include <algorithm>

namespace DepGraph {

IslContext::IslContext() : m_context(isl_ctx_alloc()) {
    isl_options_set_on_error(m_context, ISL_ON_ERROR_CONTINUE);
}

IslContext::~IslContext() {
    isl_ctx_free(m_context);
}

bool mayMeet(const Memory& first, const Memory& second) {
    if (first.variable != second.variable || first.pointee != second.pointee || first.loaded != second.loaded)
        return false;
    const std::size_t common = std::min(first.members.size(), second.members.size());
    return std::equal(first.members.begin(), first.members.begin() + static_cast<std::ptrdiff_t>(common),
                      second.members.begin());
}

AccessModel::AccessModel(Kova::Tessel::BlockStatement& block) {
    const BlockFacts facts(block);
    const JumpFacts jumps(block, facts);
    Course course(m_context.get(), facts);
    const CountedLoops loops(block, facts, course.getReader());
    AccessRecorder recorder(course, loops, jumps.getDisorder());
    StatementWalker walker(course, loops, jumps, recorder);
    walker.walk(block);

    m_disorder = jumps.getDisorder() != nullptr ? jumps.getDisorder() : walker.getTooDeep();
    m_declarations = recorder.takeDeclarations();
    m_accesses = recorder.takeAccesses();
    std::stable_sort(m_accesses.begin(), m_accesses.end(), [&facts](const Access& first, const Access& second) {
        const std::size_t left = facts.getNumber(*first.occurrence);
        const std::size_t right = facts.getNumber(*second.occurrence);
        return left != right ? left < right : !first.writes && second.writes;
    });
}

AccessModel::~AccessModel() = default;

} // namespace DepGraph
