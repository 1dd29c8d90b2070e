// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/CountedLoops_p.h"
#include "environment/analyses/lamport/TreeFacts_p.h"
#include "environment/tessel/AssignmentExpression.h"
#include "environment/tessel/BinaryExpression.h"
#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/DeclarationStatement.h"
#include "environment/tessel/ExpressionStatement.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/UnaryExpression.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/VariableReference.h"
#include "environment/tessel/service/Preorder.h"
#include "environment/tessel/service/TypeFacts.h"
#include "environment/tessel/types/Type.h"

#include <algorithm>

namespace DepGraph {

using namespace Kova::Tessel;
using namespace Kova::Tessel::Service;

namespace {

struct Start {
    const VariableDeclaration* variable;
    ExpressionBase* value;
};

const VariableDeclaration* variableOf(const ExpressionBase* expression) {
    const auto* reference = dynamic_cast<const VariableReference*>(expression);
    return reference != nullptr ? &reference->getVariable() : nullptr;
}

/// The parts of `first, second, third` in this order.
std::vector<ExpressionBase*> partsOf(ExpressionBase* list) {
    std::vector<ExpressionBase*> parts;
    auto* link = dynamic_cast<BinaryExpression*>(list);
    for (; link != nullptr && link->getOperator() == BinaryOperator::Comma;
         link = dynamic_cast<BinaryExpression*>(list)) {
        parts.push_back(link->getRight());
        list = link->getLeft();
    }
    parts.push_back(list);
    std::reverse(parts.begin(), parts.end());
    return parts;
}

/// `i = j = 0` starts both.
void appendStarts(std::vector<Start>& starts, ExpressionBase* expression) {
    const std::size_t first = starts.size();
    auto* assignment = dynamic_cast<AssignmentExpression*>(expression);
    ExpressionBase* value = nullptr;
    for (; assignment != nullptr && !assignment->isCompound();
         assignment = dynamic_cast<AssignmentExpression*>(value)) {
        value = assignment->getValue();
        if (const VariableDeclaration* variable = variableOf(assignment->getTarget()))
            starts.push_back({variable, nullptr});
    }
    for (std::size_t i = first; i < starts.size(); ++i)
        starts[i].value = value;
}

std::vector<Start> readStarts(StatementBase* initialization) {
    std::vector<Start> starts;
    if (auto* statement = dynamic_cast<ExpressionStatement*>(initialization))
        for (ExpressionBase* part : partsOf(statement->getExpression()))
            appendStarts(starts, part);
    if (auto* statement = dynamic_cast<DeclarationStatement*>(initialization))
        for (std::size_t i = 0; i < statement->getChildCount(); ++i) {
            const auto* variable = dynamic_cast<const VariableDeclaration*>(statement->getDeclaration(i));
            if (variable != nullptr && variable->getInitializer() != nullptr)
                starts.push_back({variable, variable->getInitializer()});
        }
    return starts;
}

struct Step {
    const VariableDeclaration* variable = nullptr;
    /// Null for one.
    const ExpressionBase* size = nullptr;
    bool isDown = false;
};

Step readAssignedStep(const AssignmentExpression& assignment) {
    const VariableDeclaration* variable = variableOf(assignment.getTarget());
    if (assignment.isCompound()) {
        const BinaryOperator operation = *assignment.getOperator();
        if (operation != BinaryOperator::Add && operation != BinaryOperator::Subtract)
            return {};
        return {variable, assignment.getValue(), operation == BinaryOperator::Subtract};
    }
    const auto* sum = dynamic_cast<const BinaryExpression*>(assignment.getValue());
    if (sum == nullptr || variable == nullptr)
        return {};
    if (sum->getOperator() == BinaryOperator::Add && variableOf(sum->getRight()) == variable)
        return {variable, sum->getLeft(), false};
    const bool isSum = sum->getOperator() == BinaryOperator::Add || sum->getOperator() == BinaryOperator::Subtract;
    if (!isSum || variableOf(sum->getLeft()) != variable)
        return {};
    return {variable, sum->getRight(), sum->getOperator() == BinaryOperator::Subtract};
}

Step readStep(const ExpressionBase* increment) {
    if (const auto* assignment = dynamic_cast<const AssignmentExpression*>(increment))
        return readAssignedStep(*assignment);
    const auto* unary = dynamic_cast<const UnaryExpression*>(increment);
    if (unary == nullptr)
        return {};
    switch (unary->getOperator()) {
    case UnaryOperator::PreIncrement:
    case UnaryOperator::PostIncrement:
        return {variableOf(unary->getOperand()), nullptr, false};
    case UnaryOperator::PreDecrement:
    case UnaryOperator::PostDecrement:
        return {variableOf(unary->getOperand()), nullptr, true};
    default:
        return {};
    }
}

bool mentions(ExpressionBase& expression, const VariableDeclaration& variable) {
    const Service::Preorder nodes(expression);
    return std::any_of(nodes.begin(), nodes.end(), [&variable](const TesselBase& node) {
        const auto* word = dynamic_cast<const VariableReference*>(&node);
        return word != nullptr && &word->getVariable() == &variable;
    });
}

} // namespace

CountedLoops::CountedLoops(BlockStatement& block, const BlockFacts& facts, AffineReader& reader) : m_facts(facts) {
    std::vector<const VariableDeclaration*> variables;
    for (TesselBase& node : Service::Preorder(block)) {
        const auto* loop = dynamic_cast<const ForStatement*>(&node);
        if (loop == nullptr)
            continue;
        m_counters[loop] = readHeader(*loop, reader);
        for (const HeaderCounter& counter : m_counters[loop])
            variables.push_back(counter.variable);
    }
    for (const VariableDeclaration* variable : variables) {
        const auto& words = m_facts.getWords(*variable);
        m_explained[variable] = std::all_of(words.begin(), words.end(),
                                            [this](const VariableReference* word) { return isInLoopOver(*word); });
    }
}

std::vector<HeaderCounter> CountedLoops::readHeader(const ForStatement& loop, AffineReader& reader) const {
    Counters counters;
    const std::vector<Start> starts = readStarts(loop.getInitialization());
    for (const ExpressionBase* part : partsOf(loop.getIncrement())) {
        const Step step = readStep(part);
        const auto start = std::find_if(starts.begin(), starts.end(), [&step](const Start& candidate) {
            return candidate.variable == step.variable;
        });
        if (step.variable == nullptr || start == starts.end() || start->value == nullptr)
            continue;
        const std::optional<isl::val> size =
            step.size != nullptr ? reader.readNumber(*step.size) : isl::val(reader.getContext(), 1);
        if (!size || size->is_zero() || mentions(*start->value, *step.variable) ||
            isChangedBeside(loop, *step.variable))
            continue;
        counters.push_back({step.variable, start->value, step.isDown ? size->neg() : *size});
    }
    return counters;
}

bool CountedLoops::isChangedBeside(const ForStatement& loop, const VariableDeclaration& variable) const {
    if (!isCountable(variable.getType()) || m_facts.isWrittenUnseen(variable) ||
        hasQualifier(variable.getType(), Type::Volatile))
        return true;
    // One word sets it, unless its declaration does, and one steps it.
    std::size_t inHeader = 0;
    for (const VariableReference* word : m_facts.getWriters(variable)) {
        if (isInside(*word, loop.getBody()) || isInside(*word, loop.getCondition()))
            return true;
        if (isInside(*word, loop.getInitialization()) || isInside(*word, loop.getIncrement()))
            ++inHeader;
    }
    return inHeader != (isInside(variable, &loop) ? 1u : 2u);
}

bool CountedLoops::isInLoopOver(const VariableReference& word) const {
    for (const TesselBase* node = word.getParent(); node != nullptr; node = node->getParent()) {
        const auto found = m_counters.find(dynamic_cast<const ForStatement*>(node));
        if (found == m_counters.end())
            continue;
        const bool isOver =
            std::any_of(found->second.begin(), found->second.end(),
                        [&word](const HeaderCounter& counter) { return counter.variable == &word.getVariable(); });
        if (isOver)
            return true;
    }
    return false;
}

const std::vector<HeaderCounter>& CountedLoops::getCounters(const ForStatement& loop) const {
    static const Counters none;
    const auto found = m_counters.find(&loop);
    return found != m_counters.end() ? found->second : none;
}

bool CountedLoops::isExplained(const DeclarationBase& variable) const {
    const auto found = m_explained.find(&variable);
    return found != m_explained.end() && found->second;
}

} // namespace DepGraph
