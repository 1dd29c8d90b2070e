// SPDX-License-Identifier: MIT
#include "visualization/textgraph/ProgramText.h"

#include "environment/tessel/BreakStatement.h"
#include "environment/tessel/DeclarationStatement.h"
#include "environment/tessel/DoWhileStatement.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/IfStatement.h"
#include "environment/tessel/StatementExpression.h"
#include "environment/tessel/service/Preorder.h"
#include "tests/environment/support/Build.h"

#include <QtTest>

#include <map>
#include <sstream>
#include <stdexcept>

using namespace Kova;
using namespace Kova::GUI::TextGraph;
using namespace Kova::Tessel;
using namespace Kova::Tests;
using B = BinaryOperator;

namespace {

using Texts = std::vector<std::string>;

Texts linesOf(const ProgramLines& lines) {
    Texts texts;
    for (const std::list<BasicWord>& line : lines) {
        texts.emplace_back();
        for (const BasicWord& word : line)
            texts.back() += word.text;
    }
    return texts;
}

/// A buffer that counts what is flushed through it.
class FlushCounter final : public std::stringbuf {
public:
    int flushes = 0;

protected:
    int sync() override {
        ++flushes;
        return std::stringbuf::sync();
    }
};

/// Throws where the printer comes to it.
class ThrowingStatement final : public StatementBase {
public:
    void accept(BaseVisitor& /*visitor*/) override { throw std::runtime_error("no text"); }
};

} // namespace

class ProgramTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void emptyBlock();
    void statementGranularity();
    void expressionGranularity();
    void granularitiesHaveTheSameLines();
    void everyOccurrenceHasOneWord();
    void declarationsAreShown();
    void exceptionsLeaveWhatIsThere();
    void appendsToWhatIsThere();
    void dump();
    void valuesAreCopied();
    void manyWords();

private:
    ExpressionPtr a() { return use(m_a); }
    ExpressionPtr b() { return use(m_b); }
    std::unique_ptr<BlockStatement> makeProgram();

    VariableDeclaration m_a{"a", nullptr};
    VariableDeclaration m_b{"b", nullptr};
    SubroutineDeclaration m_f{"f", nullptr};
};

std::unique_ptr<BlockStatement> ProgramTextTest::makeProgram() {
    auto declaration = std::make_unique<DeclarationStatement>();
    declaration->append(std::make_unique<VariableDeclaration>("t", nullptr, b()));
    auto loop = std::make_unique<ForStatement>(statement(assign(a(), literal("0"))), binary(a(), B::Less, b()),
                                               unary(UnaryOperator::PostIncrement, a()),
                                               block(statement(assign(subscript(b(), a()), call(m_f, a(), b())))));
    auto branch =
        std::make_unique<IfStatement>(a(), block(std::make_unique<BreakStatement>()),
                                      block(std::make_unique<IfStatement>(b(), block(), block(statement(a())))));
    auto last = std::make_unique<DoWhileStatement>(
        block(statement(std::make_unique<StatementExpression>(block(statement(a()))))),
        unary(UnaryOperator::Minus, b()));
    return block(std::move(declaration), std::move(loop), std::move(branch), std::move(last));
}

void ProgramTextTest::emptyBlock() {
    const auto root = block();
    ProgramLines statements;
    buildStmtProgramText(statements, *root);
    QCOMPARE(linesOf(statements), (Texts{"{", "}"}));
    QVERIFY(statements[0].front().object == root.get());
    QVERIFY(statements[1].front().object == root.get());
    ProgramLines expressions;
    buildExprProgramText(expressions, *root);
    QCOMPARE(linesOf(expressions), (Texts{"{", "}"}));
    for (const std::list<BasicWord>& line : expressions)
        for (const BasicWord& word : line)
            QVERIFY(word.object == nullptr);
}

void ProgramTextTest::statementGranularity() {
    auto branch = std::make_unique<IfStatement>(a(), block(statement(a())), block());
    IfStatement& node = *branch;
    const auto root = block(std::move(branch));
    ProgramLines lines;
    buildStmtProgramText(lines, *root);
    QCOMPARE(linesOf(lines),
             (Texts{"{", "    if (a)", "    {", "        a;", "    }", "    else", "    {", "    }", "}"}));
    const std::vector<const TesselBase*> openers = {
        root.get(),          &node, node.getThenBlock(), node.getThenBlock()->getStatement(0),
        node.getThenBlock(), &node, node.getElseBlock(), node.getElseBlock(),
        root.get()};
    for (std::size_t i = 0; i < lines.size(); ++i) {
        QCOMPARE(lines[i].size(), std::size_t(1));
        QVERIFY(lines[i].front().object == openers[i]);
    }
}

