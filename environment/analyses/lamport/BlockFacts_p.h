// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/CallEffects_p.h"
#include "environment/analyses/lamport/Place_p.h"

#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

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
    /// Whether a call in the block, or a piece of source of which only the text is known, may write the variable though
    /// no word of the tree says so.
    [[nodiscard]] bool isWrittenUnseen(const Kova::Tessel::VariableDeclaration& variable) const;
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
    void readNode(const Kova::Tessel::TesselBase& node);
    void addWritten(const Place& place);
    [[nodiscard]] bool isUnchanged(const Place& place) const;

    bool m_isFortran;
    CallEffects m_calls;
    /// Names in the text of what the tree has no classes for.
    std::set<std::string> m_opaqueNames;
    // Looked up, never walked.
    std::unordered_map<const Kova::Tessel::TesselBase*, std::size_t> m_numbers;
    std::unordered_map<const Kova::Tessel::DeclarationBase*, Words> m_words;
    std::unordered_map<const Kova::Tessel::DeclarationBase*, Words> m_writers;
    std::unordered_map<const Kova::Tessel::DeclarationBase*, std::vector<Memory>> m_written;
    std::unordered_set<const Kova::Tessel::DeclarationBase*> m_declared;
};

} // namespace DepGraph
