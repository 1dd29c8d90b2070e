// SPDX-License-Identifier: MIT
#include "shell/views/ExpressionControlFlowView.h"

#include "environment/printing/OutToC.h"
#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/service/Preorder.h"
#include "shell/messages/MessageLog.h"
#include "shell/views/ViewDescription.h"
#include "tests/shell/ShellTesting.h"
#include "visualization/controlflow/ControlFlowGraphExprWidget.h"

#include <QJsonArray>
#include <QtTest>

namespace Kova::Shell {

namespace {

using GUI::ControlFlowGraphExpr::ControlFlowGraphExprWidget;
using Testing::FakeGraphviz;

const QByteArray source = QByteArray(Testing::loopsAndBranches) + // 1 to 18
                          "int k(int a, int b) {\n"               // 19
                          "    a = 1;\n"                          // 20
                          "    b += 2;\n"                         // 21
                          "    return 1 + (a && b ? a : 7);\n"    // 22
                          "}\n"                                   // 23
                          "int u(int n) { return 1; u(n); }\n";   // 24

/// "kind: expression | expression", and " unreachable" behind what control never reaches.
QStringList nodesOf(const QJsonObject& description) {
    QStringList lines;
    for (const QJsonValue& value : description["nodes"].toArray()) {
        const QJsonObject node = value.toObject();
        QStringList expressions;
        for (const QJsonValue& expression : node["expressions"].toArray())
            expressions.append(expression.toString());
        lines.append(QString("%1: %2%3")
                         .arg(node["kind"].toString(), expressions.join(" | "),
                              node["reachable"].toBool() ? "" : " unreachable"));
    }
    return lines;
}

/// "from -> to kind".
QStringList edgesOf(const QJsonObject& description) {
    QStringList lines;
    for (const QJsonValue& value : description["edges"].toArray()) {
        const QJsonObject edge = value.toObject();
        lines.append(
            QString("%1 -> %2 %3").arg(edge["from"].toInt()).arg(edge["to"].toInt()).arg(edge["kind"].toString()));
    }
    return lines;
}

QString textOf(const Tessel::TesselBase* node) {
    const auto* expression = dynamic_cast<const Tessel::ExpressionBase*>(node);
    return expression != nullptr ? QString::fromStdString(Backends::OutToC::expressionToString(*expression)) : "none";
}

} // namespace

class ExpressionControlFlowViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void withoutGraphvizThereIsOneMessage(); // first: it is told once in a run
    void blocksOfASubroutine();
    void operatorsThatSkipOperandsMakeBlocks();
    void aLineIsItsStatement();
    void whatIsNeverReached();
    void anEmptyStatement();
    void boxesStandApart();
    void aLineOfABoxStandsForItsExpression();
    void anArrowStandsForItsEnds();
    void aNodeSelectsItsBlock();
    void clearedViewIsEmpty();
    void whatIsWorthAPicture();
    void largeGraphsAskFirst();
    void longArrowsAskFirst();

private:
    QJsonObject describe(const SubjectRequest& request);
    /// What of the picture is drawn as under the mouse, by its text.
    [[nodiscard]] QStringList highlightedBy(const Tessel::TesselBase& node);
    [[nodiscard]] Tessel::StatementBase& statement(int line) const {
        return *SubjectFinder(m_program).findStatement(line, nullptr);
    }
    [[nodiscard]] const Tessel::TesselBase& expression(int line, const QString& text) const;
    [[nodiscard]] ControlFlowGraphExprWidget& widget() const {
        return static_cast<ControlFlowGraphExprWidget&>(m_view->getWidget());
    }

    Testing::SourceFolder m_folder;
    OpenedProgram m_program;
    std::unique_ptr<ExpressionControlFlowView> m_view;
    std::vector<Message> m_messages;
};

void ExpressionControlFlowViewTest::init() {
    m_program = Testing::readProgram({m_folder.write("a.c", source)});
    m_view = std::make_unique<ExpressionControlFlowView>();
    widget().resize(2000, 2000); // all of it in view at scale 1
    widget().show();
}

