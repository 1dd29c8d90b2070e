// SPDX-License-Identifier: MIT
#include "shell/views/ControlFlowView.h"

#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/service/Preorder.h"
#include "shell/messages/MessageLog.h"
#include "shell/views/ViewDescription.h"
#include "tests/shell/ShellTesting.h"
#include "visualization/controlflow/ControlFlowGraphWidget.h"
#include "visualization/textgraph/EdgeBase.h"
#include "visualization/textgraph/NodeBase.h"

#include <QAction>
#include <QJsonArray>
#include <QtTest>

namespace Kova::Shell {

namespace {

using GUI::ControlFlowGraph::ControlFlowGraphWidget;

constexpr auto source = Testing::loopsAndBranches;

/// "text line", and " external" behind what stands for the outside.
QStringList nodesOf(const QJsonObject& description) {
    QStringList lines;
    for (const QJsonValue& value : description["nodes"].toArray()) {
        const QJsonObject node = value.toObject();
        lines.append(QString("%1 %2%3")
                         .arg(node["text"].toString())
                         .arg(node["line"].toInt())
                         .arg(node["external"].toBool() ? " external" : ""));
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

} // namespace

class ControlFlowViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void linesAreStatements();
    void arrowsAreTransfers();
    void closingLinesStandWhereTheyAreInTheSource();
    void oneTestFollowsTheOther();
    void aLineIsTheBlockAroundIt();
    void theOutsideCanBeHidden();
    void aLineStandsForItsStatement();
    void anArrowStandsForItsEnds();
    void aNodeSelectsItsArrow();
    void nothingReachesAboveThePicture();
    void clearedViewIsEmpty();
    void whatIsWorthAPicture();

private:
    QJsonObject describe(const SubjectRequest& request);
    [[nodiscard]] Tessel::StatementBase& statement(int line) const {
        return *SubjectFinder(m_program).findStatement(line, nullptr);
    }
    [[nodiscard]] ControlFlowGraphWidget& widget() const {
        return static_cast<ControlFlowGraphWidget&>(m_view->getWidget());
    }

    Testing::SourceFolder m_folder;
    OpenedProgram m_program;
    std::unique_ptr<ControlFlowView> m_view;
};

void ControlFlowViewTest::init() {
    m_program = Testing::readProgram({m_folder.write("a.c", source)});
    m_view = std::make_unique<ControlFlowView>();
}

QJsonObject ControlFlowViewTest::describe(const SubjectRequest& request) {
    const ViewKind kind = ControlFlowView::kind();
    const FoundSubject found = SubjectFinder(m_program).find(request, kind.preference);
    const MessageLog log;
    m_view->show(found.subject);
    return describeView(kind, *m_view, found.subject, log.getMessages());
}

void ControlFlowViewTest::linesAreStatements() {
    const QJsonObject description = describe({});
    QCOMPARE(description["view"].toString(), QString("control-flow"));
    QCOMPARE(description["subject"].toString(), QString("subroutine f"));
    QCOMPARE(nodesOf(description),
             QStringList({"{ 1", "int s = 0; 2", "while (n > 0) 3", "{ 3", "if (n == 5) 4", "{ 5", "break; 5", "} 5",
                          "s += n--; 6", "} 7", "return s; 8", "} 9", "EXTERNAL 0 external"}));
    QCOMPARE(description["messages"].toArray(), QJsonArray());
    QCOMPARE(m_view->summarize(), QString("9 statements, 14 transfers"));
}

// Blocks are entered at their opening brace and left at their closing one.
void ControlFlowViewTest::arrowsAreTransfers() {
    QCOMPARE(edgesOf(describe({})),
             QStringList({"0 -> 1 next", "11 -> 12 next",                    // the body
                          "1 -> 2 next",                                     // s = 0
                          "2 -> 3 true", "2 -> 10 false",                    // while
                          "3 -> 4 next", "9 -> 2 back",                      // its body
                          "4 -> 5 true", "4 -> 8 false",                     // if
                          "5 -> 6 next", "7 -> 8 next",                      // its block
                          "6 -> 10 jump", "8 -> 9 next", "10 -> 12 jump"})); // break, s += n--, return
}

void ControlFlowViewTest::closingLinesStandWhereTheyAreInTheSource() {
    QCOMPARE(nodesOf(describe({"g", {}})),
             QStringList({"{ 10", "do 11", "{ 11", "if (n) 12", "{ 13", "n--; 13", "} 13", "else 0", "{ 15", "n++; 15",
                          "} 15", "} 16", "while (n != 3); 16", "} 17", "EXTERNAL 0 external"}));
}

// The block of an else that holds the next test alone is not written, and no stop on the way.
void ControlFlowViewTest::oneTestFollowsTheOther() {
    m_program = Testing::readProgram({m_folder.write("b.c", "void f(int n) {\n"
                                                            "    if (n == 1) {\n"
                                                            "        n = 10;\n"
                                                            "    } else if (n == 2) {\n"
                                                            "        n = 20;\n"
                                                            "    }\n"
                                                            "}\n")});
    const QJsonObject description = describe({});
    QCOMPARE(nodesOf(description), QStringList({"{ 1", "if (n == 1) 2", "{ 2", "n = 10; 3", "} 4", "else if (n == 2) 4",
                                                "{ 4", "n = 20; 5", "} 6", "} 7", "EXTERNAL 0 external"}));
    QStringList edges = edgesOf(description);
    edges.sort();
    QCOMPARE(edges,
             QStringList({"0 -> 1 next", "1 -> 2 true", "1 -> 5 false", "2 -> 3 next", "3 -> 4 next", "4 -> 9 next",
                          "5 -> 6 true", "5 -> 9 false", "6 -> 7 next", "7 -> 8 next", "8 -> 9 next", "9 -> 10 next"}));
    QCOMPARE(description["messages"].toArray(), QJsonArray());
}

void ControlFlowViewTest::aLineIsTheBlockAroundIt() {
    const QJsonObject description = describe({QString(), 4});
    QCOMPARE(description["subject"].toString(), QString("block at line 3 in f"));
    QCOMPARE(nodesOf(description), QStringList({"{ 3", "if (n == 5) 4", "{ 5", "break; 5", "} 5", "s += n--; 6", "} 7",
                                                "EXTERNAL 0 external"}));
    // To the loop, to what is behind it.
    QCOMPARE(edgesOf(description), QStringList({"0 -> 1 next", "6 -> 7 back", "1 -> 2 true", "1 -> 5 false",
                                                "2 -> 3 next", "4 -> 5 next", "3 -> 7 jump", "5 -> 6 next"}));
}

void ControlFlowViewTest::theOutsideCanBeHidden() {
    describe({});
    widget().setScale(0.5);
    QCOMPARE(m_view->getActions().size(), 1);
    QAction& external = *m_view->getActions().front();
    QVERIFY(external.isCheckable() && external.isChecked());
    const QString summary = m_view->summarize();
    external.trigger();
    QCOMPARE(nodesOf(m_view->describe()).size(), 12);
    QCOMPARE(edgesOf(m_view->describe()).size(), 12); // all but those of the body's end and of the return
    QVERIFY(!edgesOf(m_view->describe()).contains("10 -> 12 jump"));
    QCOMPARE(m_view->summarize(), summary);
    QCOMPARE(widget().getScale(), 0.5);
    // So it stays with what is shown next.
    QCOMPARE(nodesOf(describe({"g", {}})).back(), QString("} 17"));
    external.trigger();
    QCOMPARE(nodesOf(m_view->describe()).back(), QString("EXTERNAL 0 external"));
    m_view->clear();
    external.trigger();
    QVERIFY(!widget().isBuilded());
}

void ControlFlowViewTest::aLineStandsForItsStatement() {
    describe({});
    const QList<int> lines = {1, 2, 3, 3, 4, 5, 5, 5, 6, 3, 8, 1};
    for (int i = 0; i < widget().getLines().size(); ++i) {
        const GUI::TextGraph::NodeBase& node = *widget().getLines().at(i).nodes.front();
        const Picked picked = m_view->findAt(node.getPos() + node.getRect().center());
        QVERIFY(picked.other == nullptr);
        QCOMPARE(picked.node != nullptr, i < lines.size());
        if (i < lines.size())
            QCOMPARE(static_cast<int>(picked.node->getSourceRange().beginLine), lines[i]);
    }
    QVERIFY(m_view->findAt(QPoint(-5, -50)).node == nullptr);
}

void ControlFlowViewTest::anArrowStandsForItsEnds() {
    describe({});
    widget().selectEdge(4);
    const Picked leaving = m_view->findAt(QPoint());
    QCOMPARE(leaving.node, static_cast<Tessel::TesselBase*>(&statement(3)));
    QCOMPARE(leaving.other, static_cast<Tessel::TesselBase*>(&statement(8)));
    widget().selectEdge(13);
    const Picked returning = m_view->findAt(QPoint());
    QCOMPARE(returning.node, static_cast<Tessel::TesselBase*>(&statement(8)));
    QVERIFY(returning.other == nullptr);
}

void ControlFlowViewTest::aNodeSelectsItsArrow() {
    describe({});
    m_view->selectNode(statement(3));
    QCOMPARE(widget().getSelectedEdge(), 3);
    m_view->selectNode(statement(5));
    QCOMPARE(widget().getSelectedEdge(), 11);
    // An expression belongs to its statement.
    Tessel::TesselBase* last = nullptr;
    for (Tessel::TesselBase& node : Tessel::Service::Preorder(statement(6)))
        last = &node;
    m_view->selectNode(*last);
    QCOMPARE(widget().getSelectedEdge(), 12);
    // Without the outside no arrow leaves the return; one leads to it.
    m_view->getActions().front()->trigger();
    m_view->selectNode(statement(8));
    QCOMPARE(widget().getTransfer(widget().getSelectedEdge()).from,
             static_cast<const Tessel::StatementBase*>(&statement(3)));
    const int before = widget().getSelectedEdge();
    m_view->selectNode(*SubjectFinder(m_program).findSubroutine("h"));
    QCOMPARE(widget().getSelectedEdge(), before);
}

// An arrow from the last line to the first one of a block is a curve, and must not be cut off.
void ControlFlowViewTest::nothingReachesAboveThePicture() {
    m_program = Testing::readProgram({m_folder.write("b.c", "void f(void) { l: goto l; }\n")});
    describe({});
    for (const GUI::TextGraph::EdgeBase* edge : widget().getEdges()) {
        const QRectF shape = edge->getShape().boundingRect();
        QVERIFY(shape.top() >= 0.0);
        QVERIFY(shape.bottom() <= widget().getGraphSize().height());
    }
}

void ControlFlowViewTest::clearedViewIsEmpty() {
    describe({});
    m_view->clear();
    QVERIFY(!widget().isBuilded());
    QCOMPARE(m_view->summarize(), QString());
    QCOMPARE(m_view->describe()["nodes"].toArray(), QJsonArray());
    QVERIFY(m_view->findAt(QPoint(20, 20)).node == nullptr);
    m_view->selectNode(statement(3));
    QCOMPARE(widget().getSelectedEdge(), -1);
}

void ControlFlowViewTest::whatIsWorthAPicture() {
    const ViewKind kind = ControlFlowView::kind();
    m_program = Testing::readProgram({m_folder.write("a.c", source + QByteArray("void e(void) { for (;;) ; }\n"))});
    const SubjectFinder finder(m_program);
    const auto isWorth = [&](const SubjectRequest& request) {
        const Subject subject = finder.find(request, kind.preference).subject;
        return kind.takes(subject) && kind.isWorthExporting(subject);
    };
    QVERIFY(isWorth({"f", {}}));
    QVERIFY(isWorth({"g", {}}));
    QVERIFY(!isWorth({"h", {}}));
    QVERIFY(isWorth({"e", {}})); // round and round
    QVERIFY(!isWorth({QString(), 4}));
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::ControlFlowViewTest)
#include "ControlFlowViewTest.moc"
