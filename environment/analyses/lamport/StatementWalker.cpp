// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/IslSpaces_p.h"
#include "environment/tessel/service/LiteralValue.h"
#include "environment/analyses/lamport/StatementWalker_p.h"
#include "environment/tessel/AssignmentExpression.h"
#include "environment/tessel/BinaryExpression.h"
#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/BreakStatement.h"
#include "environment/tessel/CaseStatement.h"
#include "environment/tessel/ContinueStatement.h"
#include "environment/tessel/DeclarationStatement.h"
#include "environment/tessel/DoWhileStatement.h"
#include "environment/tessel/ExpressionStatement.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/GotoStatement.h"
#include "environment/tessel/IfStatement.h"
#include "environment/tessel/LabelStatement.h"
#include "environment/tessel/LiteralExpression.h"
#include "environment/tessel/OpaqueStatement.h"
#include "environment/tessel/ReturnStatement.h"
#include "environment/tessel/SubroutineCallExpression.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/SwitchStatement.h"
#include "environment/tessel/TypedefDeclaration.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/VariableReference.h"
#include "environment/tessel/WhileStatement.h"

namespace DepGraph {

using namespace Kova::Tessel;
using namespace Kova::Tessel::Service;

namespace {

/// Deeper blocks than any person writes are not followed: the stack is finite.
constexpr int deepestNesting = 500;

} // namespace

StatementWalker::StatementWalker(Course& course, const CountedLoops& loops, const JumpFacts& jumps,
                                 AccessRecorder& recorder)
    : m_course(course),
      m_jumpFacts(jumps),
      m_recorder(recorder),
      m_loopReader(course, loops),
      m_values(course.getFacts(), jumps),
      m_walker(*this, course.getFacts().isFortran()) {}

void StatementWalker::walk(BlockStatement& block) {
    if (m_jumpFacts.getEntry() != nullptr)
        m_course.doubt(Doubt::Jump, m_jumpFacts.getEntry());
    block.accept(*this);
}

Reach StatementWalker::nowhere() const {
    const isl::set everywhere = allVectors(m_course.getContext(), m_course.getDepth());
    return {everywhere.subtract(everywhere), {}};
}

void StatementWalker::jump() {
    m_course.stop();
    ++m_jumps;
    ++m_farJumps;
}

void StatementWalker::call(const SubroutineCallExpression& call) {
    if (call.getSubroutine() != nullptr && call.getSubroutine()->isNoReturn())
        jump();
}

void StatementWalker::enterIf(const ExpressionBase& condition, bool value) {
    m_outside.push_back({m_course.getReach(), m_jumps, &condition});
    const auto [whenTrue, whenFalse] = m_course.split(m_course.getReach(), condition);
    m_course.setReach(value ? whenTrue : whenFalse);
}

void StatementWalker::leaveIf() {
    const Outside outside = std::move(m_outside.back());
    m_outside.pop_back();
    m_course.setReach(outside.reach);
    if (m_jumps != outside.jumps)
        m_course.doubt(Doubt::Jump, outside.condition);
}

void StatementWalker::walkParts(TesselBase& node, std::size_t first) {
    for (std::size_t i = first; i < node.getChildCount(); ++i)
        if (auto* expression = dynamic_cast<ExpressionBase*>(node.getChild(i)))
            m_walker.walk(expression);
}

void StatementWalker::visit(StatementBase& node) {
    walkParts(node, 0);
}

void StatementWalker::visit(BlockStatement& node) {
    if (m_nesting == deepestNesting) {
        m_tooDeep = &node;
        m_walker.walkUnknown(node);
        return;
    }
    ++m_nesting;
    for (std::size_t i = 0; i < node.getChildCount(); ++i)
        if (StatementBase* statement = node.getStatement(i))
            statement->accept(*this);
    --m_nesting;
}

void StatementWalker::learn(const VariableDeclaration& variable, const ExpressionBase& value) {
    std::optional<isl::pw_aff> known;
    m_course.guarded([&] { known = m_course.getReader().readAs(value, variable.getType()); });
    if (known)
        m_course.getNest().setKnown(variable, *known);
}

void StatementWalker::visit(ExpressionStatement& node) {
    m_walker.walk(node.getExpression());
    const auto* assignment = dynamic_cast<const AssignmentExpression*>(node.getExpression());
    if (assignment != nullptr && assignment->getValue() != nullptr && m_values.isForwarded(*assignment))
        learn(static_cast<const VariableReference*>(assignment->getTarget())->getVariable(), *assignment->getValue());
}

void StatementWalker::visit(DeclarationStatement& node) {
    for (std::size_t i = 0; i < node.getChildCount(); ++i) {
        DeclarationBase* declaration = node.getDeclaration(i);
        auto* variable = dynamic_cast<VariableDeclaration*>(declaration);
        if (variable != nullptr && isAutomatic(*variable))
            declare(*variable);
        else if (dynamic_cast<TypedefDeclaration*>(declaration) != nullptr)
            walkParts(*declaration, 0);
    }
}

void StatementWalker::declare(VariableDeclaration& variable) {
    // The bounds of its type are evaluated first.
    walkParts(variable, 1);
    m_walker.walk(variable.getInitializer());
    m_recorder.noteDeclaration(variable);
    if (m_values.isForwarded(variable))
        learn(variable, *variable.getInitializer());
}

void StatementWalker::visit(IfStatement& node) {
    const int jumpsBefore = m_jumps;
    const Reach before = m_course.getReach();
    std::vector<Reach> ends;
    walkIf(node, ends);
    if (m_jumps == jumpsBefore) {
        m_course.setReach(before);
        return;
    }
    Reach after = nowhere();
    for (const Reach& end : ends)
        after = m_course.united(after, end, &node);
    m_course.setReach(after);
}

void StatementWalker::walkIf(IfStatement& node, std::vector<Reach>& ends) {
    // A chain of `else if` may be long: no recursion.
    for (IfStatement* branch = &node; branch != nullptr; branch = branch->getElseIf()) {
        m_walker.walk(branch->getCondition());
        Reach rest = m_course.getReach();
        if (branch->getCondition() != nullptr) {
            const auto [whenTrue, whenFalse] = m_course.split(rest, *branch->getCondition());
            m_course.setReach(whenTrue);
            rest = whenFalse;
        }
        if (branch->getThenBlock() != nullptr)
            branch->getThenBlock()->accept(*this);
        ends.push_back(m_course.getReach());
        m_course.setReach(rest);
        if (branch->getElseIf() == nullptr && branch->getElseBlock() != nullptr)
            branch->getElseBlock()->accept(*this);
    }
    ends.push_back(m_course.getReach());
}

void StatementWalker::visit(SwitchStatement& node) {
    m_walker.walk(node.getSelector());
    SwitchReach choice(m_course, node);
    const int jumpsBefore = m_jumps;
    const int farJumpsBefore = m_farJumps;
    m_switches.push_back(&choice);
    m_course.setReach(nowhere());
    if (node.getBody() != nullptr)
        node.getBody()->accept(*this);
    m_switches.pop_back();
    if (m_farJumps != farJumpsBefore) {
        m_course.setReach(choice.getAfter());
        return;
    }
    // Whoever came in goes out behind it.
    m_course.setReach(choice.getEntry());
    m_jumps = jumpsBefore;
}

void StatementWalker::visit(CaseStatement& node) {
    if (m_switches.empty() || m_switches.back() == nullptr) {
        enterFromOutside();
        return;
    }
    m_course.setReach(m_course.united(m_course.getReach(), m_switches.back()->reachOf(node), &node));
    ++m_jumps;
}

void StatementWalker::visit(BreakStatement& /*node*/) {
    const bool isOfSwitch = !m_switches.empty() && m_switches.back() != nullptr;
    if (isOfSwitch)
        m_switches.back()->leave();
    jump();
    if (isOfSwitch)
        --m_farJumps;
}

void StatementWalker::visit(ContinueStatement& /*node*/) {
    jump();
}

void StatementWalker::visit(ReturnStatement& node) {
    m_walker.walk(node.getValue());
    jump();
}

void StatementWalker::enterFromOutside() {
    if (m_jumpFacts.getEntry() == nullptr || m_course.getDepth() != 0)
        return;
    m_course.setReach({allVectors(m_course.getContext(), 0), {Doubt::Jump, m_jumpFacts.getEntry()}});
    ++m_jumps;
    ++m_farJumps;
}

void StatementWalker::visit(LabelStatement& node) {
    enterFromOutside();
    const auto pending = m_pending.find(&node);
    if (pending == m_pending.end())
        return;
    m_course.setReach(m_course.united(m_course.getReach(), pending->second, &node));
    ++m_jumps;
    ++m_farJumps;
}

void StatementWalker::visit(GotoStatement& node) {
    m_walker.walk(node.getAddress());
    if (const LabelStatement* label = node.getLabel()) {
        const std::size_t depth = m_jumpFacts.countLoopsAround(*label);
        Reach reach = m_course.getReach();
        if (depth < m_entries.size()) {
            reach = m_entries[depth];
            reach.doubt(Doubt::Jump, &node);
        }
        // A label that is not of this block, or stands before, is never met.
        const auto [pending, isNew] = m_pending.try_emplace(label, reach);
        if (!isNew)
            pending->second = m_course.united(pending->second, reach, &node);
    }
    jump();
}

void StatementWalker::visit(OpaqueStatement& node) {
    // Its parts may be executed in any order: twice, each comes before each.
    m_walker.walkUnknown(node);
    m_walker.walkUnknown(node);
}

void StatementWalker::walkLoop(const LoopStatement& loop, const LoopIterations& iterations, const Rounds& rounds) {
    const int jumpsBefore = m_jumps;
    const int farJumpsBefore = m_farJumps;
    Reach tests = iterations.tests;
    Reach body = iterations.body;
    const TesselBase* exit = m_jumpFacts.findExit(loop);
    for (Reach* reach : {&tests, &body})
        if (exit != nullptr)
            reach->doubt(Doubt::Jump, exit);
    m_switches.push_back(nullptr);
    m_course.setReach(tests);
    rounds.test();
    m_course.setReach(body);
    if (loop.getBody() != nullptr)
        loop.getBody()->accept(*this);
    m_course.setReach(body);
    m_course.getNest().forgetInnermost();
    rounds.step();
    m_switches.pop_back();
    m_course.leaveLoop();
    m_jumps = jumpsBefore;
    m_farJumps = farJumpsBefore;
}

void StatementWalker::leaveLoop(const LoopStatement& loop, const ExpressionBase* condition) {
    m_course.setReach(std::move(m_entries.back()));
    m_entries.pop_back();
    const auto* literal = dynamic_cast<const LiteralExpression*>(condition);
    const bool isEndless = condition == nullptr || (literal != nullptr && valueOf(*literal).value_or(0) != 0);
    const TesselBase* escape = m_jumpFacts.findEscape(loop);
    if (escape != nullptr)
        m_course.doubt(Doubt::Jump, escape);
    else if (isEndless && m_jumpFacts.findExit(loop) == nullptr)
        m_course.doubt(Doubt::Bounds, &loop);
    else
        return;
    ++m_jumps;
    ++m_farJumps;
}

void StatementWalker::visit(ForStatement& node) {
    if (node.getInitialization() != nullptr)
        node.getInitialization()->accept(*this);
    auto* condition = dynamic_cast<BinaryExpression*>(node.getCondition());
    auto* increment = dynamic_cast<AssignmentExpression*>(node.getIncrement());
    const bool isCounted = node.isCounted() && condition != nullptr && increment != nullptr;
    if (isCounted) {
        m_walker.walk(condition->getRight());
        m_walker.walk(increment->getValue());
    }
    m_entries.push_back(m_course.getReach());
    const LoopIterations iterations = m_loopReader.enter(node);
    walkLoop(node, iterations,
             {[&] { m_walker.walk(isCounted ? condition->getLeft() : node.getCondition()); },
              [&] {
                  if (isCounted && increment->getTarget() != nullptr)
                      m_walker.update(*increment->getTarget());
                  else
                      m_walker.walk(node.getIncrement());
              }});
    leaveLoop(node, node.getCondition());
}

void StatementWalker::visit(WhileStatement& node) {
    m_entries.push_back(m_course.getReach());
    const LoopIterations iterations = m_loopReader.enter(node);
    walkLoop(node, iterations, {[&] { m_walker.walk(node.getCondition()); }, [] {}});
    leaveLoop(node, node.getCondition());
}

void StatementWalker::visit(DoWhileStatement& node) {
    m_entries.push_back(m_course.getReach());
    const LoopIterations iterations = m_loopReader.enter(node);
    walkLoop(node, iterations, {[] {}, [&] { m_walker.walk(node.getCondition()); }});
    leaveLoop(node, node.getCondition());
}

} // namespace DepGraph
