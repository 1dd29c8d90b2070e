// SPDX-License-Identifier: MIT
#include "environment/analyses/controlflow/ControlFlowGraph.h"
#include "environment/tessel/CaseStatement.h"
#include "environment/tessel/GotoStatement.h"
#include "environment/tessel/LabelAddressExpression.h"
#include "environment/tessel/LabelStatement.h"
#include "environment/tessel/OpaqueStatement.h"
#include "environment/tessel/StatementExpression.h"
#include "environment/tessel/SwitchStatement.h"
#include "tests/environment/support/HeardLines.h"
#include "tests/visualization/controlflow/FlowSample.h"
#include "tests/visualization/controlflow/TestedFlowWidget.h"
#include "tests/visualization/textgraph/SortedPorts.h"
#include "visualization/controlflow/GraphFactory.h"

#include <QFontMetrics>
#include <QtTest>

#include <random>

using namespace Kova::Tessel;
using namespace Kova::Tests;
using Kova::GUI::ControlFlowGraph::GraphFactory;
using Kova::GUI::TextGraph::EdgeBase;
using Kova::GUI::TextGraph::GraphNodeBase;
using Kova::GUI::TextGraph::NodeBase;
using Kova::GUI::TextGraph::portsOf;
using Kova::GUI::TextGraph::ProgramLines;
using Kova::GUI::TextGraph::sortedPorts;

namespace {

const std::vector<std::string> silence;

/// The rectangle of a line's text: as the font has it, but as wide as its cells.
QRect rectOf(const QString& text) {
    const QFontMetrics metrics(QFont("Monospace", 14));
    QRect rect = metrics.boundingRect(text);
    rect.setRight(rect.left() + metrics.averageCharWidth() * text.size() - 1);
    return rect;
}

} // namespace

/// Where lines and arrows are.
class ControlFlowLayoutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void linesAreLaidOut();
    void theExternalLine();
    void noText();
    void blankLines();
    void joinedLinesAreApart();
    void transfersBecomeArrows();
    void transfersToTheOutside();
    void emptyBlocks();
    void innerBlocks();
    void chainsOfElseIf();
    void chainsOfElseIfInALoop();
    void switches();
    void gotoItself();
    void gotoOutOfTheBlock();
    void statementsInExpressions();
    void portsAreSortedTwice();
    void strangeTexts();
    void thousandLevels();
    void tenThousandStatements();

private:
    void show(BlockStatement& block, bool showExternal = false) { m_widget->onNewBlock(&block, showExternal); }
    StatementPtr set() { return FlowSample::set(m_a, m_b); }
    std::unique_ptr<IfStatement> branch(std::unique_ptr<BlockStatement> thenBlock,
                                        std::unique_ptr<BlockStatement> elseBlock = nullptr) {
        return make<IfStatement>(use(m_a), std::move(thenBlock), std::move(elseBlock));
    }

    VariableDeclaration m_a{"a", nullptr};
    VariableDeclaration m_b{"b", nullptr};
    std::unique_ptr<TestedFlowWidget> m_widget;
};

void ControlFlowLayoutTest::init() {
    m_widget = std::make_unique<TestedFlowWidget>();
}

void ControlFlowLayoutTest::linesAreLaidOut() {
    const FlowSample sample;
    GraphFactory factory(false);
    ProgramLines text;
    Kova::GUI::TextGraph::buildStmtProgramText(text, *sample.block);
    m_widget->convertTextToNodes(text, factory);
    const QStringList texts = {"{",      "a = b;", "if (a)",    "{", "b = a;", "}", "else",    "{",
                               "a = b;", "}",      "while (b)", "{", "a = b;", "}", "return;", "}"};
    QCOMPARE(m_widget->texts(), texts);
    const QList<int> blanks = {0, 4, 4, 4, 8, 4, 4, 4, 8, 4, 4, 4, 8, 4, 4, 0};
    const QFontMetrics metrics(QFont("Monospace", 14));
    const int cell = metrics.averageCharWidth();
    int right = 0;
    for (int line = 0; line < 16; ++line) {
        const int y = (line + 1) * (metrics.height() + 1);
        QCOMPARE(m_widget->getLines().at(line).y, y);
        QCOMPARE(m_widget->node(line).getPos(), QPoint(cell * blanks.at(line), y));
        QCOMPARE(m_widget->node(line).getRect(), rectOf(texts.at(line)));
        right = std::max(right, cell * blanks.at(line) + rectOf(texts.at(line)).right());
    }
    QCOMPARE(m_widget->getGraphSize(), QSize(right, 16 * (metrics.height() + 1) + metrics.height() - 1));
}

