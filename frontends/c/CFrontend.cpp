// SPDX-License-Identifier: MIT
#include "frontends/c/CFrontend.h"

#include "environment/tessel/ProgramUnit.h"
#include "frontends/c/ClangSession_p.h"
#include "frontends/c/CrashGuard_p.h"
#include "frontends/c/InputFile_p.h"
#include "frontends/c/Invocation_p.h"

namespace Kova::Frontends {

namespace {

using Tessel::Diagnostic;

void report(Tessel::ProgramUnit& program, const std::string& path, std::string text) {
    program.appendDiagnostic({Diagnostic::Level::Error, path, 0, 0, std::move(text)});
}

} // namespace

CFrontend::Result CFrontend::read(const std::string& path, Tessel::ProgramUnit& program) const {
    if (std::string wrong = checkOptions(); !wrong.empty()) {
        report(program, path, std::move(wrong));
        return Result::Unreadable;
    }
    InputFile input = readInputFile(path);
    if (!input.error.empty()) {
        report(program, path, std::move(input.error));
        return Result::Unreadable;
    }

    auto session = std::make_unique<ClangSession>(m_options, path, std::move(input.text), program);
    if (!runGuarded([&session] { session->run(); })) {
        // What was under construction is in no state to be taken apart, so it is given up rather than freed.
        (void)session.release();
        report(program, path, "the reader of C gave up on this file: it is nested too deeply or made Clang fail");
        return Result::Unreadable;
    }
    for (Diagnostic& diagnostic : session->takeDiagnostics())
        program.appendDiagnostic(std::move(diagnostic));
    std::unique_ptr<Tessel::TranslationUnit> unit = session->takeUnit();
    if (!unit || (session->hadErrors() && !session->foundAny()))
        return Result::Unreadable;
    program.append(std::move(unit));
    return session->hadErrors() ? Result::Partial : Result::Complete;
}

std::string CFrontend::checkOptions() const {
    return checkCOptions(m_options);
}

} // namespace Kova::Frontends
