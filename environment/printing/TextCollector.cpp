// SPDX-License-Identifier: MIT
#include "environment/printing/TextCollector.h"

namespace Kova::Shared {

void TextCollector::write(const char* text, Tessel::TesselBase& /*node*/) {
    m_hasLine = true;
    m_text += text;
}

void TextCollector::writeNewLine(const char* text, Tessel::TesselBase& node) {
    if (m_hasLine)
        m_text += '\n';
    write(text, node);
}

std::string TextCollector::getText() const {
    return m_hasLine ? m_text + '\n' : m_text;
}

} // namespace Kova::Shared
