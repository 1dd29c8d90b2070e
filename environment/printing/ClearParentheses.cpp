// SPDX-License-Identifier: MIT
#include "environment/printing/ClearParentheses.h"

#include "environment/tessel/AssignmentExpression.h"
#include "environment/tessel/BinaryExpression.h"
#include "environment/tessel/ExpressionStatement.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/UnaryExpression.h"

namespace Kova::Backends {

using Tessel::BinaryOperator;

namespace {

bool isComparison(BinaryOperator operation) {
    switch (operation) {
    case BinaryOperator::Less:
    case BinaryOperator::Greater:
    case BinaryOperator::LessEqual:
    case BinaryOperator::GreaterEqual:
    case BinaryOperator::Equal:
    case BinaryOperator::NotEqual:
        return true;
    default:
        return false;
    }
}

bool isSum(BinaryOperator operation) {
    return operation == BinaryOperator::Add || operation == BinaryOperator::Subtract;
}

bool isShift(BinaryOperator operation) {
    return operation == BinaryOperator::ShiftLeft || operation == BinaryOperator::ShiftRight;
}

bool isBitwise(BinaryOperator operation) {
    return operation == BinaryOperator::BitwiseAnd || operation == BinaryOperator::BitwiseXor ||
           operation == BinaryOperator::BitwiseOr;
}

bool isClearer(BinaryOperator outer, BinaryOperator inner) {
    if (outer == BinaryOperator::LogicalOr)
        return inner == BinaryOperator::LogicalAnd;
    if (isShift(outer))
        return isSum(inner);
    if (isBitwise(outer))
        return isSum(inner) || isComparison(inner) || (isBitwise(inner) && inner != outer);
    return isComparison(inner);
}

} // namespace

bool isClearerInParentheses(BinaryOperator operation, const Tessel::ExpressionBase* operand) {
    const bool isComparing = isComparison(operation);
    if (!isComparing && !isShift(operation) && !isBitwise(operation) && operation != BinaryOperator::LogicalOr)
        return false;
    if (const auto* binary = dynamic_cast<const Tessel::BinaryExpression*>(operand))
        return isClearer(operation, binary->getOperator());
    const auto* unary = dynamic_cast<const Tessel::UnaryExpression*>(operand);
    return unary != nullptr && unary->getOperator() == Tessel::UnaryOperator::LogicalNot &&
           (isComparing || isBitwise(operation));
}

bool isAssignedValue(const Tessel::BinaryExpression& comma) {
    if (comma.getOperator() != BinaryOperator::Comma ||
        dynamic_cast<const Tessel::AssignmentExpression*>(comma.getRight()) == nullptr)
        return false;
    const Tessel::TesselBase* value = &comma;
    const auto* around = dynamic_cast<const Tessel::BinaryExpression*>(value->getParent());
    while (around != nullptr && around->getOperator() == BinaryOperator::Comma && around->getRight() == value) {
        value = around;
        around = dynamic_cast<const Tessel::BinaryExpression*>(value->getParent());
    }
    if (around != nullptr)
        return around->getOperator() != BinaryOperator::Comma;
    const auto* loop = dynamic_cast<const Tessel::ForStatement*>(value->getParent());
    return value->getParent() != nullptr && (loop == nullptr || loop->getIncrement() != value) &&
           dynamic_cast<const Tessel::ExpressionStatement*>(value->getParent()) == nullptr;
}

} // namespace Kova::Backends
