// SPDX-License-Identifier: MIT
#pragma once

#include "environment/printing/PieceSink.h"

namespace Kova::Backends {

/// Collects all text in one line; a blank stands for a line break.
class OneLineSink final : public PieceSink {
public:
    void write(const std::string& text, Tessel::TesselBase& node) override;
    void breakLine(Tessel::TesselBase& node) override;
    void changeIndent(int levels) override;

    [[nodiscard]] const std::string& getLine() const { return m_line; }

private:
    std::string m_line;
};

} // namespace Kova::Backends
