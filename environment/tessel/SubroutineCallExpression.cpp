// SPDX-License-Identifier: MIT
#include "environment/tessel/SubroutineCallExpression.h"

#include "environment/tessel/SubroutineReference.h"
#include "environment/tessel/UnaryExpression.h"

namespace Kova::Tessel {

SubroutineDeclaration* SubroutineCallExpression::getSubroutine() const {
    const ExpressionBase* callee = getCallee();
    while (const auto* unary = dynamic_cast<const UnaryExpression*>(callee)) {
        const UnaryOperator operation = unary->getOperator();
        if (operation != UnaryOperator::Dereference && operation != UnaryOperator::AddressOf)
            break;
        callee = unary->getOperand();
    }
    const auto* reference = dynamic_cast<const SubroutineReference*>(callee);
    return reference != nullptr ? &reference->getSubroutine() : nullptr;
}

} // namespace Kova::Tessel
