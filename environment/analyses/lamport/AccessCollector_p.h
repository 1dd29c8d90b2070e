// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/ExpressionWalker_p.h"
#include "environment/analyses/lamport/LoopIterations_p.h"

#include <functional>

namespace DepGraph {

/// Goes through a block as the program would and notes each access with the iterations in which it is reached.
class AccessCollector final : private AccessSink, private Kova::Tessel::BaseVisitor {
public:
    AccessCollector(isl::ctx context, Kova::Tessel::BlockStatement& block);

    /// In the order of execution.
    [[nodiscard]] std::vector<Access> collect();
    [[nodiscard]] const BlockFacts& getFacts() const { return m_facts; }

private:
    void read(const Place& place) override;
    void write(const Place& place) override;
    void followPointer(const Place& pointer) override;
    void call(const Kova::Tessel::SubroutineCallExpression& call) override;
    void enterIf(const Kova::Tessel::ExpressionBase& condition, bool value) override;
    void leaveIf() override;
    void enterBlock(Kova::Tessel::BlockStatement& block) override;

    using BaseVisitor::visit;
    void visit(Kova::Tessel::StatementBase& node) override;
    void visit(Kova::Tessel::BlockStatement& node) override;
    void visit(Kova::Tessel::DeclarationStatement& node) override;
    void visit(Kova::Tessel::IfStatement& node) override;
    void visit(Kova::Tessel::ForStatement& node) override;
    void visit(Kova::Tessel::WhileStatement& node) override;
    void visit(Kova::Tessel::DoWhileStatement& node) override;

    void note(const Place& place, bool writes);
    void addSubscripts(Access& access, const Place& place);
    /// Does a piece of work with isl; false when it was too much.
    bool guarded(const std::function<void()>& work);
    [[nodiscard]] Reach narrowed(const Reach& reach, const Kova::Tessel::ExpressionBase& condition, bool value);

    void enterLoop(const Kova::Tessel::LoopStatement& loop);
    void leaveLoop();
    [[nodiscard]] LoopIterations readIterations(const Kova::Tessel::ForStatement& loop);
    void setCounters(const Kova::Tessel::ForStatement& loop, const std::vector<isl::pw_aff>& lowers);

    isl::ctx m_context;
    Kova::Tessel::BlockStatement& m_block;
    BlockFacts m_facts;
    Unknowns m_unknowns;
    LoopNest m_nest;
    AffineReader m_reader;
    CountedLoops m_loops;
    ExpressionWalker m_walker;
    Reach m_reach;
    std::vector<Reach> m_outside;
    /// The position of the next access or loop at each depth.
    std::vector<int> m_positions;
    std::vector<Access> m_accesses;
};

} // namespace DepGraph
