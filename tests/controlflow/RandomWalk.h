// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/LoopStatement.h"
#include "tests/controlflow/ExpectedEvaluations.h"
#include "tests/roundtrip/generator/Random.h"

#include <optional>
#include <vector>

namespace Kova::Tessel {
class CaseStatement;
class DoWhileStatement;
class ForStatement;
class GotoStatement;
class IfStatement;
class LabelStatement;
class SwitchStatement;
class WhileStatement;
} // namespace Kova::Tessel

namespace Kova::Test {

/// Executes a function as FunctionGenerator writes them, with plain recursion and conditions that hold by chance unless
/// they are constants, and notes what it passes.
class RandomWalk {
public:
    /// @param steps after which it is given up.
    RandomWalk(unsigned seed, unsigned steps) : m_random(seed), m_steps(steps) {}

    void run(const Tessel::BlockStatement& body);

    /// All statements that control arrived at, one after the other; null when the function ended.
    [[nodiscard]] const std::vector<const Tessel::StatementBase*>& getStatements() const { return m_statements; }
    /// All expressions that were evaluated, with operators taken apart; null before the first and when the function
    /// ended.
    [[nodiscard]] const std::vector<const Tessel::ExpressionBase*>& getExpressions() const { return m_expressions; }

private:
    enum class Outcome { Next, Break, Continue, Return, Goto, Stop };
    /// Of a condition: whether it held, none where the evaluation did not come to its end.
    using Decision = std::optional<bool>;

    /// Arrives at the statement, or goes on at the target inside of it where one is looked for.
    Outcome execute(const Tessel::StatementBase& statement);
    Outcome executeHere(const Tessel::StatementBase& statement);
    Outcome executeBlock(const Tessel::BlockStatement& block);
    Outcome executeBranch(const Tessel::IfStatement& branch);
    Outcome executeSwitch(const Tessel::SwitchStatement& choice);
    Outcome executeWhile(const Tessel::WhileStatement& loop);
    Outcome executeDo(const Tessel::DoWhileStatement& loop);
    Outcome executeFor(const Tessel::ForStatement& loop);
    /// Next to go on with the loop.
    Outcome executeBody(const Tessel::LoopStatement& loop);
    void jump(const Tessel::GotoStatement& jump, const Tessel::TesselBase& subroutine);
    void choose(const Tessel::SwitchStatement& choice);

    Outcome evaluate(const Tessel::ExpressionBase* expression);
    /// @param ended why there is no decision.
    Decision decide(const Tessel::ExpressionBase& expression, Outcome& ended);
    Outcome evaluateParts(const Tessel::ExpressionBase& expression);
    Outcome note(const Tessel::ExpressionBase& expression);
    [[nodiscard]] bool neverReturns(const Tessel::ExpressionBase& expression) const;

    void arriveAt(const Tessel::StatementBase& statement);
    [[nodiscard]] bool isSought(const Tessel::TesselBase& node) const;

    Random m_random;
    unsigned m_steps;
    ExpectedEvaluations m_shape{true};
    const Tessel::StatementBase* m_target = nullptr;
    /// What expressions are evaluated for, the innermost last.
    std::vector<const Tessel::StatementBase*> m_holders;
    std::vector<const Tessel::StatementBase*> m_statements;
    std::vector<const Tessel::ExpressionBase*> m_expressions;
};

} // namespace Kova::Test
