// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <unordered_set>
#include <vector>

namespace Kova::Tessel {
class GotoStatement;
class LabelStatement;
class OpaqueStatement;
class TesselBase;
} // namespace Kova::Tessel

namespace ControlFlow {

/// The labels of a subroutine, and who may jump to them.
class JumpSources {
public:
    explicit JumpSources(Kova::Tessel::TesselBase& subroutine);

    using Labels = std::vector<const Kova::Tessel::LabelStatement*>;

    /// All that a computed goto may lead to, in program order: the labels whose addresses are taken.
    [[nodiscard]] const Labels& getTakenLabels() const { return m_taken; }
    /// Where a goto may lead to, in program order; none for a label that does not exist.
    [[nodiscard]] Labels targetsOf(const Kova::Tessel::GotoStatement& jump) const;
    /// Where inline assembly may jump to: the labels that it names. Most assembly does not jump.
    [[nodiscard]] Labels targetsOf(const Kova::Tessel::OpaqueStatement& assembly) const;
    /// In program order, the labels inside a statement that something outside of it may jump to.
    [[nodiscard]] Labels findEntries(Kova::Tessel::TesselBase& statement) const;

private:
    Labels m_labels;
    Labels m_taken;
    Kova::Tessel::TesselBase& m_subroutine;
};

} // namespace ControlFlow