void ControlFlowLayoutTest::theExternalLine() {
    const auto empty = block();
    GraphFactory factory(true);
    ProgramLines text;
    Kova::GUI::TextGraph::buildStmtProgramText(text, *empty);
    m_widget->convertTextToNodes(text, factory);
    QCOMPARE(m_widget->texts(), QStringList({"{", "}", "EXTERNAL"}));
    const QFontMetrics metrics(QFont("Monospace", 14));
    const QPoint place(4 * metrics.averageCharWidth(), 3 * (metrics.height() + 1));
    QCOMPARE(m_widget->node(2).getPos(), place);
    QCOMPARE(m_widget->node(2).getRect(), rectOf("EXTERNAL"));
    QVERIFY(dynamic_cast<const GraphNodeBase*>(&m_widget->node(2)) != nullptr);
    QCOMPARE(m_widget->getGraphSize(), QSize(place.x() + rectOf("EXTERNAL").right(), place.y() + metrics.height() - 1));
}

void ControlFlowLayoutTest::noText() {
    GraphFactory factory(false);
    m_widget->convertTextToNodes({}, factory);
    QVERIFY(m_widget->getLines().isEmpty());
    QCOMPARE(m_widget->getGraphSize(), QSize(0, 0));
    GraphFactory external(true);
    m_widget->convertTextToNodes({}, external);
    QCOMPARE(m_widget->texts(), QStringList("EXTERNAL"));
    QCOMPARE(m_widget->node(0).getPos().y(), m_widget->getLineHeight() + 2);
}

void ControlFlowLayoutTest::blankLines() {
    GraphFactory factory(false);
    m_widget->convertTextToNodes({{{"     ", nullptr}}, {{"", nullptr}}, {{"  a  b ", nullptr}}}, factory);
    QCOMPARE(m_widget->texts(), QStringList({"", "", "a  b "}));
    const int cell = m_widget->getCharWidth();
    QCOMPARE(m_widget->node(0).getPos().x(), 5 * cell);
    QCOMPARE(m_widget->node(1).getPos().x(), 0);
    QCOMPARE(m_widget->node(2).getPos().x(), 2 * cell);
}

void ControlFlowLayoutTest::joinedLinesAreApart() {
    const FlowSample sample;
    show(*sample.block);
    const int lineStep = m_widget->getLineHeight() + 2;
    // The lines 5 and 6, 6 and 7, 13 and 14, 14 and 15 are those that no edge joins.
    const QList<int> shifts = {0, 1, 2, 3, 4, 5, 5, 5, 6, 7, 8, 9, 10, 11, 11, 11};
    for (int line = 0; line < 16; ++line) {
        QCOMPARE(m_widget->getLines().at(line).y, (line + 1) * lineStep + 50 * shifts.at(line));
        QCOMPARE(m_widget->node(line).getPos().y(), m_widget->getLines().at(line).y);
    }
    QCOMPARE(m_widget->getGraphSize().height(), 16 * lineStep + 50 * 11 + m_widget->getLineHeight());
}

void ControlFlowLayoutTest::transfersBecomeArrows() {
    HeardLines heard;
    const FlowSample sample;
    show(*sample.block);
    QCOMPARE(m_widget->arrows(), QStringList({"0>1", "1>2", "2>3", "2>7", "3>4", "5>10", "4>5", "7>8", "9>10", "8>9",
                                              "10>11", "10>14", "11>12", "13>10", "12>13"}));
    for (const EdgeBase* edge : m_widget->getEdges()) {
        QCOMPARE(edge->getShapeType(), int{EdgeBase::Straight});
        QCOMPARE(edge->getPen().color(), QColor(Qt::blue));
        QVERIFY(edge->getHint().isEmpty());
    }
    QCOMPARE(heard.lines, silence);
}

