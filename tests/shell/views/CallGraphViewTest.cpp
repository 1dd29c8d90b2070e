// SPDX-License-Identifier: MIT
#include "shell/views/CallGraphView.h"

#include "environment/tessel/SubroutineDeclaration.h"
#include "shell/messages/MessageLog.h"
#include "shell/views/ViewDescription.h"
#include "tests/shell/ShellTesting.h"
#include "visualization/callgraph/CallGraphWidget.h"
#include "visualization/callgraph/Node.h"

#include <QJsonArray>
#include <QtTest>

namespace Kova::Shell {

namespace {

constexpr auto source = "static int leaf(int x) { return x; }\n"                    // 1
                        "static int twice(int x) {\n"                               // 2
                        "    return leaf(x) + leaf(x + 1);\n"                       // 3
                        "}\n"                                                       // 4
                        "int again(int n) { return n ? again(n - 1) : leaf(0); }\n" // 5
                        "int lonely(void) { return 1; }\n"                          // 6
                        "int main(void) {\n"                                        // 7
                        "    twice(1);\n"                                           // 8
                        "    return again(2);\n"                                    // 9
                        "}\n";                                                      // 10

QStringList textsOf(const QJsonObject& description) {
    QStringList texts;
    for (const QJsonValue& node : description["nodes"].toArray())
        texts.append(node.toObject()["text"].toString());
    return texts;
}

/// "caller callee: tool tip" of every edge.
QStringList callsOf(const QJsonObject& description) {
    const QStringList names = textsOf(description);
    QStringList calls;
    for (const QJsonValue& value : description["edges"].toArray()) {
        const QJsonObject edge = value.toObject();
        calls.append(QString("%1 %2: %3")
                         .arg(names.at(edge["from"].toInt()), names.at(edge["to"].toInt()),
                              edge["tooltip"].toString().replace('\n', " | ")));
    }
    calls.sort();
    return calls;
}

} // namespace

class CallGraphViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void wholeProgram();
    void aSubroutineAndWhatItReaches();
    void aStatement();
    void nodesSayWhereTheyAre();
    void orphansCanBeInvisible();
    void theSameEveryTime();
    void whatIsWorthAPicture();
    void clearedViewIsEmpty();
    void nothingToShowLeavesAMessage();
    void placesAreProcedures();
    void selectsTheProcedureAround();

private:
    QJsonObject describe(const SubjectRequest& request);

    Testing::SourceFolder m_folder;
    OpenedProgram m_program;
    QString m_file;
    MessageLog m_log;
    std::unique_ptr<CallGraphView> m_view;
};

void CallGraphViewTest::init() {
    m_file = m_folder.write("a.c", source);
    m_program = Testing::readProgram({m_file});
    m_log.clear();
    m_view = std::make_unique<CallGraphView>();
}

QJsonObject CallGraphViewTest::describe(const SubjectRequest& request) {
    const FoundSubject found = SubjectFinder(m_program).find(request, CallGraphView::kind().preference);
    m_view->show(found.subject);
    return describeView(CallGraphView::kind(), *m_view, found.subject, m_log.getMessages());
}

void CallGraphViewTest::wholeProgram() {
    const QJsonObject description = describe({});
    QCOMPARE(description["view"].toString(), QString("call-graph"));
    QCOMPARE(description["file"].toString(), m_file);
    QCOMPARE(description["subject"].toString(), QString("program"));
    QCOMPARE(description["messages"].toArray(), QJsonArray());
    QCOMPARE(textsOf(description), QStringList({"again", "leaf", "lonely", "main", "twice"}));
    QCOMPARE(callsOf(description),
             QStringList({"again again: again(n - 1)", "again leaf: leaf(0)", "main again: again(2)",
                          "main twice: twice(1)", "twice leaf: leaf(x) | leaf(x + 1)"}));
    QCOMPARE(m_view->summarize(), QString("5 procedures, 5 calls"));
    const QSize size = m_view->getWidget().getGraphSize();
    QCOMPARE(description["size"].toArray(), (QJsonArray{size.width(), size.height()}));
}

void CallGraphViewTest::aSubroutineAndWhatItReaches() {
    const QJsonObject description = describe({"twice", {}});
    QCOMPARE(description["subject"].toString(), QString("subroutine twice"));
    QCOMPARE(textsOf(description), QStringList({"leaf", "twice"}));
    QCOMPARE(m_view->summarize(), QString("2 procedures, 1 call"));
}

void CallGraphViewTest::aStatement() {
    const QJsonObject description = describe({QString(), 8});
    QCOMPARE(description["subject"].toString(), QString("statement at line 8 in main"));
    QCOMPARE(callsOf(description), QStringList({"main twice: twice(1)", "twice leaf: leaf(x) | leaf(x + 1)"}));
}

