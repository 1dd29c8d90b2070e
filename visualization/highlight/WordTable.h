// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <array>
#include <vector>

namespace Kova::GUI {

/// Tells in one pass over a text which of many words may stand alone in it, whatever the case of their letters.
///
/// A word of ASCII letters and digits stands alone only where it is a whole run of letters and digits, so the runs of
/// the text are looked up. Words with other characters are always taken for possible.
class WordTable {
public:
    WordTable() { m_heads.fill(none); }

    /// Words are numbered from 0 in the order they are added.
    void add(const QString& word);

    /// Replaces `numbers` by those of the words that may stand alone in the text, ascending, each once.
    void findPossible(const QString& text, std::vector<int>& numbers) const;

private:
    static constexpr std::size_t headCount = 1024;
    static constexpr int none = -1;

    struct Entry {
        uint hash;
        /// The next word with the same head, or none.
        int next;
    };

    void collect(uint hash, std::vector<int>& numbers) const;

    std::vector<Entry> m_entries;
    std::array<int, headCount> m_heads;
    std::vector<int> m_alwaysPossible;
};

} // namespace Kova::GUI
