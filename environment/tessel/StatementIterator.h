// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace Kova::Tessel {

class BlockStatement;
class StatementBase;

/// Steps through the statements of one block. A default-made iterator, and one past the end, is null. Changing the
/// block moves what an iterator points at: it keeps its number, not its statement.
class StatementIterator {
public:
    StatementIterator() = default;
    /// @param index 0 is the block's first statement; past the last the iterator is null.
    StatementIterator(const BlockStatement* block, std::size_t index) : m_block(block), m_index(index) {}

    [[nodiscard]] bool isValid() const;

    /// @throws StateError "Unexpected dereferencing of null iterator." when null.
    [[nodiscard]] StatementBase& operator*() const;
    [[nodiscard]] StatementBase* operator->() const { return &**this; }

    /// @throws StateError "Unexpected goNext() after the end of the list." when null.
    void goNext();

    /// All null iterators are equal.
    [[nodiscard]] bool operator==(const StatementIterator& other) const;
    [[nodiscard]] bool operator!=(const StatementIterator& other) const { return !(*this == other); }

private:
    const BlockStatement* m_block = nullptr;
    std::size_t m_index = 0;
};

} // namespace Kova::Tessel