void ControlFlowLayoutTest::transfersToTheOutside() {
    HeardLines heard;
    const FlowSample sample;
    show(*sample.block, true);
    // The closing brace leads out of the block, even if nothing leads there.
    QCOMPARE(m_widget->arrows(), QStringList({"0>1", "15>16", "1>2", "2>3", "2>7", "3>4", "5>10", "4>5", "7>8", "9>10",
                                              "8>9", "10>11", "10>14", "11>12", "13>10", "12>13", "14>16"}));
    QCOMPARE(heard.lines, silence);
    const QPoint last = m_widget->node(15).getPos();
    QCOMPARE(m_widget->node(16).getPos(),
             QPoint(4 * m_widget->getCharWidth(), last.y() + m_widget->getLineHeight() + 2 + 50));
    QCOMPARE(m_widget->getGraphSize().height(), m_widget->node(16).getPos().y() + m_widget->getLineHeight());
}

void ControlFlowLayoutTest::emptyBlocks() {
    const auto empty = block();
    show(*empty);
    QVERIFY(m_widget->isBuilded());
    QCOMPARE(m_widget->texts(), QStringList({"{", "}"}));
    QVERIFY(m_widget->getEdges().isEmpty());
    show(*empty, true);
    QCOMPARE(m_widget->texts(), QStringList({"{", "}", "EXTERNAL"}));
    QVERIFY(m_widget->getEdges().isEmpty());
}

// What follows the body of a loop is the loop, which is not printed here.
void ControlFlowLayoutTest::innerBlocks() {
    HeardLines heard;
    const FlowSample sample;
    show(*sample.loop->getBody());
    QCOMPARE(m_widget->arrows(), QStringList({"0>1", "1>2"}));
    show(*sample.loop->getBody(), true);
    QCOMPARE(m_widget->arrows(), QStringList({"0>1", "2>3", "1>2"}));
    QCOMPARE(m_widget->getTransfer(1).to, sample.loop);
    QVERIFY(m_widget->getTransfer(1).kind == ControlTransfer::Back);
    QCOMPARE(heard.lines, silence);
}

// 0 { / 1 if (a) / 2 { / 3 a = b; / 4 } / 5 else if (a) / 6 { / 7 a = b; / 8 } / 9 a = b; / 10 }: the else has no
// braces of its own that control could pass.
void ControlFlowLayoutTest::chainsOfElseIf() {
    HeardLines heard;
    auto inner = branch(block(set()));
    const IfStatement* second = inner.get();
    auto outer = branch(block(set()), block(std::move(inner)));
    const IfStatement* first = outer.get();
    const auto root = block(std::move(outer), set());
    show(*root, true);
    QCOMPARE(m_widget->texts().at(5), QString("else if (a)"));
    QCOMPARE(m_widget->arrows(), QStringList({"0>1", "10>11", "1>2", "1>5", "2>3", "4>9", "3>4", "5>6", "5>9", "6>7",
                                              "8>9", "7>8", "9>10"}));
    QCOMPARE(heard.lines, silence);
    QCOMPARE(m_widget->getTransfer(3).from, first);
    QCOMPARE(m_widget->getTransfer(3).to, second);
    QVERIFY(m_widget->getTransfer(3).kind == ControlTransfer::False);
    QCOMPARE(m_widget->getTransfer(8).to, root->getStatement(1));
    QVERIFY(m_widget->getTransfer(8).kind == ControlTransfer::False);
}

