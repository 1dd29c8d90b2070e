// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/ChangedOperand_p.h"
#include "environment/tessel/AssignmentExpression.h"
#include "environment/tessel/UnaryExpression.h"

namespace DepGraph {

using namespace Kova::Tessel;

const ExpressionBase* findChangedOperand(const TesselBase& node) {
    if (const auto* assignment = dynamic_cast<const AssignmentExpression*>(&node))
        return assignment->getTarget();
    const auto* unary = dynamic_cast<const UnaryExpression*>(&node);
    if (unary == nullptr)
        return nullptr;
    switch (unary->getOperator()) {
    case UnaryOperator::PreIncrement:
    case UnaryOperator::PreDecrement:
    case UnaryOperator::PostIncrement:
    case UnaryOperator::PostDecrement:
        return unary->getOperand();
    default:
        return nullptr;
    }
}

} // namespace DepGraph
