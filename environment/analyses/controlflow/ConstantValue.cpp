// SPDX-License-Identifier: MIT
#include "environment/analyses/controlflow/ConstantValue_p.h"
#include "environment/tessel/BaseVisitor.h"
#include "environment/tessel/BinaryExpression.h"
#include "environment/tessel/CastExpression.h"
#include "environment/tessel/ConditionalExpression.h"
#include "environment/tessel/EnumeratorDeclaration.h"
#include "environment/tessel/EnumeratorReference.h"
#include "environment/tessel/GenericSelectionExpression.h"
#include "environment/tessel/LiteralExpression.h"
#include "environment/tessel/TypeQueryExpression.h"
#include "environment/tessel/UnaryExpression.h"
#include "environment/tessel/service/LiteralValue.h"
#include "environment/tessel/service/TypeFacts.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace ControlFlow {

using namespace Kova::Tessel;
using Service::IntegerType;

namespace {

using Wide = ConstantValue;
using Constant = std::optional<Wide>;
// Wide enough for a product of any two values, but for its sign.
using UnsignedWide = unsigned __int128;

constexpr int maximalDepth = 100;

/// What operators compute with: nothing narrower than int.
IntegerType promoted(IntegerType type) {
    return type.bits < 32 ? IntegerType{true, 32} : type;
}

IntegerType promotedType(const Type* type) {
    // What is not known is taken for the widest type: then nothing wraps.
    return promoted(Service::asInteger(type).value_or(IntegerType{true, 64}));
}

IntegerType typeOf(const ExpressionBase& expression) {
    return promotedType(expression.getType());
}

IntegerType common(IntegerType left, IntegerType right) {
    const unsigned bits = std::max(left.bits, right.bits);
    const bool isUnsigned = (!left.isSigned && left.bits == bits) || (!right.isSigned && right.bits == bits);
    return {!isUnsigned, bits};
}

Constant fitting(Wide value) {
    const bool fits =
        value >= std::numeric_limits<std::int64_t>::min() && value <= std::numeric_limits<std::int64_t>::max();
    return fits ? Constant(value) : std::nullopt;
}

/// A value brought into a type as a conversion does.
Constant converted(Wide value, IntegerType type) {
    if (type.bits == 1)
        return value != 0 ? 1 : 0;
    if (type.bits == 0 || type.bits > 64)
        return fitting(value);
    const Wide range = Wide{1} << type.bits;
    Wide remainder = value % range;
    if (remainder < 0)
        remainder += range;
    return type.isSigned && remainder >= range / 2 ? remainder - range : remainder;
}

/// The result of an operator. Signed ones must not overflow.
Constant computed(Wide value, IntegerType type) {
    const Constant result = converted(value, type);
    return result && (!type.isSigned || *result == value) ? result : std::nullopt;
}

/// Of an unsigned type, the product may be reduced to what the type holds, as it is afterwards.
Wide product(Wide left, Wide right, IntegerType type) {
    if (type.isSigned)
        return left * right;
    return static_cast<Wide>((static_cast<UnsignedWide>(left) * static_cast<UnsignedWide>(right)) & UINT64_MAX);
}

Constant computed(BinaryOperator operation, Wide left, Wide right, IntegerType type) {
    switch (operation) {
    case BinaryOperator::Multiply:
        return computed(product(left, right, type), type);
    case BinaryOperator::Divide:
        return right != 0 ? computed(left / right, type) : std::nullopt;
    case BinaryOperator::Remainder:
        return right != 0 ? computed(left % right, type) : std::nullopt;
    case BinaryOperator::Add:
        return computed(left + right, type);
    case BinaryOperator::Subtract:
        return computed(left - right, type);
    case BinaryOperator::Less:
        return left < right ? 1 : 0;
    case BinaryOperator::Greater:
        return left > right ? 1 : 0;
    case BinaryOperator::LessEqual:
        return left <= right ? 1 : 0;
    case BinaryOperator::GreaterEqual:
        return left >= right ? 1 : 0;
    case BinaryOperator::Equal:
        return left == right ? 1 : 0;
    case BinaryOperator::NotEqual:
        return left != right ? 1 : 0;
    case BinaryOperator::BitwiseAnd:
        return computed(left & right, type);
    case BinaryOperator::BitwiseXor:
        return computed(left ^ right, type);
    case BinaryOperator::BitwiseOr:
        return computed(left | right, type);
    default:
        return std::nullopt;
    }
}

Constant shifted(BinaryOperator operation, Wide left, Wide right, IntegerType type) {
    if (left < 0 || right < 0 || right >= Wide{std::min(type.bits, 64U)})
        return std::nullopt;
    const int distance = static_cast<int>(right);
    if (operation == BinaryOperator::ShiftRight)
        return computed(left >> distance, type);
    if (type.isSigned)
        return computed(left << distance, type);
    return computed(static_cast<Wide>((static_cast<UnsignedWide>(left) << distance) & UINT64_MAX), type);
}

/// None for what is no integer; but null pointers are known.
Constant converted(Wide value, const Type& type) {
    if (const std::optional<IntegerType> integer = Service::asInteger(&type))
        return converted(value, *integer);
    return value == 0 && Service::asPointer(&type) != nullptr ? Constant(value) : std::nullopt;
}

class Evaluator : private BaseVisitor {
public:
    Constant evaluate(const ExpressionBase* expression) {
        if (expression == nullptr || m_depth == maximalDepth)
            return std::nullopt;
        ++m_depth;
        m_result.reset();
        // A visitor takes what may be changed, this one changes nothing.
        const_cast<ExpressionBase*>(expression)->accept(*this);
        --m_depth;
        return std::exchange(m_result, std::nullopt);
    }
    std::optional<bool> decide(const ExpressionBase* expression) {
        // An address that nobody knows, but never null.
        const auto* literal = dynamic_cast<const LiteralExpression*>(expression);
        if (literal != nullptr && literal->getKind() == LiteralExpression::Kind::String)
            return true;
        const Constant value = evaluate(expression);
        return value ? std::optional(*value != 0) : std::nullopt;
    }

private:
    using BaseVisitor::visit;
    void visit(LiteralExpression& node) override {
        m_result = Service::valueOf(node);
        // A string is an address.
        if (node.getKind() == LiteralExpression::Kind::String)
            m_result.reset();
    }
    void visit(EnumeratorReference& node) override { m_result = node.getEnumerator().getValue(); }
    void visit(CastExpression& node) override {
        const Constant value = evaluate(node.getOperand());
        if (value && node.getType() != nullptr)
            m_result = converted(*value, *node.getType());
    }
    void visit(TypeQueryExpression& node) override {
        const Type* type = node.getOperand() != nullptr ? node.getOperand()->getType() : node.getQueriedType();
        const std::optional<std::uint64_t> size = Service::sizeOf(type);
        if (size && node.getQuery() == TypeQueryExpression::Query::SizeOf)
            m_result = Wide{*size};
    }
    void visit(GenericSelectionExpression& node) override {
        m_result = evaluate(node.getAssociationValue(node.getChosen()));
    }
    void visit(ConditionalExpression& node) override {
        Constant value;
        if (node.getFirst() == nullptr) {
            // The condition is evaluated once, as the program does: it may be such an expression, too.
            value = evaluate(node.getCondition());
            if (value && *value == 0)
                value = evaluate(node.getSecond());
        } else if (const std::optional<bool> holds = decide(node.getCondition())) {
            value = evaluate(*holds ? node.getFirst() : node.getSecond());
        }
        m_result = value && node.getType() != nullptr ? converted(*value, *node.getType()) : value;
    }
    void visit(UnaryExpression& node) override {
        if (node.getOperator() == UnaryOperator::LogicalNot) {
            if (const std::optional<bool> holds = decide(node.getOperand()))
                m_result = *holds ? 0 : 1;
            return;
        }
        const Constant value = evaluate(node.getOperand());
        if (!value || node.getOperand() == nullptr)
            return;
        const IntegerType type = typeOf(*node.getOperand());
        switch (node.getOperator()) {
        case UnaryOperator::Plus:
        case UnaryOperator::Extension:
            m_result = value;
            break;
        case UnaryOperator::Minus:
            m_result = computed(-*value, type);
            break;
        case UnaryOperator::BitwiseNot:
            m_result = computed(-*value - 1, type);
            break;
        default:
            break;
        }
    }
    void visit(BinaryExpression& node) override {
        const BinaryOperator operation = node.getOperator();
        if (operation == BinaryOperator::LogicalAnd || operation == BinaryOperator::LogicalOr) {
            const std::optional<bool> left = decide(node.getLeft());
            const std::optional<bool> right = decide(node.getRight());
            // One operand may decide, wherever it stands.
            const bool deciding = operation == BinaryOperator::LogicalOr;
            if (left == deciding || right == deciding)
                m_result = deciding ? 1 : 0;
            else if (left && right)
                m_result = deciding ? 0 : 1;
            return;
        }
        const Constant left = evaluate(node.getLeft());
        const Constant right = evaluate(node.getRight());
        if (operation == BinaryOperator::Comma)
            m_result = right;
        else if (left && right)
            m_result = combine(node, *left, *right);
    }

    static Constant combine(const BinaryExpression& node, Wide left, Wide right) {
        const BinaryOperator operation = node.getOperator();
        const IntegerType leftType = typeOf(*node.getLeft());
        if (operation == BinaryOperator::ShiftLeft || operation == BinaryOperator::ShiftRight)
            return shifted(operation, left, right, leftType);
        const IntegerType type = common(leftType, typeOf(*node.getRight()));
        const Constant first = converted(left, type);
        const Constant second = converted(right, type);
        return first && second ? computed(operation, *first, *second, type) : std::nullopt;
    }

    Constant m_result;
    int m_depth = 0;
};

} // namespace

std::optional<ConstantValue> constantOf(const ExpressionBase& expression) {
    return Evaluator().evaluate(&expression);
}

std::optional<ConstantValue> constantOf(const ExpressionBase& expression, const Type* type) {
    const Constant value = constantOf(expression);
    return value && type != nullptr ? converted(*value, promotedType(type)) : value;
}

std::optional<bool> truthOf(const ExpressionBase& expression) {
    return Evaluator().decide(&expression);
}

} // namespace ControlFlow
