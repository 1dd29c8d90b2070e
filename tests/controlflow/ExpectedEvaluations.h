// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/ExpressionBase.h"

#include <vector>

namespace Kova::Test {

/// Lists what a graph of expressions has to hold, each expression once, in the order in which the program writes it but
/// for the increment of a loop, which comes behind the loop's body. Written anew with plain recursion, for the part of
/// C that FunctionGenerator writes.
class ExpectedEvaluations {
public:
    using List = std::vector<const Tessel::ExpressionBase*>;

    explicit ExpectedEvaluations(bool splitsOperators) : m_splits(splitsOperators) {}

    [[nodiscard]] List of(const Tessel::StatementBase& statement) {
        m_list.clear();
        addStatement(&statement);
        return m_list;
    }

    /// Whether an expression is no whole: its operands stand for it.
    [[nodiscard]] bool isTakenApart(const Tessel::ExpressionBase& expression) const;
    /// What is taken apart in an expression, but not what is inside of it.
    [[nodiscard]] List partsOf(const Tessel::ExpressionBase& expression) const;

private:
    using Add = void (ExpectedEvaluations::*)(const Tessel::ExpressionBase*);

    /// The operands of an operator that is taken apart. @param addLast for those whose value is the operator's.
    void addOperands(const Tessel::ExpressionBase& expression, Add addLast);
    void addStatement(const Tessel::StatementBase* statement);
    void addValue(const Tessel::ExpressionBase* expression);
    void addCondition(const Tessel::ExpressionBase* expression);

    bool m_splits;
    List m_list;
};

} // namespace Kova::Test
