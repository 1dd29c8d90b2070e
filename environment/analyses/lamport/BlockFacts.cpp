// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/BlockFacts_p.h"
#include "environment/analyses/lamport/ExpressionWalker_p.h"
#include "environment/analyses/lamport/RootExpressions_p.h"
#include "environment/analyses/lamport/TypeFacts_p.h"
#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/OpaqueExpression.h"
#include "environment/tessel/OpaqueStatement.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/VariableReference.h"
#include "environment/tessel/service/Preorder.h"
#include "environment/tessel/types/Type.h"

#include <algorithm>
#include <cctype>

namespace DepGraph {

using namespace Kova::Tessel;

namespace {

const std::vector<const VariableReference*> noWords;

void addNames(std::set<std::string>& names, const std::string& text) {
    const auto isPart = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; };
    for (auto begin = std::find_if(text.begin(), text.end(), isPart); begin != text.end();) {
        const auto end = std::find_if_not(begin, text.end(), isPart);
        names.emplace(begin, end);
        begin = std::find_if(end, text.end(), isPart);
    }
}

} // namespace

/// Notes what is written, in any order.
class BlockFacts::Recorder final : public AccessSink {
public:
    explicit Recorder(BlockFacts& facts) : m_facts(facts), m_walker(*this, facts.m_isFortran) {}

    void read(const Place&) override {}
    void followPointer(const Place&) override {}
    void enterIf(const ExpressionBase&, bool) override {}
    void leaveIf() override {}
    void write(const Place& place) override { m_facts.addWritten(place); }
    void call(const SubroutineCallExpression& call) override { m_facts.m_calls.add(call); }
    void enterBlock(BlockStatement& block) override { walk(block); }

    void walk(BlockStatement& block) {
        forEachRootExpression(block, [this](ExpressionBase& expression) { m_walker.walk(&expression); });
    }

private:
    BlockFacts& m_facts;
    ExpressionWalker m_walker;
};

BlockFacts::BlockFacts(BlockStatement& block) : m_isFortran(isFortranCode(block)), m_calls(block) {
    readNames(block);
    Recorder(*this).walk(block);
}

void BlockFacts::readNames(BlockStatement& block) {
    std::size_t number = 0;
    for (TesselBase& node : Service::Preorder(block)) {
        m_numbers[&node] = number++;
        readNode(node);
    }
}

void BlockFacts::readNode(const TesselBase& node) {
    if (const auto* word = dynamic_cast<const VariableReference*>(&node))
        m_words[&word->getVariable()].push_back(word);
    else if (const auto* variable = dynamic_cast<const VariableDeclaration*>(&node);
             variable != nullptr && isAutomatic(*variable))
        m_declared.insert(variable);
    else if (const auto* statement = dynamic_cast<const OpaqueStatement*>(&node))
        addNames(m_opaqueNames, statement->getText());
    else if (const auto* expression = dynamic_cast<const OpaqueExpression*>(&node))
        addNames(m_opaqueNames, expression->getText());
}

void BlockFacts::addWritten(const Place& place) {
    std::vector<Memory>& written = m_written[place.memory.variable];
    if (std::find(written.begin(), written.end(), place.memory) == written.end())
        written.push_back(place.memory);
    if (!place.memory.pointee)
        m_writers[place.memory.variable].push_back(place.leaf);
}

bool BlockFacts::isWritten(const Memory& memory) const {
    const auto found = m_written.find(memory.variable);
    return found != m_written.end() &&
           std::any_of(found->second.begin(), found->second.end(),
                       [&memory](const Memory& written) { return mayMeet(written, memory); });
}

bool BlockFacts::isWrittenUnseen(const VariableDeclaration& variable) const {
    return m_opaqueNames.count(variable.getName()) != 0 || m_calls.mayWrite(variable);
}

bool BlockFacts::isUnchanged(const Place& place) const {
    return place.assumption.doubt == Doubt::None && !isDeclared(*place.memory.variable) && !isWritten(place.memory) &&
           !hasQualifier(place.type, Type::Volatile) && !isWrittenUnseen(place.leaf->getVariable()) &&
           !(place.memory.pointee && m_calls.mayWriteThroughPointers());
}

bool BlockFacts::isInvariant(const Place& place) const {
    return isUnchanged(place) && isReachedByInvariants(place);
}

bool BlockFacts::isReachedByInvariants(const Place& place) const {
    const PlaceReader reader(m_isFortran);
    // The pointers on the way to a pointer are in the list themselves.
    return std::all_of(place.pointers.begin(), place.pointers.end(), [&](const ExpressionBase* pointer) {
        const std::vector<Place> places = reader.readLvalue(*pointer);
        return places.size() == 1 && isUnchanged(places.front());
    });
}

const std::vector<const VariableReference*>& BlockFacts::getWords(const DeclarationBase& variable) const {
    const auto found = m_words.find(&variable);
    return found != m_words.end() ? found->second : noWords;
}

const std::vector<const VariableReference*>& BlockFacts::getWriters(const DeclarationBase& variable) const {
    const auto found = m_writers.find(&variable);
    return found != m_writers.end() ? found->second : noWords;
}

std::size_t BlockFacts::getNumber(const TesselBase& node) const {
    const auto found = m_numbers.find(&node);
    return found != m_numbers.end() ? found->second : 0;
}

} // namespace DepGraph
