// SPDX-License-Identifier: MIT
#include "visualization/sourceselector/HoverTable.h"

#include "environment/tessel/VariableDeclaration.h"

#include <algorithm>

namespace Kova::GUI {

void HoverTable::clear() {
    m_roots.clear();
    m_printed.reset();
}

void HoverTable::insert(const Node& node, bool withChildren, const std::shared_ptr<const PrintedNodes>& printed) {
    // Of several texts the last one counts: whoever puts in nodes of a new text has cleared the table of the old one.
    m_printed = printed;
    m_roots.push_back({&node, withChildren});
    m_answers.assign(static_cast<std::size_t>(printed->size()), Answer::Unknown);
}

bool HoverTable::contains(const Node& node) const {
    return !m_roots.empty() && (isRoot(node, false) || isInSubtree(node));
}

bool HoverTable::isRoot(const Node& node, bool withChildren) const {
    return std::any_of(m_roots.begin(), m_roots.end(), [&](const Root& root) {
        return root.node == &node && (root.withChildren || !withChildren);
    });
}

bool HoverTable::isInSubtree(const Node& node) const {
    Answer answer = Answer::Plain;
    m_path.clear();
    for (const Node* at = &node; at != nullptr; at = lightingParent(*at)) {
        if (isRoot(*at, true)) {
            answer = Answer::Lit;
            break;
        }
        const int number = m_printed->find(at);
        if (number < 0)
            break;
        Answer& known = m_answers[static_cast<std::size_t>(number)];
        if (known != Answer::Unknown) {
            answer = known;
            break;
        }
        m_path.push_back(number);
    }
    for (const int number : m_path)
        m_answers[static_cast<std::size_t>(number)] = answer;
    return answer == Answer::Lit;
}

const HoverTable::Node* HoverTable::lightingParent(const Node& node) {
    if (dynamic_cast<const Tessel::VariableDeclaration*>(&node) != nullptr)
        return nullptr;
    const Node* parent = node.getParent();
    // A node may be kept beside the children of its parent.
    const bool isChild = parent != nullptr && parent->getChild(node.getIndexInParent()) == &node;
    return isChild ? parent : nullptr;
}

} // namespace Kova::GUI
