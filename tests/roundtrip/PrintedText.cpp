// SPDX-License-Identifier: MIT
#include "tests/roundtrip/PrintedText.h"

#include "environment/core/Exception.h"
#include "environment/printing/IProgramOutputStream.h"
#include "environment/printing/ProgramTextBuilder.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/TranslationUnit.h"

namespace Kova::Test {

namespace {

class TextOutput final : public Shared::IProgramOutputStream {
public:
    void write(const char* text, Tessel::TesselBase& /*node*/) override { m_text += text; }
    void writeNewLine(const char* text, Tessel::TesselBase& /*node*/) override {
        m_text += m_text.empty() && !m_isBegun ? "" : "\n";
        m_isBegun = true;
        m_text += text;
    }
    [[nodiscard]] std::string take() { return m_text + '\n'; }

private:
    std::string m_text;
    bool m_isBegun = false;
};

} // namespace

std::string printedText(Tessel::TesselBase& node) {
    TextOutput output;
    Shared::ProgramTextBuilder builder(output, Shared::ProgramTextBuilder::Options());
    node.accept(builder);
    return output.take();
}

std::string printedFile(const std::string& path, const Frontends::COptions& options) {
    Tessel::ProgramUnit program;
    const Frontends::CFrontend::Result result = Frontends::CFrontend(options).read(path, program);
    if (result == Frontends::CFrontend::Result::Complete)
        return printedText(*program.getTranslationUnit(0));
    std::string messages = path + " cannot be read:";
    for (const Tessel::Diagnostic& diagnostic : program.getDiagnostics())
        messages += '\n' + toString(diagnostic);
    throw RuntimeError(messages);
}

} // namespace Kova::Test
