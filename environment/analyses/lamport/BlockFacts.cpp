// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/BlockFacts_p.h"
#include "environment/analyses/lamport/ExpressionWalker_p.h"
#include "environment/analyses/lamport/TypeFacts_p.h"
#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/SubroutineCallExpression.h"
#include "environment/tessel/TranslationUnit.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/VariableReference.h"
#include "environment/tessel/service/Preorder.h"
#include "environment/tessel/types/Type.h"

#include <algorithm>

namespace DepGraph {

using namespace Kova::Tessel;

namespace {

bool isFortranCode(const BlockStatement& block) {
    const TranslationUnit* unit = block.findTranslationUnit();
    return unit != nullptr && unit->getSourceLanguage() == LANG_FORTRAN;
}

const std::vector<const VariableReference*> noWords;

} // namespace

/// Notes what is written, in any order.
class BlockFacts::Recorder final : public AccessSink {
public:
    explicit Recorder(BlockFacts& facts) : m_facts(facts), m_walker(*this, facts.m_isFortran) {}

    void read(const Place&) override {}
    void followPointer(const Place&) override {}
    void enterIf(const ExpressionBase&, bool) override {}
    void leaveIf() override {}
    void call(const SubroutineCallExpression&) override { m_facts.m_callsUnknown = true; }
    void enterBlock(BlockStatement& block) override { walk(block); }
    void write(const Place& place) override {
        std::vector<Memory>& written = m_facts.m_written[place.memory.variable];
        const bool isKnown = std::any_of(written.begin(), written.end(),
                                         [&place](const Memory& memory) { return memory == place.memory; });
        if (!isKnown)
            written.push_back(place.memory);
        if (!place.memory.pointee)
            m_facts.m_writers[place.memory.variable].push_back(place.leaf);
    }

    void walk(BlockStatement& block) {
        const Service::Preorder nodes(block);
        for (auto node = nodes.begin(); node != nodes.end();) {
            if (auto* expression = dynamic_cast<ExpressionBase*>(&*node)) {
                m_walker.walk(expression);
                node.skipChildren();
            } else {
                if (auto* variable = dynamic_cast<VariableDeclaration*>(&*node))
                    m_facts.m_declared[variable] = true;
                ++node;
            }
        }
    }

private:
    BlockFacts& m_facts;
    ExpressionWalker m_walker;
};

BlockFacts::BlockFacts(BlockStatement& block) : m_isFortran(isFortranCode(block)) {
    readNames(block);
    Recorder(*this).walk(block);
}

void BlockFacts::readNames(BlockStatement& block) {
    std::size_t number = 0;
    for (TesselBase& node : Service::Preorder(block)) {
        m_numbers[&node] = number++;
        if (const auto* word = dynamic_cast<const VariableReference*>(&node))
            m_words[&word->getVariable()].push_back(word);
    }
}

bool BlockFacts::isWritten(const Memory& memory) const {
    const auto found = m_written.find(memory.variable);
    return found != m_written.end() &&
           std::any_of(found->second.begin(), found->second.end(),
                       [&memory](const Memory& written) { return mayMeet(written, memory); });
}

bool BlockFacts::isWrittenByCalls(const VariableDeclaration& /*variable*/) const {
    return m_callsUnknown;
}

bool BlockFacts::isInvariant(const Place& place) const {
    if (place.assumption.doubt != Doubt::None || isDeclared(*place.memory.variable) || isWritten(place.memory))
        return false;
    if (hasQualifier(place.type, Type::Volatile))
        return false;
    return isReachedByInvariants(place);
}

bool BlockFacts::isReachedByInvariants(const Place& place) const {
    const PlaceReader reader(m_isFortran);
    return std::all_of(place.pointers.begin(), place.pointers.end(), [&](const ExpressionBase* pointer) {
        const std::vector<Place> places = reader.readLvalue(*pointer);
        return places.size() == 1 && isInvariant(places.front());
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
