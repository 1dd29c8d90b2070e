// SPDX-License-Identifier: MIT
#include "tests/roundtrip/PrintedText.h"

#include "environment/core/Exception.h"
#include "environment/printing/ProgramTextBuilder.h"
#include "environment/printing/TextCollector.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/TranslationUnit.h"

namespace Kova::Test {

std::string printedText(Tessel::TesselBase& node) {
    Shared::TextCollector output;
    Shared::ProgramTextBuilder builder(output, Shared::ProgramTextBuilder::Options());
    node.accept(builder);
    return output.getText();
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
