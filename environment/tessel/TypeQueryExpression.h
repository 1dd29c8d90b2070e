// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// `sizeof` or `_Alignof` of a type or of an expression. An operand is not evaluated unless its type is a
/// variable-length array; so what it calls or changes does not happen.
class TypeQueryExpression final : public Visitable<TypeQueryExpression, ExpressionBase> {
public:
    enum class Query { SizeOf, AlignOf };

    /// `sizeof operand`.
    TypeQueryExpression(Query query, ExpressionPtr operand) : m_query(query) { appendChild(std::move(operand)); }
    /// `sizeof (type)`. @param type owned by the ProgramUnit.
    TypeQueryExpression(Query query, const Type* queriedType) : m_query(query), m_queriedType(queriedType) {
        appendChild(nullptr);
    }

    [[nodiscard]] Query getQuery() const { return m_query; }
    /// Null when the query is of a type.
    [[nodiscard]] ExpressionBase* getOperand() const { return childAs<ExpressionBase>(0); }
    /// Null when the query is of an expression.
    [[nodiscard]] const Type* getQueriedType() const { return m_queriedType; }
    /// Takes over a bound that the type refers to, as a child after the operand.
    void appendBound(ExpressionPtr bound) { appendChild(std::move(bound)); }

private:
    Query m_query;
    const Type* m_queriedType = nullptr;
};

} // namespace Kova::Tessel