// 0 { / 1 while (a) / 2 { / 3 if (a) / 4 { / 5 } / 6 else if (a) / 7 { / 8 a = b; / 9 } / 10 else if (a) / 11 { /
// 12 a = b; / 13 } / 14 } / 15 }
void ControlFlowLayoutTest::chainsOfElseIfInALoop() {
    auto chain = branch(block(), block(branch(block(set()), block(branch(block(set()))))));
    const auto root = block(make<WhileStatement>(use(m_a), block(std::move(chain))));
    show(*root);
    QCOMPARE(m_widget->texts().at(10), QString("else if (a)"));
    const QStringList arrows = m_widget->arrows();
    QCOMPARE(arrows, QStringList({"0>1", "1>2", "1>15", "2>3", "14>1", "3>4", "3>6", "5>14", "6>7", "6>10", "7>8",
                                  "9>14", "8>9", "10>11", "10>14", "11>12", "13>14", "12>13"}));
    QVERIFY(m_widget->getTransfer(arrows.indexOf("14>1")).kind == ControlTransfer::Back);
}

// 0 { / 1 switch (a) / 2 { / 3 case 1: / 4 a = b; / 5 default: / 6 a = b; / 7 } / 8 }
void ControlFlowLayoutTest::switches() {
    auto body = block(make<CaseStatement>(literal("1"), nullptr), set(), make<CaseStatement>(nullptr, nullptr), set());
    const auto root = block(make<SwitchStatement>(use(m_a), std::move(body)));
    show(*root);
    QCOMPARE(m_widget->texts().at(5), QString("default:"));
    QCOMPARE(m_widget->arrows(), QStringList({"0>1", "1>3", "1>5", "7>8", "3>4", "4>5", "5>6", "6>7"}));
    QVERIFY(m_widget->getTransfer(m_widget->arrows().indexOf("1>5")).kind == ControlTransfer::Jump);
}

// 0 { / 1 L: / 2 goto L; / 3 }
void ControlFlowLayoutTest::gotoItself() {
    auto label = make<LabelStatement>("L");
    auto jump = make<GotoStatement>("L");
    jump->setLabel(label.get());
    const auto root = block(std::move(label), std::move(jump));
    show(*root);
    QCOMPARE(m_widget->texts(), QStringList({"{", "L:", "goto L;", "}"}));
    QCOMPARE(m_widget->arrows(), QStringList({"0>1", "1>2", "2>1"}));
    QVERIFY(m_widget->getTransfer(2).kind == ControlTransfer::Jump);
}

void ControlFlowLayoutTest::gotoOutOfTheBlock() {
    HeardLines heard;
    auto label = make<LabelStatement>("L");
    const StatementBase* target = label.get();
    auto jump = make<GotoStatement>("L");
    jump->setLabel(label.get());
    const auto root = block(branch(block(set(), std::move(jump))), set(), std::move(label), set());
    const auto* inner = static_cast<const IfStatement*>(root->getStatement(0));
    show(*inner->getThenBlock());
    QCOMPARE(m_widget->arrows(), QStringList({"0>1", "1>2"}));
    show(*inner->getThenBlock(), true);
    // 0 { / 1 a = b; / 2 goto L; / 3 } / 4 EXTERNAL
    QCOMPARE(m_widget->arrows(), QStringList({"0>1", "3>4", "1>2", "2>4"}));
    QCOMPARE(m_widget->getTransfer(3).to, target);
    QCOMPARE(heard.lines, silence);
}

// 0 { / 1 ( / 2 { / 3 a = b; / 4 a = b; / 5 }); / 6 a = b; / 7 }
void ControlFlowLayoutTest::statementsInExpressions() {
    auto inside = block(set(), set());
    const BlockStatement* inner = inside.get();
    const auto root = block(statement(make<StatementExpression>(std::move(inside))), set());
    show(*root);
    QCOMPARE(m_widget->texts(), QStringList({"{", "(", "{", "a = b;", "a = b;", "});", "a = b;", "}"}));
    QCOMPARE(m_widget->arrows(), QStringList({"0>1", "1>2", "1>6", "2>3", "5>1", "3>4", "4>5", "6>7"}));
    QCOMPARE(m_widget->findStatement(&m_widget->node(5)), inner);
}

