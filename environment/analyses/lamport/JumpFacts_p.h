// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/BlockFacts_p.h"

namespace Kova::Tessel {
class CaseStatement;
class GotoStatement;
class LabelStatement;
class LoopStatement;
} // namespace Kova::Tessel

namespace DepGraph {

/// Where a block's jumps lead.
class JumpFacts {
public:
    JumpFacts(Kova::Tessel::BlockStatement& block, const BlockFacts& facts);

    /// The first jump that makes the order of execution unknown: backward, into a loop, to a computed place. Null
    /// without any.
    [[nodiscard]] const Kova::Tessel::TesselBase* getDisorder() const { return m_disorder; }
    /// The first jump from outside into the middle of the block, or label that one may lead to; null without any.
    [[nodiscard]] const Kova::Tessel::TesselBase* getEntry() const { return m_entry; }
    /// A jump that ends a loop before its condition does; null without any.
    [[nodiscard]] const Kova::Tessel::TesselBase* findExit(const Kova::Tessel::LoopStatement& loop) const;
    /// As findExit(), of those alone that do not go on behind the loop.
    [[nodiscard]] const Kova::Tessel::TesselBase* findEscape(const Kova::Tessel::LoopStatement& loop) const;
    /// Whether statements may be reached by other ways than from the statement before them.
    [[nodiscard]] bool hasLabels() const { return m_hasLabels; }
    /// How many loops of the block are around a node.
    [[nodiscard]] std::size_t countLoopsAround(const Kova::Tessel::TesselBase& node) const;

private:
    void readInside(Kova::Tessel::TesselBase& node);
    void readGoto(const Kova::Tessel::GotoStatement& jump);
    void readCase(const Kova::Tessel::CaseStatement& label);
    void readBreak(const Kova::Tessel::TesselBase& jump);
    void readEntries(Kova::Tessel::BlockStatement& block);
    /// A jump that leaves all loops around it, up to one that holds its target.
    void leaveLoops(const Kova::Tessel::TesselBase& jump, const Kova::Tessel::TesselBase* target);
    void disorder(const Kova::Tessel::TesselBase& jump) {
        if (m_disorder == nullptr)
            m_disorder = &jump;
    }
    [[nodiscard]] bool isInBlock(const Kova::Tessel::TesselBase& node) const;

    using Jumps = std::unordered_map<const Kova::Tessel::LoopStatement*, const Kova::Tessel::TesselBase*>;

    const Kova::Tessel::BlockStatement& m_block;
    const BlockFacts& m_facts;
    const Kova::Tessel::TesselBase* m_disorder = nullptr;
    const Kova::Tessel::TesselBase* m_entry = nullptr;
    bool m_hasLabels = false;
    // Looked up, never walked.
    Jumps m_exits;
    Jumps m_escapes;
};

} // namespace DepGraph
