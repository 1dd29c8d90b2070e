// SPDX-License-Identifier: MIT
#include "environment/analyses/controlflow/EvaluationFacts_p.h"
#include "environment/tessel/BinaryExpression.h"
#include "environment/tessel/ConditionalExpression.h"
#include "environment/tessel/StatementExpression.h"
#include "environment/tessel/SubroutineCallExpression.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/service/Evaluation.h"
#include "environment/tessel/service/Preorder.h"

namespace ControlFlow {

using namespace Kova::Tessel;

namespace {

bool isOperator(const TesselBase& node, BinaryOperator operation) {
    const auto* binary = dynamic_cast<const BinaryExpression*>(&node);
    return binary != nullptr && binary->getOperator() == operation;
}

/// `&&`, `||` or `?:`.
bool isChoosing(const TesselBase& node) {
    return isOperator(node, BinaryOperator::LogicalAnd) || isOperator(node, BinaryOperator::LogicalOr) ||
           dynamic_cast<const ConditionalExpression*>(&node) != nullptr;
}

/// Whether a part of its parent may be left out by it.
bool isChosen(const TesselBase& node) {
    return node.getParent() != nullptr && node.getIndexInParent() > 0 && isChoosing(*node.getParent());
}

/// Visits what is evaluated of a subtree, parents first.
/// @param enter says whether to go below a node.
template <class Enter>
void walkEvaluated(TesselBase& root, Enter enter) {
    const Service::Preorder nodes(root);
    for (auto node = nodes.begin(); node != nodes.end();) {
        const bool isLeftOut = &*node != &root && !Service::isEvaluated(*node);
        if (!isLeftOut && enter(*node))
            ++node;
        else
            node.skipChildren();
    }
}

} // namespace

EvaluationFacts::EvaluationFacts(TesselBase& root, bool splitsOperators) : m_splitsOperators(splitsOperators) {
    walkEvaluated(root, [this](const TesselBase& node) {
        if (!isBranch(node))
            return true;
        const TesselBase* around = node.getParent();
        while (dynamic_cast<const ExpressionBase*>(around) != nullptr && m_around.insert(around).second)
            around = around->getParent();
        return true;
    });
}

bool EvaluationFacts::isBranch(const TesselBase& node) const {
    return dynamic_cast<const StatementExpression*>(&node) != nullptr || (m_splitsOperators && isChoosing(node));
}

bool EvaluationFacts::isTakenApart(const ExpressionBase& expression) const {
    return isBranch(expression) || (isOperator(expression, BinaryOperator::Comma) && m_around.count(&expression) != 0);
}

std::vector<ExpressionBase*> EvaluationFacts::partsOf(ExpressionBase& expression) const {
    std::vector<ExpressionBase*> parts;
    if (m_around.count(&expression) == 0)
        return parts;
    walkEvaluated(expression, [&](TesselBase& node) {
        auto* part = dynamic_cast<ExpressionBase*>(&node);
        if (part == nullptr || part == &expression || !isTakenApart(*part))
            return m_around.count(&node) != 0;
        parts.push_back(part);
        return false;
    });
    return parts;
}

bool EvaluationFacts::neverEnds(ExpressionBase& expression) const {
    bool neverEnds = false;
    walkEvaluated(expression, [&](TesselBase& node) {
        const auto* part = dynamic_cast<const ExpressionBase*>(&node);
        if (neverEnds || part == nullptr || (part != &expression && (isTakenApart(*part) || isChosen(*part))))
            return false;
        const auto* call = dynamic_cast<const SubroutineCallExpression*>(part);
        neverEnds = call != nullptr && call->getSubroutine() != nullptr && call->getSubroutine()->isNoReturn();
        return !neverEnds;
    });
    return neverEnds;
}

} // namespace ControlFlow
