// SPDX-License-Identifier: MIT
#include "environment/printing/OneLineSink.h"

namespace Kova::Backends {

void OneLineSink::write(const char* text, Tessel::TesselBase& /*node*/) {
    m_line += text;
}

void OneLineSink::breakLine(Tessel::TesselBase& /*node*/) {
    if (!m_line.empty() && m_line.back() != '(')
        m_line += ' ';
}

void OneLineSink::skipLine(Tessel::TesselBase& /*node*/) {}

void OneLineSink::changeIndent(int /*levels*/) {}

} // namespace Kova::Backends
