// SPDX-License-Identifier: MIT
#pragma once

#include "environment/printing/IProgramOutputStream.h"
#include "visualization/sourceselector/SourceText.h"

namespace Kova::GUI {

/// Takes what the printer writes into a text. Lives only while the text is built.
class SourceSelectorOutput final : public Shared::IProgramOutputStream {
public:
    explicit SourceSelectorOutput(SourceText& text) : m_text(text) {}
    ~SourceSelectorOutput() { m_text.numberNodes(); }
    SourceSelectorOutput(const SourceSelectorOutput&) = delete;
    SourceSelectorOutput& operator=(const SourceSelectorOutput&) = delete;

    void write(const char* text, Tessel::TesselBase& node) override { m_text.createPart(text, node); }
    void writeNewLine(const char* text, Tessel::TesselBase& node) override {
        m_text.openLine();
        m_text.createPart(text, node);
    }

private:
    SourceText& m_text;
};

} // namespace Kova::GUI
