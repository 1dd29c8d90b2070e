// SPDX-License-Identifier: MIT
#include "environment/analyses/controlflow/ConstantValue_p.h"
#include "environment/analyses/controlflow/FlowBuilder_p.h"
#include "environment/tessel/BinaryExpression.h"
#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/ConditionalExpression.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/StatementExpression.h"
#include "environment/tessel/UnaryExpression.h"

namespace ControlFlow {

using namespace Kova::Tessel;

namespace {

/// The statement whose place an expression is evaluated at.
const StatementBase* holderOf(const ExpressionBase& expression) {
    const StatementBase* statement = expression.obtainParentStatement();
    const auto* loop = statement != nullptr ? dynamic_cast<const ForStatement*>(statement->getParent()) : nullptr;
    return loop != nullptr && loop->getInitialization() == statement ? loop : statement;
}

} // namespace

void FlowBuilder::addValue(ExpressionBase* expression, PointId in, PointId out) {
    if (expression == nullptr)
        m_points.connect(in, out);
    else
        add(Work::Kind::Value, *expression, in, out);
}

void FlowBuilder::addValues(const std::vector<ExpressionBase*>& expressions, PointId in, PointId out) {
    for (ExpressionBase* expression : expressions) {
        if (expression == nullptr)
            continue;
        const PointId next = m_points.add();
        addValue(expression, in, next);
        in = next;
    }
    m_points.connect(in, out);
}

void FlowBuilder::addCondition(ExpressionBase* expression, PointId in, PointId whenTrue, PointId whenFalse) {
    if (expression != nullptr) {
        add(Work::Kind::Condition, *expression, in, whenTrue, whenFalse);
        return;
    }
    m_points.connect(in, whenTrue);
    m_points.connect(in, whenFalse);
}

void FlowBuilder::addLeft(const BinaryExpression& binary, PointId between, PointId whenTrue, PointId whenFalse) {
    switch (binary.getOperator()) {
    case BinaryOperator::LogicalAnd:
        addCondition(binary.getLeft(), m_work.in, between, whenFalse);
        break;
    case BinaryOperator::LogicalOr:
        addCondition(binary.getLeft(), m_work.in, whenTrue, between);
        break;
    default: // a comma
        addValue(binary.getLeft(), m_work.in, between);
        break;
    }
}

PointId FlowBuilder::walkParts(ExpressionBase& expression) {
    const std::vector<ExpressionBase*> parts = m_facts.partsOf(expression);
    if (parts.empty())
        return m_work.in;
    const PointId together = m_points.add();
    addValues(parts, m_work.in, together);
    return together;
}

void FlowBuilder::followValue(ExpressionBase& expression) {
    const PointId out = m_work.out;
    if (!m_facts.isTakenApart(expression)) {
        const PointId together = walkParts(expression);
        add(Work::Kind::Evaluation, expression, together, out);
    } else if (auto* statements = dynamic_cast<StatementExpression*>(&expression)) {
        // Control comes back to the statement around them, which goes on with their value.
        const PointId back = m_points.add();
        m_points[back].statement = holderOf(expression);
        m_points.connect(back, out);
        addStatement(statements->getBlock(), m_work.in, back);
    } else if (auto* conditional = dynamic_cast<ConditionalExpression*>(&expression)) {
        const PointId first = m_points.add();
        const PointId second = m_points.add();
        addCondition(conditional->getCondition(), m_work.in, first, second);
        addValue(conditional->getFirst(), first, out);
        addValue(conditional->getSecond(), second, out);
    } else {
        auto& binary = static_cast<BinaryExpression&>(expression);
        const PointId between = m_points.add();
        addLeft(binary, between, out, out);
        addValue(binary.getRight(), between, out);
    }
}

void FlowBuilder::followCondition(ExpressionBase& expression) {
    const PointId whenTrue = m_work.out;
    const PointId whenFalse = m_work.otherwise;
    if (auto* operand = negatedOf(expression)) {
        addCondition(operand, m_work.in, whenFalse, whenTrue);
    } else if (!m_facts.isTakenApart(expression) || dynamic_cast<StatementExpression*>(&expression) != nullptr) {
        // The value of statements has no expression of its own to decide, so they are one as a whole.
        PointId together = m_points.add();
        if (m_facts.isTakenApart(expression))
            addValue(&expression, m_work.in, together);
        else
            together = walkParts(expression);
        add(Work::Kind::Decision, expression, together, whenTrue, whenFalse);
    } else if (auto* conditional = dynamic_cast<ConditionalExpression*>(&expression)) {
        const PointId first = conditional->getFirst() != nullptr ? m_points.add() : whenTrue;
        const PointId second = m_points.add();
        addCondition(conditional->getCondition(), m_work.in, first, second);
        if (conditional->getFirst() != nullptr)
            addCondition(conditional->getFirst(), first, whenTrue, whenFalse);
        addCondition(conditional->getSecond(), second, whenTrue, whenFalse);
    } else {
        auto& binary = static_cast<BinaryExpression&>(expression);
        const PointId between = m_points.add();
        addLeft(binary, between, whenTrue, whenFalse);
        addCondition(binary.getRight(), between, whenTrue, whenFalse);
    }
}

ExpressionBase* FlowBuilder::negatedOf(const ExpressionBase& expression) const {
    const auto operandOf = [](const ExpressionBase* node) {
        const auto* unary = dynamic_cast<const UnaryExpression*>(node);
        const bool isNegation = unary != nullptr && unary->getOperator() == UnaryOperator::LogicalNot;
        return isNegation ? unary->getOperand() : nullptr;
    };
    ExpressionBase* operand = operandOf(&expression);
    ExpressionBase* innermost = operand;
    while (ExpressionBase* next = operandOf(innermost))
        innermost = next;
    const bool isOperator = innermost != nullptr && m_facts.isTakenApart(*innermost) &&
                            dynamic_cast<StatementExpression*>(innermost) == nullptr;
    return isOperator ? operand : nullptr;
}

void FlowBuilder::evaluate(ExpressionBase& expression) {
    const PointId point = m_points.add();
    m_points[point].expression = &expression;
    m_points.connect(m_work.in, point);
    if (!m_facts.neverEnds(expression))
        m_points.connect(point, m_work.out);
}

void FlowBuilder::decide(ExpressionBase& expression) {
    const PointId point = m_points.add();
    m_points[point].expression = &expression;
    m_points.connect(m_work.in, point);
    if (m_facts.neverEnds(expression))
        return;
    const std::optional<bool> holds = truthOf(expression);
    if (holds.value_or(true))
        m_points.connect(point, m_work.out, ControlTransfer::True, ControlTransfer::Next);
    if (!holds.value_or(false))
        m_points.connect(point, m_work.otherwise, ControlTransfer::False, ControlTransfer::Next);
}

} // namespace ControlFlow
