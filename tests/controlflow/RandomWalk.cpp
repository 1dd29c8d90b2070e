// SPDX-License-Identifier: MIT
#include "tests/controlflow/RandomWalk.h"

#include "environment/printing/OutToC.h"
#include "environment/tessel/BinaryExpression.h"
#include "environment/tessel/BreakStatement.h"
#include "environment/tessel/CaseStatement.h"
#include "environment/tessel/ConditionalExpression.h"
#include "environment/tessel/ContinueStatement.h"
#include "environment/tessel/DeclarationStatement.h"
#include "environment/tessel/DoWhileStatement.h"
#include "environment/tessel/ExpressionStatement.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/GotoStatement.h"
#include "environment/tessel/IfStatement.h"
#include "environment/tessel/LabelAddressExpression.h"
#include "environment/tessel/LabelStatement.h"
#include "environment/tessel/ReturnStatement.h"
#include "environment/tessel/StatementExpression.h"
#include "environment/tessel/SubroutineCallExpression.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/SwitchStatement.h"
#include "environment/tessel/UnaryExpression.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/WhileStatement.h"
#include "environment/tessel/service/Preorder.h"

#include <map>
#include <set>
#include <string>

namespace Kova::Test {

using namespace Tessel;

namespace {

struct GivenUp {};

/// Whether a constant of FunctionGenerator holds.
std::optional<bool> holds(const ExpressionBase& expression) {
    static const std::map<std::string, bool> constants = {
        {"0", false},     {"1", true},     {"ZERO", false},       {"TWO", true},
        {"1 - 1", false}, {"2 > 1", true}, {"0u - 1 < 1", false}, {"sizeof a == 3", false},
        {"'x'", true},    {"!0", true},    {"!ONE", false}};
    const auto found = constants.find(Backends::OutToC::expressionToString(expression));
    return found != constants.end() ? std::optional(found->second) : std::nullopt;
}

const SwitchStatement* switchAround(const TesselBase& label) {
    const TesselBase* around = label.getParent();
    while (around != nullptr && dynamic_cast<const SwitchStatement*>(around) == nullptr)
        around = around->getParent();
    return static_cast<const SwitchStatement*>(around);
}

std::int64_t numberOf(const ExpressionBase& literal) {
    return std::stoll(Backends::OutToC::expressionToString(literal));
}

/// The selectors of FunctionGenerator that are constants: `2`, and `0 && x` whatever is written for the 0.
std::optional<std::int64_t> constantOf(const ExpressionBase& selector) {
    const auto* binary = dynamic_cast<const BinaryExpression*>(&selector);
    if (binary != nullptr && binary->getOperator() == BinaryOperator::LogicalAnd && holds(*binary->getLeft()) == false)
        return 0;
    return Backends::OutToC::expressionToString(selector) == "2" ? std::optional<std::int64_t>(2) : std::nullopt;
}

} // namespace

void RandomWalk::run(const BlockStatement& body) {
    m_expressions.push_back(nullptr);
    try {
        const Outcome outcome = executeBlock(body);
        if (outcome == Outcome::Next || outcome == Outcome::Return) {
            m_statements.push_back(nullptr);
            m_expressions.push_back(nullptr);
        }
    } catch (const GivenUp&) {
        // What it passed until then is good.
    }
}

void RandomWalk::arriveAt(const StatementBase& statement) {
    if (m_steps-- == 0)
        throw GivenUp();
    m_statements.push_back(&statement);
}

bool RandomWalk::isSought(const TesselBase& node) const {
    const TesselBase* around = m_target;
    while (around != nullptr && around != &node)
        around = around->getParent();
    return around != nullptr;
}

RandomWalk::Outcome RandomWalk::execute(const StatementBase& statement) {
    m_holders.push_back(&statement);
    const Outcome outcome = executeHere(statement);
    m_holders.pop_back();
    return outcome;
}

RandomWalk::Outcome RandomWalk::executeHere(const StatementBase& statement) {
    if (const auto* block = dynamic_cast<const BlockStatement*>(&statement))
        return executeBlock(*block);
    if (const auto* branch = dynamic_cast<const IfStatement*>(&statement))
        return executeBranch(*branch);
    if (const auto* choice = dynamic_cast<const SwitchStatement*>(&statement))
        return executeSwitch(*choice);
    if (const auto* loop = dynamic_cast<const WhileStatement*>(&statement))
        return executeWhile(*loop);
    if (const auto* until = dynamic_cast<const DoWhileStatement*>(&statement))
        return executeDo(*until);
    if (const auto* counted = dynamic_cast<const ForStatement*>(&statement))
        return executeFor(*counted);
    m_target = nullptr;
    arriveAt(statement);
    if (dynamic_cast<const BreakStatement*>(&statement) != nullptr)
        return Outcome::Break;
    if (dynamic_cast<const ContinueStatement*>(&statement) != nullptr)
        return Outcome::Continue;
    if (const auto* simple = dynamic_cast<const ExpressionStatement*>(&statement))
        return evaluate(simple->getExpression());
    if (const auto* leave = dynamic_cast<const ReturnStatement*>(&statement)) {
        const Outcome outcome = evaluate(leave->getValue());
        return outcome == Outcome::Next ? Outcome::Return : outcome;
    }
    if (const auto* goes = dynamic_cast<const GotoStatement*>(&statement)) {
        const Outcome outcome = evaluate(goes->getAddress());
        if (outcome != Outcome::Next)
            return outcome;
        jump(*goes, *goes->getRootBlock());
        return Outcome::Goto;
    }
    if (const auto* declares = dynamic_cast<const DeclarationStatement*>(&statement))
        return evaluate(static_cast<const VariableDeclaration*>(declares->getDeclaration(0))->getInitializer());
    return Outcome::Next;
}

RandomWalk::Outcome RandomWalk::executeBlock(const BlockStatement& block) {
    if (m_target == nullptr)
        arriveAt(block);
    if (block.isEmpty())
        return Outcome::Next;
    for (std::size_t i = 0; i < block.getChildCount();) {
        if (m_target != nullptr)
            for (i = 0; !isSought(*block.getStatement(i));)
                ++i;
        const Outcome outcome = execute(*block.getStatement(i));
        ++i;
        const bool goesOn = outcome == Outcome::Next || (outcome == Outcome::Goto && isSought(block));
        if (!goesOn)
            return outcome;
        // Where a jump leads to the block itself, its last statement included, the target is looked for anew.
        if (outcome == Outcome::Goto)
            i = 0;
    }
    arriveAt(block);
    return Outcome::Next;
}

RandomWalk::Outcome RandomWalk::executeBranch(const IfStatement& branch) {
    bool isFirst = m_target != nullptr && isSought(*branch.getThenBlock());
    if (m_target == nullptr) {
        arriveAt(branch);
        Outcome ended = Outcome::Next;
        const Decision decision = decide(*branch.getCondition(), ended);
        if (!decision)
            return ended;
        isFirst = *decision;
    }
    if (isFirst)
        return executeBlock(*branch.getThenBlock());
    if (branch.getElseIf() != nullptr)
        return execute(*branch.getElseIf());
    return branch.getElseBlock() != nullptr ? executeBlock(*branch.getElseBlock()) : Outcome::Next;
}

void RandomWalk::choose(const SwitchStatement& choice) {
    std::vector<const CaseStatement*> labels;
    const CaseStatement* standard = nullptr;
    for (const TesselBase& node : Service::Preorder(*choice.getBody()))
        if (const auto* label = dynamic_cast<const CaseStatement*>(&node);
            label != nullptr && switchAround(*label) == &choice) {
            labels.push_back(label);
            standard = label->isDefault() ? label : standard;
        }
    m_target = standard;
    if (const std::optional<std::int64_t> value = constantOf(*choice.getSelector())) {
        for (const CaseStatement* label : labels)
            if (!label->isDefault() && numberOf(*label->getValue()) <= *value &&
                numberOf(label->getLastValue() != nullptr ? *label->getLastValue() : *label->getValue()) >= *value)
                m_target = label;
    } else if (!labels.empty() && !m_random.once(4)) {
        m_target = labels[m_random.below(static_cast<unsigned>(labels.size()))];
    }
}

RandomWalk::Outcome RandomWalk::executeSwitch(const SwitchStatement& choice) {
    if (m_target == nullptr) {
        arriveAt(choice);
        const Outcome outcome = evaluate(choice.getSelector());
        if (outcome != Outcome::Next)
            return outcome;
        choose(choice);
        if (m_target == nullptr)
            return Outcome::Next;
    }
    const Outcome outcome = executeBlock(*choice.getBody());
    return outcome == Outcome::Break ? Outcome::Next : outcome;
}

RandomWalk::Outcome RandomWalk::executeBody(const LoopStatement& loop) {
    const Outcome outcome = executeBlock(*loop.getBody());
    return outcome == Outcome::Continue ? Outcome::Next : outcome;
}

RandomWalk::Outcome RandomWalk::executeWhile(const WhileStatement& loop) {
    bool isInside = m_target != nullptr;
    for (;;) {
        if (!isInside) {
            arriveAt(loop);
            Outcome ended = Outcome::Next;
            const Decision decision = decide(*loop.getCondition(), ended);
            if (!decision || !*decision)
                return ended;
        }
        isInside = false;
        const Outcome outcome = executeBody(loop);
        if (outcome != Outcome::Next)
            return outcome == Outcome::Break ? Outcome::Next : outcome;
    }
}

RandomWalk::Outcome RandomWalk::executeDo(const DoWhileStatement& loop) {
    if (m_target == nullptr)
        arriveAt(loop);
    for (;;) {
        const Outcome outcome = executeBody(loop);
        if (outcome != Outcome::Next)
            return outcome == Outcome::Break ? Outcome::Next : outcome;
        arriveAt(loop);
        Outcome ended = Outcome::Next;
        const Decision decision = decide(*loop.getCondition(), ended);
        if (!decision || !*decision)
            return ended;
    }
}

RandomWalk::Outcome RandomWalk::executeFor(const ForStatement& loop) {
    bool isInside = m_target != nullptr;
    if (!isInside) {
        arriveAt(loop);
        const auto* start = static_cast<const ExpressionStatement*>(loop.getInitialization());
        const Outcome outcome = start != nullptr ? evaluate(start->getExpression()) : Outcome::Next;
        if (outcome != Outcome::Next)
            return outcome;
    }
    for (;;) {
        if (!isInside && loop.getCondition() != nullptr) {
            Outcome ended = Outcome::Next;
            const Decision decision = decide(*loop.getCondition(), ended);
            if (!decision || !*decision)
                return ended;
        }
        isInside = false;
        Outcome outcome = executeBody(loop);
        if (outcome != Outcome::Next)
            return outcome == Outcome::Break ? Outcome::Next : outcome;
        arriveAt(loop);
        outcome = evaluate(loop.getIncrement());
        if (outcome != Outcome::Next)
            return outcome;
    }
}

void RandomWalk::jump(const GotoStatement& jump, const TesselBase& subroutine) {
    m_target = jump.getLabel();
    if (m_target != nullptr)
        return;
    std::set<std::string> taken;
    std::vector<const LabelStatement*> labels;
    for (const TesselBase& node : Service::Preorder(const_cast<TesselBase&>(subroutine)))
        if (const auto* address = dynamic_cast<const LabelAddressExpression*>(&node))
            taken.insert(address->getLabelName());
        else if (const auto* label = dynamic_cast<const LabelStatement*>(&node))
            labels.push_back(label);
    do
        m_target = labels[m_random.below(static_cast<unsigned>(labels.size()))];
    while (taken.count(static_cast<const LabelStatement*>(m_target)->getName()) == 0);
}

bool RandomWalk::neverReturns(const ExpressionBase& expression) const {
    const auto* call = dynamic_cast<const SubroutineCallExpression*>(&expression);
    const std::string name = call != nullptr ? call->getSubroutine()->getName() : "";
    if (name == "stop" || name == "quit")
        return true;
    for (std::size_t i = 0; i < expression.getChildCount(); ++i) {
        const auto* child = dynamic_cast<const ExpressionBase*>(expression.getChild(i));
        if (child != nullptr && !m_shape.isTakenApart(*child) && neverReturns(*child))
            return true;
    }
    return false;
}

RandomWalk::Outcome RandomWalk::note(const ExpressionBase& expression) {
    if (m_steps-- == 0)
        throw GivenUp();
    m_expressions.push_back(&expression);
    return neverReturns(expression) ? Outcome::Stop : Outcome::Next;
}

RandomWalk::Outcome RandomWalk::evaluateParts(const ExpressionBase& expression) {
    for (const ExpressionBase* part : m_shape.partsOf(expression))
        if (const Outcome outcome = evaluate(part); outcome != Outcome::Next)
            return outcome;
    return Outcome::Next;
}

RandomWalk::Outcome RandomWalk::evaluate(const ExpressionBase* expression) {
    if (expression == nullptr)
        return Outcome::Next;
    Outcome ended = Outcome::Next;
    if (!m_shape.isTakenApart(*expression)) {
        const Outcome outcome = evaluateParts(*expression);
        return outcome == Outcome::Next ? note(*expression) : outcome;
    }
    if (const auto* statements = dynamic_cast<const StatementExpression*>(expression)) {
        const StatementBase& holder = *m_holders.back();
        const Outcome outcome = executeBlock(*statements->getBlock());
        if (outcome == Outcome::Next)
            arriveAt(holder);
        return outcome;
    }
    if (const auto* choice = dynamic_cast<const ConditionalExpression*>(expression)) {
        const Decision decision = decide(*choice->getCondition(), ended);
        return decision ? evaluate(*decision ? choice->getFirst() : choice->getSecond()) : ended;
    }
    const auto& binary = static_cast<const BinaryExpression&>(*expression);
    if (binary.getOperator() == BinaryOperator::Comma) {
        ended = evaluate(binary.getLeft());
        return ended == Outcome::Next ? evaluate(binary.getRight()) : ended;
    }
    const Decision decision = decide(*binary.getLeft(), ended);
    const bool isDecided = !decision || *decision == (binary.getOperator() == BinaryOperator::LogicalOr);
    return isDecided ? ended : evaluate(binary.getRight());
}

RandomWalk::Decision RandomWalk::decide(const ExpressionBase& expression, Outcome& ended) {
    const auto* negation = dynamic_cast<const UnaryExpression*>(&expression);
    if (negation != nullptr && negation->getOperator() == UnaryOperator::LogicalNot &&
        m_shape.isTakenApart(*negation->getOperand())) {
        const Decision decision = decide(*negation->getOperand(), ended);
        return decision ? Decision(!*decision) : decision;
    }
    if (!m_shape.isTakenApart(expression)) {
        ended = evaluateParts(expression);
        if (ended == Outcome::Next)
            ended = note(expression);
        const std::optional<bool> constant = holds(expression);
        return ended != Outcome::Next ? std::nullopt : constant ? constant : Decision(m_random.once(2));
    }
    if (const auto* choice = dynamic_cast<const ConditionalExpression*>(&expression)) {
        const Decision decision = decide(*choice->getCondition(), ended);
        if (!decision || (*decision && choice->getFirst() == nullptr))
            return decision;
        return decide(*decision ? *choice->getFirst() : *choice->getSecond(), ended);
    }
    const auto& binary = static_cast<const BinaryExpression&>(expression);
    if (binary.getOperator() == BinaryOperator::Comma) {
        ended = evaluate(binary.getLeft());
        return ended == Outcome::Next ? decide(*binary.getRight(), ended) : std::nullopt;
    }
    const Decision decision = decide(*binary.getLeft(), ended);
    const bool isDecided = !decision || *decision == (binary.getOperator() == BinaryOperator::LogicalOr);
    return isDecided ? decision : decide(*binary.getRight(), ended);
}

} // namespace Kova::Test
