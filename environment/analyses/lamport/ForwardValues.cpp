// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/ForwardValues_p.h"
#include "environment/tessel/service/TypeFacts.h"
#include "environment/tessel/AssignmentExpression.h"
#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/CaseStatement.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/VariableReference.h"
#include "environment/tessel/types/Type.h"

#include <algorithm>

namespace DepGraph {

using namespace Kova::Tessel;
using namespace Kova::Tessel::Service;

namespace {

/// The statement of the block that holds the node; null when the block does not.
const TesselBase* statementAround(const TesselBase& node, const TesselBase& block) {
    const TesselBase* inner = &node;
    while (inner != nullptr && inner->getParent() != &block)
        inner = inner->getParent();
    return inner;
}

/// A case label behind the statement leads past it.
bool isPassedByCases(const TesselBase& statement, const TesselBase& block) {
    for (std::size_t i = statement.getIndexInParent() + 1; i < block.getChildCount(); ++i)
        if (dynamic_cast<const CaseStatement*>(block.getChild(i)) != nullptr)
            return true;
    return false;
}

} // namespace

bool ForwardValues::isStable(const VariableDeclaration& variable) const {
    return (variable.getType() == nullptr || asInteger(variable.getType())) &&
           !hasQualifier(variable.getType(), Type::Volatile) && !m_facts.isWrittenUnseen(variable);
}

bool ForwardValues::isForwarded(const VariableDeclaration& variable) const {
    return variable.getInitializer() != nullptr && isAutomatic(variable) && isStable(variable) &&
           m_facts.getWriters(variable).empty();
}

bool ForwardValues::isForwarded(const AssignmentExpression& assignment) const {
    const auto* target = dynamic_cast<const VariableReference*>(assignment.getTarget());
    const TesselBase* statement = assignment.getParent();
    const auto* block = dynamic_cast<const BlockStatement*>(statement->getParent());
    if (target == nullptr || block == nullptr || assignment.isCompound() || m_jumps.hasLabels())
        return false;
    const VariableDeclaration& variable = target->getVariable();
    if (!isStable(variable) || m_facts.getWriters(variable).size() != 1 || m_facts.isInitialized(variable) ||
        isPassedByCases(*statement, *block))
        return false;
    const auto& words = m_facts.getWords(variable);
    return std::all_of(words.begin(), words.end(), [&](const VariableReference* word) {
        const TesselBase* around = statementAround(*word, *block);
        return word == target || (around != nullptr && around->getIndexInParent() > statement->getIndexInParent());
    });
}

} // namespace DepGraph