void ProgramTextTest::expressionGranularity() {
    const auto root = block(statement(assign(a(), binary(b(), B::Add, literal("1")))));
    const auto& assignment = *root->getStatement(0)->getChild(0);
    const TesselBase& sum = *assignment.getChild(1);
    ProgramLines lines;
    buildExprProgramText(lines, *root);
    QCOMPARE(lines.size(), std::size_t(3));
    const std::vector<std::pair<std::string, const TesselBase*>> expected = {
        {"    ", nullptr}, {"a", assignment.getChild(0)}, {" = ", &assignment}, {"b", sum.getChild(0)},
        {" + ", &sum},     {"1", sum.getChild(1)},        {";", nullptr}};
    QCOMPARE(lines[1].size(), expected.size());
    auto word = lines[1].begin();
    for (const auto& [text, object] : expected) {
        QCOMPARE(word->text, text);
        QVERIFY(word->object == object);
        ++word;
    }
}

void ProgramTextTest::granularitiesHaveTheSameLines() {
    const auto root = makeProgram();
    ProgramLines statements;
    ProgramLines expressions;
    buildStmtProgramText(statements, *root);
    buildExprProgramText(expressions, *root);
    QVERIFY(statements.size() > 20);
    QCOMPARE(linesOf(expressions), linesOf(statements));
    for (const std::list<BasicWord>& line : statements) {
        QCOMPARE(line.size(), std::size_t(1));
        QVERIFY(line.front().text.find('\n') == std::string::npos);
    }
}

void ProgramTextTest::everyOccurrenceHasOneWord() {
    const auto root = makeProgram();
    ProgramLines lines;
    buildExprProgramText(lines, *root);
    std::map<const TesselBase*, Texts> wordsOf;
    for (const std::list<BasicWord>& line : lines)
        for (const BasicWord& word : line)
            wordsOf[word.object].push_back(word.text);
    int occurrences = 0;
    for (const TesselBase& node : Service::Preorder(*root)) {
        if (const auto* reference = dynamic_cast<const VariableReference*>(&node)) {
            ++occurrences;
            QCOMPARE(wordsOf[&node], Texts{reference->getVariable().getName()});
        } else if (dynamic_cast<const ExpressionBase*>(&node) != nullptr) {
            QVERIFY(!wordsOf[&node].empty());
        }
    }
    QCOMPARE(occurrences, 14);
}

void ProgramTextTest::declarationsAreShown() {
    auto statement = std::make_unique<DeclarationStatement>();
    statement->append(std::make_unique<VariableDeclaration>("t", nullptr, b()));
    const auto root = block(std::move(statement));
    ProgramLines lines;
    buildExprProgramText(lines, *root);
    QCOMPARE(linesOf(lines), (Texts{"{", "    t = b;", "}"}));
}

void ProgramTextTest::exceptionsLeaveWhatIsThere() {
    const auto root = block(statement(a()), std::make_unique<ThrowingStatement>(), statement(b()));
    for (const auto build : {&buildStmtProgramText, &buildExprProgramText}) {
        ProgramLines lines;
        QVERIFY_EXCEPTION_THROWN(build(lines, *root), std::runtime_error);
        // The line of the statement that throws is opened; whether its indentation came so far is the printer's order.
        QCOMPARE(lines.size(), std::size_t(3));
        lines.pop_back();
        QCOMPARE(linesOf(lines), (Texts{"{", "    a;"}));
    }
}

void ProgramTextTest::appendsToWhatIsThere() {
    const auto root = block();
    ProgramLines lines(1);
    buildStmtProgramText(lines, *root);
    QCOMPARE(linesOf(lines), (Texts{"", "{", "}"}));
    QVERIFY(lines[0].empty());
}

void ProgramTextTest::dump() {
    ProgramLines lines(3);
    lines[0] = {{"a", nullptr}, {" = ", nullptr}, {"b;", nullptr}};
    lines[2] = {{"", nullptr}, {"}", nullptr}};
    FlushCounter buffer;
    std::ostream stream(&buffer);
    QVERIFY(&(stream << lines) == &stream);
    QCOMPARE(buffer.str(), std::string("a = b;\n\n}\n"));
    QCOMPARE(buffer.flushes, 3);
    ProgramLines none;
    stream << none;
    QCOMPARE(buffer.flushes, 3);
}

void ProgramTextTest::valuesAreCopied() {
    const BasicWord word{"a", &m_a};
    BasicWord copy = word;
    copy.text += "b";
    QCOMPARE(word.text, std::string("a"));
    QVERIFY(copy.object == &m_a);
    QVERIFY(BasicWord().object == nullptr);
    // Beyond its text a word costs its place in the list: two links of it.
    QVERIFY(sizeof(BasicWord) + 2 * sizeof(void*) <= 120);
}

void ProgramTextTest::manyWords() {
    constexpr std::size_t count = 100000;
    const auto root = block();
    for (std::size_t i = 0; i < count; ++i)
        root->append(statement(assign(a(), b())));
    ProgramLines lines;
    buildExprProgramText(lines, *root);
    QCOMPARE(lines.size(), count + 2);
    QCOMPARE(lines[count].size(), std::size_t(5));
}

QTEST_GUILESS_MAIN(ProgramTextTest)
#include "ProgramTextTest.moc"
