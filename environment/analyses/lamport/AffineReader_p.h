// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/BlockFacts_p.h"
#include "environment/analyses/lamport/LoopNest_p.h"
#include "environment/analyses/lamport/PlaceReader_p.h"
#include "environment/tessel/service/TypeFacts.h"
#include "environment/analyses/lamport/Unknowns_p.h"
#include "environment/tessel/Operators.h"

namespace Kova::Tessel {
class BinaryExpression;
class ConditionalExpression;
class TypeQueryExpression;
class UnaryExpression;
class VariableDeclaration;
} // namespace Kova::Tessel

namespace DepGraph {

/// Where a condition holds, as far as it can be told.
struct Truth {
    /// Both may hold more than is true; they cover everything together.
    isl::set maybeTrue;
    isl::set maybeFalse;
    /// What could not be read; null when both sets are exact.
    const Kova::Tessel::ExpressionBase* unread = nullptr;
};

/// Reads expressions as functions of the iteration numbers and unknowns.
///
/// Sums and products of signed numbers do not overflow in a correct program. Unsigned ones may go below zero and come
/// back as large numbers: such a subscript lies outside of any array, anywhere else it is not affine unless it cannot
/// be negative. That unsigned sums grow beyond their type is not looked for in types of 32 bits and more.
class AffineReader {
public:
    /// None where it is not affine. (isl's own null cannot be copied.)
    using Function = std::optional<isl::pw_aff>;

    /// @param facts and unknowns outlive the reader.
    AffineReader(isl::ctx context, const BlockFacts& facts, Unknowns& unknowns)
        : m_context(context),
          m_facts(facts),
          m_unknowns(unknowns),
          m_places(facts.isFortran()) {}

    [[nodiscard]] isl::ctx getContext() const { return m_context; }
    /// From now on expressions are evaluated inside these loops, in some of these iterations.
    /// @param nest outlives what is read.
    void setPoint(const LoopNest& nest, const isl::set& domain) {
        m_nest = &nest;
        m_domain = domain;
    }

    /// None when the value is not affine.
    [[nodiscard]] Function read(const Kova::Tessel::ExpressionBase& expression);
    /// As a value of another type, to which it is converted.
    [[nodiscard]] Function readAs(const Kova::Tessel::ExpressionBase& expression, const Kova::Tessel::Type* type);
    [[nodiscard]] Function readSubscript(const IndexSum& sum);
    /// None when the value is not the same number everywhere.
    [[nodiscard]] std::optional<isl::val> readNumber(const Kova::Tessel::ExpressionBase& expression);
    [[nodiscard]] Truth readCondition(const Kova::Tessel::ExpressionBase& condition);

private:
    struct Value {
        Function function;
        /// Whether the program may see the number modulo the size of its unsigned type.
        bool wraps = false;
    };
    using Expression = Kova::Tessel::ExpressionBase;

    [[nodiscard]] Value readValue(const Expression* expression);
    [[nodiscard]] Value readUnguarded(const Expression& expression);
    [[nodiscard]] Value readLvalue(const Expression& lvalue);
    /// The value of a variable that cannot change.
    [[nodiscard]] std::optional<isl::val> readFixed(const Kova::Tessel::VariableDeclaration& variable);
    [[nodiscard]] Value readSize(const Kova::Tessel::TypeQueryExpression& query);
    [[nodiscard]] Value readUnary(const Kova::Tessel::UnaryExpression& unary);
    [[nodiscard]] Value readBinary(const Kova::Tessel::BinaryExpression& binary);
    [[nodiscard]] Value readSum(const Kova::Tessel::BinaryExpression& binary);
    [[nodiscard]] Value readProduct(const Kova::Tessel::BinaryExpression& binary);
    [[nodiscard]] Value readQuotient(const Kova::Tessel::BinaryExpression& binary);
    [[nodiscard]] Value readShift(const Kova::Tessel::BinaryExpression& binary);
    [[nodiscard]] Value readMask(const Kova::Tessel::BinaryExpression& binary);
    [[nodiscard]] Value readChoice(const Kova::Tessel::ConditionalExpression& choice);
    [[nodiscard]] Value readTruth(const Expression& condition);
    [[nodiscard]] Value readConstant(const isl::val& value, const Kova::Tessel::Type* type);

    /// The operand's value in the type in which the operation is done.
    [[nodiscard]] Value readOperand(const Expression* operand, const Kova::Tessel::Type* type);
    /// As readOperand(), a number as mathematics knows it.
    [[nodiscard]] Function readSettled(const Expression* operand, const Kova::Tessel::Type* type);
    [[nodiscard]] Value converted(const Value& value, const Kova::Tessel::Type* from, const Kova::Tessel::Type* to);
    [[nodiscard]] Function settled(const Value& value) const;

    [[nodiscard]] Truth readConditionUnguarded(const Expression& condition);
    [[nodiscard]] Truth readJunction(const Kova::Tessel::BinaryExpression& junction);
    [[nodiscard]] Truth readComparison(const Kova::Tessel::BinaryExpression& comparison);
    [[nodiscard]] Truth unknownTruth(const Expression& condition) const;
    [[nodiscard]] Truth nonZero(const isl::pw_aff& value) const;
    /// 1 where it is true, 0 elsewhere.
    [[nodiscard]] isl::pw_aff indicator(const Truth& truth) const;

    /// Whether all values at the present point are of the type.
    [[nodiscard]] bool isWithin(const isl::pw_aff& value, Kova::Tessel::Service::IntegerType type) const;
    [[nodiscard]] bool isNonNegative(const isl::pw_aff& value) const;
    [[nodiscard]] isl::pw_aff constant(long value) const;
    [[nodiscard]] unsigned getDepth() const { return m_nest->getDepth(); }

    isl::ctx m_context;
    const BlockFacts& m_facts;
    Unknowns& m_unknowns;
    PlaceReader m_places;
    const LoopNest* m_nest = nullptr;
    isl::set m_domain;
    int m_nesting = 0;
};

} // namespace DepGraph
