// SPDX-License-Identifier: MIT
#pragma once

#include "environment/printing/PieceSink.h"

#include <string>

namespace Kova::Backends {

/// Collects all text in one line; a blank stands for a line break, except behind a parenthesis that opens.
class OneLineSink final : public PieceSink {
public:
    void write(const char* text, Tessel::TesselBase& node) override;
    void breakLine(Tessel::TesselBase& node) override;
    void skipLine(Tessel::TesselBase& node) override;
    void changeIndent(int levels) override;

    [[nodiscard]] const std::string& getLine() const { return m_line; }

private:
    std::string m_line;
};

} // namespace Kova::Backends
