// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/IslSpaces_p.h"
#include "environment/analyses/lamport/LoopReader_p.h"
#include "environment/tessel/BinaryExpression.h"
#include "environment/tessel/DoWhileStatement.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/VariableReference.h"
#include "environment/tessel/WhileStatement.h"
#include "environment/tessel/service/Preorder.h"
#include "environment/tessel/service/TypeFacts.h"

#include <algorithm>

namespace DepGraph {

using namespace Kova::Tessel;
using namespace Kova::Tessel::Service;

namespace {

/// Whether the limit of a loop that counts beforehand depends on what the loop counts.
bool isLimitOwn(const ForStatement& loop, const std::vector<HeaderCounter>& counters) {
    const auto* condition = dynamic_cast<const BinaryExpression*>(loop.getCondition());
    if (!loop.isCounted() || condition == nullptr || condition->getRight() == nullptr)
        return false;
    const Service::Preorder limit(*condition->getRight());
    return std::any_of(limit.begin(), limit.end(), [&counters](const TesselBase& node) {
        const auto* word = dynamic_cast<const VariableReference*>(&node);
        return word != nullptr && std::any_of(counters.begin(), counters.end(), [word](const HeaderCounter& counter) {
                   return counter.variable == &word->getVariable();
               });
    });
}

LoopIterations doubted(LoopIterations iterations, Doubt doubt, const LoopStatement& loop) {
    iterations.tests.doubt(doubt, &loop);
    iterations.body.doubt(doubt, &loop);
    return iterations;
}

} // namespace

Reach LoopReader::countFromZero(const Reach& outer) const {
    const isl::ctx context = m_course.getContext();
    const unsigned depth = m_course.getDepth();
    const isl::pw_aff number = iterationOn(context, depth, depth - 1);
    const isl::set fromZero = number.ge_set(constantOn(context, depth, isl::val(context, 0)));
    return {lifted(outer.domain, depth).intersect(fromZero), outer.assumption};
}

std::vector<LoopReader::Lower> LoopReader::readLowers(const ForStatement& loop) {
    std::vector<Lower> lowers;
    for (const HeaderCounter& counter : m_loops.getCounters(loop)) {
        std::optional<isl::pw_aff> value;
        m_course.guarded([&] { value = m_course.getReader().readAs(*counter.lower, counter.variable->getType()); });
        if (value)
            lowers.push_back({&counter, *value});
    }
    return lowers;
}

void LoopReader::setCounters(const std::vector<Lower>& lowers) {
    const unsigned depth = m_course.getDepth();
    const isl::pw_aff number = iterationOn(m_course.getContext(), depth, depth - 1);
    for (const Lower& lower : lowers) {
        std::optional<isl::pw_aff> value;
        m_course.guarded([&] { value = lifted(lower.value, depth).add(number.scale(lower.counter->step)); });
        if (value)
            m_course.getNest().setKnown(*lower.counter->variable, *value);
    }
}

isl::set LoopReader::withinTypes(const std::vector<Lower>& lowers, isl::set vectors) const {
    for (const Lower& lower : lowers) {
        const std::optional<IntegerType> type = asInteger(lower.counter->variable->getType());
        const std::optional<isl::pw_aff> value = m_course.getNest().findValue(*lower.counter->variable);
        // Signed counters do not overflow in a correct program. That an unsigned one goes up to the last number of its
        // type is not looked for in types of 32 bits and more.
        if (!type || !value || (type->isSigned && type->bits >= 32))
            continue;
        vectors = within(vectors, *value, *type, type->bits < 32);
    }
    return vectors;
}

LoopIterations LoopReader::readIterations(const ForStatement& loop, const std::vector<Lower>& lowers,
                                          const Reach& all) {
    LoopIterations result{all, all};
    const ExpressionBase* condition = loop.getCondition();
    if (condition == nullptr || isLimitOwn(loop, m_loops.getCounters(loop)))
        return doubted(result, Doubt::Bounds, loop);
    bool isExact = false;
    bool wraps = false;
    const bool isDone = m_course.guarded([&] {
        // Counters are taken for numbers while the condition is read: that they are is checked afterwards.
        const isl::set counting = withinTypes(lowers, all.domain);
        m_course.setReach({counting, all.assumption});
        const Truth truth = m_course.getReader().readCondition(*condition);
        const isl::set fails = all.domain.subtract(truth.maybeTrue);
        const isl::set tests = all.domain.subtract(laterInInnermost(fails)).coalesce();
        wraps = !tests.intersect(m_course.getUnknowns().rangesOn(tests.ctx(), loopsOf(tests))).is_subset(counting);
        isExact = truth.unread == nullptr;
        result.body.domain = tests.subtract(fails).coalesce();
        result.tests.domain = tests;
    });
    if (!isDone || wraps) {
        m_course.getNest().forgetInnermost();
        return doubted({all, all}, isDone ? Doubt::Bounds : Doubt::WorkLimit, loop);
    }
    return isExact ? result : doubted(result, Doubt::Bounds, loop);
}

LoopIterations LoopReader::enter(const ForStatement& loop) {
    const Reach outer = m_course.getReach();
    const std::vector<Lower> lowers = readLowers(loop);
    m_course.enterLoop(loop);
    setCounters(lowers);
    return readIterations(loop, lowers, countFromZero(outer));
}

bool LoopReader::isConstant(const ExpressionBase* condition, bool value) {
    bool isSo = false;
    if (condition != nullptr)
        m_course.guarded([&] {
            const Truth truth = m_course.getReader().readCondition(*condition);
            const isl::set& never = value ? truth.maybeFalse : truth.maybeTrue;
            isSo = never.intersect(m_course.getReach().domain).is_empty();
        });
    return isSo;
}

LoopIterations LoopReader::enter(const WhileStatement& loop) {
    const bool neverRuns = isConstant(loop.getCondition(), false);
    const Reach outer = m_course.getReach();
    m_course.enterLoop(loop);
    const Reach all = countFromZero(outer);
    LoopIterations iterations{all, all};
    if (neverRuns) {
        const isl::set first = all.domain.subtract(laterInInnermost(all.domain));
        iterations = {{first, all.assumption}, {first.subtract(first), all.assumption}};
    } else {
        iterations = doubted(iterations, Doubt::Bounds, loop);
    }
    return iterations;
}

LoopIterations LoopReader::enter(const DoWhileStatement& loop) {
    const bool runsOnce = isConstant(loop.getCondition(), false);
    const Reach outer = m_course.getReach();
    m_course.enterLoop(loop);
    Reach all = countFromZero(outer);
    if (runsOnce)
        all.domain = all.domain.subtract(laterInInnermost(all.domain));
    else
        all.doubt(Doubt::Bounds, &loop);
    return {all, all};
}

} // namespace DepGraph
