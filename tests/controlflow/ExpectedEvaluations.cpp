// SPDX-License-Identifier: MIT
#include "tests/controlflow/ExpectedEvaluations.h"

#include "environment/tessel/BinaryExpression.h"
#include "environment/tessel/ConditionalExpression.h"
#include "environment/tessel/DeclarationStatement.h"
#include "environment/tessel/DoWhileStatement.h"
#include "environment/tessel/ExpressionStatement.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/GotoStatement.h"
#include "environment/tessel/IfStatement.h"
#include "environment/tessel/ReturnStatement.h"
#include "environment/tessel/StatementExpression.h"
#include "environment/tessel/SwitchStatement.h"
#include "environment/tessel/TypeQueryExpression.h"
#include "environment/tessel/UnaryExpression.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/WhileStatement.h"

namespace Kova::Test {

using namespace Tessel;

namespace {

const BinaryExpression* asOperator(const ExpressionBase& expression, BinaryOperator operation) {
    const auto* binary = dynamic_cast<const BinaryExpression*>(&expression);
    return binary != nullptr && binary->getOperator() == operation ? binary : nullptr;
}

} // namespace

bool ExpectedEvaluations::isTakenApart(const ExpressionBase& expression) const {
    if (dynamic_cast<const StatementExpression*>(&expression) != nullptr)
        return true;
    if (m_splits && (asOperator(expression, BinaryOperator::LogicalAnd) != nullptr ||
                     asOperator(expression, BinaryOperator::LogicalOr) != nullptr ||
                     dynamic_cast<const ConditionalExpression*>(&expression) != nullptr))
        return true;
    return asOperator(expression, BinaryOperator::Comma) != nullptr && !partsOf(expression).empty();
}

ExpectedEvaluations::List ExpectedEvaluations::partsOf(const ExpressionBase& expression) const {
    List parts;
    if (dynamic_cast<const TypeQueryExpression*>(&expression) != nullptr)
        return parts;
    for (std::size_t i = 0; i < expression.getChildCount(); ++i) {
        const auto* child = dynamic_cast<const ExpressionBase*>(expression.getChild(i));
        if (child == nullptr)
            continue;
        if (isTakenApart(*child)) {
            parts.push_back(child);
        } else {
            const List inside = partsOf(*child);
            parts.insert(parts.end(), inside.begin(), inside.end());
        }
    }
    return parts;
}

void ExpectedEvaluations::addOperands(const ExpressionBase& expression, Add addLast) {
    if (const auto* choice = dynamic_cast<const ConditionalExpression*>(&expression)) {
        addCondition(choice->getCondition());
        (this->*addLast)(choice->getFirst());
        (this->*addLast)(choice->getSecond());
        return;
    }
    const auto& binary = static_cast<const BinaryExpression&>(expression);
    if (binary.getOperator() == BinaryOperator::Comma)
        addValue(binary.getLeft());
    else
        addCondition(binary.getLeft());
    (this->*addLast)(binary.getRight());
}

void ExpectedEvaluations::addValue(const ExpressionBase* expression) {
    if (expression == nullptr)
        return;
    if (!isTakenApart(*expression)) {
        for (const ExpressionBase* part : partsOf(*expression))
            addValue(part);
        m_list.push_back(expression);
    } else if (const auto* statements = dynamic_cast<const StatementExpression*>(expression)) {
        addStatement(statements->getBlock());
    } else {
        addOperands(*expression, &ExpectedEvaluations::addValue);
    }
}

void ExpectedEvaluations::addCondition(const ExpressionBase* expression) {
    const auto* negation = dynamic_cast<const UnaryExpression*>(expression);
    const auto* statements = dynamic_cast<const StatementExpression*>(expression);
    if (expression == nullptr)
        return;
    if (negation != nullptr && negation->getOperator() == UnaryOperator::LogicalNot &&
        isTakenApart(*negation->getOperand())) {
        addCondition(negation->getOperand());
    } else if (statements != nullptr || !isTakenApart(*expression)) {
        if (statements != nullptr)
            addStatement(statements->getBlock());
        for (const ExpressionBase* part : statements != nullptr ? List() : partsOf(*expression))
            addValue(part);
        m_list.push_back(expression);
    } else {
        addOperands(*expression, &ExpectedEvaluations::addCondition);
    }
}

void ExpectedEvaluations::addStatement(const StatementBase* statement) {
    if (const auto* block = dynamic_cast<const BlockStatement*>(statement)) {
        for (std::size_t i = 0; i < block->getChildCount(); ++i)
            addStatement(block->getStatement(i));
    } else if (const auto* simple = dynamic_cast<const ExpressionStatement*>(statement)) {
        addValue(simple->getExpression());
    } else if (const auto* declares = dynamic_cast<const DeclarationStatement*>(statement)) {
        for (std::size_t i = 0; i < declares->getChildCount(); ++i)
            if (const auto* variable = dynamic_cast<const VariableDeclaration*>(declares->getDeclaration(i)))
                addValue(variable->getInitializer());
    } else if (const auto* branch = dynamic_cast<const IfStatement*>(statement)) {
        addCondition(branch->getCondition());
        addStatement(branch->getThenBlock());
        addStatement(branch->getElseBlock());
    } else if (const auto* choice = dynamic_cast<const SwitchStatement*>(statement)) {
        addValue(choice->getSelector());
        addStatement(choice->getBody());
    } else if (const auto* loop = dynamic_cast<const WhileStatement*>(statement)) {
        addCondition(loop->getCondition());
        addStatement(loop->getBody());
    } else if (const auto* until = dynamic_cast<const DoWhileStatement*>(statement)) {
        addStatement(until->getBody());
        addCondition(until->getCondition());
    } else if (const auto* counted = dynamic_cast<const ForStatement*>(statement)) {
        addStatement(counted->getInitialization());
        addCondition(counted->getCondition());
        addStatement(counted->getBody());
        addValue(counted->getIncrement());
    } else if (const auto* leave = dynamic_cast<const ReturnStatement*>(statement)) {
        addValue(leave->getValue());
    } else if (const auto* jump = dynamic_cast<const GotoStatement*>(statement)) {
        addValue(jump->getAddress());
    }
}

} // namespace Kova::Test