// The rules of the order are such that it matters how often.
void ControlFlowLayoutTest::portsAreSortedTwice() {
    int tellOne = 0;
    int tellThree = 0;
    for (unsigned seed = 0; seed < 100; ++seed) {
        std::mt19937 random(seed);
        const auto any = [&random](std::size_t limit) { return static_cast<std::size_t>(random() % limit); };
        // Computed jumps lead to all labels whose addresses are taken. Long lines have ports far apart.
        VariableDeclaration address(std::string(1 + any(40), 'p'), nullptr);
        const auto root = block();
        for (int i = 0; i < 6; ++i) {
            auto label = make<LabelStatement>('L' + std::to_string(i) + std::string(any(60), 'x'));
            root->append(statement(assign(use(address), make<LabelAddressExpression>(label->getName()))));
            root->append(std::move(label));
            root->append(set());
        }
        for (int i = 0; i < 6; ++i)
            root->insert(any(root->getChildCount() + 1), branch(block(make<GotoStatement>(use(address)))));
        show(*root, seed % 2 == 0);
        const std::vector<int> ports = portsOf(*m_widget);
        QCOMPARE(ports, sortedPorts(*m_widget, {4, 4}));
        tellOne += ports != sortedPorts(*m_widget, {4});
        tellThree += ports != sortedPorts(*m_widget, {4, 4, 4});
    }
    QVERIFY(tellOne > 0);
    QVERIFY(tellThree > 0);
}

void ControlFlowLayoutTest::strangeTexts() {
    const auto root = block(make<OpaqueStatement>("asm(\"\\n\\\"\n\t\");"), make<OpaqueStatement>(""),
                            make<OpaqueStatement>("\xff\xfe"), make<OpaqueStatement>(std::string(3, '\0')),
                            statement(literal("\"say \\\"hi\\\"\\n\"", LiteralExpression::Kind::String)));
    show(*root, true);
    QVERIFY(m_widget->isBuilded());
    QVERIFY(m_widget->texts().contains("\"say \\\"hi\\\"\\n\";"));
    QVERIFY(m_widget->getEdges().size() >= 6);
    QVERIFY(!m_widget->renderImage().isNull());
}

// while (a) { while (a) { ... } }
void ControlFlowLayoutTest::thousandLevels() {
    auto nest = block(set());
    for (int level = 0; level < 1000; ++level)
        nest = block(make<WhileStatement>(use(m_a), std::move(nest)));
    show(*nest);
    // Each level has its line and the braces of its body.
    QCOMPARE(m_widget->getLines().size(), 2 + 3 * 1000 + 1);
    const QStringList arrows = m_widget->arrows();
    // Into the root's first statement; for each loop in, out, in again from the body's brace, back; the innermost one.
    QCOMPARE(arrows.size(), 1 + 4 * 1000 + 1);
    QVERIFY(arrows.contains("0>1"));
    for (int level = 0; level < 1000; ++level) {
        const int loop = 1 + 2 * level;
        const int end = 3002 - 1 - level;
        QVERIFY(arrows.contains(QString("%1>%2").arg(loop).arg(loop + 1)));
        QVERIFY(arrows.contains(QString("%1>%2").arg(loop).arg(end + 1)));
        QVERIFY(arrows.contains(QString("%1>%2").arg(loop + 1).arg(loop + 2)));
        QVERIFY(arrows.contains(QString("%1>%2").arg(end).arg(loop)));
    }
    QVERIFY(arrows.contains("2001>2002"));
}

void ControlFlowLayoutTest::tenThousandStatements() {
    const auto root = block();
    for (int i = 0; i < 10000; ++i)
        root->append(set());
    show(*root, true);
    QCOMPARE(m_widget->getLines().size(), 10003);
    QCOMPARE(m_widget->getEdges().size(), 10002);
    const int lineStep = m_widget->getLineHeight() + 2;
    QCOMPARE(m_widget->node(10002).getPos().y(), 10003 * lineStep + 10002 * 50);
    QCOMPARE(m_widget->getGraphSize().height(), 10003 * lineStep + 10002 * 50 + m_widget->getLineHeight());
}

QTEST_MAIN(ControlFlowLayoutTest)
#include "ControlFlowLayoutTest.moc"
