// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/CountedLoops_p.h"
#include "environment/analyses/lamport/Course_p.h"

namespace DepGraph {

/// Makes accesses of places where the program comes to them.
class AccessRecorder {
public:
    /// @param disorder the jump that makes order and iterations unknown, or null.
    AccessRecorder(Course& course, const CountedLoops& loops, const Kova::Tessel::TesselBase* disorder)
        : m_course(course),
          m_loops(loops),
          m_disorder(disorder) {}

    void note(const Place& place, bool writes);
    /// A pointer is read only to be followed.
    void noteFollowed(const Place& pointer);
    /// A declaration gives its variable a value, or none.
    void noteDeclaration(const Kova::Tessel::VariableDeclaration& variable);

    /// In the order of execution; to be taken once.
    [[nodiscard]] std::vector<Access> takeAccesses() { return finished(std::move(m_accesses)); }
    [[nodiscard]] std::vector<Access> takeDeclarations() { return finished(std::move(m_declarations)); }

private:
    [[nodiscard]] Access makeHere();
    void addSubscripts(Access& access, const Place& place);
    [[nodiscard]] std::vector<Access> finished(std::vector<Access> accesses) const;

    Course& m_course;
    const CountedLoops& m_loops;
    const Kova::Tessel::TesselBase* m_disorder;
    std::vector<Access> m_accesses;
    std::vector<Access> m_declarations;
};

} // namespace DepGraph
