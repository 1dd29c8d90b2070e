// SPDX-License-Identifier: MIT
#include "frontends/c/DirectiveRecorder_p.h"
#include "frontends/c/Directives_p.h"
#include "frontends/c/ProgramMacros_p.h"
#include "frontends/c/SystemHeaders_p.h"

#include <clang/Lex/Lexer.h>
#include <clang/Lex/PPCallbacks.h>
#include <clang/Lex/Preprocessor.h>

#include <algorithm>

namespace Kova::Frontends {

namespace {

/// Up to the end of the line, which goes on behind a backslash and inside a comment.
std::string lineFrom(const char* begin, const char* end) {
    const auto isAt = [end](const char* place, const char* two) {
        return end - place > 1 && place[0] == two[0] && place[1] == two[1];
    };
    const char* at = begin;
    while (at != end && *at != '\n') {
        if (isAt(at, "\\\n") || isAt(at, "//")) {
            const bool isComment = *at == '/';
            at = isComment ? std::find(at, end, '\n') : at + 2;
        } else if (isAt(at, "/*")) {
            at += 2;
            while (at != end && !isAt(at, "*/"))
                ++at;
            at = at == end ? end : at + 2;
        } else {
            ++at;
        }
    }
    return {begin, at};
}

/// True for what says nothing that a printed program could repeat.
bool isOfTheSource(llvm::StringRef pragma) {
    static constexpr const char* words[] = {"once",       "pack",           "push_macro",       "pop_macro",
                                            "GCC poison", "GCC dependency", "GCC system_header"};
    return std::any_of(std::begin(words), std::end(words), [&](llvm::StringRef word) {
        return pragma.starts_with(word) &&
               (pragma.size() == word.size() || pragma[word.size()] == ' ' || pragma[word.size()] == '(');
    });
}

class DirectiveRecorder final : public clang::PPCallbacks {
public:
    DirectiveRecorder(const clang::Preprocessor& preprocessor, const SystemHeaders& system, const ProgramMacros& macros,
                      Directives& directives)
        : m_preprocessor(preprocessor),
          m_system(system),
          m_macros(macros),
          m_directives(directives) {}

    void PragmaDirective(clang::SourceLocation place, clang::PragmaIntroducerKind /*kind*/) override {
        // Clang reads the line of a #pragma and the string of a _Pragma alike, and has not begun yet.
        const auto* lexer = static_cast<const clang::Lexer*>(m_preprocessor.getCurrentLexer());
        if (lexer == nullptr || m_system.isExternal(place))
            return;
        const std::string pragma = m_macros.expand(lineFrom(lexer->getBufferLocation(), lexer->getBuffer().end()));
        if (!isOfTheSource(pragma))
            m_directives.add(place, "#pragma " + pragma);
    }

    void Ident(clang::SourceLocation place, llvm::StringRef string) override {
        if (!m_system.isExternal(place))
            m_directives.add(place, "#ident " + string.str());
    }

private:
    const clang::Preprocessor& m_preprocessor;
    const SystemHeaders& m_system;
    const ProgramMacros& m_macros;
    Directives& m_directives;
};

} // namespace

std::unique_ptr<clang::PPCallbacks> recordDirectives(const clang::Preprocessor& preprocessor,
                                                     const SystemHeaders& system, const ProgramMacros& macros,
                                                     Directives& directives) {
    return std::make_unique<DirectiveRecorder>(preprocessor, system, macros, directives);
}

} // namespace Kova::Frontends
