// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/LoopCounter_p.h"
#include "environment/tessel/AssignmentExpression.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/UnaryExpression.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/VariableReference.h"
#include "environment/tessel/service/Preorder.h"

#include <algorithm>
#include <vector>

namespace DepGraph {

using namespace Kova::Tessel;

namespace {

using Variables = std::vector<const VariableDeclaration*>;

bool isStep(UnaryOperator operation) {
    return operation == UnaryOperator::PreIncrement || operation == UnaryOperator::PreDecrement ||
           operation == UnaryOperator::PostIncrement || operation == UnaryOperator::PostDecrement;
}

/// What the node itself sets or declares; null for anything else.
const VariableDeclaration* variableSetBy(const TesselBase& node) {
    if (const auto* variable = dynamic_cast<const VariableDeclaration*>(&node))
        return variable;
    const ExpressionBase* target = nullptr;
    if (const auto* assignment = dynamic_cast<const AssignmentExpression*>(&node))
        target = assignment->getTarget();
    else if (const auto* unary = dynamic_cast<const UnaryExpression*>(&node); unary && isStep(unary->getOperator()))
        target = unary->getOperand();
    const auto* reference = dynamic_cast<const VariableReference*>(target);
    return reference != nullptr ? &reference->getVariable() : nullptr;
}

Variables variablesSetIn(TesselBase* root) {
    Variables variables;
    if (root == nullptr)
        return variables;
    for (const TesselBase& node : Service::Preorder(*root))
        if (const VariableDeclaration* variable = variableSetBy(node))
            variables.push_back(variable);
    return variables;
}

bool isNamedIn(TesselBase* root, const VariableDeclaration* variable) {
    if (root == nullptr)
        return false;
    const Service::Preorder nodes(*root);
    return std::any_of(nodes.begin(), nodes.end(), [variable](const TesselBase& node) {
        const auto* reference = dynamic_cast<const VariableReference*>(&node);
        return reference != nullptr && &reference->getVariable() == variable;
    });
}

} // namespace

const VariableDeclaration* findNamingCounter(const LoopStatement& loop) {
    const auto* counted = dynamic_cast<const ForStatement*>(&loop);
    if (counted == nullptr)
        return nullptr;
    Variables variables = variablesSetIn(counted->getIncrement());
    if (variables.empty())
        variables = variablesSetIn(counted->getInitialization());
    const auto named = std::find_if(variables.begin(), variables.end(), [counted](const VariableDeclaration* variable) {
        return isNamedIn(counted->getCondition(), variable);
    });
    if (named != variables.end())
        return *named;
    return variables.empty() ? nullptr : variables.front();
}

} // namespace DepGraph
