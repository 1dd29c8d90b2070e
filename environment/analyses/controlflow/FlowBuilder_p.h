// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/controlflow/EvaluationFacts_p.h"
#include "environment/analyses/controlflow/FlowPoints_p.h"
#include "environment/analyses/controlflow/JumpSources_p.h"
#include "environment/tessel/BaseVisitor.h"
#include "environment/tessel/StatementBase.h"

#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace ControlFlow {

/// Follows a statement's execution and notes every place that it passes: where control is at a statement, and where an
/// expression is evaluated, numbered in the order in which the program writes what happens there; the increment of a
/// loop counts as the end of its body.
///
/// Every piece of work says what stands between two points that exist already, so none waits for another and the depth
/// of the program's nesting does not matter.
class FlowBuilder : private Kova::Tessel::BaseVisitor {
public:
    struct Options {
        /// Whether operators that evaluate an operand or not are taken apart.
        bool splitsOperators = true;
        /// Has places of its own even when its braces are not written. Null for none.
        const Kova::Tessel::BlockStatement* viewed = nullptr;
    };

    FlowBuilder(Kova::Tessel::StatementBase& statement, const Options& options);

    [[nodiscard]] const FlowPoints& getPoints() const { return m_points; }
    [[nodiscard]] PointId getEntry() const { return m_entry; }
    /// Where all ways out of the statement end, but for those to labels outside, which end at the label.
    [[nodiscard]] PointId getExit() const { return m_exit; }

private:
    /// Where jumps lead that name no label.
    struct Surroundings {
        PointId behindBreak;
        PointId behindContinue;
        /// The innermost switch, none outside of all.
        std::optional<std::size_t> switchNumber;
    };
    struct Switch {
        Kova::Tessel::SwitchStatement* statement;
        /// Behind the selector.
        PointId chosen;
        PointId behind;
        std::vector<std::pair<const Kova::Tessel::CaseStatement*, PointId>> labels;
    };
    struct Work {
        enum class Kind {
            Statement,
            /// An expression's parts, then the expression itself unless it is taken apart.
            Value,
            /// As Value, but its truth decides between two ways on.
            Condition,
            /// An expression itself.
            Evaluation,
            Decision,
            /// The ways from a switch to its labels, when all are known.
            Choice
        };
        Kind kind;
        Kova::Tessel::TesselBase* node;
        PointId in;
        /// For conditions, where they hold.
        PointId out;
        /// Where a condition does not hold.
        PointId otherwise;
        std::size_t surroundings;
        /// Whether control is not at the statement but at the one that it is a part of.
        bool isPart;
        std::size_t switchNumber;
    };

    using BaseVisitor::visit;
    void visit(Kova::Tessel::StatementBase& node) override;
    void visit(Kova::Tessel::BlockStatement& node) override;
    void visit(Kova::Tessel::DeclarationStatement& node) override;
    void visit(Kova::Tessel::IfStatement& node) override;
    void visit(Kova::Tessel::WhileStatement& node) override;
    void visit(Kova::Tessel::DoWhileStatement& node) override;
    void visit(Kova::Tessel::ForStatement& node) override;
    void visit(Kova::Tessel::SwitchStatement& node) override;
    void visit(Kova::Tessel::CaseStatement& node) override;
    void visit(Kova::Tessel::LabelStatement& node) override;
    void visit(Kova::Tessel::GotoStatement& node) override;
    void visit(Kova::Tessel::BreakStatement& node) override;
    void visit(Kova::Tessel::ContinueStatement& node) override;
    void visit(Kova::Tessel::ReturnStatement& node) override;
    void visit(Kova::Tessel::OpaqueStatement& node) override;

    void run();
    void perform();
    void connectEntries(Kova::Tessel::StatementBase& statement);
    void connectMissingLabels();

    [[nodiscard]] PointId arriveAt(Kova::Tessel::StatementBase& node);
    [[nodiscard]] PointId pointOf(const Kova::Tessel::LabelStatement& label);
    void jumpTo(PointId from, const JumpSources::Labels& labels);
    [[nodiscard]] std::size_t surround(PointId behindBreak, PointId behindContinue,
                                       std::optional<std::size_t> switchNumber);
    [[nodiscard]] const Surroundings& surroundings() const { return m_surroundings[m_work.surroundings]; }
    /// @param out where the block ends, which is a place of the block itself.
    void walkStatementsOf(Kova::Tessel::BlockStatement& block, PointId in, PointId out, std::size_t surroundings);
    void connectChoice();

    // Work for later, which is done in this order.
    void addStatement(Kova::Tessel::StatementBase* statement, PointId in, PointId out);
    void addStatement(Kova::Tessel::StatementBase* statement, PointId in, PointId out, std::size_t surroundings);
    void addValue(Kova::Tessel::ExpressionBase* expression, PointId in, PointId out);
    void addValues(const std::vector<Kova::Tessel::ExpressionBase*>& expressions, PointId in, PointId out);
    void addCondition(Kova::Tessel::ExpressionBase* expression, PointId in, PointId whenTrue, PointId whenFalse);
    /// The first operand of one that is taken apart. @param between where the second one is reached.
    void addLeft(const Kova::Tessel::BinaryExpression& binary, PointId between, PointId whenTrue, PointId whenFalse);
    void add(Work::Kind kind, Kova::Tessel::TesselBase& node, PointId in, PointId out, PointId otherwise = 0);

    void followValue(Kova::Tessel::ExpressionBase& expression);
    void followCondition(Kova::Tessel::ExpressionBase& expression);
    /// The operand whose truth is the opposite, when it is an operator to take apart; null for any other expression.
    [[nodiscard]] Kova::Tessel::ExpressionBase* negatedOf(const Kova::Tessel::ExpressionBase& expression) const;
    [[nodiscard]] PointId walkParts(Kova::Tessel::ExpressionBase& expression);
    void evaluate(Kova::Tessel::ExpressionBase& expression);
    void decide(Kova::Tessel::ExpressionBase& expression);

    FlowPoints m_points;
    PointId m_entry;
    PointId m_exit;
    const Kova::Tessel::BlockStatement* m_viewed;
    EvaluationFacts m_facts;
    JumpSources m_jumps;
    std::unordered_map<const Kova::Tessel::LabelStatement*, PointId> m_labels;
    /// Labels jumped to, in the order of the jumps, and those passed.
    std::vector<const Kova::Tessel::LabelStatement*> m_jumpedTo;
    std::unordered_set<const Kova::Tessel::LabelStatement*> m_passed;
    /// Labels of a switch that is not followed itself.
    std::vector<PointId> m_strayLabels;
    std::vector<Surroundings> m_surroundings;
    std::vector<Switch> m_switches;
    std::vector<Work> m_waiting;
    std::vector<Work> m_added;
    Work m_work{};
};

} // namespace ControlFlow
