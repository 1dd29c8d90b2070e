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

struct Word {
    std::string text;
    bool isName;
    bool isDirectiveMark;
    bool followsBlank;
};

/// Without comments.
std::vector<Word> wordsOf(const std::string& text, const clang::LangOptions& language) {
    std::vector<Word> words;
    clang::Lexer lexer(clang::SourceLocation(), language, text.c_str(), text.c_str(), text.c_str() + text.size());
    clang::Token token;
    for (bool isLast = false; !isLast;) {
        isLast = lexer.LexFromRawLexer(token);
        if (token.is(clang::tok::eof))
            break;
        std::string spelling(lexer.getBufferLocation() - token.getLength(), token.getLength());
        for (std::size_t at = 0; (at = spelling.find("\\\n", at)) != std::string::npos;)
            spelling.erase(at, 2);
        words.push_back({std::move(spelling), token.is(clang::tok::raw_identifier),
                         token.is(clang::tok::hash) && token.isAtStartOfLine(), token.hasLeadingSpace()});
    }
    return words;
}

/// The text of the words in [first, last).
std::string join(const std::vector<Word>& words, std::size_t first, std::size_t last) {
    std::string text;
    for (std::size_t i = first; i < last; ++i)
        text += (i != first && words[i].followsBlank ? " " : "") + words[i].text;
    return text;
}

/// Replaces macros by what they stand for, those in their values as well.
class Expansion {
public:
    /// Gives null for what is no macro or is not to be replaced.
    using Lookup = std::function<const clang::MacroInfo*(const std::string& name)>;

    Expansion(const clang::Preprocessor& preprocessor, Lookup lookup)
        : m_preprocessor(preprocessor),
          m_lookup(std::move(lookup)) {}

    void append(const std::string& text) {
        const std::vector<Word> words = wordsOf(text, m_preprocessor.getLangOpts());
        for (std::size_t i = 0; i < words.size();) {
            if (i != 0 && words[i].followsBlank)
                m_result += ' ';
            const std::size_t behind = appendMacro(words, i);
            if (behind == i)
                m_result += words[i++].text;
            else
                i = behind;
        }
    }
    [[nodiscard]] std::string take() { return std::move(m_result); }

private:
    using Arguments = std::vector<std::string>;

    /// @return the number behind the macro's use that begins at a word; that word's own when none does.
    std::size_t appendMacro(const std::vector<Word>& words, std::size_t at) {
        const clang::MacroInfo* macro = words[at].isName ? m_lookup(words[at].text) : nullptr;
        if (macro == nullptr || std::find(m_open.begin(), m_open.end(), macro) != m_open.end())
            return at;
        Arguments arguments;
        std::size_t behind = at + 1;
        if (macro->isFunctionLike()) {
            behind = readArguments(words, at + 1, arguments);
            if (behind == at + 1 || arguments.size() != macro->getNumParams() || !isPlain(*macro))
                return at;
        }
        m_open.push_back(macro);
        append(valueOf(*macro, arguments));
        m_open.pop_back();
        return behind;
    }

    /// @return the number behind the closing parenthesis; at when there are no arguments.
    static std::size_t readArguments(const std::vector<Word>& words, std::size_t at, Arguments& arguments) {
        if (at == words.size() || words[at].text != "(")
            return at;
        std::size_t first = at + 1;
        int depth = 0;
        for (std::size_t i = at; i < words.size(); ++i) {
            depth += words[i].text == "(" ? 1 : words[i].text == ")" ? -1 : 0;
            if (depth != 0 && (depth != 1 || words[i].text != ","))
                continue;
            arguments.push_back(join(words, first, i));
            first = i + 1;
            if (depth == 0)
                return first;
        }
        return at;
    }

    /// True for a macro that neither joins words nor makes strings of them.
    static bool isPlain(const clang::MacroInfo& macro) {
        return !macro.isVariadic() && std::none_of(macro.tokens_begin(), macro.tokens_end(), [](const auto& token) {
            return token.isOneOf(clang::tok::hash, clang::tok::hashhash);
        });
    }

    [[nodiscard]] std::string valueOf(const clang::MacroInfo& macro, const Arguments& arguments) const {
        std::string value;
        for (const clang::Token& token : macro.tokens()) {
            value += token.hasLeadingSpace() && !value.empty() ? " " : "";
            const int parameter =
                token.getIdentifierInfo() != nullptr ? macro.getParameterNum(token.getIdentifierInfo()) : -1;
            value +=
                parameter >= 0 ? arguments[static_cast<std::size_t>(parameter)] : m_preprocessor.getSpelling(token);
        }
        return value;
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

bool ProgramMacros::isOfProgram(const std::string& name) const {
    const auto known = m_preprocessor.getIdentifierTable().find(name);
    return known != m_preprocessor.getIdentifierTable().end() && isOfProgram(*known->second);
}

bool ProgramMacros::isSystemCall(const clang::IdentifierInfo& name) const {
    const clang::MacroInfo* macro = m_preprocessor.getMacroInfo(&name);
    return macro != nullptr && macro->isFunctionLike() && m_system.isExternal(macro->getDefinitionLoc());
}

bool ProgramMacros::areIn(const std::string& text) const {
    const std::vector<Word> words = wordsOf(text, m_preprocessor.getLangOpts());
    return std::any_of(words.begin(), words.end(), [this](const Word& word) {
        return word.isDirectiveMark || (word.isName && isOfProgram(word.text));
    });
}

std::string ProgramMacros::expand(const std::string& text) const {
    Expansion expansion(m_preprocessor, [this](const std::string& name) {
        return isOfProgram(name) ? m_preprocessor.getMacroInfo(m_preprocessor.getIdentifierInfo(name)) : nullptr;
    });
    expansion.append(text);
    return expansion.take();
}

} // namespace Kova::Frontends
