// SPDX-License-Identifier: MIT
#include "tests/dependences/ModelOf.h"

#include "environment/core/Exception.h"
#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/LoopStatement.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/TranslationUnit.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/VariableReference.h"
#include "environment/tessel/service/Preorder.h"

#include <map>
#include <sstream>

namespace Kova::Test {

using DepGraph::Access;
using DepGraph::Doubt;
using testing::AssertionFailure;
using testing::AssertionResult;
using testing::AssertionSuccess;

namespace {

Tessel::BlockStatement& firstBody(const Reading& reading, ModelOf::Part part) {
    for (Tessel::TesselBase& node : Tessel::Service::Preorder(const_cast<Tessel::ProgramUnit&>(reading.program))) {
        const auto* function = dynamic_cast<const Tessel::SubroutineDeclaration*>(&node);
        if (part == ModelOf::Part::Body && function != nullptr && function->hasImplementation())
            return *function->getBody();
        const auto* loop = dynamic_cast<const Tessel::LoopStatement*>(&node);
        if (part == ModelOf::Part::BodyOfFirstLoop && loop != nullptr)
            return *loop->getBody();
    }
    throw RuntimeError("no such block: " + reading.messages());
}

bool isSame(const Access& access, std::size_t subscript, const std::string& expected) {
    const std::optional<isl::pw_aff>& found = access.subscripts[subscript];
    if (expected == "?" || !found)
        return (expected == "?") == !found;
    const isl::pw_aff wanted(access.domain.ctx(), expected);
    return access.domain.is_subset(found->eq_set(wanted));
}

AssertionResult accesses(const ModelOf& of, const std::string& word, bool isWrite, const std::string& domain,
                         const std::vector<std::string>& subscripts, Doubt doubt) {
    const std::vector<const Access*> all = of.findAll(word, isWrite);
    if (all.size() != 1)
        return AssertionFailure() << word << " has " << all.size() << " such accesses in\n" << of.text();
    const Access& access = *all.front();
    if (access.assumption.doubt != doubt)
        return AssertionFailure() << word << " is assumed for " << nameOf(access.assumption.doubt) << " in\n"
                                  << of.text();
    if (!access.domain.is_equal(isl::set(access.domain.ctx(), domain)))
        return AssertionFailure() << word << " is reached in " << access.domain << " in\n" << of.text();
    if (access.subscripts.size() != subscripts.size())
        return AssertionFailure() << word << " has " << access.subscripts.size() << " subscripts in\n" << of.text();
    for (std::size_t i = 0; i < subscripts.size(); ++i)
        if (!isSame(access, i, subscripts[i]))
            return AssertionFailure() << "subscript " << i << " of " << word << " is not " << subscripts[i] << " in\n"
                                      << of.text();
    return AssertionSuccess();
}

AssertionResult accessesWith(const ModelOf& of, const std::string& word, bool isWrite, Doubt doubt) {
    const std::vector<const Access*> all = of.findAll(word, isWrite);
    if (all.size() == 1 && all.front()->assumption.doubt == doubt)
        return AssertionSuccess();
    return AssertionFailure() << word << " has " << all.size() << " such accesses, not one for " << nameOf(doubt)
                              << ", in\n"
                              << of.text();
}

} // namespace

ModelOf::ModelOf(const std::string& parameters, const std::string& statements, const std::string& declarations,
                 Part part)
    : ModelOf(declarations + "\nvoid f(" + parameters + ") {\n" + statements + "\n}\n", part) {}

ModelOf::ModelOf(const std::string& text, Part part) : reading(text), block(firstBody(reading, part)), model(block) {
    std::map<std::string, int> counts;
    for (const Tessel::TesselBase& node : Tessel::Service::Preorder(block))
        if (const auto* word = dynamic_cast<const Tessel::VariableReference*>(&node)) {
            const std::string& name = word->getVariable().getName();
            m_words[word] = name + std::to_string(counts[name]++);
        }
}

std::string ModelOf::wordOf(const Access& access) const {
    const auto found = m_words.find(access.occurrence);
    return found != m_words.end() ? found->second : "?";
}

std::vector<const Access*> ModelOf::findAll(const std::string& word, bool writes) const {
    std::vector<const Access*> found;
    for (const Access& access : model.getAccesses())
        if (access.writes == writes && wordOf(access) == word)
            found.push_back(&access);
    return found;
}

std::string ModelOf::words() const {
    std::string text;
    for (const Access& access : model.getAccesses())
        text += (text.empty() ? "" : ", ") + wordOf(access) + (access.writes ? " w" : " r");
    return text;
}

std::string ModelOf::text() const {
    std::ostringstream text;
    text << reading.messages();
    for (const Access& access : model.getAccesses()) {
        text << wordOf(access) << (access.writes ? " w" : " r");
        if (access.memory.pointee)
            text << (access.memory.loaded ? " **" : " *");
        for (const Tessel::DeclarationBase* member : access.memory.members)
            text << '.' << member->getName();
        text << " @";
        for (const int position : access.positions)
            text << ' ' << position;
        if (access.assumption.doubt != Doubt::None)
            text << " (" << nameOf(access.assumption.doubt) << ')';
        text << ' ' << access.domain;
        for (const std::optional<isl::pw_aff>& subscript : access.subscripts)
            if (subscript)
                text << " [" << *subscript << ']';
            else
                text << " [?]";
        text << '\n';
    }
    return text.str();
}

AssertionResult reads(const ModelOf& of, const std::string& word, const std::string& domain,
                      const std::vector<std::string>& subscripts, Doubt doubt) {
    return accesses(of, word, false, domain, subscripts, doubt);
}

AssertionResult writes(const ModelOf& of, const std::string& word, const std::string& domain,
                       const std::vector<std::string>& subscripts, Doubt doubt) {
    return accesses(of, word, true, domain, subscripts, doubt);
}

AssertionResult readsWith(const ModelOf& of, const std::string& word, Doubt doubt) {
    return accessesWith(of, word, false, doubt);
}

AssertionResult writesWith(const ModelOf& of, const std::string& word, Doubt doubt) {
    return accessesWith(of, word, true, doubt);
}

AssertionResult isSilent(const ModelOf& of, const std::string& word) {
    if (of.findAll(word, false).empty() && of.findAll(word, true).empty())
        return AssertionSuccess();
    return AssertionFailure() << word << " is accessed in\n" << of.text();
}

std::string nameOf(Doubt doubt) {
    constexpr const char* names[] = {"none",      "not refined", "subscript", "pointer", "member",     "bounds",
                                     "condition", "jump",        "call",      "opaque",  "quick test", "work limit"};
    return names[static_cast<int>(doubt)];
}

} // namespace Kova::Test
