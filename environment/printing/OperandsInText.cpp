// SPDX-License-Identifier: MIT
#include "environment/printing/OperandsInText.h"

#include "environment/printing/NamesInText.h"
#include "environment/tessel/service/Preorder.h"

#include <algorithm>

namespace Kova::Backends {

using namespace Tessel;

namespace {

struct Operand {
    TesselBase* node;
    TextPlace place;
};

using Places = std::vector<std::optional<TextPlace>>;

/// The operands that have a place in a text, in the order of the places, of which no two overlap.
std::vector<Operand> placedOperands(const TesselBase& node, const Places& places, std::size_t length) {
    std::vector<Operand> operands;
    for (std::size_t i = 0; i < node.getChildCount() && i < places.size(); ++i) {
        const bool isInText = places[i] && places[i]->begin <= places[i]->end && places[i]->end <= length;
        if (isInText && node.getChild(i) != nullptr)
            operands.push_back({node.getChild(i), *places[i]});
    }
    std::stable_sort(operands.begin(), operands.end(),
                     [](const Operand& a, const Operand& b) { return a.place.begin < b.place.begin; });
    std::size_t end = 0;
    const auto overlaps = [&end](const Operand& operand) {
        const bool isBefore = operand.place.begin < end;
        end = std::max(end, operand.place.end);
        return isBefore;
    };
    operands.erase(std::remove_if(operands.begin(), operands.end(), overlaps), operands.end());
    return operands;
}

bool isAmong(const TesselBase& node, const std::vector<Operand>& operands) {
    return std::any_of(operands.begin(), operands.end(),
                       [&node](const Operand& operand) { return operand.node == &node; });
}

/// True for an operand that the text has in parentheses which are not those of a call or the like.
bool isInParentheses(const std::string& text, const TextPlace& place) {
    std::size_t before = place.begin;
    while (before > 0 && text[before - 1] == ' ')
        --before;
    std::size_t behind = place.end;
    while (behind < text.size() && text[behind] == ' ')
        ++behind;
    if (before == 0 || text[before - 1] != '(' || behind == text.size() || text[behind] != ')')
        return false;
    --before;
    while (before > 0 && text[before - 1] == ' ')
        --before;
    return before > 0 && !isWordCharacter(text[before - 1]) && text[before - 1] != ')' && text[before - 1] != ']';
}

} // namespace

PieceList splitAtOperands(const std::string& text, TextStyle style, TesselBase& node, const Places& places) {
    const std::vector<Operand> operands = placedOperands(node, places, text.size());
    if (operands.empty())
        return splitAtNames(toOneLine(text, style), node);
    PieceList pieces;
    for (std::size_t i = 0; i < node.getChildCount(); ++i)
        if (TesselBase* child = node.getChild(i); child != nullptr && !isAmong(*child, operands))
            for (TesselBase& unwritten : Service::Preorder(*child))
                pieces.nothing(unwritten);
    std::size_t done = 0;
    for (const Operand& operand : operands) {
        pieces.text(toOneLine(text.substr(done, operand.place.begin - done), style), node);
        pieces.node(operand.node, isInParentheses(text, operand.place) ? Precedence::Comma : Precedence::Assignment);
        done = operand.place.end;
    }
    pieces.text(toOneLine(text.substr(done), style), node);
    return pieces;
}

} // namespace Kova::Backends
