// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/ChangedOperand_p.h"
#include "environment/analyses/lamport/LoopCounter_p.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/VariableReference.h"
#include "environment/tessel/service/Preorder.h"

#include <algorithm>
#include <vector>

namespace DepGraph {

using namespace Kova::Tessel;

namespace {

using Variables = std::vector<const VariableDeclaration*>;

/// What the node itself sets or declares; null for anything else.
const VariableDeclaration* variableSetBy(const TesselBase& node) {
    if (const auto* variable = dynamic_cast<const VariableDeclaration*>(&node))
        return variable;
    const auto* reference = dynamic_cast<const VariableReference*>(findChangedOperand(node));
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
