// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/CallEffects_p.h"
#include "environment/analyses/lamport/Place_p.h"

#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace DepGraph {

/// What a block does to memory as a whole: which values stay the same while it runs.
class BlockFacts {
public:
    explicit BlockFacts(Kova::Tessel::BlockStatement& block);

    [[nodiscard]] bool isFortran() const { return m_isFortran; }
    /// Whether no word of the block writes the memory that the place may be.
    [[nodiscard]] bool isUnchanged(const Place& place) const;
    /// Whether the place is certain and holds one value, which does not depend on what the block computes, from where
    /// it is named until the block ends: nothing writes it, or one assignment or call has written it before.
    [[nodiscard]] bool isFixed(const Place& place) const;
    /// Whether all the pointers that were followed to the place stay the same from here on.
    [[nodiscard]] bool isReachedByFixed(const Place& place) const;
    /// The words of a variable in the block, in the order in which they are printed.
    [[nodiscard]] const std::vector<const Kova::Tessel::VariableReference*>&
    getWords(const Kova::Tessel::DeclarationBase& variable) const;
    /// The words that may write the variable itself, in the order in which they do.
    [[nodiscard]] const std::vector<const Kova::Tessel::VariableReference*>&
    getWriters(const Kova::Tessel::DeclarationBase& variable) const;
    /// Whether a call in the block, or a piece of source of which only the text is known, may write the variable though
    /// no word of the tree says so.
    [[nodiscard]] bool isWrittenUnseen(const Kova::Tessel::VariableDeclaration& variable) const;
    /// Whether the block declares the variable and gives it a value there.
    [[nodiscard]] bool isInitialized(const Kova::Tessel::DeclarationBase& variable) const {
        return m_initialized.count(&variable) != 0;
    }
    /// The place of a node in the order in which the block is printed.
    [[nodiscard]] std::size_t getNumber(const Kova::Tessel::TesselBase& node) const;

private:
    class Recorder;
    using Words = std::vector<const Kova::Tessel::VariableReference*>;

    struct Write {
        Memory memory;
        const Kova::Tessel::VariableReference* word;
        /// What is written; null when it is not the program's own doing, as a call's.
        const Kova::Tessel::ExpressionBase* value;
        /// Whether the old value makes no difference to the new one.
        bool isPlain;
    };

    void readNames(Kova::Tessel::BlockStatement& block);
    void readNode(const Kova::Tessel::TesselBase& node);
    void addWrite(const Place& place);
    [[nodiscard]] const std::vector<Write>& getWrites(const Memory& memory) const;
    [[nodiscard]] bool isHidden(const Place& place) const;
    /// Whether the memory has got its value before. A number must come from outside: one that is computed from others
    /// of the block depends on them, so that it is no unknown of its own. Of an address nothing is told but that it is
    /// the same.
    [[nodiscard]] bool isSettled(const Place& place) const;
    [[nodiscard]] bool comesAfter(const Kova::Tessel::TesselBase& word, const Kova::Tessel::TesselBase& writer) const;

    const Kova::Tessel::BlockStatement& m_block;
    bool m_isFortran;
    CallEffects m_calls;
    /// Names in the text of what the tree has no classes for.
    std::set<std::string> m_opaqueNames;
    // Looked up, never walked.
    std::unordered_map<const Kova::Tessel::TesselBase*, std::size_t> m_numbers;
    std::unordered_map<const Kova::Tessel::DeclarationBase*, Words> m_words;
    std::unordered_map<const Kova::Tessel::DeclarationBase*, Words> m_writers;
    /// By variable and how many pointers are followed.
    std::map<std::pair<const Kova::Tessel::DeclarationBase*, int>, std::vector<Write>> m_writes;
    std::unordered_set<const Kova::Tessel::DeclarationBase*> m_initialized;
};

} // namespace DepGraph
