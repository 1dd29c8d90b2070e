// SPDX-License-Identifier: MIT
#include "tests/roundtrip/WordRules.h"

#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/DeclarationBase.h"
#include "environment/tessel/IfStatement.h"
#include "environment/tessel/TypeDeclaration.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/VariableReference.h"
#include "environment/tessel/service/Preorder.h"
#include "tests/environment/printing/PrintedLines.h"
#include "visualization/textgraph/ProgramText.h"

#include <map>

namespace Kova::Test {

namespace {

using namespace Tessel;
using GUI::TextGraph::BasicWord;
using GUI::TextGraph::ProgramLines;
using Tests::PrintedLines;

bool startsWith(const std::string& text, const std::string& begin) {
    return text.compare(0, begin.size(), begin) == 0;
}

std::string withoutIndent(const std::string& line) {
    const std::size_t begin = line.find_first_not_of(' ');
    return begin == std::string::npos ? std::string() : line.substr(begin);
}

/// Tells apart the kinds of statements that open lines in ways of their own.
class OpenedLines final : public BaseVisitor {
public:
    using BaseVisitor::visit;
    void visit(StatementBase& /*node*/) override { m_begins = {""}; }
    void visit(BlockStatement& node) override {
        const auto* branch = dynamic_cast<const IfStatement*>(node.getParent());
        m_begins = {"{", "}"};
        if (branch != nullptr && branch->getElseIf() != nullptr && branch->getElseBlock() == &node)
            m_begins.clear();
    }
    void visit(IfStatement& node) override {
        m_begins = {isElseIf(node) ? "else if (" : "if ("};
        if (node.getElseBlock() != nullptr && node.getElseIf() == nullptr)
            m_begins.emplace_back("else");
    }
    void visit(SwitchStatement& /*node*/) override { m_begins = {"switch ("}; }
    void visit(ForStatement& /*node*/) override { m_begins = {"for ("}; }
    void visit(WhileStatement& /*node*/) override { m_begins = {"while ("}; }
    void visit(DoWhileStatement& /*node*/) override { m_begins = {"do", "while ("}; }

    /// What the lines begin with that a statement opens, in order.
    [[nodiscard]] const std::vector<std::string>& of(StatementBase& statement) {
        statement.accept(*this);
        return m_begins;
    }

private:
    static bool isElseIf(const IfStatement& node) {
        const TesselBase* block = node.getParent();
        const auto* outer = block != nullptr ? dynamic_cast<const IfStatement*>(block->getParent()) : nullptr;
        return outer != nullptr && outer->getElseIf() == &node;
    }

    std::vector<std::string> m_begins;
};

class Rules {
public:
    explicit Rules(StatementBase& root) : m_root(root) {}

    std::vector<std::string> check() {
        m_out.print(m_root);
        m_texts = m_out.getTexts();
        if (!m_out.isWellFormed)
            m_broken.emplace_back("a text holds a line end or comes before the first line");
        for (std::size_t i = 0; i < m_out.lines.size(); ++i) {
            m_linesOf[m_out.lines[i].opener].push_back(withoutIndent(m_texts[i]));
            checkIndent(m_out.lines[i], m_texts[i]);
        }
        for (TesselBase& node : Service::Preorder(m_root))
            checkNode(node);
        checkWords();
        return m_broken;
    }

private:
    void expect(bool holds, const std::string& rule, const std::string& where) {
        if (!holds)
            m_broken.push_back(rule + ": " + where);
    }

    void checkIndent(const PrintedLines::Line& line, const std::string& text) {
        const std::string& indent = line.parts.front().text;
        expect(withoutIndent(indent).empty() && indent.size() % 4 == 0, "indentation is a piece of its own", text);
        expect(indent.size() == text.size() - withoutIndent(text).size(), "indentation is one piece", text);
        expect(line.parts.front().node == line.opener, "indentation is for the opener", text);
        const bool isMember = dynamic_cast<const DeclarationBase*>(line.opener) != nullptr;
        expect(isMember || dynamic_cast<const StatementBase*>(line.opener) != nullptr, "a statement opens it", text);
    }

    void checkNode(TesselBase& node) {
        const auto parts = m_out.partsOf.find(&node);
        expect(parts != m_out.partsOf.end(), "every node has a piece", "a node without one");
        if (const auto* occurrence = dynamic_cast<const VariableReference*>(&node)) {
            const std::string& name = occurrence->getVariable().getName();
            expect(parts != m_out.partsOf.end() && parts->second == std::vector<std::string>{name},
                   "a mentioned variable is one word", name);
            expect(!name.empty() && name.find_first_of(" \t*&+-/()[].,;") == std::string::npos, "it is a name", name);
        }
        if (auto* statement = dynamic_cast<StatementBase*>(&node))
            checkOpenedLines(*statement);
    }

    void checkOpenedLines(StatementBase& statement) {
        const std::vector<std::string>& begins = m_opened.of(statement);
        const std::vector<std::string>& lines = m_linesOf[&statement];
        const bool isPlain = begins == std::vector<std::string>{""};
        const bool isInHeader = dynamic_cast<const BlockStatement*>(statement.getParent()) == nullptr;
        if (isPlain && isInHeader && &statement != &m_root)
            return;
        bool holds = isPlain ? !lines.empty() : lines.size() == begins.size();
        for (std::size_t i = 0; holds && i < begins.size(); ++i)
            holds = startsWith(lines[i], begins[i]);
        std::string found;
        for (const std::string& line : lines)
            found += "\n    " + line;
        expect(holds, "a statement opens its lines", (begins.empty() ? "none" : begins.front()) + found);
    }

    void checkWords() {
        ProgramLines statements;
        ProgramLines expressions;
        buildStmtProgramText(statements, m_root);
        buildExprProgramText(expressions, m_root);
        expect(statements.size() == m_texts.size(), "statements have the same lines", std::to_string(m_texts.size()));
        expect(expressions.size() == m_texts.size(), "expressions have the same lines", std::to_string(m_texts.size()));
        for (std::size_t i = 0; i < m_texts.size() && i < statements.size() && i < expressions.size(); ++i) {
            const BasicWord& word = statements[i].front();
            expect(statements[i].size() == 1 && word.text == m_texts[i] &&
                       word.object == dynamic_cast<const StatementBase*>(m_out.lines[i].opener),
                   "a line of statements is a word", m_texts[i]);
            expect(areWords(expressions[i], m_out.lines[i].parts), "words of expressions are the pieces", m_texts[i]);
        }
    }

    static bool areWords(const std::list<BasicWord>& words, const std::vector<PrintedLines::Part>& parts) {
        if (words.size() != parts.size())
            return false;
        auto part = parts.begin();
        for (const BasicWord& word : words) {
            if (word.text != part->text || word.object != dynamic_cast<const ExpressionBase*>(part->node))
                return false;
            ++part;
        }
        return true;
    }

    StatementBase& m_root;
    PrintedLines m_out;
    std::vector<std::string> m_texts;
    std::map<const TesselBase*, std::vector<std::string>> m_linesOf;
    OpenedLines m_opened;
    std::vector<std::string> m_broken;
};

} // namespace

std::vector<std::string> brokenWordRules(StatementBase& statement) {
    return Rules(statement).check();
}

} // namespace Kova::Test
