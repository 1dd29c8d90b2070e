// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/StatementIterator.h"

namespace Kova::Tessel {

class StatementBase;

/// A range of statements that stand one after the other in one block; may be empty. Owns nothing.
class ProgramFragment {
public:
    /// True when both statements stand in the same block and first is not after last; one statement is a fragment.
    [[nodiscard]] static bool isFragment(const StatementBase& first, const StatementBase& last);

    [[nodiscard]] bool operator==(const ProgramFragment& other) const {
        return m_first == other.m_first && m_last == other.m_last;
    }
    [[nodiscard]] bool operator!=(const ProgramFragment& other) const { return !(*this == other); }

    [[nodiscard]] bool isEmpty() const { return m_first == nullptr; }
    void setEmpty() { m_first = m_last = nullptr; }

    /// Makes this the range [first, last]; when these are no fragment, the range becomes empty.
    void set(StatementBase& first, StatementBase& last);

    /// Null for an empty fragment.
    [[nodiscard]] StatementIterator getFirstIterator() const;
    /// Null for an empty fragment and for one that ends with its block.
    [[nodiscard]] StatementIterator getAfterLastIterator() const;

private:
    StatementBase* m_first = nullptr;
    StatementBase* m_last = nullptr;
};

} // namespace Kova::Tessel
