// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/Place_p.h"

namespace Kova::Tessel {
class CastExpression;
class FieldDeclaration;
class MemberExpression;
class SubscriptExpression;
class UnaryExpression;
} // namespace Kova::Tessel

namespace DepGraph {

/// Reads lvalues and pointers by their form alone. What has no variable at its base, such as a string, has no place.
///
/// Where the form is of no known kind (a pointer from a call, from a choice, from a number), every variable in it may
/// be the one that leads to the memory: there is one place for each.
class PlaceReader {
public:
    /// @param isFortran arrays are values there rather than pointers to their first elements.
    explicit PlaceReader(bool isFortran) : m_isFortran(isFortran) {}

    /// The places that an lvalue, or a value of structure type, may be.
    [[nodiscard]] std::vector<Place> readLvalue(const Kova::Tessel::ExpressionBase& expression) const;
    /// The objects that a pointer, or an array in its place, may lead to.
    [[nodiscard]] std::vector<Place> readPointer(const Kova::Tessel::ExpressionBase& expression) const;

    /// Whether the expression's value is the address of its first element.
    [[nodiscard]] bool isArrayValue(const Kova::Tessel::ExpressionBase& expression) const;
    /// Whether the expression names an object: a variable, an element, a member, what a pointer leads to.
    [[nodiscard]] static bool isLvalueForm(const Kova::Tessel::ExpressionBase& expression);
    /// Which of two operands is the pointer that the other one, a number, is added to. Null for other sums.
    [[nodiscard]] const Kova::Tessel::ExpressionBase* pointerOf(const Kova::Tessel::ExpressionBase& first,
                                                                const Kova::Tessel::ExpressionBase& second) const;

private:
    [[nodiscard]] std::vector<Place> readSubscript(const Kova::Tessel::SubscriptExpression& element) const;
    [[nodiscard]] std::vector<Place> readMember(const Kova::Tessel::MemberExpression& member) const;
    [[nodiscard]] std::vector<Place> readUnaryPointer(const Kova::Tessel::UnaryExpression& unary) const;
    [[nodiscard]] std::vector<Place> readCast(const Kova::Tessel::CastExpression& cast) const;
    /// The type of the object that an lvalue names; null when unknown.
    [[nodiscard]] const Kova::Tessel::Type* typeOf(const Kova::Tessel::ExpressionBase& expression) const;

    bool m_isFortran;
};

} // namespace DepGraph
