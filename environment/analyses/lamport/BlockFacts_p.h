// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/AccessSink_p.h"

#include <map>
#include <unordered_map>
#include <vector>

namespace Kova::Tessel {
class VariableDeclaration;
class VariableReference;
} // namespace Kova::Tessel

namespace DepGraph {

/// What a block does to memory as a whole, whatever the order: which values stay the same while it runs.
class BlockFacts {
public:
    explicit BlockFacts(Kova::Tessel::BlockStatement& block);

    [[nodiscard]] bool isFortran() const { return m_isFortran; }
    /// Whether nothing in the block changes what the place holds. False for places that are not certain.
    [[nodiscard]] bool isInvariant(const Place& place) const;
    /// Whether all the pointers that were followed to the place stay the same.
    [[nodiscard]] bool isReachedByInvariants(const Place& place) const;
    /// Whether anything in the block may write the memory or a part of it.
    [[nodiscard]] bool isWritten(const Memory& memory) const;
    /// The words of a variable in the block, in the order in which they are printed.
    [[nodiscard]] const std::vector<const Kova::Tessel::VariableReference*>&
    getWords(const Kova::Tessel::DeclarationBase& variable) const;
    /// The words that may write the variable itself, in the order in which they do.
    [[nodiscard]] const std::vector<const Kova::Tessel::VariableReference*>&
    getWriters(const Kova::Tessel::DeclarationBase& variable) const;
    /// Whether a call in the block may write the variable without naming it.
    [[nodiscard]] bool isWrittenByCalls(const Kova::Tessel::VariableDeclaration& variable) const;
    /// Whether the block declares the variable and so gives it a new value.
    [[nodiscard]] bool isDeclared(const Kova::Tessel::DeclarationBase& variable) const {
        return m_declared.count(&variable) != 0;
    }
    /// The place of a node in the order in which the block is printed.
    [[nodiscard]] std::size_t getNumber(const Kova::Tessel::TesselBase& node) const;

private:
    class Recorder;
    using Words = std::vector<const Kova::Tessel::VariableReference*>;

    void readNames(Kova::Tessel::BlockStatement& block);

    bool m_isFortran;
    bool m_callsUnknown = false;
    // Looked up, never walked.
    std::unordered_map<const Kova::Tessel::TesselBase*, std::size_t> m_numbers;
    std::unordered_map<const Kova::Tessel::DeclarationBase*, Words> m_words;
    std::unordered_map<const Kova::Tessel::DeclarationBase*, Words> m_writers;
    std::unordered_map<const Kova::Tessel::DeclarationBase*, std::vector<Memory>> m_written;
    std::unordered_map<const Kova::Tessel::DeclarationBase*, bool> m_declared;
};

} // namespace DepGraph
