// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/LoopStatement.h"

namespace Kova::Tessel {

/// `for (initialization; condition; increment) body` of C, and the counted DO loop of Fortran. A counted loop
/// `DO i = a, b, c` is held as initialization `i = a`, condition `i <= b` (`i >= b` for a constant negative step) and
/// increment `i += c`; its limit and step are evaluated once, before the first iteration.
class ForStatement final : public Visitable<ForStatement, LoopStatement> {
public:
    /// Each of the three header parts may be null.
    ForStatement(StatementPtr initialization, ExpressionPtr condition, ExpressionPtr increment,
                 std::unique_ptr<BlockStatement> body) {
        appendChild(std::move(initialization));
        appendChild(std::move(condition));
        appendChild(std::move(increment));
        appendChild(std::move(body));
    }

    /// A DeclarationStatement or an ExpressionStatement.
    [[nodiscard]] StatementBase* getInitialization() const { return childAs<StatementBase>(0); }
    [[nodiscard]] ExpressionBase* getCondition() const { return childAs<ExpressionBase>(1); }
    [[nodiscard]] ExpressionBase* getIncrement() const { return childAs<ExpressionBase>(2); }
    [[nodiscard]] BlockStatement* getBody() const override { return childAs<BlockStatement>(3); }

    [[nodiscard]] bool isCounted() const { return m_counted; }
    void setCounted(bool counted) { m_counted = counted; }

private:
    bool m_counted = false;
};

} // namespace Kova::Tessel