QJsonObject ExpressionControlFlowViewTest::describe(const SubjectRequest& request) {
    const ViewKind kind = ExpressionControlFlowView::kind();
    const FoundSubject found = SubjectFinder(m_program).find(request, kind.preference);
    const MessageLog log;
    m_view->show(found.subject);
    m_messages = log.getMessages();
    return describeView(kind, *m_view, found.subject, log.getMessages());
}

const Tessel::TesselBase& ExpressionControlFlowViewTest::expression(int line, const QString& text) const {
    for (const Tessel::TesselBase& node : Tessel::Service::Preorder(statement(line)))
        if (textOf(&node) == text)
            return node;
    qFatal("no expression %s", qPrintable(text));
}

void ExpressionControlFlowViewTest::withoutGraphvizThereIsOneMessage() {
    const FakeGraphviz graphviz(FakeGraphviz::Program::Missing);
    boxesStandApart();
    QCOMPARE(m_messages.size(), std::size_t(1));
    QCOMPARE(m_messages.front().text, QString("Graphviz's program 'dot' is missing: blocks are placed plainly. The "
                                              "Debian package graphviz brings it."));
    boxesStandApart();
    QVERIFY(m_messages.empty());
}

void ExpressionControlFlowViewTest::blocksOfASubroutine() {
    const QJsonObject description = describe({});
    QCOMPARE(description["view"].toString(), QString("expression-control-flow"));
    QCOMPARE(description["subject"].toString(), QString("subroutine f"));
    QCOMPARE(nodesOf(description), QStringList({"entry: ", "block: 0", "block: n > 0", "block: n == 5",
                                                "block: s += n--", "block: s", "exit: "}));
    // The break has nothing to evaluate: where it is taken, n == 5 leads on to what follows the loop.
    QCOMPARE(edgesOf(description), QStringList({"0 -> 1 next", "1 -> 2 next", "2 -> 3 true", "2 -> 5 false",
                                                "3 -> 5 true", "3 -> 4 false", "4 -> 2 back", "5 -> 6 jump"}));
    QCOMPARE(m_view->summarize(), QString("5 blocks, 8 transfers"));
    QCOMPARE(description["messages"].toArray(), QJsonArray());
}

void ExpressionControlFlowViewTest::operatorsThatSkipOperandsMakeBlocks() {
    const QJsonObject description = describe({"k", {}});
    QCOMPARE(nodesOf(description), QStringList({"entry: ", "block: a = 1 | b += 2 | a", "block: b", "block: a",
                                                "block: 7", "block: 1 + (a && b ? a : 7)", "exit: "}));
    QCOMPARE(edgesOf(description), QStringList({"0 -> 1 next", "1 -> 2 true", "1 -> 4 false", "2 -> 3 true",
                                                "2 -> 4 false", "3 -> 5 next", "4 -> 5 next", "5 -> 6 jump"}));
}

void ExpressionControlFlowViewTest::aLineIsItsStatement() {
    const QJsonObject description = describe({QString(), 4});
    QCOMPARE(description["subject"].toString(), QString("statement at line 4 in f"));
    QCOMPARE(nodesOf(description), QStringList({"entry: ", "block: n == 5", "exit: "}));
    QCOMPARE(nodesOf(describe({QString(), 3})).size(), 5); // the loop
}

void ExpressionControlFlowViewTest::whatIsNeverReached() {
    const QJsonObject description = describe({"u", {}});
    QCOMPARE(nodesOf(description), QStringList({"entry: ", "block: 1", "block: u(n) unreachable", "exit: "}));
    QCOMPARE(edgesOf(description), QStringList({"0 -> 1 next", "1 -> 3 jump", "2 -> 3 next"}));
    QCOMPARE(m_view->summarize(), QString("2 blocks, 3 transfers, 1 unreachable"));
}

