// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/AccessText_p.h"
#include "environment/analyses/lamport/ArrowParts_p.h"
#include "environment/analyses/lamport/LoopCounter_p.h"
#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/LoopStatement.h"
#include "environment/tessel/VariableDeclaration.h"

#include <algorithm>

namespace DepGraph {

using Kova::Tessel::LoopStatement;
using Kova::Tessel::TesselBase;

namespace {

LoopPart partOf(const LoopStatement& loop, int number) {
    LoopPart part;
    part.number = number;
    if (const auto* counter = findNamingCounter(loop))
        part.counter = counter->getName();
    part.line = loop.getSourceRange().beginLine;
    return part;
}

std::vector<LoopPart> partsOf(const std::vector<const LoopStatement*>& loops) {
    std::vector<LoopPart> parts;
    for (const LoopStatement* loop : loops)
        parts.push_back(partOf(*loop, static_cast<int>(parts.size()) + 1));
    for (LoopPart& part : parts)
        part.ambiguous = std::count_if(parts.begin(), parts.end(),
                                       [&part](const LoopPart& other) { return other.counter == part.counter; }) > 1;
    return parts;
}

CarrierPart carrierOf(int number, const std::vector<LoopPart>& loops, const DependenceFacts& facts) {
    CarrierPart carrier;
    carrier.loop.number = number;
    const std::size_t index = static_cast<std::size_t>(number) - 1;
    if (index < loops.size())
        carrier.loop = loops[index];
    if (index < facts.distance.size() && facts.distance[index].value_or(0) > 0)
        carrier.distance = facts.distance[index];
    return carrier;
}

std::string vectorOf(const std::vector<std::string>& components) {
    std::string text;
    for (const std::string& component : components)
        text += (text.empty() ? "(" : ", ") + component;
    return text.empty() ? text : text + ')';
}

std::string distanceOf(const DependenceFacts& facts) {
    std::vector<std::string> components;
    for (const std::optional<long>& distance : facts.distance)
        components.push_back(distance ? std::to_string(*distance) : "*");
    return vectorOf(components);
}

std::string directionOf(const std::string& signs) {
    const auto has = [&signs](char sign) { return signs.find(sign) != std::string::npos; };
    const int set = (has('<') ? 1 : 0) + (has('=') ? 2 : 0) + (has('>') ? 4 : 0);
    static const char* const names[] = {"?", "<", "=", "<=", ">", "!=", ">=", "*"};
    return names[set];
}

std::string directionsOf(const DependenceFacts& facts) {
    std::vector<std::string> components;
    for (std::size_t i = 0; i < facts.distance.size(); ++i)
        components.push_back(directionOf(i < facts.directions.size() ? facts.directions[i] : std::string()));
    return vectorOf(components);
}

bool isKnown(const std::optional<long>& component) {
    return component.has_value();
}

/// The innermost loop at or around the node, if there is a way to name it.
std::optional<LoopPart> nameableLoopAround(const TesselBase& where) {
    const TesselBase* node = &where;
    while (node != nullptr && dynamic_cast<const LoopStatement*>(node) == nullptr)
        node = node->getParent();
    if (node == nullptr)
        return std::nullopt;
    const LoopPart part = partOf(static_cast<const LoopStatement&>(*node), 0);
    return part.counter.empty() && part.line == 0 ? std::nullopt : std::optional(part);
}

std::string lineOf(const TesselBase& node) {
    const unsigned line = node.getSourceRange().beginLine;
    return line == 0 ? std::string() : std::to_string(line);
}

} // namespace

ArrowParts::ArrowParts(const DependenceFacts& facts)
    : type(facts.type),
      sourceLine(facts.source->getSourceRange().beginLine),
      targetLine(facts.target->getSourceRange().beginLine),
      sameOccurrence(facts.source == facts.target),
      loops(partsOf(facts.commonLoops)),
      carriersUnknown(facts.carriers.empty()),
      distance(distanceOf(facts)),
      someDistanceKnown(std::any_of(facts.distance.begin(), facts.distance.end(), isKnown)),
      condition(facts.condition),
      doubt(facts.assumption.doubt) {
    const AccessText text(*facts.source, *facts.target, facts.type);
    source = text.source;
    target = text.target;
    for (const int number : facts.carriers)
        if (number < 0)
            withinIteration = true;
        else
            carriers.push_back(carrierOf(number, loops, facts));
    if (!std::all_of(facts.distance.begin(), facts.distance.end(), isKnown))
        directions = directionsOf(facts);

    const TesselBase* where = facts.assumption.where;
    if (where == nullptr)
        return;
    if (doubt == Doubt::Jump)
        doubtful = lineOf(*where);
    else if (doubt != Doubt::Bounds)
        doubtful = printShort(*where);
    else
        doubtfulLoop = nameableLoopAround(*where);
}

} // namespace DepGraph
