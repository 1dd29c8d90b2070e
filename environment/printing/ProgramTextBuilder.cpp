// SPDX-License-Identifier: MIT
#include "environment/printing/ProgramTextBuilder.h"

#include "environment/printing/DeclarationHead.h"
#include "environment/printing/FortranPieces.h"
#include "environment/printing/IProgramOutputStream.h"
#include "environment/printing/PiecePrinter.h"
#include "environment/printing/PieceSink.h"
#include "environment/tessel/DeclarationStatement.h"
#include "environment/tessel/EnumeratorDeclaration.h"
#include "environment/tessel/ModuleDeclaration.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/TranslationUnit.h"
#include "environment/tessel/VariableDeclaration.h"

#include <cstddef>
#include <string>

namespace Kova::Shared {

using namespace Tessel;

namespace {

/// Opens lines with the blanks that their level asks for.
class LineSink final : public Backends::PieceSink {
public:
    LineSink(IProgramOutputStream& output, int indent) : m_output(output), m_indent(indent) {}

    void write(const char* text, TesselBase& node) override { m_output.write(text, node); }
    void breakLine(TesselBase& node) override {
        const std::size_t width = static_cast<std::size_t>(m_indent) * blanksALevel;
        if (m_blanks.size() < width)
            m_blanks.resize(width, ' ');
        m_output.writeNewLine(m_blanks.c_str() + (m_blanks.size() - width), node);
    }
    void skipLine(TesselBase& node) override { m_output.writeNewLine("", node); }
    void changeIndent(int levels) override { m_indent += levels; }

private:
    static constexpr std::size_t blanksALevel = 4;

    IProgramOutputStream& m_output;
    int m_indent;
    std::string m_blanks = std::string(10 * blanksALevel, ' ');
};

/// A comment that names a file, whatever its name holds.
std::string titleOf(const TranslationUnit& unit) {
    std::string name;
    for (const char c : unit.getPath())
        name += c == '\n' || c == '\r' || (c == '/' && !name.empty() && name.back() == '*') ? '?' : c;
    return unit.getSourceLanguage() == LANG_C ? "/* " + name + " */" : "! " + name;
}

/// True for a declaration that stands for itself where it is the whole text, and so ends like one.
bool needsEnd(const TesselBase& root) {
    const auto* declaration = dynamic_cast<const DeclarationBase*>(&root);
    const auto* variable = dynamic_cast<const VariableDeclaration*>(&root);
    const bool isPart = dynamic_cast<const EnumeratorDeclaration*>(&root) != nullptr ||
                        (variable != nullptr && variable->isParameter());
    return declaration != nullptr && !isPart && Backends::DeclarationHead::endsWithSemicolon(*declaration);
}

/// True for what is itself among the things that can be left out.
bool isShownAnyway(const TesselBase& root) {
    const auto* subroutine = dynamic_cast<const SubroutineDeclaration*>(&root);
    if (subroutine != nullptr || dynamic_cast<const ModuleDeclaration*>(&root) != nullptr)
        return false;
    return dynamic_cast<const DeclarationBase*>(&root) != nullptr ||
           dynamic_cast<const DeclarationStatement*>(&root) != nullptr;
}

void print(Backends::PieceList&& pieces, const TesselBase& root, const Backends::DeclarationFilter& filter,
           Backends::PieceSink& sink) {
    const TranslationUnit* unit = root.findTranslationUnit();
    if (unit != nullptr && unit->getSourceLanguage() != LANG_C) {
        Backends::FortranPieces language(filter);
        Backends::PiecePrinter(language, sink).print(std::move(pieces));
    } else {
        Backends::CUnitPieces language(filter);
        Backends::PiecePrinter(language, sink).print(std::move(pieces));
    }
}

void printProgram(ProgramUnit& program, const Backends::DeclarationFilter& filter, Backends::PieceSink& sink) {
    sink.breakLine(program);
    for (std::size_t i = 0; i < program.getChildCount(); ++i) {
        TranslationUnit* unit = program.getTranslationUnit(i);
        if (unit == nullptr)
            continue;
        Backends::PieceList pieces;
        if (i != 0) {
            pieces.emptyLine(program);
            pieces.lineBreak(*unit);
        }
        pieces.text(titleOf(*unit), *unit);
        pieces.lineBreak(*unit);
        pieces.node(unit);
        print(std::move(pieces), *unit, filter, sink);
    }
}

} // namespace

bool ProgramTextBuilder::Options::operator==(const Options& other) const {
    return hidePrototypes == other.hidePrototypes && hideVariables == other.hideVariables &&
           hideTypedefs == other.hideTypedefs && hideExternalDeclarations == other.hideExternalDeclarations;
}

void ProgramTextBuilder::visit(TesselBase& node) {
    LineSink sink(m_output, m_indent);
    const Backends::DeclarationFilter filter(isShownAnyway(node) ? Options() : m_options);
    if (auto* program = dynamic_cast<ProgramUnit*>(&node)) {
        printProgram(*program, filter, sink);
        return;
    }
    Backends::PieceList pieces;
    pieces.lineBreak(node);
    pieces.node(&node);
    if (needsEnd(node))
        pieces.text(";", node);
    print(std::move(pieces), node, filter, sink);
}

} // namespace Kova::Shared