void ExpressionControlFlowViewTest::anEmptyStatement() {
    m_program = Testing::readProgram({m_folder.write("b.c", "void e(void) {}\n")});
    QCOMPARE(nodesOf(describe({})), QStringList({"entry: ", "exit: "}));
    QCOMPARE(edgesOf(m_view->describe()), QStringList("0 -> 1 next"));
    QCOMPARE(m_view->summarize(), QString("0 blocks, 1 transfer"));
}

void ExpressionControlFlowViewTest::boxesStandApart() {
    describe({"k", {}});
    const std::vector<GUI::GenericGraph::NodeBase*>& nodes = widget().getNodes();
    for (const GUI::GenericGraph::NodeBase* one : nodes)
        for (const GUI::GenericGraph::NodeBase* other : nodes)
            QVERIFY(one == other || !one->getRect().intersects(other->getRect()));
    QVERIFY(nodes.front()->getCenter().y() < nodes.back()->getCenter().y());
}

void ExpressionControlFlowViewTest::aLineOfABoxStandsForItsExpression() {
    describe({"k", {}});
    const QRect box = widget().getNodes().at(1)->getRect();
    const QStringList expected = {"a = 1", "b += 2", "a"};
    for (int line = 0; line < 3; ++line) {
        const Picked picked = m_view->findAt(QPoint(box.center().x(), box.top() + box.height() * (2 * line + 1) / 6));
        QCOMPARE(textOf(picked.node), expected[line]);
        QVERIFY(picked.other == nullptr);
    }
    for (const int number : {0, 6})
        QVERIFY(m_view->findAt(widget().getNodes().at(std::size_t(number))->getRect().center()).node == nullptr);
    QVERIFY(m_view->findAt(QPoint(1999, 1999)).node == nullptr);
}

void ExpressionControlFlowViewTest::anArrowStandsForItsEnds() {
    describe({"k", {}});
    const auto pickedOn = [this](std::size_t edge) {
        const GUI::GenericGraph::EdgeBase& arrow = *widget().getEdges().at(edge);
        return m_view->findAt((arrow.getSource()->getCenter() + arrow.getTarget()->getCenter()) / 2);
    };
    const Picked isTrue = pickedOn(1); // the last of three expressions, and the only one
    QCOMPARE(textOf(isTrue.node), QString("a"));
    QCOMPARE(textOf(isTrue.other), QString("b"));
    const Picked entering = pickedOn(0);
    QCOMPARE(textOf(entering.node), QString("a = 1"));
    QVERIFY(entering.other == nullptr);
    const Picked leaving = pickedOn(7);
    QCOMPARE(textOf(leaving.node), QString("1 + (a && b ? a : 7)"));
    QVERIFY(leaving.other == nullptr);
}

QStringList ExpressionControlFlowViewTest::highlightedBy(const Tessel::TesselBase& node) {
    widget().highlightNode(nullptr);
    const QImage before = widget().viewport()->grab().toImage();
    m_view->selectNode(node);
    const QImage after = widget().viewport()->grab().toImage();
    QStringList texts;
    for (const GUI::GenericGraph::NodeBase* shown : widget().getNodes())
        if (const QRect box = shown->getRect().adjusted(2, 2, -2, -2); after.copy(box) != before.copy(box))
            texts.append(shown->getText());
    return texts;
}

void ExpressionControlFlowViewTest::aNodeSelectsItsBlock() {
    describe({"k", {}});
    const QStringList first("a = 1\nb += 2\na");
    QCOMPARE(highlightedBy(expression(21, "b += 2")), first);
    QCOMPARE(highlightedBy(expression(21, "2")), first); // inside of an expression
    QCOMPARE(highlightedBy(expression(22, "b")), QStringList("b"));
    QCOMPARE(highlightedBy(expression(22, "7")), QStringList("7"));
    // The operator is the arrows between its operands, and stands in what is returned.
    QCOMPARE(highlightedBy(expression(22, "a && b")), QStringList("1 + (a && b ? a : 7)"));
    QCOMPARE(highlightedBy(statement(20)), first);
    describe({});
    QCOMPARE(highlightedBy(statement(3)), QStringList("n > 0"));
    QCOMPARE(highlightedBy(statement(4)), QStringList("n == 5"));
    QCOMPARE(highlightedBy(statement(5)), QStringList()); // evaluates nothing
    QCOMPARE(highlightedBy(statement(20)), QStringList());
}

