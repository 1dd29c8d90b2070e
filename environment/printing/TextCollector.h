// SPDX-License-Identifier: MIT
#pragma once

#include "environment/printing/IProgramOutputStream.h"

#include <string>

namespace Kova::Shared {

/// Keeps all that is printed as one text.
class TextCollector final : public IProgramOutputStream {
public:
    void write(const char* text, Tessel::TesselBase& node) override;
    void writeNewLine(const char* text, Tessel::TesselBase& node) override;

    /// Each line with its end; empty when nothing was printed.
    [[nodiscard]] std::string getText() const;

private:
    std::string m_text;
    bool m_hasLine = false;
};

} // namespace Kova::Shared
