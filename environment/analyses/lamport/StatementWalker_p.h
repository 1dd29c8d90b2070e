// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/AccessRecorder_p.h"
#include "environment/analyses/lamport/ExpressionWalker_p.h"
#include "environment/analyses/lamport/ForwardValues_p.h"
#include "environment/analyses/lamport/LoopReader_p.h"
#include "environment/analyses/lamport/SwitchReach_p.h"

namespace DepGraph {

/// Goes through a block as the program would, each statement once, and follows its jumps.
class StatementWalker final : private AccessSink, private Kova::Tessel::BaseVisitor {
public:
    StatementWalker(Course& course, const CountedLoops& loops, const JumpFacts& jumps, AccessRecorder& recorder);

    void walk(Kova::Tessel::BlockStatement& block);
    /// A statement nested too deep to be followed; null without any.
    [[nodiscard]] const Kova::Tessel::TesselBase* getTooDeep() const { return m_tooDeep; }

private:
    void read(const Place& place) override { m_recorder.note(place, false); }
    void write(const Place& place) override { m_recorder.note(place, true); }
    void followPointer(const Place& pointer) override { m_recorder.noteFollowed(pointer); }
    void call(const Kova::Tessel::SubroutineCallExpression& call) override;
    void enterIf(const Kova::Tessel::ExpressionBase& condition, bool value) override;
    void leaveIf() override;
    void enterBlock(Kova::Tessel::BlockStatement& block) override { visit(block); }

    using BaseVisitor::visit;
    void visit(Kova::Tessel::StatementBase& node) override;
    void visit(Kova::Tessel::BlockStatement& node) override;
    void visit(Kova::Tessel::ExpressionStatement& node) override;
    void visit(Kova::Tessel::DeclarationStatement& node) override;
    void visit(Kova::Tessel::IfStatement& node) override;
    void visit(Kova::Tessel::SwitchStatement& node) override;
    void visit(Kova::Tessel::CaseStatement& node) override;
    void visit(Kova::Tessel::LabelStatement& node) override;
    void visit(Kova::Tessel::GotoStatement& node) override;
    void visit(Kova::Tessel::BreakStatement& node) override;
    void visit(Kova::Tessel::ContinueStatement& node) override;
    void visit(Kova::Tessel::ReturnStatement& node) override;
    void visit(Kova::Tessel::OpaqueStatement& node) override;
    void visit(Kova::Tessel::ForStatement& node) override;
    void visit(Kova::Tessel::WhileStatement& node) override;
    void visit(Kova::Tessel::DoWhileStatement& node) override;

    /// Around a condition's parts: the reach outside, the jumps until then, the condition.
    struct Outside {
        Reach reach;
        int jumps;
        const Kova::Tessel::ExpressionBase* condition;
    };
    /// What a loop does before and after its body in each iteration.
    struct Rounds {
        std::function<void()> test;
        std::function<void()> step;
    };

    [[nodiscard]] Reach nowhere() const;
    void walkParts(Kova::Tessel::TesselBase& node, std::size_t first);
    void walkIf(Kova::Tessel::IfStatement& node, std::vector<Reach>& ends);
    void declare(Kova::Tessel::VariableDeclaration& variable);
    /// The variable keeps the value that it gets here.
    void learn(const Kova::Tessel::VariableDeclaration& variable, const Kova::Tessel::ExpressionBase& value);
    /// The present iterations do not go on with the next statement.
    void jump();
    void enterFromOutside();
    void walkLoop(const Kova::Tessel::LoopStatement& loop, const LoopIterations& iterations, const Rounds& rounds);
    void leaveLoop(const Kova::Tessel::LoopStatement& loop, const Kova::Tessel::ExpressionBase* condition);

    Course& m_course;
    const JumpFacts& m_jumpFacts;
    AccessRecorder& m_recorder;
    LoopReader m_loopReader;
    ForwardValues m_values;
    ExpressionWalker m_walker;
    std::vector<Outside> m_outside;
    /// For each loop around, the reach before it.
    std::vector<Reach> m_entries;
    /// The switches around; null for a loop, which hides them from breaks.
    std::vector<SwitchReach*> m_switches;
    std::unordered_map<const Kova::Tessel::LabelStatement*, Reach> m_pending;
    /// How often the program left the order of statements, without those times whose effect has ended.
    int m_jumps = 0;
    /// As m_jumps, without what ends in the innermost switch.
    int m_farJumps = 0;
    int m_nesting = 0;
    const Kova::Tessel::TesselBase* m_tooDeep = nullptr;
};

} // namespace DepGraph
