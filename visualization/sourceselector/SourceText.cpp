// SPDX-License-Identifier: MIT
#include "visualization/sourceselector/SourceText.h"

#include <algorithm>

namespace Kova::GUI {

void SourceText::openLine() {
    m_lineBegins.append(getPartCount());
}

void SourceText::createPart(const char* text, Tessel::TesselBase& node) {
    if (m_lineBegins.empty())
        openLine();
    // Neighbouring parts often are one node's.
    if (m_parts.isEmpty() || m_parts.constLast().node != &node) {
        const int number = m_nodes->insert(&node);
        if (number == m_firstLines.size())
            m_firstLines.append(getLineCount() - 1);
    }
    m_parts.append({m_texts.toString(text), &node});
}

SourceText::Line SourceText::getLine(int index) const {
    const int end = index + 1 < m_lineBegins.size() ? m_lineBegins[index + 1] : m_parts.size();
    return {m_parts.constData() + m_lineBegins[index], m_parts.constData() + end};
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
    return number < 0 ? -1 : m_firstLines[number];
}

} // namespace Kova::GUI
