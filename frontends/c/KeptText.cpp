// SPDX-License-Identifier: MIT
#include "environment/printing/SourceText.h"
#include "frontends/c/KeptText_p.h"
#include "frontends/c/ProgramMacros_p.h"
#include "frontends/c/SystemHeaders_p.h"
#include "frontends/c/UnitContext_p.h"

#include <clang/AST/ASTContext.h>
#include <clang/AST/Decl.h>
#include <clang/AST/Expr.h>
#include <clang/AST/PrettyPrinter.h>
#include <clang/Basic/SourceManager.h>
#include <clang/Lex/Lexer.h>
#include <llvm/Support/raw_ostream.h>

#include <algorithm>
#include <map>

namespace Kova::Frontends {

using Tessel::TextPlace;

namespace {

/// Labels that assembly may jump to are written as names.
bool isWrittenAsExpression(const clang::Expr& operand) {
    return !llvm::isa<clang::AddrLabelExpr>(operand);
}

void collectOperands(const clang::Stmt& node, std::vector<KeptText::Operand>& operands) {
    for (const clang::Stmt* child : node.children()) {
        if (const auto* operand = llvm::dyn_cast_or_null<clang::Expr>(child))
            operands.push_back({&skipInvisible(*operand), std::nullopt});
        else if (child != nullptr)
            collectOperands(*child, operands);
    }
    if (const auto* assembly = llvm::dyn_cast<clang::GCCAsmStmt>(&node))
        for (const clang::AddrLabelExpr* label : assembly->labels())
            operands.push_back({label, std::nullopt});
}

bool arePlaced(const std::vector<KeptText::Operand>& operands) {
    return std::all_of(operands.begin(), operands.end(), [](const KeptText::Operand& operand) {
        return operand.place || !isWrittenAsExpression(*operand.expression);
    });
}

void sortByPlace(std::vector<KeptText::Operand>& operands) {
    std::stable_sort(operands.begin(), operands.end(), [](const KeptText::Operand& a, const KeptText::Operand& b) {
        return a.place && (!b.place || a.place->begin < b.place->begin);
    });
}

/// The position behind what begins at another one: a word, a constant with its quotes, or a single character.
std::size_t skipToken(const std::string& text, std::size_t begin) {
    if (text[begin] == '"' || text[begin] == '\'')
        return Backends::skipQuoted(text, begin);
    std::size_t end = begin + 1;
    while (Backends::isWordCharacter(text[begin]) && end < text.size() && Backends::isWordCharacter(text[end]))
        ++end;
    return end;
}

/// Spells the words of GNU's as every dialect of C knows them, where Clang has the short ones.
void respell(KeptText& kept) {
    for (std::size_t at = 0; at < kept.text.size();) {
        const std::size_t end = skipToken(kept.text, at);
        const std::string word = kept.text.substr(at, end - at);
        if (word != "asm" && word != "typeof") {
            at = end;
            continue;
        }
        kept.text.replace(at, end - at, "__" + word + "__");
        for (KeptText::Operand& operand : kept.operands)
            if (operand.place)
                operand.place = {operand.place->begin + (operand.place->begin > at ? 4 : 0),
                                 operand.place->end + (operand.place->end > at ? 4 : 0)};
        at = end + 4;
    }
}

/// Notes where Clang's printer puts the operands.
class PlaceNotes final : public clang::PrinterHelper {
public:
    PlaceNotes(std::vector<KeptText::Operand>& operands, const clang::PrintingPolicy& policy)
        : m_operands(operands),
          m_policy(policy) {}

    bool handledStmt(clang::Stmt* node, llvm::raw_ostream& stream) override {
        for (KeptText::Operand& operand : m_operands) {
            if (operand.expression != node || operand.place || !isWrittenAsExpression(*operand.expression))
                continue;
            const std::size_t begin = stream.tell();
            node->printPretty(stream, nullptr, m_policy);
            operand.place = {begin, stream.tell()};
            return true;
        }
        return false;
    }

private:
    std::vector<KeptText::Operand>& m_operands;
    const clang::PrintingPolicy& m_policy;
};

/// Finds what the arguments of a macro's use mean, in their order.
class ArgumentSearch {
public:
    /// @param inUse a place in the use's expansion.
    ArgumentSearch(const clang::SourceManager& sources, clang::SourceLocation inUse)
        : m_sources(sources),
          m_use(sources.getFileID(inUse)),
          m_around(sources.getFileID(sources.getImmediateExpansionRange(inUse).getBegin())) {}

    void search(const clang::Stmt& node) {
        const clang::SourceLocation given = givenAt(node.getBeginLoc());
        if (given.isValid()) {
            if (const auto* argument = llvm::dyn_cast<clang::Expr>(&node))
                m_found.emplace(writtenAt(given), argument);
            return;
        }
        for (const clang::Stmt* child : node.children())
            if (child != nullptr)
                search(*child);
    }
    [[nodiscard]] const std::map<unsigned, const clang::Expr*>& getFound() const { return m_found; }

private:
    /// Where an argument of the use goes into its expansion, if a place comes of one. The use may be an argument of
    /// another macro in turn.
    [[nodiscard]] clang::SourceLocation givenAt(clang::SourceLocation place) const {
        for (; m_sources.isMacroArgExpansion(place); place = m_sources.getImmediateSpellingLoc(place))
            if (m_sources.getFileID(m_sources.getImmediateExpansionRange(place).getBegin()) == m_use)
                return place;
        return {};
    }
    /// The use may stand in another macro, and what it is given may be an argument of that.
    [[nodiscard]] unsigned writtenAt(clang::SourceLocation argument) const {
        clang::SourceLocation place = m_sources.getImmediateSpellingLoc(argument);
        while (m_sources.getFileID(place) != m_around && m_sources.isMacroArgExpansion(place))
            place = m_sources.getImmediateExpansionRange(place).getBegin();
        return place.getRawEncoding();
    }

