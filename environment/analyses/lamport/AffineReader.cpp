// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/AffineReader_p.h"
#include "environment/analyses/lamport/IslSpaces_p.h"
#include "environment/tessel/service/LiteralValue.h"
#include "environment/tessel/BinaryExpression.h"
#include "environment/tessel/CastExpression.h"
#include "environment/tessel/ConditionalExpression.h"
#include "environment/tessel/EnumeratorDeclaration.h"
#include "environment/tessel/EnumeratorReference.h"
#include "environment/tessel/GenericSelectionExpression.h"
#include "environment/tessel/LiteralExpression.h"
#include "environment/tessel/TypeQueryExpression.h"
#include "environment/tessel/UnaryExpression.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/VariableReference.h"
#include "environment/tessel/types/BasicType.h"

#include <isl/aff.h>
#include <isl/val.h>

#include <utility>

namespace DepGraph {

using namespace Kova::Tessel;
using namespace Kova::Tessel::Service;

namespace {

constexpr int deepestNesting = 100;

/// None when the function is not the same everywhere.
std::optional<isl::val> constantOf(const std::optional<isl::pw_aff>& function) {
    if (!function || function->n_piece() != 1 || !function->isa_aff() || !function->as_aff().is_cst())
        return std::nullopt;
    return function->as_aff().constant_val();
}

bool isComparison(BinaryOperator operation) {
    switch (operation) {
    case BinaryOperator::Less:
    case BinaryOperator::Greater:
    case BinaryOperator::LessEqual:
    case BinaryOperator::GreaterEqual:
    case BinaryOperator::Equal:
    case BinaryOperator::NotEqual:
        return true;
    default:
        return false;
    }
}

bool isJunction(BinaryOperator operation) {
    return operation == BinaryOperator::LogicalAnd || operation == BinaryOperator::LogicalOr;
}

/// The type in which two operands are compared.
IntegerType commonType(const Type* first, const Type* second) {
    const auto promoted = [](const Type* type) {
        const IntegerType known = asInteger(type).value_or(IntegerType{});
        return known.bits < 32 ? IntegerType{} : known;
    };
    const IntegerType left = promoted(first);
    const IntegerType right = promoted(second);
    if (left.bits != right.bits)
        return left.bits > right.bits ? left : right;
    return left.isSigned ? right : left;
}

} // namespace

isl::pw_aff AffineReader::constant(long value) const {
    return constantOn(m_context, getDepth(), isl::val(m_context, value));
}

bool AffineReader::isNonNegative(const isl::pw_aff& value) const {
    const isl::set negative = value.lt_set(constant(0));
    return negative.intersect(m_domain).intersect(m_unknowns.rangesOn(m_context, getDepth())).is_empty();
}

bool AffineReader::isWithin(const isl::pw_aff& value, IntegerType type) const {
    const isl::set vectors = m_domain.intersect(m_unknowns.rangesOn(m_context, getDepth()));
    return vectors.is_subset(within(vectors, value, type, true));
}

AffineReader::Function AffineReader::settled(const Value& value) const {
    return value.wraps && !isNonNegative(*value.function) ? std::nullopt : value.function;
}

AffineReader::Function AffineReader::read(const ExpressionBase& expression) {
    return settled(readValue(&expression));
}

AffineReader::Function AffineReader::readAs(const ExpressionBase& expression, const Type* type) {
    return settled(readOperand(&expression, type));
}

std::optional<isl::val> AffineReader::readNumber(const ExpressionBase& expression) {
    return constantOf(read(expression));
}

AffineReader::Function AffineReader::readSubscript(const IndexSum& sum) {
    isl::pw_aff result = constant(0);
    for (const IndexSum::Term& term : sum.terms) {
        const Value value = readValue(term.expression);
        if (!value.function)
            return std::nullopt;
        result = term.isSubtracted ? result.sub(*value.function) : result.add(*value.function);
    }
    return result;
}

AffineReader::Value AffineReader::converted(const Value& value, const Type* from, const Type* to) {
    const std::optional<IntegerType> source = asInteger(from);
    const std::optional<IntegerType> target = asInteger(to);
    if (!value.function || (to != nullptr && !target))
        return {};
    if (!source || !target || (source->isSigned == target->isSigned && source->bits == target->bits))
        return value;
    // Unsigned numbers are all the same modulo the size of the type.
    const bool isWideUnsigned = !target->isSigned && target->bits >= 32;
    if (isWideUnsigned && value.wraps && target->bits <= source->bits)
        return value;
    const Function exact = settled(value);
    if (!exact)
        return {};
    if (target->bits == 1)
        return {indicator(nonZero(*exact)), false};
    if (isWideUnsigned && target->bits >= source->bits)
        return {exact, source->isSigned && !isNonNegative(*exact)};
    const bool alwaysFits =
        target->isSigned && (source->isSigned ? source->bits <= target->bits : source->bits < target->bits);
    return alwaysFits || isWithin(*exact, *target) ? Value{exact, false} : Value();
}

AffineReader::Value AffineReader::readOperand(const ExpressionBase* operand, const Type* type) {
    return operand != nullptr ? converted(readValue(operand), operand->getType(), type) : Value();
}

AffineReader::Function AffineReader::readSettled(const ExpressionBase* operand, const Type* type) {
    return settled(readOperand(operand, type));
}

AffineReader::Value AffineReader::readValue(const ExpressionBase* expression) {
    if (expression == nullptr || m_nesting == deepestNesting || !isCountable(expression->getType()))
        return {};
    ++m_nesting;
    Value value = readUnguarded(*expression);
    --m_nesting;
    return value;
}

AffineReader::Value AffineReader::readConstant(const isl::val& value, const Type* type) {
    const std::optional<IntegerType> integer = asInteger(type);
    // A large unsigned number stands for a negative one in sums.
    if (integer && !integer->isSigned && integer->bits >= 32 && value.ge(powerOfTwo(m_context, integer->bits - 1)))
        return {};
    return {constantOn(m_context, getDepth(), value), false};
}

AffineReader::Value AffineReader::readUnguarded(const ExpressionBase& expression) {
    if (const auto* literal = dynamic_cast<const LiteralExpression*>(&expression)) {
        const std::optional<std::int64_t> value = valueOf(*literal);
        return value ? readConstant(isl::val(m_context, static_cast<long>(*value)), literal->getType()) : Value();
    }
    if (const auto* named = dynamic_cast<const EnumeratorReference*>(&expression))
        return {constant(static_cast<long>(named->getEnumerator().getValue())), false};
    if (PlaceReader::isLvalueForm(expression))
        return readLvalue(expression);
    if (const auto* unary = dynamic_cast<const UnaryExpression*>(&expression))
        return readUnary(*unary);
    if (const auto* binary = dynamic_cast<const BinaryExpression*>(&expression))
        return readBinary(*binary);
    if (const auto* choice = dynamic_cast<const ConditionalExpression*>(&expression))
        return readChoice(*choice);
    if (const auto* cast = dynamic_cast<const CastExpression*>(&expression))
        return readOperand(cast->getOperand(), cast->getType());
    if (const auto* selection = dynamic_cast<const GenericSelectionExpression*>(&expression))
        return readValue(selection->getAssociationValue(selection->getChosen()));
    if (const auto* query = dynamic_cast<const TypeQueryExpression*>(&expression))
        return readSize(*query);
    return {};
}

AffineReader::Value AffineReader::readSize(const TypeQueryExpression& query) {
    const Type* type = query.getOperand() != nullptr ? query.getOperand()->getType() : query.getQueriedType();
    const std::optional<std::uint64_t> size = sizeOf(type);
    const bool isRead = query.getQuery() == TypeQueryExpression::Query::SizeOf && size && *size <= INT32_MAX;
    return isRead ? Value{constant(static_cast<long>(*size)), false} : Value();
}

AffineReader::Value AffineReader::readLvalue(const ExpressionBase& lvalue) {
    if (const auto* reference = dynamic_cast<const VariableReference*>(&lvalue)) {
        if (const Function known = m_nest->findValue(reference->getVariable()))
            return {known, false};
    }
    const std::vector<Place> places = m_places.readLvalue(lvalue);
    if (const auto* reference = dynamic_cast<const VariableReference*>(&lvalue)) {
        if (const std::optional<isl::val> fixed = readFixed(reference->getVariable()))
            return {constantOn(m_context, getDepth(), *fixed), false};
    }
    if (places.size() != 1 || !isCountable(places.front().type) || !m_facts.isFixed(places.front()))
        return {};
    const std::optional<std::string> name = m_unknowns.nameOf(places.front());
    return name ? Value{unknownOn(m_context, getDepth(), *name), false} : Value();
}

std::optional<isl::val> AffineReader::readFixed(const VariableDeclaration& variable) {
    if (variable.isParameter() || variable.getInitializer() == nullptr || m_nesting == deepestNesting ||
        !hasQualifier(variable.getType(), Type::Const) || hasQualifier(variable.getType(), Type::Volatile))
        return {};
    // What the initializer depends on may have changed since: only a number will do.
    const LoopNest outside;
    const LoopNest* nest = std::exchange(m_nest, &outside);
    const isl::set domain = std::exchange(m_domain, allVectors(m_context, 0));
    ++m_nesting;
    const std::optional<isl::val> value = constantOf(readAs(*variable.getInitializer(), variable.getType()));
    --m_nesting;
    m_nest = nest;
    m_domain = domain;
    return value;
}

AffineReader::Value AffineReader::readUnary(const UnaryExpression& unary) {
    switch (unary.getOperator()) {
    case UnaryOperator::Plus:
    case UnaryOperator::Extension:
        return readOperand(unary.getOperand(), unary.getType());
    case UnaryOperator::Minus: {
        const Value operand = readOperand(unary.getOperand(), unary.getType());
        const std::optional<IntegerType> type = asInteger(unary.getType());
        return operand.function ? Value{operand.function->neg(), type && !type->isSigned} : Value();
    }
    case UnaryOperator::LogicalNot:
        return readTruth(unary);
    default:
        return {};
    }
}

AffineReader::Value AffineReader::readBinary(const BinaryExpression& binary) {
    if (isComparison(binary.getOperator()) || isJunction(binary.getOperator()))
        return readTruth(binary);
    switch (binary.getOperator()) {
    case BinaryOperator::Add:
    case BinaryOperator::Subtract:
        return readSum(binary);
    case BinaryOperator::Multiply:
        return readProduct(binary);
    case BinaryOperator::Divide:
    case BinaryOperator::Remainder:
        return readQuotient(binary);
    case BinaryOperator::ShiftLeft:
    case BinaryOperator::ShiftRight:
        return readShift(binary);
    case BinaryOperator::BitwiseAnd:
        return readMask(binary);
    case BinaryOperator::Comma:
        return readValue(binary.getRight());
    default:
        return {};
    }
}

AffineReader::Value AffineReader::readSum(const BinaryExpression& binary) {
    const Value left = readOperand(binary.getLeft(), binary.getType());
    const Value right = readOperand(binary.getRight(), binary.getType());
    if (!left.function || !right.function)
        return {};
    const std::optional<IntegerType> type = asInteger(binary.getType());
    const bool isSubtraction = binary.getOperator() == BinaryOperator::Subtract;
    const bool goesBelow = isSubtraction && type && !type->isSigned;
    return {isSubtraction ? left.function->sub(*right.function) : left.function->add(*right.function),
            left.wraps || right.wraps || goesBelow};
}

AffineReader::Value AffineReader::readProduct(const BinaryExpression& binary) {
    const Value left = readOperand(binary.getLeft(), binary.getType());
    const Value right = readOperand(binary.getRight(), binary.getType());
    if (!left.function || !right.function)
        return {};
    const bool wraps = left.wraps || right.wraps;
    if (const std::optional<isl::val> factor = constantOf(left.function))
        return {right.function->scale(*factor), wraps};
    if (const std::optional<isl::val> factor = constantOf(right.function))
        return {left.function->scale(*factor), wraps};
    return {};
}

AffineReader::Value AffineReader::readQuotient(const BinaryExpression& binary) {
    const Function dividend = readSettled(binary.getLeft(), binary.getType());
    const Function divisor = readSettled(binary.getRight(), binary.getType());
    const std::optional<isl::val> number = constantOf(divisor);
    if (!dividend || !number || number->is_zero())
        return {};
    const bool isQuotient = binary.getOperator() == BinaryOperator::Divide;
    // Rounding towards zero takes two cases, rounding down takes one.
    if (number->is_pos() && isNonNegative(*dividend))
        return {isQuotient ? dividend->scale_down(*number).floor() : dividend->mod(*number), false};
    return {isQuotient ? dividend->tdiv_q(*divisor) : dividend->tdiv_r(*divisor), false};
}

AffineReader::Value AffineReader::readShift(const BinaryExpression& binary) {
    if (binary.getRight() == nullptr)
        return {};
    const std::optional<isl::val> count = readNumber(*binary.getRight());
    const unsigned bits = asInteger(binary.getType()).value_or(IntegerType{}).bits;
    if (!count || count->is_neg() || count->ge(isl::val(m_context, static_cast<long>(bits))))
        return {};
    const isl::val factor = isl::manage(isl_val_2exp(count->copy()));
    if (binary.getOperator() == BinaryOperator::ShiftLeft) {
        const Value value = readOperand(binary.getLeft(), binary.getType());
        return value.function ? Value{value.function->scale(factor), value.wraps} : Value();
    }
    const Function value = readSettled(binary.getLeft(), binary.getType());
    return value && isNonNegative(*value) ? Value{value->scale_down(factor).floor(), false} : Value();
}

AffineReader::Value AffineReader::readMask(const BinaryExpression& binary) {
    const Value left = readOperand(binary.getLeft(), binary.getType());
    const Value right = readOperand(binary.getRight(), binary.getType());
    const std::optional<isl::val> onRight = constantOf(right.function);
    const std::optional<isl::val> mask = onRight ? onRight : constantOf(left.function);
    const Function& masked = onRight ? left.function : right.function;
    if (!masked || !mask || mask->is_neg() || mask->gt(isl::val(m_context, 1L << 30)))
        return {};
    // The low bits of any number, a negative one included, are its remainder.
    const long size = mask->get_num_si() + 1;
    return (size & (size - 1)) == 0 ? Value{masked->mod(isl::val(m_context, size)), false} : Value();
}

AffineReader::Value AffineReader::readChoice(const ConditionalExpression& choice) {
    if (choice.getCondition() == nullptr || choice.getFirst() == nullptr)
        return {};
    const Truth truth = readCondition(*choice.getCondition());
    if (truth.unread != nullptr)
        return {};
    const isl::set domain = m_domain;
    m_domain = domain.intersect(truth.maybeTrue);
    const Value first = readOperand(choice.getFirst(), choice.getType());
    m_domain = domain.intersect(truth.maybeFalse);
    const Value second = readOperand(choice.getSecond(), choice.getType());
    m_domain = domain;
    if (!first.function || !second.function)
        return {};
    return {first.function->intersect_domain(truth.maybeTrue)
                .union_add(second.function->intersect_domain(truth.maybeFalse)),
            first.wraps || second.wraps};
}

isl::pw_aff AffineReader::indicator(const Truth& truth) const {
    return constant(1).intersect_domain(truth.maybeTrue).union_add(constant(0).intersect_domain(truth.maybeFalse));
}

AffineReader::Value AffineReader::readTruth(const ExpressionBase& condition) {
    const Truth truth = readCondition(condition);
    return truth.unread == nullptr ? Value{indicator(truth), false} : Value();
}

Truth AffineReader::unknownTruth(const ExpressionBase& condition) const {
    const isl::set everything = allVectors(m_context, getDepth());
    return {everything, everything, &condition};
}

Truth AffineReader::nonZero(const isl::pw_aff& value) const {
    return {value.ne_set(constant(0)), value.eq_set(constant(0)), nullptr};
}

Truth AffineReader::readCondition(const ExpressionBase& condition) {
    if (m_nesting == deepestNesting)
        return unknownTruth(condition);
    ++m_nesting;
    Truth truth = readConditionUnguarded(condition);
    --m_nesting;
    return truth;
}

Truth AffineReader::readConditionUnguarded(const ExpressionBase& condition) {
    if (const auto* binary = dynamic_cast<const BinaryExpression*>(&condition)) {
        if (isJunction(binary->getOperator()) && binary->getLeft() != nullptr && binary->getRight() != nullptr)
            return readJunction(*binary);
        if (isComparison(binary->getOperator()))
            return readComparison(*binary);
    }
    const auto* unary = dynamic_cast<const UnaryExpression*>(&condition);
    if (unary != nullptr && unary->getOperator() == UnaryOperator::LogicalNot && unary->getOperand() != nullptr) {
        Truth truth = readCondition(*unary->getOperand());
        std::swap(truth.maybeTrue, truth.maybeFalse);
        return truth;
    }
    const Function value = read(condition);
    return value ? nonZero(*value) : unknownTruth(condition);
}

Truth AffineReader::readJunction(const BinaryExpression& junction) {
    const bool isAnd = junction.getOperator() == BinaryOperator::LogicalAnd;
    Truth left = readCondition(*junction.getLeft());
    const isl::set domain = m_domain;
    m_domain = domain.intersect(isAnd ? left.maybeTrue : left.maybeFalse);
    const Truth right = readCondition(*junction.getRight());
    m_domain = domain;
    const ExpressionBase* unread = left.unread != nullptr ? left.unread : right.unread;
    if (isAnd)
        return {left.maybeTrue.intersect(right.maybeTrue), left.maybeFalse.unite(right.maybeFalse), unread};
    return {left.maybeTrue.unite(right.maybeTrue), left.maybeFalse.intersect(right.maybeFalse), unread};
}

Truth AffineReader::readComparison(const BinaryExpression& comparison) {
    const Function first = settled(readValue(comparison.getLeft()));
    const Function second = settled(readValue(comparison.getRight()));
    if (!first || !second)
        return unknownTruth(comparison);
    const isl::pw_aff& left = *first;
    const isl::pw_aff& right = *second;
    const IntegerType type = commonType(comparison.getLeft()->getType(), comparison.getRight()->getType());
    if (!type.isSigned && (!isNonNegative(left) || !isNonNegative(right)))
        return unknownTruth(comparison);
    switch (comparison.getOperator()) {
    case BinaryOperator::Less:
        return {left.lt_set(right), left.ge_set(right), nullptr};
    case BinaryOperator::Greater:
        return {left.gt_set(right), left.le_set(right), nullptr};
    case BinaryOperator::LessEqual:
        return {left.le_set(right), left.gt_set(right), nullptr};
    case BinaryOperator::GreaterEqual:
        return {left.ge_set(right), left.lt_set(right), nullptr};
    case BinaryOperator::Equal:
        return {left.eq_set(right), left.ne_set(right), nullptr};
    default:
        return {left.ne_set(right), left.eq_set(right), nullptr};
    }
}

} // namespace DepGraph
