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

/// Reads a line, which goes on behind a backslash and inside a comment.
class LineReader {
public:
    LineReader(const char* begin, const char* end) : m_begin(begin), m_at(begin), m_end(end) {}

    std::string read() {
        while (m_at != m_end && *m_at != '\n')
            skipPart();
        return {m_begin, m_at};
    }

private:
    [[nodiscard]] bool isAt(llvm::StringRef text) const {
        return llvm::StringRef(m_at, static_cast<std::size_t>(m_end - m_at)).starts_with(text);
    }
    void skip(std::size_t length) { m_at += length; }
    void skipPart() {
        if (isAt("\\\r\n"))
            skip(3);
        else if (*m_at == '\\' && m_at + 1 != m_end)
            skip(2);
        else if (*m_at == '"')
            skipUntil("\"");
        else if (isAt("/*"))
            skipUntil("*/");
        else if (isAt("//"))
            m_at = std::find(m_at, m_end, '\n');
        else
            skip(1);
    }
    void skipUntil(llvm::StringRef text) {
        const bool isString = text == "\"";
        skip(isString ? 1 : 2);
        while (m_at != m_end && !isAt(text) && !(isString && *m_at == '\n'))
            skip(*m_at == '\\' && m_at + 1 != m_end ? 2 : 1);
        if (isAt(text))
            skip(text.size());
    }

    const char* m_begin;
    const char* m_at;
    const char* m_end;
};

/// True for what says nothing that a printed program could repeat.
bool isOfTheSource(llvm::StringRef pragma) {
    static constexpr const char* words[] = {"once",       "pack",           "push_macro",       "pop_macro",
                                            "GCC poison", "GCC dependency", "GCC system_header"};
    return std::any_of(std::begin(words), std::end(words), [&](llvm::StringRef word) {
        return pragma.starts_with(word) &&
               (pragma.size() == word.size() || pragma[word.size()] == ' ' || pragma[word.size()] == '(');
    });
}

/// What a program says to Clang alone, it says where other compilers do not look, and they may warn of it. Of what all
/// of them take the word is theirs.
std::string withoutClang(const std::string& pragma) {
    llvm::StringRef rest = pragma;
    if (!rest.consume_front("clang "))
        return pragma;
    const llvm::StringRef diagnostic = rest;
    const bool isCommon = rest.consume_front("diagnostic ") &&
                          (rest.starts_with("push") || rest.starts_with("pop") || rest.contains("\"-Wunused"));
    return isCommon ? "GCC " + diagnostic.str() : std::string();
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
        const std::string written =
            m_macros.expand(LineReader(lexer->getBufferLocation(), lexer->getBuffer().end()).read());
        const std::string pragma = withoutClang(written);
        if (written.empty())
            m_directives.add(place, "#pragma");
        else if (!pragma.empty() && !isOfTheSource(pragma))
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
