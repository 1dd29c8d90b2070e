// SPDX-License-Identifier: MIT
#include "frontends/c/AttributeTexts_p.h"
#include "frontends/c/ClangSession_p.h"
#include "frontends/c/DiagnosticCollector_p.h"
#include "frontends/c/DirectiveRecorder_p.h"
#include "frontends/c/Directives_p.h"
#include "frontends/c/FallThroughComments_p.h"
#include "frontends/c/IncludeRecorder_p.h"
#include "frontends/c/Invocation_p.h"
#include "frontends/c/ProgramMacros_p.h"
#include "frontends/c/SystemHeaders_p.h"
#include "frontends/c/UnitBuilder_p.h"

#include <clang/AST/ASTConsumer.h>
#include <clang/Frontend/CompilerInstance.h>
#include <clang/Frontend/CompilerInvocation.h>
#include <clang/Frontend/FrontendAction.h>
#include <clang/Frontend/Utils.h>
#include <clang/Lex/Preprocessor.h>
#include <clang/Lex/PreprocessorOptions.h>
#include <clang/Parse/ParseAST.h>
#include <clang/Sema/Sema.h>
#include <llvm/Support/MemoryBuffer.h>

#include <exception>
#include <optional>

namespace Kova::Frontends {

namespace {

using Tessel::Diagnostic;

struct BuildResult {
    bool foundAny = false;
    std::exception_ptr failure;
};

/// Builds the tree when Clang has parsed the whole file. An exception must not pass through Clang's frames: it is kept.
class BuildingConsumer final : public clang::ASTConsumer {
public:
    BuildingConsumer(const ParsedText& parsed, Tessel::ProgramUnit& program, Tessel::TranslationUnit& unit,
                     BuildResult& result)
        : m_parsed(parsed),
          m_program(program),
          m_unit(unit),
          m_result(result) {}

    void HandleTranslationUnit(clang::ASTContext& context) override {
        try {
            m_result.foundAny = buildUnit(context, m_parsed, m_program, m_unit);
        } catch (...) {
            m_result.failure = std::current_exception();
        }
    }

private:
    ParsedText m_parsed;
    Tessel::ProgramUnit& m_program;
    Tessel::TranslationUnit& m_unit;
    BuildResult& m_result;
};

class ReadAction final : public clang::ASTFrontendAction {
public:
    /// @param unit null to parse only.
    ReadAction(Tessel::ProgramUnit& program, Tessel::TranslationUnit* unit) : m_program(program), m_unit(unit) {}

    /// @return whether there is anything to look at.
    [[nodiscard]] bool finish() const {
        if (m_result.failure)
            std::rethrow_exception(m_result.failure);
        return m_result.foundAny;
    }

protected:
    std::unique_ptr<clang::ASTConsumer> CreateASTConsumer(clang::CompilerInstance& compiler,
                                                          llvm::StringRef /*file*/) override {
        if (m_unit == nullptr)
            return std::make_unique<clang::ASTConsumer>();
        clang::Preprocessor& preprocessor = compiler.getPreprocessor();
        m_system.emplace(compiler.getSourceManager());
        m_macros.emplace(preprocessor, *m_system);
        preprocessor.addPPCallbacks(recordSystemIncludes(preprocessor, *m_system, *m_unit));
        preprocessor.addPPCallbacks(recordDirectives(preprocessor, *m_system, *m_macros, m_directives));
        m_attributes.emplace(*m_system);
        m_attributes->watch(preprocessor);
        m_fallThrough.watch(preprocessor);
        return std::make_unique<BuildingConsumer>(
            ParsedText{*m_system, *m_macros, *m_attributes, m_fallThrough, m_directives}, m_program, *m_unit, m_result);
    }

    /// As ASTFrontendAction's, without its note of where the stack begins: Clang would take the stack for a common one
    /// of 8 MiB, warn, and go on in ever new threads when these are used up.
    void ExecuteAction() override {
        clang::CompilerInstance& compiler = getCompilerInstance();
        if (!compiler.hasSema())
            compiler.createSema(getTranslationUnitKind(), nullptr);
        clang::ParseAST(compiler.getSema());
    }

private:
    Tessel::ProgramUnit& m_program;
    Tessel::TranslationUnit* m_unit;
    BuildResult m_result;
    FallThroughComments m_fallThrough;
    Directives m_directives;
    std::optional<SystemHeaders> m_system;
    std::optional<ProgramMacros> m_macros;
    std::optional<AttributeTexts> m_attributes;
};

std::shared_ptr<clang::CompilerInvocation> makeInvocation(const std::vector<std::string>& line,
                                                          clang::DiagnosticsEngine& diagnostics) {
    std::vector<const char*> arguments;
    arguments.reserve(line.size());
    for (const std::string& argument : line)
        arguments.push_back(argument.c_str());
    clang::CreateInvocationOptions options;
    options.Diags = &diagnostics;
    return clang::createInvocation(arguments, options);
}

/// As CompilerInstance::ExecuteAction, without its note of the stack and its print of statistics.
void execute(clang::CompilerInstance& compiler, ReadAction& action) {
    if (!compiler.createTarget() || !action.BeginSourceFile(compiler, compiler.getFrontendOpts().Inputs.front()))
        return;
    // The only error that this reports is of actions that we do not use.
    llvm::consumeError(action.Execute());
    action.EndSourceFile();
}

} // namespace

ClangSession::ClangSession(const COptions& options, std::string path, std::string text, Tessel::ProgramUnit& program)
    : m_options(options),
      m_path(std::move(path)),
      m_text(std::move(text)),
      m_program(program) {}

ClangSession::~ClangSession() = default;

void ClangSession::report(Diagnostic::Level level, std::string text) {
    m_diagnostics.push_back({level, m_path, 0, 0, std::move(text)});
}

void ClangSession::run() {
    const std::string resources = findResourceDirectory();
    if (resources.empty())
        report(Diagnostic::Level::Error, "Clang's own headers (stddef.h, stdarg.h, ...) are missing: install them "
                                         "(libclang-common-19-dev) or set KOVA_CLANG_RESOURCE_DIR to their folder");
    m_hadErrors = resources.empty();

    DiagnosticCollector collector(m_path);
    clang::CompilerInstance compiler;
    compiler.createDiagnostics(&collector, /*ShouldOwnClient=*/false);
    // Whatever follows a missing header is still read.
    compiler.getDiagnostics().setFatalsAsError(true);
    std::shared_ptr<clang::CompilerInvocation> invocation =
        makeInvocation(makeCommandLine(m_options, m_path, resources), compiler.getDiagnostics());
    if (invocation) {
        // The file is read once and not again by Clang: it may be a pipe.
        invocation->getPreprocessorOpts().addRemappedFile(m_path,
                                                          llvm::MemoryBuffer::getMemBuffer(m_text, m_path).release());
        invocation->getFrontendOpts().DisableFree = false;
        compiler.setInvocation(std::move(invocation));
        clang::ProcessWarningOptions(compiler.getDiagnostics(), compiler.getDiagnosticOpts());
        m_unit = std::make_unique<Tessel::TranslationUnit>(m_path, Tessel::LANG_C);
        ReadAction action(m_program, m_buildsTree ? m_unit.get() : nullptr);
        execute(compiler, action);
        m_foundAny = action.finish();
    }
    m_hadErrors |= collector.getNumErrors() != 0;
    for (Diagnostic& diagnostic : collector.take())
        m_diagnostics.push_back(std::move(diagnostic));
}

} // namespace Kova::Frontends
