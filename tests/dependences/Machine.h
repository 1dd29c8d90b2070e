// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/LoopStatement.h"
#include "environment/tessel/VariableReference.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace Kova::Tessel {
class AssignmentExpression;
class BinaryExpression;
class ForStatement;
class IfStatement;
class SwitchStatement;
class UnaryExpression;
} // namespace Kova::Tessel

namespace Kova::Test {

/// One access as a program made it.
struct Event {
    const Tessel::VariableReference* word;
    bool writes;
    /// Of the loops around, counted from 0, outermost first.
    std::vector<long> iterations;
    /// Empty for a scalar.
    std::vector<long> element;
};

/// Executes the statements of a small part of C: integers and their arrays, all control flow but jumps backward. What
/// is not given a value before is 0; arrays hold numbers of their own making.
class Machine {
public:
    /// @param steps after which a program is given up.
    explicit Machine(long steps) : m_steps(steps) {}

    /// @param values of variables by their names. @returns false when it was given up, or did what C leaves undefined.
    bool run(Tessel::BlockStatement& block, const std::map<std::string, long>& values);
    [[nodiscard]] const std::vector<Event>& getEvents() const { return m_events; }

private:
    using Expression = Tessel::ExpressionBase;
    enum class Outcome { Next, Break, Continue, Return, Goto };
    struct Object {
        const Tessel::VariableReference* word;
        std::vector<long> element;
    };

    Outcome execute(const Tessel::StatementBase* statement);
    Outcome executeBlock(const Tessel::BlockStatement& block);
    Outcome executeFrom(const Tessel::BlockStatement& block, std::size_t first);
    Outcome executeFor(const Tessel::ForStatement& loop);
    Outcome executeSwitch(const Tessel::SwitchStatement& choice);
    Outcome executeSimple(const Tessel::StatementBase& statement);
    /// One iteration of a loop's body. @returns none to go on with the next one.
    std::optional<Outcome> executeRound(const Tessel::LoopStatement& loop);

    [[nodiscard]] std::int64_t evaluate(const Expression* expression);
    [[nodiscard]] std::int64_t compute(const Expression& expression);
    [[nodiscard]] std::int64_t computeUnary(const Tessel::UnaryExpression& unary);
    [[nodiscard]] std::int64_t computeBinary(const Tessel::BinaryExpression& binary);
    [[nodiscard]] std::int64_t assign(const Tessel::AssignmentExpression& assignment);
    [[nodiscard]] Object locate(const Expression& lvalue);
    [[nodiscard]] std::int64_t load(const Object& object);
    void store(const Object& object, std::int64_t value);
    void note(const Object& object, bool writes);
    void step();

    long m_steps;
    std::vector<Event> m_events;
    std::vector<long> m_iterations;
    std::map<std::string, std::int64_t> m_scalars;
    std::map<std::pair<std::string, std::vector<long>>, std::int64_t> m_elements;
    std::string m_label;
};

} // namespace Kova::Test
