// SPDX-License-Identifier: MIT
#include "environment/printing/OneLineSink.h"

namespace Kova::Backends {

void OneLineSink::write(const std::string& text, Tessel::TesselBase& /*node*/) {
    m_line += text;
}

void OneLineSink::breakLine(Tessel::TesselBase& /*node*/) {
    m_line += ' ';
}

void OneLineSink::changeIndent(int /*levels*/) {}

} // namespace Kova::Backends
