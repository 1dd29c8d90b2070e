// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/AffineReader_p.h"

#include <functional>

namespace DepGraph {

/// Iterations in which the program comes to a point, and whether these are all and no more.
struct Reach {
    isl::set domain;
    Assumption assumption;

    /// The first doubt stays.
    void doubt(Doubt doubt, const Kova::Tessel::TesselBase* where) {
        if (assumption.doubt == Doubt::None)
            assumption = {doubt, where};
    }
};

/// The point at which a walk through a block is: the loops around it, its position among them, and the iterations in
/// which it is reached.
///
/// Each question to isl may take a fixed amount of work. What takes more is not answered: the iterations stay as they
/// were and the reach is doubtful.
class Course {
public:
    Course(isl::ctx context, const BlockFacts& facts);
    Course(const Course&) = delete;
    Course& operator=(const Course&) = delete;

    [[nodiscard]] isl::ctx getContext() const { return m_context; }
    [[nodiscard]] const BlockFacts& getFacts() const { return m_facts; }
    [[nodiscard]] const Unknowns& getUnknowns() const { return m_unknowns; }
    [[nodiscard]] const LoopNest& getNest() const { return m_nest; }
    [[nodiscard]] LoopNest& getNest() { return m_nest; }
    [[nodiscard]] unsigned getDepth() const { return m_nest.getDepth(); }
    /// For expressions that are evaluated here.
    [[nodiscard]] AffineReader& getReader();

    [[nodiscard]] const Reach& getReach() const { return m_reach; }
    void setReach(Reach reach) { m_reach = std::move(reach); }
    void doubt(Doubt doubt, const Kova::Tessel::TesselBase* where) { m_reach.doubt(doubt, where); }
    /// From here on nothing is executed in the present iterations.
    void stop();

    /// Does a piece of work with isl. @returns false when it was too much.
    bool guarded(const std::function<void()>& work) const;
    /// The iterations where the condition is true and those where it is not.
    [[nodiscard]] std::pair<Reach, Reach> split(const Reach& reach, const Kova::Tessel::ExpressionBase& condition);
    [[nodiscard]] Reach narrowed(const Reach& reach, const isl::set& domain,
                                 const Kova::Tessel::TesselBase* where) const;
    /// The iterations of both.
    [[nodiscard]] Reach united(const Reach& first, const Reach& second, const Kova::Tessel::TesselBase* where) const;

    void enterLoop(const Kova::Tessel::LoopStatement& loop);
    void leaveLoop();
    /// The positions of the next access.
    [[nodiscard]] const std::vector<int>& getPositions() const { return m_positions; }
    void advance() { ++m_positions.back(); }

private:
    isl::ctx m_context;
    const BlockFacts& m_facts;
    Unknowns m_unknowns;
    LoopNest m_nest;
    AffineReader m_reader;
    Reach m_reach;
    std::vector<int> m_positions{0};
};

} // namespace DepGraph
