// SPDX-License-Identifier: MIT
#include "shell/program/PrintedText.h"

#include "environment/printing/IProgramOutputStream.h"
#include "environment/printing/ProgramTextBuilder.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/StatementBase.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/TranslationUnit.h"
#include "shell/program/Subject.h"

namespace Kova::Shell {

namespace {

class TextCollector final : public Shared::IProgramOutputStream {
public:
    void write(const char* text, Tessel::TesselBase& /*node*/) override { m_text += text; }
    void writeNewLine(const char* text, Tessel::TesselBase& /*node*/) override {
        if (m_hasLine)
            m_text += '\n';
        m_hasLine = true;
        m_text += text;
    }

    [[nodiscard]] QByteArray getText() const { return m_hasLine ? m_text + '\n' : m_text; }

private:
    QByteArray m_text;
    bool m_hasLine = false;
};

Tessel::TesselBase* nodeOf(const Subject& subject) {
    if (Tessel::StatementBase* statement = subject.getStatement())
        return statement;
    if (Tessel::SubroutineDeclaration* subroutine = subject.getSubroutine())
        return subroutine;
    Tessel::ProgramUnit* program = subject.getProgram();
    const bool isOneFile = program != nullptr && program->getChildCount() == 1;
    return isOneFile ? static_cast<Tessel::TesselBase*>(program->getTranslationUnit(0)) : program;
}

} // namespace

QByteArray printedTextOf(const Subject& subject) {
    TextCollector collector;
    Shared::ProgramTextBuilder builder(collector, {});
    if (Tessel::TesselBase* node = nodeOf(subject))
        node->accept(builder);
    return collector.getText();
}

} // namespace Kova::Shell
