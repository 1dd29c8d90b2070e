// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/AccessCollector_p.h"
#include "environment/analyses/lamport/IslSpaces_p.h"
#include "environment/analyses/lamport/OperationLimit_p.h"
#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/DeclarationStatement.h"
#include "environment/tessel/DoWhileStatement.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/IfStatement.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/VariableReference.h"
#include "environment/tessel/WhileStatement.h"

namespace DepGraph {

using namespace Kova::Tessel;

namespace {

/// Of isl for one condition, subscript or loop; what takes more is not affine for us.
constexpr unsigned long operationsOfStep = 300'000;

} // namespace

AccessCollector::AccessCollector(isl::ctx context, BlockStatement& block)
    : m_context(context),
      m_block(block),
      m_facts(block),
      m_reader(context, m_facts, m_unknowns),
      m_loops((m_reader.setPoint(m_nest, allVectors(context, 0)), block), m_facts, m_reader),
      m_walker(*this, m_facts.isFortran()),
      m_reach{allVectors(context, 0), {}},
      m_positions{0} {}

std::vector<Access> AccessCollector::collect() {
    m_block.accept(*this);
    for (Access& access : m_accesses)
        access.domain = m_unknowns.withinTypes(access.domain);
    return std::move(m_accesses);
}

bool AccessCollector::guarded(const std::function<void()>& work) {
    const OperationLimit limit(m_context, operationsOfStep);
    try {
        work();
        return true;
    } catch (const isl::exception&) {
        return false;
    }
}

void AccessCollector::read(const Place& place) {
    note(place, false);
}

void AccessCollector::write(const Place& place) {
    note(place, true);
}

void AccessCollector::followPointer(const Place& pointer) {
    // A pointer that stays the same is a name for the memory, not data.
    if (!m_facts.isInvariant(pointer))
        note(pointer, false);
}

void AccessCollector::call(const SubroutineCallExpression& /*call*/) {}

void AccessCollector::enterIf(const ExpressionBase& condition, bool value) {
    m_outside.push_back(m_reach);
    m_reach = narrowed(m_reach, condition, value);
}

void AccessCollector::leaveIf() {
    m_reach = std::move(m_outside.back());
    m_outside.pop_back();
}

void AccessCollector::enterBlock(BlockStatement& block) {
    block.accept(*this);
}

void AccessCollector::note(const Place& place, bool writes) {
    const bool isVariable = !place.memory.pointee && place.memory.members.empty();
    if (isVariable && m_loops.isExplained(*place.memory.variable))
        return;
    Access access;
    access.occurrence = place.leaf;
    access.memory = place.memory;
    access.writes = writes;
    access.loops = m_nest.getLoops();
    access.positions = m_positions;
    ++m_positions.back();
    access.domain = m_reach.domain;
    access.assumption = place.assumption;
    addSubscripts(access, place);
    if (access.assumption.doubt == Doubt::None)
        access.assumption = m_reach.assumption;
    m_accesses.push_back(std::move(access));
}

void AccessCollector::addSubscripts(Access& access, const Place& place) {
    if (place.isWhole)
        return;
    if (!m_facts.isReachedByInvariants(place)) {
        access.assumption = {Doubt::Pointer, place.pointers.back()};
        return;
    }
    for (const IndexSum& sum : place.subscripts) {
        isl::pw_aff value;
        m_reader.setPoint(m_nest, m_reach.domain);
        const bool isDone = guarded([&] { value = m_reader.readSubscript(sum); });
        if (value.is_null() && access.assumption.doubt == Doubt::None)
            access.assumption = {isDone ? Doubt::Subscript : Doubt::WorkLimit,
                                 sum.terms.empty() ? nullptr : sum.terms.back().expression};
        access.subscripts.push_back(std::move(value));
    }
}

Reach AccessCollector::narrowed(const Reach& reach, const ExpressionBase& condition, bool value) {
    Reach result = reach;
    m_reader.setPoint(m_nest, reach.domain);
    const bool isDone = guarded([&] {
        const Truth truth = m_reader.readCondition(condition);
        const isl::set domain = reach.domain.intersect(value ? truth.maybeTrue : truth.maybeFalse).coalesce();
        result.domain = domain;
        if (truth.unread != nullptr)
            result.doubt(Doubt::Condition, &condition);
    });
    if (!isDone)
        result.doubt(Doubt::WorkLimit, &condition);
    return result;
}

void AccessCollector::visit(StatementBase& node) {
    for (std::size_t i = 0; i < node.getChildCount(); ++i)
        if (auto* expression = dynamic_cast<ExpressionBase*>(node.getChild(i)))
            m_walker.walk(expression);
}

void AccessCollector::visit(BlockStatement& node) {
    for (std::size_t i = 0; i < node.getChildCount(); ++i)
        if (StatementBase* statement = node.getStatement(i))
            statement->accept(*this);
}

void AccessCollector::visit(DeclarationStatement& node) {
    for (std::size_t i = 0; i < node.getChildCount(); ++i) {
        const auto* variable = dynamic_cast<const VariableDeclaration*>(node.getDeclaration(i));
        if (variable == nullptr)
            continue;
        for (std::size_t bound = 1; bound < variable->getChildCount(); ++bound)
            m_walker.walk(static_cast<ExpressionBase*>(variable->getChild(bound)));
        m_walker.walk(variable->getInitializer());
    }
}

void AccessCollector::visit(IfStatement& node) {
    m_walker.walk(node.getCondition());
    const Reach before = m_reach;
    const auto walkIf = [&](BlockStatement* block, bool value) {
        if (block == nullptr || node.getCondition() == nullptr)
            return;
        m_reach = narrowed(before, *node.getCondition(), value);
        block->accept(*this);
    };
    walkIf(node.getThenBlock(), true);
    walkIf(node.getElseBlock(), false);
    m_reach = before;
}

void AccessCollector::enterLoop(const LoopStatement& loop) {
    m_nest.enter(loop);
    m_positions.push_back(0);
}

void AccessCollector::leaveLoop() {
    m_nest.leave();
    m_positions.pop_back();
    ++m_positions.back();
}

void AccessCollector::visit(ForStatement& node) {
    if (node.getInitialization() != nullptr)
        node.getInitialization()->accept(*this);
    const Reach before = m_reach;
    std::vector<isl::pw_aff> lowers;
    for (const HeaderCounter& counter : m_loops.getCounters(node)) {
        isl::pw_aff lower;
        m_reader.setPoint(m_nest, before.domain);
        guarded([&] { lower = m_reader.readAs(*counter.lower, counter.variable->getType()); });
        lowers.push_back(lower);
    }
    enterLoop(node);
    guarded([&] { setCounters(node, lowers); });
    const LoopIterations iterations = readIterations(node);
    m_reach = iterations.tests;
    m_walker.walk(node.getCondition());
    m_reach = iterations.body;
    if (node.getBody() != nullptr)
        node.getBody()->accept(*this);
    m_reach = iterations.body;
    const std::vector<LoopNest::Counter> counters = m_nest.getCounters();
    m_nest.setCounters({});
    m_walker.walk(node.getIncrement());
    m_nest.setCounters(counters);
    leaveLoop();
    m_reach = before;
}

void AccessCollector::setCounters(const ForStatement& loop, const std::vector<isl::pw_aff>& lowers) {
    std::vector<LoopNest::Counter> counters;
    const std::vector<HeaderCounter>& headers = m_loops.getCounters(loop);
    const unsigned depth = m_nest.getDepth();
    for (std::size_t i = 0; i < headers.size(); ++i)
        if (!lowers[i].is_null())
            counters.push_back(
                {headers[i].variable,
                 lifted(lowers[i], depth).add(iterationOn(m_context, depth, depth - 1).scale(headers[i].step))});
    m_nest.setCounters(std::move(counters));
}

LoopIterations AccessCollector::readIterations(const ForStatement& loop) {
    const unsigned depth = m_nest.getDepth();
    const isl::pw_aff number = iterationOn(m_context, depth, depth - 1);
    const isl::set all =
        lifted(m_reach.domain, depth).intersect(number.ge_set(constantOn(m_context, depth, isl::val(m_context, 0))));
    LoopIterations result{{all, m_reach.assumption}, {all, m_reach.assumption}};
    const ExpressionBase* unread = loop.getCondition();
    bool isDone = true;
    if (loop.getCondition() != nullptr && !m_nest.getCounters().empty()) {
        m_reader.setPoint(m_nest, all);
        isDone = guarded([&] {
            const Truth truth = m_reader.readCondition(*loop.getCondition());
            unread = truth.unread;
            const isl::set fails = all.subtract(truth.maybeTrue);
            const isl::set tests = all.subtract(laterInInnermost(fails)).coalesce();
            result.body.domain = tests.subtract(fails).coalesce();
            result.tests.domain = tests;
        });
    }
    const bool isUnknown = loop.getCondition() == nullptr || unread != nullptr;
    for (Reach* reach : {&result.tests, &result.body}) {
        if (!isDone)
            reach->doubt(Doubt::WorkLimit, &loop);
        else if (isUnknown)
            reach->doubt(Doubt::Bounds, &loop);
    }
    return result;
}

void AccessCollector::visit(WhileStatement& node) {
    const Reach before = m_reach;
    enterLoop(node);
    const unsigned depth = m_nest.getDepth();
    m_reach.domain =
        lifted(before.domain, depth)
            .intersect(
                iterationOn(m_context, depth, depth - 1).ge_set(constantOn(m_context, depth, isl::val(m_context, 0))));
    m_reach.doubt(Doubt::Bounds, &node);
    m_walker.walk(node.getCondition());
    if (node.getBody() != nullptr)
        node.getBody()->accept(*this);
    leaveLoop();
    m_reach = before;
}

void AccessCollector::visit(DoWhileStatement& node) {
    const Reach before = m_reach;
    enterLoop(node);
    const unsigned depth = m_nest.getDepth();
    m_reach.domain =
        lifted(before.domain, depth)
            .intersect(
                iterationOn(m_context, depth, depth - 1).ge_set(constantOn(m_context, depth, isl::val(m_context, 0))));
    m_reach.doubt(Doubt::Bounds, &node);
    if (node.getBody() != nullptr)
        node.getBody()->accept(*this);
    m_walker.walk(node.getCondition());
    leaveLoop();
    m_reach = before;
}

} // namespace DepGraph