    const clang::SourceManager& m_sources;
    clang::FileID m_use;
    clang::FileID m_around;
    std::map<unsigned, const clang::Expr*> m_found;
};

} // namespace

TextKeeper::TextKeeper(const clang::ASTContext& context, const ParsedText& parsed)
    : m_context(context),
      m_system(parsed.system),
      m_macros(parsed.macros),
      m_sources(context.getSourceManager()) {}

std::string TextKeeper::fileText(clang::SourceRange range) const {
    if (range.isInvalid() || range.getBegin().isMacroID() || range.getEnd().isMacroID())
        return {};
    bool invalid = false;
    const llvm::StringRef text = clang::Lexer::getSourceText(clang::CharSourceRange::getTokenRange(range), m_sources,
                                                             m_context.getLangOpts(), &invalid);
    return invalid || m_macros.areIn(text.str()) ? std::string() : text.str();
}

std::optional<TextPlace> TextKeeper::placeIn(clang::SourceLocation begin, const clang::Expr& operand) const {
    const clang::CharSourceRange range = clang::Lexer::makeFileCharRange(
        clang::CharSourceRange::getTokenRange(operand.getSourceRange()), m_sources, m_context.getLangOpts());
    if (range.isInvalid() || m_sources.getFileID(range.getBegin()) != m_sources.getFileID(begin) ||
        m_sources.getFileOffset(range.getBegin()) < m_sources.getFileOffset(begin))
        return std::nullopt;
    const unsigned origin = m_sources.getFileOffset(begin);
    return TextPlace{m_sources.getFileOffset(range.getBegin()) - origin,
                     m_sources.getFileOffset(range.getEnd()) - origin};
}

KeptText TextKeeper::render(const clang::Stmt& node) const {
    KeptText kept;
    collectOperands(node, kept.operands);
    const clang::PrintingPolicy& policy = m_context.getPrintingPolicy();
    PlaceNotes notes(kept.operands, policy);
    llvm::raw_string_ostream stream(kept.text);
    node.printPretty(stream, &notes, policy);
    stream.flush();
    while (!kept.text.empty() && (kept.text.back() == '\n' || kept.text.back() == '\r'))
        kept.text.pop_back();
    respell(kept);
    sortByPlace(kept.operands);
    return kept;
}

KeptText TextKeeper::keep(const clang::Stmt& node) const {
    KeptText kept{fileText(node.getSourceRange()), {}};
    if (kept.text.empty())
        return render(node);
    collectOperands(node, kept.operands);
    for (KeptText::Operand& operand : kept.operands)
        if (isWrittenAsExpression(*operand.expression))
            operand.place = placeIn(node.getBeginLoc(), *operand.expression);
    if (!arePlaced(kept.operands))
        return render(node);
    sortByPlace(kept.operands);
    return kept;
}

std::string TextKeeper::textOf(const clang::Stmt& node) const {
    std::string text = fileText(node.getSourceRange());
    return text.empty() ? render(node).text : text;
}

std::string TextKeeper::textOf(const clang::Decl& node) const {
    std::string text = fileText(node.getSourceRange());
    if (!text.empty())
        return text;
    KeptText kept;
    llvm::raw_string_ostream stream(kept.text);
    node.print(stream, m_context.getPrintingPolicy());
    stream.flush();
    respell(kept);
    return kept.text;
}

std::vector<const clang::Expr*> TextKeeper::argumentsOf(clang::SourceLocation use, const clang::Expr& meaning) const {
    std::vector<const clang::Expr*> arguments;
    const clang::SrcMgr::SLocEntry& entry = m_sources.getSLocEntry(m_sources.getFileID(use));
    if (entry.isExpansion() && entry.getExpansion().isFunctionMacroExpansion()) {
        ArgumentSearch search(m_sources, use);
        search.search(meaning);
        for (const auto& [place, argument] : search.getFound())
            arguments.push_back(argument);
        return arguments;
    }
    // The macro is another name of what is called: `#define atomic_init __c11_atomic_init`.
    for (const clang::Stmt* child : meaning.children())
        if (const auto* operand = llvm::dyn_cast_or_null<clang::Expr>(child))
            if (const clang::Expr& argument = skipInvisible(*operand); argument.getBeginLoc() != use)
                arguments.push_back(&argument);
    std::sort(arguments.begin(), arguments.end(), [this](const clang::Expr* a, const clang::Expr* b) {
        return m_sources.isBeforeInTranslationUnit(a->getBeginLoc(), b->getBeginLoc());
    });
    return arguments;
}

KeptText TextKeeper::keepMacroUse(const clang::Expr& expression) const {
    clang::SourceLocation begin = expression.getBeginLoc();
    while (m_sources.isMacroArgExpansion(begin))
        begin = m_sources.getImmediateSpellingLoc(begin);
    if (!begin.isMacroID() || !m_system.isExternal(m_sources.getSpellingLoc(begin)))
        return {};
    KeptText kept{clang::Lexer::getImmediateMacroName(begin, m_sources, m_context.getLangOpts()).str() + '(', {}};
    for (const clang::Expr* argument : argumentsOf(begin, expression)) {
        kept.text += kept.text.back() == '(' ? "" : ", ";
        const std::string text = textOf(*argument);
        kept.operands.push_back({argument, TextPlace{kept.text.size(), kept.text.size() + text.size()}});
        kept.text += text;
    }
    kept.text += ')';
    return kept;
}

} // namespace Kova::Frontends
