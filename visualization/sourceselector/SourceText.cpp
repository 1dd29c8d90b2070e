// SPDX-License-Identifier: MIT
#include "visualization/sourceselector/SourceText.h"

#include <algorithm>

namespace Kova::GUI {

void SourceText::openLine() {
    m_lineBegins.push_back(getPartCount());
}

void SourceText::createPart(const char* text, Tessel::TesselBase& node) {
    if (m_lineBegins.empty())
        openLine();
    // Neighbouring parts often are one node's.
    const bool sameNode = !m_parts.empty() && m_parts.back().node == &node;
    const int number = sameNode ? m_parts.back().nodeNumber : m_nodes->insert(&node);
    if (number == static_cast<int>(m_firstLines.size()))
        m_firstLines.push_back(getLineCount() - 1);
    m_parts.push_back({m_texts.toString(text), &node, number});
}

SourceText::Line SourceText::getLine(int index) const {
    const auto at = static_cast<std::size_t>(index);
    const auto end = at + 1 < m_lineBegins.size() ? static_cast<std::size_t>(m_lineBegins[at + 1]) : m_parts.size();
    return {m_parts.data() + m_lineBegins[at], m_parts.data() + end};
}

int SourceText::getWidestLine() const {
    int widest = 0;
    for (int i = 0; i < getLineCount(); ++i) {
        int length = 0;
        for (const Part& part : getLine(i))
            length += part.text.size();
        widest = std::max(widest, length);
    }
    return widest;
}

int SourceText::findLine(const Tessel::TesselBase* node) const {
    const int number = m_nodes->find(node);
    return number < 0 ? -1 : m_firstLines[static_cast<std::size_t>(number)];
}

} // namespace Kova::GUI
