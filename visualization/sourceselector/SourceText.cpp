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
    m_parts.append({m_texts.toString(text), &node});
}

void SourceText::numberNodes() {
    const Tessel::TesselBase* last = nullptr;
    for (int line = 0; line < getLineCount(); ++line) {
        for (const Part& part : getLine(line)) {
            // Neighbouring parts often are one node's.
            if (part.node == last)
                continue;
            last = part.node;
            if (m_nodes->insert(last) == m_firstLines.size())
                m_firstLines.append(line);
        }
    }
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
