// SPDX-License-Identifier: MIT
#include "environment/printing/NamesInText.h"

#include "environment/printing/SourceText.h"
#include "environment/tessel/EnumeratorDeclaration.h"
#include "environment/tessel/EnumeratorReference.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/SubroutineReference.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/VariableReference.h"
#include "environment/tessel/service/Preorder.h"

#include <cstddef>
#include <vector>

namespace Kova::Backends {

using namespace Tessel;

namespace {

struct Word {
    std::size_t begin;
    std::size_t length;
    TesselBase* owner;
};

bool isQuote(char c) {
    return c == '"' || c == '\'';
}

/// True for the name of a member, which is no variable's.
bool followsMemberAccess(const std::string& text, std::size_t begin) {
    while (begin != 0 && text[begin - 1] == ' ')
        --begin;
    const bool isRange = begin > 2 && text.compare(begin - 3, 3, "...") == 0;
    return !isRange && ((begin > 0 && text[begin - 1] == '.') || (begin > 1 && text.compare(begin - 2, 2, "->") == 0));
}

/// The words outside of character and string constants that can be a variable's name.
std::vector<Word> wordsOf(const std::string& text) {
    std::vector<Word> words;
    for (std::size_t i = 0; i < text.size();) {
        std::size_t end = i + 1;
        if (isQuote(text[i])) {
            end = skipQuoted(text, i);
        } else if (isWordCharacter(text[i])) {
            while (end < text.size() && isWordCharacter(text[end]))
                ++end;
            const bool isPrefix = end < text.size() && isQuote(text[end]); // as in L"text"
            if (!isPrefix && !followsMemberAccess(text, i))
                words.push_back({i, end - i, nullptr});
        }
        i = end;
    }
    return words;
}

/// The name that an expression consists of; null for any other node.
const std::string* nameIn(const TesselBase& node) {
    if (const auto* variable = dynamic_cast<const VariableReference*>(&node))
        return &variable->getVariable().getName();
    if (const auto* subroutine = dynamic_cast<const SubroutineReference*>(&node))
        return &subroutine->getSubroutine().getName();
    if (const auto* enumerator = dynamic_cast<const EnumeratorReference*>(&node))
        return &enumerator->getEnumerator().getName();
    return nullptr;
}

/// @return false when there is no word left for the node.
bool claimWord(std::vector<Word>& words, const std::string& text, TesselBase& node) {
    const std::string* name = nameIn(node);
    if (name == nullptr)
        return false;
    for (Word& word : words) {
        if (word.owner == nullptr && text.compare(word.begin, word.length, *name) == 0) {
            word.owner = &node;
            return true;
        }
    }
    return false;
}

} // namespace

PieceList splitAtNames(const std::string& text, TesselBase& node) {
    PieceList pieces;
    std::vector<Word> words = wordsOf(text);
    for (TesselBase& below : Service::Preorder(node))
        if (&below != &node && !claimWord(words, text, below))
            pieces.nothing(below);
    std::size_t done = 0;
    for (const Word& word : words) {
        if (word.owner == nullptr)
            continue;
        pieces.text(text.substr(done, word.begin - done), node);
        pieces.text(text.substr(word.begin, word.length), *word.owner);
        done = word.begin + word.length;
    }
    pieces.text(text.substr(done), node);
    return pieces;
}

} // namespace Kova::Backends
