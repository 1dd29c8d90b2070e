// SPDX-License-Identifier: MIT
#include "environment/analyses/controlflow/JumpSources_p.h"
#include "environment/tessel/GotoStatement.h"
#include "environment/tessel/LabelAddressExpression.h"
#include "environment/tessel/LabelStatement.h"
#include "environment/tessel/OpaqueStatement.h"
#include "environment/tessel/service/Preorder.h"

#include <cctype>
#include <string_view>

namespace ControlFlow {

using namespace Kova::Tessel;

namespace {

/// The names in a text, in any language of the program.
std::unordered_set<std::string> wordsOf(std::string_view text) {
    const auto isPart = [](char c) { return c == '_' || std::isalnum(static_cast<unsigned char>(c)) != 0; };
    std::unordered_set<std::string> words;
    for (std::size_t begin = 0; begin < text.size();) {
        std::size_t end = begin;
        while (end < text.size() && isPart(text[end]))
            ++end;
        if (end > begin)
            words.emplace(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return words;
}

} // namespace

JumpSources::JumpSources(TesselBase& subroutine) : m_subroutine(subroutine) {
    std::unordered_set<std::string> taken;
    for (TesselBase& node : Service::Preorder(subroutine)) {
        if (const auto* label = dynamic_cast<const LabelStatement*>(&node))
            m_labels.push_back(label);
        else if (const auto* address = dynamic_cast<const LabelAddressExpression*>(&node))
            taken.insert(address->getLabelName());
    }
    for (const LabelStatement* label : m_labels)
        if (taken.count(label->getName()) != 0)
            m_taken.push_back(label);
}

JumpSources::Labels JumpSources::targetsOf(const GotoStatement& jump) const {
    if (jump.getAddress() != nullptr)
        return m_taken;
    return jump.getLabel() != nullptr ? Labels{jump.getLabel()} : Labels{};
}

JumpSources::Labels JumpSources::targetsOf(const OpaqueStatement& assembly) const {
    Labels targets;
    if (assembly.isHint() || m_labels.empty())
        return targets;
    const std::unordered_set<std::string> words = wordsOf(assembly.getText());
    if (words.count("goto") == 0)
        return targets;
    for (const LabelStatement* label : m_labels)
        if (words.count(label->getName()) != 0)
            targets.push_back(label);
    return targets;
}

JumpSources::Labels JumpSources::findEntries(TesselBase& statement) const {
    if (m_labels.empty() || &statement == &m_subroutine)
        return {};
    std::unordered_set<const LabelStatement*> outsideTargets;
    const Service::Preorder everywhere(m_subroutine);
    for (auto node = everywhere.begin(); node != everywhere.end();) {
        if (&*node == &statement) {
            node.skipChildren();
            continue;
        }
        Labels targets;
        if (const auto* jump = dynamic_cast<const GotoStatement*>(&*node))
            targets = targetsOf(*jump);
        else if (const auto* assembly = dynamic_cast<const OpaqueStatement*>(&*node))
            targets = targetsOf(*assembly);
        outsideTargets.insert(targets.begin(), targets.end());
        ++node;
    }
    Labels entries;
    for (TesselBase& node : Service::Preorder(statement)) {
        const auto* label = dynamic_cast<const LabelStatement*>(&node);
        if (label != nullptr && outsideTargets.count(label) != 0)
            entries.push_back(label);
    }
    return entries;
}

} // namespace ControlFlow
