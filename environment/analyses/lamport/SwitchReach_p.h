// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/Course_p.h"

namespace Kova::Tessel {
class CaseStatement;
class SwitchStatement;
} // namespace Kova::Tessel

namespace DepGraph {

/// Where the labels of a switch are jumped to, and where it is left.
class SwitchReach {
public:
    /// At the point behind the selector.
    SwitchReach(Course& course, Kova::Tessel::SwitchStatement& node);

    [[nodiscard]] const Reach& getEntry() const { return m_entry; }
    /// The iterations that jump to a label of the switch.
    [[nodiscard]] Reach reachOf(const Kova::Tessel::CaseStatement& label);
    /// A break leaves the switch at the present point.
    void leave();
    /// Behind the switch, when its body ends at the present point.
    [[nodiscard]] Reach getAfter();

private:
    /// The vectors whose selector is one of the label's values; none when they are not known.
    [[nodiscard]] std::optional<isl::set> valuesOf(const Kova::Tessel::CaseStatement& label);
    [[nodiscard]] Reach choose(const std::optional<isl::set>& values, const Kova::Tessel::TesselBase* where) const;

    Course& m_course;
    Kova::Tessel::SwitchStatement& m_node;
    Reach m_entry;
    std::optional<isl::pw_aff> m_selector;
    /// Where no label's value is met; none when it is not known.
    std::optional<isl::set> m_others;
    bool m_hasDefault = false;
    Reach m_left;
};

} // namespace DepGraph
