// SPDX-License-Identifier: MIT
#include "environment/tessel/SubroutineCallExpression.h"

#include "environment/tessel/GenericSelectionExpression.h"
#include "environment/tessel/SubroutineReference.h"
#include "environment/tessel/UnaryExpression.h"

namespace Kova::Tessel {

namespace {

/// What a part of a callee stands for, since it names the same subroutine; null for any other expression.
const ExpressionBase* meantBy(const ExpressionBase* callee) {
    if (const auto* unary = dynamic_cast<const UnaryExpression*>(callee)) {
        const UnaryOperator operation = unary->getOperator();
        const bool isSame = operation == UnaryOperator::Dereference || operation == UnaryOperator::AddressOf ||
                            operation == UnaryOperator::Extension;
        return isSame ? unary->getOperand() : nullptr;
    }
    if (const auto* selection = dynamic_cast<const GenericSelectionExpression*>(callee))
        return selection->getAssociationValue(selection->getChosen());
    return nullptr;
}

} // namespace

SubroutineDeclaration* SubroutineCallExpression::getSubroutine() const {
    const ExpressionBase* callee = getCallee();
    while (const ExpressionBase* meant = meantBy(callee))
        callee = meant;
    const auto* reference = dynamic_cast<const SubroutineReference*>(callee);
    return reference != nullptr ? &reference->getSubroutine() : nullptr;
}

} // namespace Kova::Tessel
