// SPDX-License-Identifier: MIT
#include "visualization/highlight/WordTable.h"

#include <algorithm>

namespace Kova::GUI {

namespace {

constexpr ushort firstBeyondAscii = 128;

/// For each ASCII character the letter or digit that it counts as, 0 for separators.
constexpr std::array<uchar, firstBeyondAscii> makeFoldedAscii() {
    std::array<uchar, firstBeyondAscii> folded{};
    for (uchar c = '0'; c <= '9'; ++c)
        folded[c] = c;
    for (uchar c = 'a'; c <= 'z'; ++c) {
        folded[c] = c;
        folded[static_cast<uchar>(c - 'a' + 'A')] = c;
    }
    return folded;
}

constexpr std::array<uchar, firstBeyondAscii> foldedAscii = makeFoldedAscii();

/// What a character counts as in a word, 0 for separators. Two characters beyond ASCII, the long s and the Kelvin sign,
/// are equal to ASCII letters when case does not matter.
ushort foldedWordCharacter(QChar character) {
    const ushort unicode = character.unicode();
    if (unicode < firstBeyondAscii)
        return foldedAscii[unicode];
    return character.isLetterOrNumber() ? character.toCaseFolded().unicode() : ushort(0);
}

/// Of no characters; words that happen to have it are not looked up.
constexpr uint emptyHash = 0;

constexpr uint extendHash(uint hash, ushort character) {
    return (hash ^ character) * 0x9E3779B1U;
}

std::size_t headOf(uint hash, std::size_t heads) {
    return (hash >> 16) % heads;
}

bool isAsciiWord(const QString& word) {
    return !word.isEmpty() && std::all_of(word.begin(), word.end(), [](QChar character) {
        return character.unicode() < firstBeyondAscii && foldedAscii[character.unicode()] != 0;
    });
}

} // namespace

void WordTable::add(const QString& word) {
    const int number = static_cast<int>(m_entries.size());
    uint hash = emptyHash;
    if (isAsciiWord(word))
        for (const QChar character : word)
            hash = extendHash(hash, foldedWordCharacter(character));
    if (hash == emptyHash) {
        m_entries.push_back({hash, none});
        m_alwaysPossible.push_back(number);
        return;
    }
    int& head = m_heads[headOf(hash, headCount)];
    m_entries.push_back({hash, head});
    head = number;
}

void WordTable::findPossible(const QString& text, std::vector<int>& numbers) const {
    numbers = m_alwaysPossible;
    uint hash = emptyHash;
    for (const QChar character : text) {
        const ushort folded = foldedWordCharacter(character);
        if (folded != 0) {
            hash = extendHash(hash, folded);
        } else if (hash != emptyHash) {
            collect(hash, numbers);
            hash = emptyHash;
        }
    }
    collect(hash, numbers);
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
}

// Words of one hash are all possible: their matchers tell them apart.
void WordTable::collect(uint hash, std::vector<int>& numbers) const {
    for (int i = m_heads[headOf(hash, headCount)]; i != none; i = m_entries[static_cast<std::size_t>(i)].next)
        if (m_entries[static_cast<std::size_t>(i)].hash == hash)
            numbers.push_back(i);
}

} // namespace Kova::GUI
