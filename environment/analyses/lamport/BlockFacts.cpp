// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/BlockFacts_p.h"
#include "environment/analyses/lamport/ExpressionWalker_p.h"
#include "environment/analyses/lamport/TreeFacts_p.h"
#include "environment/tessel/service/TypeFacts.h"
#include "environment/tessel/AssignmentExpression.h"
#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/ConditionalExpression.h"
#include "environment/tessel/LoopStatement.h"
#include "environment/tessel/OpaqueExpression.h"
#include "environment/tessel/OpaqueStatement.h"
#include "environment/tessel/SubroutineCallExpression.h"
#include "environment/tessel/SubscriptExpression.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/VariableReference.h"
#include "environment/tessel/service/Preorder.h"
#include "environment/tessel/types/Type.h"

#include <algorithm>
#include <cctype>

namespace DepGraph {

using namespace Kova::Tessel;
using namespace Kova::Tessel::Service;

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

/// Whether a value comes out of a call or an array and is not computed from other values of the block. What it was
/// chosen by makes no difference.
bool isInput(const ExpressionBase& value) {
    bool isLoaded = false;
    const Service::Preorder nodes(const_cast<ExpressionBase&>(value));
    for (auto node = nodes.begin(); node != nodes.end();) {
        const auto* choice = &*node != &value ? dynamic_cast<const ConditionalExpression*>(node->getParent()) : nullptr;
        const bool isLoad = dynamic_cast<const SubroutineCallExpression*>(&*node) != nullptr ||
                            dynamic_cast<const SubscriptExpression*>(&*node) != nullptr;
        if (isLoad || (choice != nullptr && choice->getCondition() == &*node)) {
            isLoaded = isLoaded || isLoad;
            node.skipChildren();
        } else {
            if (dynamic_cast<const VariableReference*>(&*node) != nullptr)
                return false;
            ++node;
        }
    }
    return isLoaded;
}

/// How many pointers are followed, as far as it matters.
int levelOf(const Memory& memory) {
    return (memory.pointee ? 1 : 0) + (memory.loaded ? 1 : 0);
}

/// The assignment whose target the word belongs to; null when it is no target's.
const AssignmentExpression* assignmentTo(const VariableReference& word) {
    const TesselBase* part = &word;
    while (true) {
        const TesselBase* parent = part->getParent();
        const auto* assignment = dynamic_cast<const AssignmentExpression*>(parent);
        if (assignment != nullptr)
            return assignment->getTarget() == part ? assignment : nullptr;
        if (dynamic_cast<const ExpressionBase*>(parent) == nullptr ||
            dynamic_cast<const SubroutineCallExpression*>(parent) != nullptr)
            return nullptr;
        part = parent;
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
    void write(const Place& place) override { m_facts.addWrite(place); }
    void call(const SubroutineCallExpression& call) override { m_facts.m_calls.add(call); }
    void enterBlock(BlockStatement& block) override { walk(block); }

    void walk(BlockStatement& block) {
        forEachRootExpression(block, [this](ExpressionBase& expression) { m_walker.walk(&expression); });
    }

private:
    BlockFacts& m_facts;
    ExpressionWalker m_walker;
};

BlockFacts::BlockFacts(BlockStatement& block) : m_block(block), m_isFortran(isFortranCode(block)), m_calls(block) {
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
             variable != nullptr && isAutomatic(*variable) && variable->getInitializer() != nullptr)
        m_initialized.insert(variable);
    else if (const auto* statement = dynamic_cast<const OpaqueStatement*>(&node))
        addNames(m_opaqueNames, statement->getText());
    else if (const auto* expression = dynamic_cast<const OpaqueExpression*>(&node))
        addNames(m_opaqueNames, expression->getText());
}

void BlockFacts::addWrite(const Place& place) {
    const AssignmentExpression* assignment = assignmentTo(*place.leaf);
    const bool isPlain = place.assumption.doubt == Doubt::Call || (assignment != nullptr && !assignment->isCompound());
    const ExpressionBase* value =
        place.assumption.doubt != Doubt::Call && assignment != nullptr ? assignment->getValue() : nullptr;
    m_writes[{place.memory.variable, levelOf(place.memory)}].push_back({place.memory, place.leaf, value, isPlain});
    if (!place.memory.pointee)
        m_writers[place.memory.variable].push_back(place.leaf);
}

const std::vector<BlockFacts::Write>& BlockFacts::getWrites(const Memory& memory) const {
    static const std::vector<Write> none;
    const auto found = m_writes.find({memory.variable, levelOf(memory)});
    return found != m_writes.end() ? found->second : none;
}

bool BlockFacts::isWrittenUnseen(const VariableDeclaration& variable) const {
    return m_opaqueNames.count(variable.getName()) != 0 || m_calls.mayWrite(variable);
}

bool BlockFacts::isHidden(const Place& place) const {
    return hasQualifier(place.type, Type::Volatile) || isWrittenUnseen(place.leaf->getVariable()) ||
           (place.memory.pointee && m_calls.mayWriteThroughPointers());
}

bool BlockFacts::isUnchanged(const Place& place) const {
    const std::vector<Write>& writes = getWrites(place.memory);
    return !isHidden(place) && std::none_of(writes.begin(), writes.end(), [&place](const Write& write) {
        return mayMeet(write.memory, place.memory);
    });
}

bool BlockFacts::isFixed(const Place& place) const {
    return place.assumption.doubt == Doubt::None && !isHidden(place) && isSettled(place) && isReachedByFixed(place);
}

bool BlockFacts::isReachedByFixed(const Place& place) const {
    const PlaceReader reader(m_isFortran);
    // The pointers on the way to a pointer are in the list themselves.
    return std::all_of(place.pointers.begin(), place.pointers.end(), [&](const ExpressionBase* pointer) {
        const std::vector<Place> places = reader.readLvalue(*pointer);
        return places.size() == 1 && places.front().assumption.doubt == Doubt::None && !isHidden(places.front()) &&
               isSettled(places.front());
    });
}

bool BlockFacts::isSettled(const Place& place) const {
    const bool isAddress = asPointer(place.type) != nullptr;
    const auto* variable = dynamic_cast<const VariableDeclaration*>(place.memory.variable);
    bool isWrittenBefore = !place.memory.pointee && isInitialized(*variable);
    if (isWrittenBefore &&
        (!comesAfter(*place.leaf, *variable) || !(isAddress || isInput(*variable->getInitializer()))))
        return false;
    const std::vector<Write>& writes = getWrites(place.memory);
    for (auto write = writes.rbegin(); write != writes.rend(); ++write) {
        if (!mayMeet(write->memory, place.memory))
            continue;
        if (!comesAfter(*place.leaf, *write->word))
            return false;
        if (!isAddress && (isWrittenBefore || !write->isPlain || (write->value != nullptr && !isInput(*write->value))))
            return false;
        isWrittenBefore = true;
    }
    return true;
}

bool BlockFacts::comesAfter(const TesselBase& word, const TesselBase& writer) const {
    if (getNumber(word) < getNumber(writer))
        return false;
    const TesselBase* around = &writer;
    while (dynamic_cast<const StatementBase*>(around) == nullptr)
        around = around->getParent();
    if (isInside(word, around))
        return false;
    for (; around != &m_block; around = around->getParent())
        if (dynamic_cast<const LoopStatement*>(around) != nullptr && isInside(word, around))
            return false;
    return true;
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
