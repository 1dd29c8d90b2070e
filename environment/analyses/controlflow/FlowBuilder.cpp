// SPDX-License-Identifier: MIT
#include "environment/analyses/controlflow/ConstantValue_p.h"
#include "environment/analyses/controlflow/FlowBuilder_p.h"
#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/BreakStatement.h"
#include "environment/tessel/CaseStatement.h"
#include "environment/tessel/ContinueStatement.h"
#include "environment/tessel/DeclarationStatement.h"
#include "environment/tessel/DoWhileStatement.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/GotoStatement.h"
#include "environment/tessel/IfStatement.h"
#include "environment/tessel/LabelStatement.h"
#include "environment/tessel/OpaqueStatement.h"
#include "environment/tessel/ReturnStatement.h"
#include "environment/tessel/SwitchStatement.h"
#include "environment/tessel/TypedefDeclaration.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/WhileStatement.h"
#include "environment/tessel/service/TypeFacts.h"

#include <algorithm>

namespace ControlFlow {

using namespace Kova::Tessel;

namespace {

TesselBase& subroutineOf(StatementBase& statement) {
    BlockStatement* body = statement.getRootBlock();
    return body != nullptr ? static_cast<TesselBase&>(*body) : statement;
}

/// What a node that is executed has to evaluate, in order, when nothing more is known of it.
std::vector<ExpressionBase*> expressionsOf(const TesselBase& node) {
    std::vector<ExpressionBase*> expressions;
    for (std::size_t i = 0; i < node.getChildCount(); ++i)
        expressions.push_back(dynamic_cast<ExpressionBase*>(node.getChild(i)));
    return expressions;
}

/// What a declaration evaluates where it stands.
std::vector<ExpressionBase*> expressionsOf(const DeclarationBase* declaration) {
    if (const auto* name = dynamic_cast<const TypedefDeclaration*>(declaration))
        return expressionsOf(*name);
    const auto* variable = dynamic_cast<const VariableDeclaration*>(declaration);
    if (variable == nullptr || !Service::isAutomatic(*variable))
        return {};
    std::vector<ExpressionBase*> expressions = expressionsOf(static_cast<const TesselBase&>(*variable));
    // The lengths of an array, then what it begins with.
    std::rotate(expressions.begin(), expressions.begin() + 1, expressions.end());
    return expressions;
}

/// Whether a label of a switch names a value of a type; none when that is not known.
std::optional<bool> isNamedBy(const CaseStatement& label, ConstantValue value, const Type* type) {
    if (label.isDefault())
        return false;
    const std::optional<ConstantValue> first = constantOf(*label.getValue(), type);
    const std::optional<ConstantValue> last =
        label.getLastValue() != nullptr ? constantOf(*label.getLastValue(), type) : first;
    return first && last ? std::optional(*first <= value && value <= *last) : std::nullopt;
}

} // namespace

FlowBuilder::FlowBuilder(StatementBase& statement, const Options& options)
    : m_entry(m_points.add()),
      m_exit(m_points.add()),
      m_viewed(options.viewed),
      m_facts(statement, options.splitsOperators),
      m_jumps(subroutineOf(statement)) {
    m_surroundings.push_back({m_exit, m_exit, std::nullopt});
    addStatement(&statement, m_entry, m_exit);
    run();
    connectEntries(statement);
    connectMissingLabels();
}

void FlowBuilder::run() {
    for (;;) {
        m_waiting.insert(m_waiting.end(), m_added.rbegin(), m_added.rend());
        m_added.clear();
        if (m_waiting.empty())
            return;
        m_work = m_waiting.back();
        m_waiting.pop_back();
        perform();
    }
}

void FlowBuilder::perform() {
    if (m_work.kind == Work::Kind::Statement) {
        m_work.node->accept(*this);
        return;
    }
    if (m_work.kind == Work::Kind::Choice) {
        connectChoice();
        return;
    }
    auto& expression = static_cast<ExpressionBase&>(*m_work.node);
    switch (m_work.kind) {
    case Work::Kind::Value:
        followValue(expression);
        break;
    case Work::Kind::Condition:
        followCondition(expression);
        break;
    case Work::Kind::Evaluation:
        evaluate(expression);
        break;
    default:
        decide(expression);
        break;
    }
}

void FlowBuilder::connectEntries(StatementBase& statement) {
    for (const LabelStatement* label : m_jumps.findEntries(statement))
        m_points.connect(m_entry, pointOf(*label), ControlTransfer::Jump);
    for (const PointId label : m_strayLabels)
        m_points.connect(m_entry, label, ControlTransfer::Jump);
}

/// Labels that are not inside the statement.
void FlowBuilder::connectMissingLabels() {
    for (const LabelStatement* label : m_jumpedTo) {
        if (!m_passed.insert(label).second)
            continue;
        const PointId point = pointOf(*label);
        m_points[point].statement = label;
        m_points.connect(point, m_exit);
    }
}

PointId FlowBuilder::arriveAt(StatementBase& node) {
    if (m_work.isPart)
        return m_work.in;
    const PointId point = m_points.add();
    m_points[point].statement = &node;
    m_points.connect(m_work.in, point);
    return point;
}

PointId FlowBuilder::pointOf(const LabelStatement& label) {
    const auto [found, isNew] = m_labels.try_emplace(&label, 0);
    if (isNew)
        found->second = m_points.add();
    return found->second;
}

void FlowBuilder::jumpTo(PointId from, const JumpSources::Labels& labels) {
    for (const LabelStatement* label : labels) {
        m_points.connect(from, pointOf(*label), ControlTransfer::Jump);
        m_jumpedTo.push_back(label);
    }
}

std::size_t FlowBuilder::surround(PointId behindBreak, PointId behindContinue,
                                  std::optional<std::size_t> switchNumber) {
    m_surroundings.push_back({behindBreak, behindContinue, switchNumber});
    return m_surroundings.size() - 1;
}

void FlowBuilder::add(Work::Kind kind, TesselBase& node, PointId in, PointId out, PointId otherwise) {
    m_added.push_back({kind, &node, in, out, otherwise, m_work.surroundings, false, 0});
}

void FlowBuilder::addStatement(StatementBase* statement, PointId in, PointId out) {
    addStatement(statement, in, out, m_work.surroundings);
}

void FlowBuilder::addStatement(StatementBase* statement, PointId in, PointId out, std::size_t surroundings) {
    if (statement == nullptr) {
        m_points.connect(in, out);
        return;
    }
    add(Work::Kind::Statement, *statement, in, out);
    m_added.back().surroundings = surroundings;
}

void FlowBuilder::walkStatementsOf(BlockStatement& block, PointId in, PointId out, std::size_t surroundings) {
    const PointId end = m_points.add();
    m_points[end].statement = &block;
    m_points[end].isEnd = true;
    m_points.connect(end, out);
    for (std::size_t i = 0; i < block.getChildCount(); ++i) {
        const PointId next = i + 1 < block.getChildCount() ? m_points.add() : end;
        addStatement(block.getStatement(i), in, next, surroundings);
        in = next;
    }
}

void FlowBuilder::visit(StatementBase& node) {
    addValues(expressionsOf(static_cast<const TesselBase&>(node)), arriveAt(node), m_work.out);
}

void FlowBuilder::visit(BlockStatement& node) {
    const PointId opening = arriveAt(node);
    // An empty block is passed once.
    if (node.isEmpty())
        m_points.connect(opening, m_work.out);
    else
        walkStatementsOf(node, opening, m_work.out, m_work.surroundings);
}

void FlowBuilder::visit(DeclarationStatement& node) {
    std::vector<ExpressionBase*> expressions;
    for (std::size_t i = 0; i < node.getChildCount(); ++i)
        for (ExpressionBase* expression : expressionsOf(node.getDeclaration(i)))
            expressions.push_back(expression);
    addValues(expressions, arriveAt(node), m_work.out);
}

void FlowBuilder::visit(IfStatement& node) {
    const PointId chosen = m_points.add();
    const PointId then = m_points.add();
    const PointId notChosen = m_points.add();
    const PointId otherwise = node.getElseBlock() != nullptr ? m_points.add() : m_work.out;
    m_points.connect(chosen, then, ControlTransfer::Next, ControlTransfer::True);
    m_points.connect(notChosen, otherwise, ControlTransfer::Next, ControlTransfer::False);
    addCondition(node.getCondition(), arriveAt(node), chosen, notChosen);
    addStatement(node.getThenBlock(), then, m_work.out);
    // The block of an else-if has no braces that control could pass.
    StatementBase* elseBranch = node.getElseBlock();
    if (elseBranch != m_viewed && node.getElseIf() != nullptr)
        elseBranch = node.getElseIf();
    if (elseBranch != nullptr)
        addStatement(elseBranch, otherwise, m_work.out);
}

void FlowBuilder::visit(WhileStatement& node) {
    const PointId start = arriveAt(node);
    const PointId chosen = m_points.add();
    const PointId inside = m_points.add();
    const PointId done = m_points.add();
    const PointId again = m_points.add();
    m_points.connect(chosen, inside, ControlTransfer::Next, ControlTransfer::True);
    m_points.connect(done, m_work.out, ControlTransfer::Next, ControlTransfer::False);
    m_points.connect(again, start, ControlTransfer::Back);
    addCondition(node.getCondition(), start, chosen, done);
    addStatement(node.getBody(), inside, again, surround(m_work.out, again, surroundings().switchNumber));
}

void FlowBuilder::visit(DoWhileStatement& node) {
    const PointId start = arriveAt(node);
    const PointId inside = m_points.add();
    const PointId tested = m_points.add();
    const PointId again = m_points.add();
    const PointId done = m_points.add();
    m_points.connect(start, inside);
    m_points.connect(again, inside, ControlTransfer::Back);
    m_points.connect(done, m_work.out, ControlTransfer::Next, ControlTransfer::False);
    addStatement(node.getBody(), inside, tested, surround(m_work.out, tested, surroundings().switchNumber));
    // The loop itself is where control is before its condition.
    m_work.in = tested;
    addCondition(node.getCondition(), arriveAt(node), again, done);
}

void FlowBuilder::visit(ForStatement& node) {
    const PointId start = arriveAt(node);
    const PointId decided = m_points.add();
    const PointId chosen = m_points.add();
    const PointId inside = m_points.add();
    const PointId done = m_points.add();
    const PointId ended = m_points.add();
    const PointId arriving = m_points.add();
    m_points.connect(chosen, inside, ControlTransfer::Next, ControlTransfer::True);
    m_points.connect(done, m_work.out, ControlTransfer::Next, ControlTransfer::False);
    addStatement(node.getInitialization(), start, decided);
    if (node.getInitialization() != nullptr)
        m_added.back().isPart = true;
    if (node.getCondition() != nullptr)
        addCondition(node.getCondition(), decided, chosen, done);
    else
        m_points.connect(decided, chosen);
    addStatement(node.getBody(), inside, ended, surround(m_work.out, ended, surroundings().switchNumber));
    m_points.connect(ended, arriving, ControlTransfer::Next, ControlTransfer::Back);
    // The loop itself is where control is before its increment.
    m_work.in = arriving;
    const PointId again = m_points.add();
    addValue(node.getIncrement(), arriveAt(node), again);
    m_points.connect(again, decided, ControlTransfer::Back, ControlTransfer::Next);
}

void FlowBuilder::visit(SwitchStatement& node) {
    const PointId start = arriveAt(node);
    const PointId chosen = m_points.add();
    addValue(node.getSelector(), start, chosen);
    const std::size_t number = m_switches.size();
    m_switches.push_back({&node, chosen, m_work.out, {}});
    // Control comes into the body by its labels only.
    if (node.getBody() != nullptr)
        walkStatementsOf(*node.getBody(), m_points.add(), m_work.out,
                         surround(m_work.out, surroundings().behindContinue, number));
    add(Work::Kind::Choice, node, chosen, m_work.out);
    m_added.back().switchNumber = number;
}

void FlowBuilder::connectChoice() {
    const Switch& choice = m_switches[m_work.switchNumber];
    const ExpressionBase* selector = choice.statement->getSelector();
    const std::optional<ConstantValue> value =
        selector != nullptr ? constantOf(*selector, selector->getType()) : std::nullopt;
    bool isKnown = value.has_value();
    std::optional<PointId> named;
    std::optional<PointId> standard;
    for (const auto& [label, point] : choice.labels) {
        if (label->isDefault())
            standard = point;
        const std::optional<bool> isNamed = value ? isNamedBy(*label, *value, selector->getType()) : std::nullopt;
        isKnown = isKnown && isNamed.has_value();
        if (isNamed.value_or(false))
            named = point;
    }
    if (isKnown && (named || standard)) {
        m_points.connect(choice.chosen, named ? *named : *standard, ControlTransfer::Jump);
        return;
    }
    if (!isKnown)
        for (const auto& [label, point] : choice.labels)
            m_points.connect(choice.chosen, point, ControlTransfer::Jump);
    if (!standard)
        m_points.connect(choice.chosen, choice.behind);
}

void FlowBuilder::visit(CaseStatement& node) {
    const PointId point = m_points.add();
    if (surroundings().switchNumber)
        m_switches[*surroundings().switchNumber].labels.emplace_back(&node, point);
    else
        m_strayLabels.push_back(point);
    m_points.connect(m_work.in, point);
    m_work.in = point;
    m_points.connect(arriveAt(node), m_work.out);
}

void FlowBuilder::visit(LabelStatement& node) {
    const PointId point = pointOf(node);
    m_passed.insert(&node);
    m_points.connect(m_work.in, point);
    m_work.in = point;
    m_points.connect(arriveAt(node), m_work.out);
}

void FlowBuilder::visit(GotoStatement& node) {
    const PointId start = arriveAt(node);
    const JumpSources::Labels targets = m_jumps.targetsOf(node);
    PointId jump = start;
    if (node.getAddress() != nullptr) {
        jump = m_points.add();
        addValue(node.getAddress(), start, jump);
    }
    jumpTo(jump, targets);
    // Nobody knows where a jump to nowhere leads.
    if (targets.empty())
        m_points.connect(jump, m_exit, ControlTransfer::Jump);
}

void FlowBuilder::visit(BreakStatement& node) {
    m_points.connect(arriveAt(node), surroundings().behindBreak, ControlTransfer::Jump);
}

void FlowBuilder::visit(ContinueStatement& node) {
    m_points.connect(arriveAt(node), surroundings().behindContinue, ControlTransfer::Jump);
}

void FlowBuilder::visit(ReturnStatement& node) {
    const PointId end = m_points.add();
    addValue(node.getValue(), arriveAt(node), end);
    m_points.connect(end, m_exit, ControlTransfer::Jump);
}

void FlowBuilder::visit(OpaqueStatement& node) {
    const PointId done = m_points.add();
    addValues(expressionsOf(static_cast<const TesselBase&>(node)), arriveAt(node), done);
    m_points.connect(done, m_work.out);
    jumpTo(done, m_jumps.targetsOf(node));
}

} // namespace ControlFlow
