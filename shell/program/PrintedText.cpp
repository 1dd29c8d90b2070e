// SPDX-License-Identifier: MIT
#include "shell/program/PrintedText.h"

#include "environment/printing/ProgramTextBuilder.h"
#include "environment/printing/TextCollector.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/StatementBase.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/TranslationUnit.h"
#include "shell/program/Subject.h"

namespace Kova::Shell {

namespace {

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
    Shared::TextCollector collector;
    Shared::ProgramTextBuilder builder(collector, {});
    if (Tessel::TesselBase* node = nodeOf(subject))
        node->accept(builder);
    return QByteArray::fromStdString(collector.getText());
}

} // namespace Kova::Shell