void CallGraphViewTest::nodesSayWhereTheyAre() {
    const QJsonArray nodes = describe({})["nodes"].toArray();
    const QList<int> lines = {5, 1, 6, 7, 2};
    for (int i = 0; i < nodes.size(); ++i) {
        const QJsonObject node = nodes[i].toObject();
        QCOMPARE(node["id"].toInt(), i);
        QCOMPARE(node["file"].toString(), m_file);
        QCOMPARE(node["line"].toInt(), lines[i]);
        QCOMPARE(node["visible"].toBool(), true);
        QCOMPARE(node["rect"].toArray().size(), 4);
        QVERIFY(node["rect"].toArray()[2].toInt() > 10);
    }
}

void CallGraphViewTest::orphansCanBeInvisible() {
    QJsonObject description = describe({});
    static_cast<GUI::CallGraph::CallGraphWidget&>(m_view->getWidget()).setHideOrphans(true);
    description = m_view->describe();
    for (const QJsonValue& node : description["nodes"].toArray())
        QCOMPARE(node.toObject()["visible"].toBool(), node.toObject()["text"].toString() != "lonely");
    for (const QJsonValue& edge : description["edges"].toArray())
        QVERIFY(edge.toObject()["visible"].toBool());
}

void CallGraphViewTest::theSameEveryTime() {
    const QJsonObject first = describe({});
    describe({"twice", {}});
    QCOMPARE(describe({}), first);
    m_program = Testing::readProgram({m_file});
    m_view = std::make_unique<CallGraphView>();
    QCOMPARE(describe({}), first);
}

void CallGraphViewTest::whatIsWorthAPicture() {
    const ViewKind kind = CallGraphView::kind();
    const SubjectFinder finder(m_program);
    const auto isWorth = [&](const SubjectRequest& request) {
        const Subject subject = finder.find(request, kind.preference).subject;
        return kind.takes(subject) && kind.isWorthExporting(subject);
    };
    QVERIFY(isWorth({}));
    QVERIFY(isWorth({"main", {}}));
    QVERIFY(isWorth({"again", {}}));
    QVERIFY(!isWorth({"leaf", {}}));
    QVERIFY(!isWorth({"lonely", {}}));
    QVERIFY(!isWorth({QString(), 8}));
    const OpenedProgram recursive = Testing::readProgram({m_folder.write("r.c", "int r(void) { return r(); }\n")});
    QVERIFY(kind.isWorthExporting(SubjectFinder(recursive).find({"r", {}}, kind.preference).subject));
}

void CallGraphViewTest::clearedViewIsEmpty() {
    describe({});
    m_view->clear();
    QVERIFY(!m_view->getWidget().isBuilded());
    QCOMPARE(m_view->summarize(), QString());
    QCOMPARE(m_view->describe()["nodes"].toArray(), QJsonArray());
}

void CallGraphViewTest::nothingToShowLeavesAMessage() {
    m_program = Testing::readProgram({m_folder.write("empty.c", "")});
    const QJsonObject description = describe({});
    const QJsonArray expected = {
        QJsonObject{{"tag", "CallGraphVisual"},
                    {"level", 2},
                    {"text", "Procedure Call graph was not created. Visualization interrupted."}}};
    QCOMPARE(description["messages"].toArray(), expected);
    QCOMPARE(description["nodes"].toArray(), QJsonArray());
}

void CallGraphViewTest::placesAreProcedures() {
    describe({});
    auto& widget = static_cast<GUI::CallGraph::CallGraphWidget&>(m_view->getWidget());
    for (const GUI::GenericGraph::NodeBase* node : widget.getNodes()) {
        const Picked picked = m_view->findAt(node->getRect().center());
        QCOMPARE(picked.node, static_cast<Tessel::TesselBase*>(
                                  static_cast<const GUI::CallGraph::Node*>(node)->getProcedure()));
        QCOMPARE(picked.other, nullptr);
    }
    QCOMPARE(m_view->findAt(QPoint(-5, -5)).node, nullptr);
}

// What is selected is drawn as what the mouse is over.
void CallGraphViewTest::selectsTheProcedureAround() {
    describe({});
    auto& widget = static_cast<GUI::CallGraph::CallGraphWidget&>(m_view->getWidget());
    widget.resize(900, 700);
    const QImage before = widget.viewport()->grab().toImage();
    Tessel::TesselBase* statement = SubjectFinder(m_program).find({QString(), 8}, {Subject::Kind::Program, Subject::Kind::Statement}).subject.getNode();
    m_view->selectNode(*statement);
    const QImage after = widget.viewport()->grab().toImage();
    for (const GUI::GenericGraph::NodeBase* node : widget.getNodes()) {
        const QRect box = node->getRect().adjusted(2, 2, -2, -2);
        const bool isMain = static_cast<const GUI::CallGraph::Node*>(node)->getProcedure()->getName() == "main";
        QCOMPARE(after.copy(box) != before.copy(box), isMain);
    }
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::CallGraphViewTest)
#include "CallGraphViewTest.moc"
