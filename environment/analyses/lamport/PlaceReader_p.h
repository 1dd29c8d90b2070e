// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/Place_p.h"

namespace Kova::Tessel {
class BinaryExpression;
class CastExpression;
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
    /// Whether the expression's value is an address, as far as types tell.
    [[nodiscard]] bool isAddress(const Kova::Tessel::ExpressionBase& expression) const;
    /// Whether the expression names an object: a variable, an element, a member, what a pointer leads to.
    [[nodiscard]] static bool isLvalueForm(const Kova::Tessel::ExpressionBase& expression);
    /// The operand of `p + i` and `p - i` that is a pointer; null for other operations.
    [[nodiscard]] const Kova::Tessel::ExpressionBase* pointerOf(const Kova::Tessel::BinaryExpression& sum) const;
    /// Whether it is written `index[base]`.
    [[nodiscard]] bool isSwapped(const Kova::Tessel::SubscriptExpression& element) const;

private:
    using Places = std::vector<Place>;

    [[nodiscard]] Places readObject(const Kova::Tessel::ExpressionBase& expression) const;
    [[nodiscard]] Places readSubscript(const Kova::Tessel::SubscriptExpression& element) const;
    [[nodiscard]] Places readMember(const Kova::Tessel::MemberExpression& member) const;
    [[nodiscard]] Places readOtherPointer(const Kova::Tessel::ExpressionBase& expression) const;
    [[nodiscard]] Places readUnaryPointer(const Kova::Tessel::UnaryExpression& unary) const;
    [[nodiscard]] Places readCast(const Kova::Tessel::CastExpression& cast) const;
    [[nodiscard]] Places readFollowed(const Kova::Tessel::ExpressionBase& pointer) const;
    [[nodiscard]] Places readUnknown(const Kova::Tessel::ExpressionBase& expression) const;
    [[nodiscard]] bool isArray(const Place& place, const Kova::Tessel::ExpressionBase& lvalue) const;

    bool m_isFortran;
    mutable int m_nesting = 0;
};

} // namespace DepGraph
