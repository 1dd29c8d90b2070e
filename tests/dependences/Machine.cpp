// SPDX-License-Identifier: MIT
#include "tests/dependences/Machine.h"

#include "environment/core/Exception.h"
#include "environment/tessel/AssignmentExpression.h"
#include "environment/tessel/BinaryExpression.h"
#include "environment/tessel/BreakStatement.h"
#include "environment/tessel/CaseStatement.h"
#include "environment/tessel/CastExpression.h"
#include "environment/tessel/ConditionalExpression.h"
#include "environment/tessel/ContinueStatement.h"
#include "environment/tessel/DeclarationStatement.h"
#include "environment/tessel/DoWhileStatement.h"
#include "environment/tessel/ExpressionStatement.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/GotoStatement.h"
#include "environment/tessel/IfStatement.h"
#include "environment/tessel/LabelStatement.h"
#include "environment/tessel/LiteralExpression.h"
#include "environment/tessel/ReturnStatement.h"
#include "environment/tessel/SubscriptExpression.h"
#include "environment/tessel/SwitchStatement.h"
#include "environment/tessel/UnaryExpression.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/WhileStatement.h"
#include "environment/tessel/types/BasicType.h"

#include <algorithm>

namespace Kova::Test {

using namespace Tessel;

namespace {

/// Farther elements than any array of a test has.
constexpr std::int64_t farElement = 100'000;

const BasicType& typeOf(const ExpressionBase& expression) {
    const auto* type = dynamic_cast<const BasicType*>(expression.getType());
    if (type == nullptr)
        throw RuntimeError("no integer");
    return *type;
}

bool isUnsigned(const BasicType& type) {
    return type.getCategory() == BasicType::Category::UnsignedInteger || type.getName() == "unsigned char";
}

std::int64_t wrapped(std::int64_t value, const BasicType& type) {
    if (type.getBits() >= 64)
        return value;
    const std::int64_t size = std::int64_t{1} << type.getBits();
    std::int64_t low = value % size;
    if (low < 0)
        low += size;
    return isUnsigned(type) || low < size / 2 ? low : low - size;
}

/// What the operands of an operator become before they meet.
const BasicType& commonType(const BasicType& first, const BasicType& second) {
    if (first.getBits() != second.getBits())
        return first.getBits() > second.getBits() ? first : second;
    return isUnsigned(first) ? first : second;
}

std::int64_t compare(BinaryOperator operation, std::int64_t left, std::int64_t right) {
    switch (operation) {
    case BinaryOperator::Less:
        return left < right;
    case BinaryOperator::Greater:
        return left > right;
    case BinaryOperator::LessEqual:
        return left <= right;
    case BinaryOperator::GreaterEqual:
        return left >= right;
    case BinaryOperator::Equal:
        return left == right;
    case BinaryOperator::NotEqual:
        return left != right;
    default:
        throw RuntimeError("no comparison");
    }
}

bool isComparison(BinaryOperator operation) {
    return operation >= BinaryOperator::Less && operation <= BinaryOperator::NotEqual;
}

std::int64_t apply(BinaryOperator operation, std::int64_t left, std::int64_t right) {
    switch (operation) {
    case BinaryOperator::Add:
        return left + right;
    case BinaryOperator::Subtract:
        return left - right;
    case BinaryOperator::Multiply:
        return left * right;
    case BinaryOperator::Divide:
    case BinaryOperator::Remainder:
        if (right == 0)
            throw RuntimeError("division by zero");
        return operation == BinaryOperator::Divide ? left / right : left % right;
    case BinaryOperator::ShiftLeft:
        return left << right;
    case BinaryOperator::ShiftRight:
        return left >> right;
    case BinaryOperator::BitwiseAnd:
        return left & right;
    case BinaryOperator::Comma:
        return right;
    default:
        throw RuntimeError("unknown operator");
    }
}

} // namespace

bool Machine::run(BlockStatement& block, const std::map<std::string, long>& values) {
    m_scalars.insert(values.begin(), values.end());
    try {
        execute(&block);
        return true;
    } catch (const Exception&) {
        return false;
    }
}

void Machine::step() {
    if (m_steps-- == 0)
        throw RuntimeError("too long");
}

Machine::Outcome Machine::execute(const StatementBase* statement) {
    step();
    if (statement == nullptr)
        return Outcome::Next;
    if (const auto* block = dynamic_cast<const BlockStatement*>(statement))
        return executeBlock(*block);
    if (const auto* loop = dynamic_cast<const ForStatement*>(statement))
        return executeFor(*loop);
    if (const auto* choice = dynamic_cast<const SwitchStatement*>(statement))
        return executeSwitch(*choice);
    if (const auto* branch = dynamic_cast<const IfStatement*>(statement))
        return execute(evaluate(branch->getCondition()) != 0 ? branch->getThenBlock() : branch->getElseBlock());
    if (const auto* loop = dynamic_cast<const WhileStatement*>(statement)) {
        m_iterations.push_back(0);
        for (; evaluate(loop->getCondition()) != 0; ++m_iterations.back())
            if (const std::optional<Outcome> outcome = executeRound(*loop))
                return *outcome;
        m_iterations.pop_back();
        return Outcome::Next;
    }
    if (const auto* loop = dynamic_cast<const DoWhileStatement*>(statement)) {
        m_iterations.push_back(-1);
        do {
            ++m_iterations.back();
            if (const std::optional<Outcome> outcome = executeRound(*loop))
                return *outcome;
        } while (evaluate(loop->getCondition()) != 0);
        m_iterations.pop_back();
        return Outcome::Next;
    }
    return executeSimple(*statement);
}

Machine::Outcome Machine::executeSimple(const StatementBase& statement) {
    if (const auto* simple = dynamic_cast<const ExpressionStatement*>(&statement))
        static_cast<void>(evaluate(simple->getExpression()));
    if (const auto* declarations = dynamic_cast<const DeclarationStatement*>(&statement))
        for (std::size_t i = 0; i < declarations->getChildCount(); ++i) {
            const auto* variable = dynamic_cast<const VariableDeclaration*>(declarations->getDeclaration(i));
            if (variable != nullptr && variable->getInitializer() != nullptr)
                m_scalars[variable->getName()] = evaluate(variable->getInitializer());
        }
    if (dynamic_cast<const BreakStatement*>(&statement) != nullptr)
        return Outcome::Break;
    if (dynamic_cast<const ContinueStatement*>(&statement) != nullptr)
        return Outcome::Continue;
    if (dynamic_cast<const ReturnStatement*>(&statement) != nullptr)
        return Outcome::Return;
    if (const auto* jump = dynamic_cast<const GotoStatement*>(&statement)) {
        m_label = jump->getLabelName();
        return Outcome::Goto;
    }
    return Outcome::Next;
}

Machine::Outcome Machine::executeBlock(const BlockStatement& block) {
    return executeFrom(block, 0);
}

Machine::Outcome Machine::executeFrom(const BlockStatement& block, std::size_t first) {
    for (std::size_t i = first; i < block.getChildCount(); ++i) {
        const Outcome outcome = execute(block.getStatement(i));
        if (outcome == Outcome::Next)
            continue;
        if (outcome != Outcome::Goto)
            return outcome;
        // Only labels that stand in the block itself are found.
        std::size_t target = i;
        for (; target < block.getChildCount(); ++target) {
            const auto* label = dynamic_cast<const LabelStatement*>(block.getStatement(target));
            if (label != nullptr && label->getName() == m_label)
                break;
        }
        if (target == block.getChildCount())
            return outcome;
        i = target;
    }
    return Outcome::Next;
}

std::optional<Machine::Outcome> Machine::executeRound(const LoopStatement& loop) {
    const Outcome outcome = execute(loop.getBody());
    if (outcome == Outcome::Next || outcome == Outcome::Continue)
        return std::nullopt;
    m_iterations.pop_back();
    return outcome == Outcome::Break ? Outcome::Next : outcome;
}

Machine::Outcome Machine::executeFor(const ForStatement& loop) {
    execute(loop.getInitialization());
    m_iterations.push_back(0);
    while (loop.getCondition() == nullptr || evaluate(loop.getCondition()) != 0) {
        if (const std::optional<Outcome> outcome = executeRound(loop))
            return *outcome;
        if (loop.getIncrement() != nullptr)
            static_cast<void>(evaluate(loop.getIncrement()));
        ++m_iterations.back();
    }
    m_iterations.pop_back();
    return Outcome::Next;
}

Machine::Outcome Machine::executeSwitch(const SwitchStatement& choice) {
    const std::int64_t value = evaluate(choice.getSelector());
    const BlockStatement& body = *choice.getBody();
    std::size_t first = body.getChildCount();
    for (std::size_t i = body.getChildCount(); i-- > 0;) {
        const auto* label = dynamic_cast<const CaseStatement*>(body.getStatement(i));
        if (label == nullptr)
            continue;
        if (!label->isDefault() && evaluate(label->getValue()) == value) {
            first = i;
            break;
        }
        if (label->isDefault())
            first = i;
    }
    const Outcome outcome = executeFrom(body, first);
    return outcome == Outcome::Break ? Outcome::Next : outcome;
}

std::int64_t Machine::evaluate(const ExpressionBase* expression) {
    step();
    const std::int64_t value = compute(*expression);
    const auto* type = dynamic_cast<const BasicType*>(expression->getType());
    if (type == nullptr)
        return value;
    const std::int64_t result = wrapped(value, *type);
    if (result != value && !isUnsigned(*type))
        throw RuntimeError("overflow");
    return result;
}

std::int64_t Machine::compute(const ExpressionBase& expression) {
    if (const auto* literal = dynamic_cast<const LiteralExpression*>(&expression))
        return literal->getIntegerValue().value();
    if (const auto* unary = dynamic_cast<const UnaryExpression*>(&expression))
        return computeUnary(*unary);
    if (const auto* binary = dynamic_cast<const BinaryExpression*>(&expression))
        return computeBinary(*binary);
    if (const auto* assignment = dynamic_cast<const AssignmentExpression*>(&expression))
        return assign(*assignment);
    if (const auto* choice = dynamic_cast<const ConditionalExpression*>(&expression))
        return evaluate(evaluate(choice->getCondition()) != 0 ? choice->getFirst() : choice->getSecond());
    if (const auto* cast = dynamic_cast<const CastExpression*>(&expression))
        return wrapped(evaluate(cast->getOperand()), typeOf(*cast));
    const Object object = locate(expression);
    note(object, false);
    return load(object);
}

std::int64_t Machine::computeUnary(const UnaryExpression& unary) {
    switch (unary.getOperator()) {
    case UnaryOperator::Plus:
        return evaluate(unary.getOperand());
    case UnaryOperator::Minus:
        return -evaluate(unary.getOperand());
    case UnaryOperator::LogicalNot:
        return evaluate(unary.getOperand()) == 0;
    case UnaryOperator::Dereference: {
        const Object object = locate(unary);
        note(object, false);
        return load(object);
    }
    default:
        break;
    }
    const Object object = locate(*unary.getOperand());
    note(object, false);
    const std::int64_t before = load(object);
    const bool isUp =
        unary.getOperator() == UnaryOperator::PreIncrement || unary.getOperator() == UnaryOperator::PostIncrement;
    const bool isBefore =
        unary.getOperator() == UnaryOperator::PreIncrement || unary.getOperator() == UnaryOperator::PreDecrement;
    const std::int64_t after = wrapped(isUp ? before + 1 : before - 1, typeOf(*unary.getOperand()));
    note(object, true);
    store(object, after);
    return isBefore ? after : before;
}

std::int64_t Machine::computeBinary(const BinaryExpression& binary) {
    const BinaryOperator operation = binary.getOperator();
    if (operation == BinaryOperator::LogicalAnd)
        return evaluate(binary.getLeft()) != 0 && evaluate(binary.getRight()) != 0;
    if (operation == BinaryOperator::LogicalOr)
        return evaluate(binary.getLeft()) != 0 || evaluate(binary.getRight()) != 0;
    std::int64_t left = evaluate(binary.getLeft());
    std::int64_t right = evaluate(binary.getRight());
    if (isComparison(operation)) {
        const BasicType& type = commonType(typeOf(*binary.getLeft()), typeOf(*binary.getRight()));
        return compare(operation, wrapped(left, type), wrapped(right, type));
    }
    if (operation != BinaryOperator::Comma && operation != BinaryOperator::ShiftLeft &&
        operation != BinaryOperator::ShiftRight) {
        left = wrapped(left, typeOf(binary));
        right = wrapped(right, typeOf(binary));
    }
    return apply(operation, left, right);
}

std::int64_t Machine::assign(const AssignmentExpression& assignment) {
    const Object target = locate(*assignment.getTarget());
    std::int64_t value = 0;
    if (assignment.isCompound()) {
        note(target, false);
        const std::int64_t before = load(target);
        value = apply(*assignment.getOperator(), before, evaluate(assignment.getValue()));
    } else {
        value = evaluate(assignment.getValue());
    }
    value = wrapped(value, typeOf(*assignment.getTarget()));
    note(target, true);
    store(target, value);
    return value;
}

Machine::Object Machine::locate(const ExpressionBase& lvalue) {
    if (const auto* word = dynamic_cast<const VariableReference*>(&lvalue))
        return {word, {}};
    const auto* element = dynamic_cast<const SubscriptExpression*>(&lvalue);
    const auto* unary = dynamic_cast<const UnaryExpression*>(&lvalue);
    if (element == nullptr && unary == nullptr)
        throw RuntimeError("no lvalue");
    Object object{nullptr, {}};
    std::int64_t index = 0;
    if (element != nullptr) {
        object = locate(*element->getBase());
        index = evaluate(element->getIndex());
    } else {
        // `*(a + i)`
        const auto& sum = dynamic_cast<const BinaryExpression&>(*unary->getOperand());
        object = locate(*sum.getLeft());
        index = evaluate(sum.getRight());
    }
    if (index > farElement || index < -farElement)
        throw RuntimeError("outside of the array");
    object.element.push_back(static_cast<long>(index));
    return object;
}

std::int64_t Machine::load(const Object& object) {
    const std::string& name = object.word->getVariable().getName();
    if (object.element.empty())
        return m_scalars[name];
    const auto [entry, isNew] = m_elements.try_emplace({name, object.element}, 0);
    if (isNew)
        for (const long index : object.element)
            entry->second = (entry->second * 7 + index * 3 + 1) % 5;
    return entry->second;
}

void Machine::store(const Object& object, std::int64_t value) {
    const std::string& name = object.word->getVariable().getName();
    if (object.element.empty())
        m_scalars[name] = value;
    else
        m_elements[{name, object.element}] = value % 1000;
}

void Machine::note(const Object& object, bool writes) {
    m_events.push_back({object.word, writes, m_iterations, object.element});
}

} // namespace Kova::Test
