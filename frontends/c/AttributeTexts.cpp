// SPDX-License-Identifier: MIT
#include "frontends/c/AttributeTexts_p.h"
#include "frontends/c/SystemHeaders_p.h"

#include <clang/AST/Attr.h>
#include <clang/Lex/Preprocessor.h>

namespace Kova::Frontends {

namespace {

const llvm::StringRef mark = "text of attribute ";

clang::Token punctuation(clang::tok::TokenKind kind, clang::SourceLocation place) {
    clang::Token token;
    token.startToken();
    token.setKind(kind);
    token.setLocation(place);
    token.setLength(1);
    return token;
}

} // namespace

void AttributeTexts::watch(clang::Preprocessor& preprocessor) {
    preprocessor.setTokenWatcher([this, &preprocessor](const clang::Token& token) { take(preprocessor, token); });
}

void AttributeTexts::take(clang::Preprocessor& preprocessor, const clang::Token& token) {
    if (m_own != 0) {
        --m_own;
        return;
    }
    if (!m_isOpen) {
        m_isOpen = token.is(clang::tok::kw___attribute) && !m_system.isExternal(token.getLocation());
        if (m_isOpen)
            m_all.emplace_back();
        return;
    }
    if (m_depth == 0 && token.isNot(clang::tok::l_paren)) {
        m_isOpen = false;
        return;
    }
    takeWord(preprocessor, token);
    if (m_depth == 0) {
        m_isOpen = false;
        if (!m_all.back().empty())
            appendNumber(preprocessor, token.getLocation());
    }
}

void AttributeTexts::takeWord(const clang::Preprocessor& preprocessor, const clang::Token& token) {
    std::vector<std::string>& attributes = m_all.back();
    m_depth -= token.is(clang::tok::r_paren) ? 1 : 0;
    const bool isBetween = m_depth == 2 && token.is(clang::tok::comma);
    const bool isWord = m_depth >= 2 && !token.isAnnotation();
    if (isWord && (attributes.empty() || isBetween))
        attributes.emplace_back();
    if (isWord && !isBetween && attributes.back().empty())
        m_places[token.getLocation()] = {m_all.size() - 1, attributes.size() - 1};
    if (isWord && !isBetween)
        attributes.back() +=
            (token.hasLeadingSpace() && !attributes.back().empty() ? " " : "") + preprocessor.getSpelling(token);
    m_depth += token.is(clang::tok::l_paren) ? 1 : 0;
}

/// `__attribute__((annotate("text of attribute 17")))`.
void AttributeTexts::appendNumber(clang::Preprocessor& preprocessor, clang::SourceLocation place) {
    using namespace clang::tok;
    clang::Token keyword = punctuation(kw___attribute, place);
    keyword.setIdentifierInfo(preprocessor.getIdentifierInfo("__attribute__"));
    clang::Token name = punctuation(identifier, place);
    name.setIdentifierInfo(preprocessor.getIdentifierInfo("annotate"));
    clang::Token number = punctuation(string_literal, place);
    preprocessor.CreateString('"' + mark.str() + std::to_string(m_all.size() - 1) + '"', number, place, place);
    const clang::Token words[] = {keyword,
                                  punctuation(l_paren, place),
                                  punctuation(l_paren, place),
                                  name,
                                  punctuation(l_paren, place),
                                  number,
                                  punctuation(r_paren, place),
                                  punctuation(r_paren, place),
                                  punctuation(r_paren, place)};
    m_own = std::size(words);
    auto stream = std::make_unique<clang::Token[]>(m_own);
    std::copy(std::begin(words), std::end(words), stream.get());
    preprocessor.EnterTokenStream(std::move(stream), m_own, /*DisableMacroExpansion=*/true, /*IsReinject=*/false);
}

const std::vector<std::string>* AttributeTexts::find(const clang::Attr& attribute) const {
    const auto* annotation = llvm::dyn_cast<clang::AnnotateAttr>(&attribute);
    llvm::StringRef text = annotation != nullptr ? annotation->getAnnotation() : llvm::StringRef();
    std::size_t number = 0;
    if (!text.consume_front(mark) || text.getAsInteger(10, number) || number >= m_all.size())
        return nullptr;
    return &m_all[number];
}

const std::string* AttributeTexts::findAt(clang::SourceLocation place) const {
    const auto found = m_places.find(place);
    return found != m_places.end() ? &m_all[found->second.first][found->second.second] : nullptr;
}

bool AttributeTexts::isAboutNumber(const std::string& message) {
    return message.find("'annotate'") != std::string::npos;
}

} // namespace Kova::Frontends