void ExpressionControlFlowViewTest::clearedViewIsEmpty() {
    describe({});
    m_view->clear();
    QVERIFY(!widget().isBuilded());
    QCOMPARE(m_view->summarize(), QString());
    QCOMPARE(m_view->describe()["nodes"].toArray(), QJsonArray());
    QVERIFY(m_view->findAt(QPoint(20, 20)).node == nullptr);
    m_view->selectNode(statement(3));
}

void ExpressionControlFlowViewTest::whatIsWorthAPicture() {
    const ViewKind kind = ExpressionControlFlowView::kind();
    const auto isWorth = [&](const OpenedProgram& program, const SubjectRequest& request) {
        const Subject subject = SubjectFinder(program).find(request, kind.preference).subject;
        return kind.takes(subject) && kind.isWorthExporting(subject);
    };
    QVERIFY(isWorth(m_program, {"f", {}}));
    QVERIFY(isWorth(m_program, {"k", {}}));
    QVERIFY(!isWorth(m_program, {"h", {}}));
    QVERIFY(!isWorth(m_program, {"u", {}}));
    QVERIFY(!isWorth(m_program, {QString(), 3}));
    for (const int branches : {750, 751}) {
        const QString file = m_folder.write("large.c", Testing::manyBranches(branches));
        QCOMPARE(isWorth(Testing::readProgram({file}), {}), branches == 750);
    }
}

void ExpressionControlFlowViewTest::largeGraphsAskFirst() {
    const FakeGraphviz graphviz(FakeGraphviz::Program::Failing);
    QStringList warnings;
    m_view->setPatienceListener([&](const QString& warning) {
        warnings.append(warning);
        return false;
    });
    m_program = Testing::readProgram({m_folder.write("large.c", Testing::manyBranches(751))});
    describe({});
    QCOMPARE(warnings, QStringList("The graph has 1502 blocks: Graphviz may take long to place them."));
    QVERIFY(!graphviz.wasRun());
    QVERIFY(m_messages.empty());
    // It is there all the same.
    QVERIFY(widget().isBuilded());
    QCOMPARE(m_view->summarize(), QString("1502 blocks, 2254 transfers")); // 3 a branch, and that of the entry
    m_program = Testing::readProgram({m_folder.write("large.c", Testing::manyBranches(750))});
    describe({});
    QCOMPARE(warnings.size(), 1);
    QVERIFY(graphviz.wasRun());
}

// The arrow of the first jump passes the rows of all other conditions, that of the last one none: 63 * 62 / 2 rows are
// 1,953, 64 * 63 / 2 are 2,016.
void ExpressionControlFlowViewTest::longArrowsAskFirst() {
    const FakeGraphviz graphviz(FakeGraphviz::Program::Failing);
    QStringList warnings;
    m_view->setPatienceListener([&](const QString& warning) {
        warnings.append(warning);
        return false;
    });
    for (const int jumps : {63, 64}) {
        QByteArray text = "void f(int n) {\n";
        for (int i = 0; i < jumps; ++i)
            text += "    if (n == " + QByteArray::number(i) + ") goto out;\n";
        m_program = Testing::readProgram({m_folder.write("jumps.c", text + "out:\n    n = 1;\n}\n")});
        describe({});
        QCOMPARE(graphviz.wasRun(), true);
        QCOMPARE(warnings.size(), jumps - 63);
    }
    QCOMPARE(warnings.front(),
             QString("The graph has 65 blocks and long arrows: Graphviz may take long to place them."));
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::ExpressionControlFlowViewTest)
#include "ExpressionControlFlowViewTest.moc"
