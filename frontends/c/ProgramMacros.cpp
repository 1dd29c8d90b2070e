// SPDX-License-Identifier: MIT
#include "frontends/c/ProgramMacros_p.h"
#include "frontends/c/SystemHeaders_p.h"

#include <clang/Lex/Lexer.h>
#include <clang/Lex/MacroInfo.h>
#include <clang/Lex/Preprocessor.h>

#include <algorithm>
#include <functional>
#include <vector>

namespace Kova::Frontends {

namespace {

/// The words of a text, cleaned of comments and of line ends inside them.
class Words {
public:
    Words(const std::string& text, const clang::LangOptions& language)
        : m_text(text),
          m_lexer(clang::SourceLocation(), language, m_text.c_str(), m_text.c_str(), m_text.c_str() + m_text.size()) {}

    /// @return false behind the last one.
    bool next() {
        if (m_isDone)
            return false;
        m_isDone = m_lexer.LexFromRawLexer(m_token) || m_token.is(clang::tok::eof);
        return m_token.isNot(clang::tok::eof);
    }
    [[nodiscard]] const clang::Token& token() const { return m_token; }
    [[nodiscard]] bool isName() const { return m_token.is(clang::tok::raw_identifier); }
    /// Of a name.
    [[nodiscard]] llvm::StringRef name() const { return m_token.getRawIdentifier(); }
    [[nodiscard]] std::string spelling() const {
        std::string word(m_lexer.getBufferLocation() - m_token.getLength(), m_token.getLength());
        for (std::size_t at = 0; (at = word.find("\\\n", at)) != std::string::npos;)
            word.erase(at, 2);
        return word;
    }

private:
    const std::string& m_text;
    clang::Lexer m_lexer;
    clang::Token m_token{};
    bool m_isDone = false;
};

/// Replaces the program's macros that have no parameters, those in their values as well.
class Expansion {
public:
    using Lookup = std::function<const clang::MacroInfo*(llvm::StringRef name)>;

    Expansion(const clang::Preprocessor& preprocessor, Lookup lookup)
        : m_preprocessor(preprocessor),
          m_lookup(std::move(lookup)) {}

    void append(const std::string& text) {
        Words words(text, m_preprocessor.getLangOpts());
        for (bool isFirst = true; words.next(); isFirst = false) {
            if (!isFirst && words.token().hasLeadingSpace())
                m_result += ' ';
            const clang::MacroInfo* macro = words.isName() ? m_lookup(words.name()) : nullptr;
            if (macro == nullptr || macro->isFunctionLike() || isOpen(*macro))
                m_result += words.spelling();
            else
                appendValue(*macro);
        }
    }
    [[nodiscard]] std::string take() { return std::move(m_result); }

private:
    [[nodiscard]] bool isOpen(const clang::MacroInfo& macro) const {
        return std::find(m_open.begin(), m_open.end(), &macro) != m_open.end();
    }
    void appendValue(const clang::MacroInfo& macro) {
        std::string value;
        for (const clang::Token& token : macro.tokens())
            value += (token.hasLeadingSpace() && !value.empty() ? " " : "") + m_preprocessor.getSpelling(token);
        m_open.push_back(&macro);
        append(value);
        m_open.pop_back();
    }

    const clang::Preprocessor& m_preprocessor;
    Lookup m_lookup;
    std::vector<const clang::MacroInfo*> m_open;
    std::string m_result;
};

} // namespace

bool ProgramMacros::isOfProgram(const clang::IdentifierInfo& name) const {
    if (!name.hadMacroDefinition())
        return false;
    const clang::MacroDirective* directive = m_preprocessor.getLocalMacroDirectiveHistory(&name);
    for (; directive != nullptr; directive = directive->getPrevious())
        if (const auto* definition = llvm::dyn_cast<clang::DefMacroDirective>(directive))
            if (!m_system.isExternal(definition->getInfo()->getDefinitionLoc()))
                return true;
    return false;
}

bool ProgramMacros::areIn(const std::string& text) const {
    Words words(text, m_preprocessor.getLangOpts());
    while (words.next()) {
        if (words.token().is(clang::tok::hash) && words.token().isAtStartOfLine())
            return true;
        const clang::IdentifierTable& names = m_preprocessor.getIdentifierTable();
        const auto known = words.isName() ? names.find(words.name()) : names.end();
        if (known != names.end() && isOfProgram(*known->second))
            return true;
    }
    return false;
}

std::string ProgramMacros::expand(const std::string& text) const {
    Expansion expansion(m_preprocessor, [this](llvm::StringRef name) -> const clang::MacroInfo* {
        const auto known = m_preprocessor.getIdentifierTable().find(name);
        const bool isKnown = known != m_preprocessor.getIdentifierTable().end() && isOfProgram(*known->second);
        return isKnown ? m_preprocessor.getMacroInfo(known->second) : nullptr;
    });
    expansion.append(text);
    return expansion.take();
}

} // namespace Kova::Frontends
