// SPDX-License-Identifier: MIT
#include "shell/views/LamportDependencesView.h"

#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/TranslationUnit.h"
#include "shell/messages/MessageLog.h"
#include "shell/views/DependenceTable.h"
#include "shell/views/ViewDescription.h"
#include "tests/shell/ShellTesting.h"
#include "visualization/depgraph/DepGraphWidget.h"
#include "visualization/textgraph/EdgeBase.h"

#include <QAction>
#include <QJsonArray>
#include <QScrollBar>
#include <QtTest>

namespace Kova::Shell {

namespace {

using GUI::DepGraph::DepGraphWidget;

// s: flow 4 -> 4 carried by 1 (self), anti and output likewise; 2 -> 4 within no common loop; 4 -> 6.
// a[i] is written in 4's line 5 and read from the iteration before: flow with distance 1.
constexpr auto source = "double f(double a[100], int n) {\n"  // 1
                        "    double s = 0;\n"                 // 2
                        "    for (int i = 1; i < n; i++) {\n" // 3
                        "        s += a[i];\n"                // 4
                        "        a[i] = a[i - 1];\n"          // 5
                        "    }\n"                             // 6
                        "    return s;\n"                     // 7
                        "}\n"                                 // 8
                        "int g(int x) { return x; }\n";       // 9

/// "kind text line:column -> text line:column carriers distance".
QStringList edgesOf(const QJsonObject& description) {
    QStringList lines;
    for (const QJsonValue& value : description["edges"].toArray()) {
        const QJsonObject edge = value.toObject();
        const auto end = [&](const char* which) {
            const QJsonObject object = edge[which].toObject();
            return QString("%1 %2:%3")
                .arg(object["text"].toString())
                .arg(object["line"].toInt())
                .arg(object["column"].toInt());
        };
        QStringList carriers;
        for (const QJsonValue& carrier : edge["carriers"].toArray())
            carriers.append(QString::number(carrier.toInt()));
        QStringList distance;
        for (const QJsonValue& one : edge["distance"].toArray())
            distance.append(one.isNull() ? QString("*") : QString::number(one.toInt()));
        lines.append(
            QString("%1 %2 -> %3 [%4] (%5)")
                .arg(edge["kind"].toString(), end("source"), end("target"), carriers.join(' '), distance.join(' ')));
    }
    return lines;
}

} // namespace

class LamportDependencesViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aBlockAtALine();
    void aSubroutineByName();
    void edgesSayAllThatIsKnown();
    void nodesAreTheWords();
    void withoutDependencesThereIsTheText();
    void arcsAboveTheFirstLinesAreNotCutOff();
    void rowsAreInTheColoursOfTheirArrows();
    void theTableFollowsTheFilter();
    void aRowShowsItsArrow();
    void anArrowShowsItsRow();
    void anArrowStandsForItsEnds();
    void anOccurrenceSelectsItsArrow();
    void toolBarHasTheFilter();
    void clearedViewIsEmpty();
    void subjectsWithoutABlockShowNothing();
    void assumedDependencesAreCounted();
    void whatIsWorthAPicture();

private:
    QJsonObject describe(const SubjectRequest& request);
    [[nodiscard]] DepGraphWidget& widget() const { return static_cast<DepGraphWidget&>(m_view->getWidget()); }
    [[nodiscard]] DependenceTable& table() const { return static_cast<DependenceTable&>(*m_view->getPanel()); }

    Testing::SourceFolder m_folder;
    OpenedProgram m_program;
    std::unique_ptr<LamportDependencesView> m_view;
};

void LamportDependencesViewTest::init() {
    m_program = Testing::readProgram({m_folder.write("a.c", source)});
    m_view = std::make_unique<LamportDependencesView>();
}

QJsonObject LamportDependencesViewTest::describe(const SubjectRequest& request) {
    const ViewKind kind = LamportDependencesView::kind();
    const FoundSubject found = SubjectFinder(m_program).find(request, kind.preference);
    m_view->show(found.subject);
    return describeView(kind, *m_view, found.subject, {});
}

// Line 5 is in the body of the loop: its iterations are no longer told apart.
void LamportDependencesViewTest::aBlockAtALine() {
    const QJsonObject description = describe({QString(), 5});
    QCOMPARE(description["view"].toString(), QString("lamport-dependences"));
    QCOMPARE(description["subject"].toString(), QString("block at line 3 in f"));
    const QStringList edges = edgesOf(description);
    QVERIFY(edges.contains("anti a 4:14 -> a 5:9 [-1] ()"));
    QVERIFY(!edges.join('\n').contains("flow"));
    QVERIFY(!edges.join('\n').contains("output"));
}

void LamportDependencesViewTest::aSubroutineByName() {
    const QJsonObject description = describe({"f", {}});
    QCOMPARE(description["subject"].toString(), QString("subroutine f"));
    QStringList edges;
    for (const QString& edge : edgesOf(description))
        if (!edge.startsWith("input"))
            edges.append(edge);
    edges.sort();
    QCOMPARE(edges, QStringList({"anti a 4:14 -> a 5:9 [-1] (0)", "anti s 4:9 -> s 4:9 [1] (*)",
                                 "flow a 5:9 -> a 5:16 [1] (1)", "flow s 4:9 -> s 4:9 [1] (*)",
                                 "flow s 4:9 -> s 7:12 [-1] ()", "output s 4:9 -> s 4:9 [1] (*)"}));
}

void LamportDependencesViewTest::edgesSayAllThatIsKnown() {
    const QJsonObject description = describe({"f", {}});
    const QJsonArray nodes = description["nodes"].toArray();
    for (const QJsonValue& value : description["edges"].toArray()) {
        const QJsonObject edge = value.toObject();
        QCOMPARE(nodes[edge["from"].toInt()].toObject()["text"], edge["source"].toObject()["text"]);
        QCOMPARE(nodes[edge["to"].toInt()].toObject()["text"], edge["target"].toObject()["text"]);
        QCOMPARE(edge["proven"].toBool(), true);
        QCOMPARE(edge["visible"].toBool(), true);
        QCOMPARE(edge["tags"].toArray().size(), 4);
        QCOMPARE(edge["hint"], edge["tags"].toArray()[0]);
        QCOMPARE(edge["tooltip"], edge["hint"]);
        // Popular Russian, developers' English and Russian, popular English.
        const QJsonArray tags = edge["tags"].toArray();
        QVERIFY(tags[0].toString().startsWith(QStringLiteral("Значение, ")));
        QVERIFY(tags[1].toString().startsWith(edge["kind"].toString() + " dependence: "));
        QVERIFY(tags[2].toString().contains(QStringLiteral("зависимость: ")));
        QVERIFY(tags[3].toString().startsWith("The value "));
    }
}

void LamportDependencesViewTest::nodesAreTheWords() {
    const QJsonArray nodes = describe({"f", {}})["nodes"].toArray();
    QCOMPARE(nodes.first().toObject()["text"].toString(), QString("{"));
    QCOMPARE(nodes.last().toObject()["text"].toString(), QString("}"));
    for (int i = 0; i < nodes.size(); ++i) {
        QCOMPARE(nodes[i].toObject()["id"].toInt(), i);
        QCOMPARE(nodes[i].toObject()["visible"].toBool(), true);
        QVERIFY(nodes[i].toObject()["rect"].toArray()[2].toInt() > 0);
    }
    // Where they are in the picture: the last brace is alone on the last line, its rectangle around the base line.
    const QJsonArray rect = nodes.last().toObject()["rect"].toArray();
    const int base = widget().getLines().last().y;
    QVERIFY(rect[1].toInt() < base && rect[1].toInt() + rect[3].toInt() >= base);
}

void LamportDependencesViewTest::withoutDependencesThereIsTheText() {
    const QJsonObject description = describe({"g", {}});
    QCOMPARE(description["edges"].toArray(), QJsonArray());
    QVERIFY(m_view->getWidget().isBuilded());
    QCOMPARE(m_view->summarize(), QString("0 dependences"));
}

void LamportDependencesViewTest::arcsAboveTheFirstLinesAreNotCutOff() {
    const QString file = m_folder.write(
        "wide.c", "double h(double x, double y) {\n"
                  "    return x + 111111111111111111111111.0 + 222222222222222222222222.0 + x + y;\n}\n");
    m_program = Testing::readProgram({file});
    QCOMPARE(edgesOf(describe({"h", {}})), QStringList("input x 2:12 -> x 2:74 [-1] ()"));
    const QRectF arc = widget().getEdges().at(0)->getShape().boundingRect();
    QVERIFY(arc.height() > 60.0);
    QVERIFY(QRectF(QPointF(0, 0), widget().getGraphSize()).contains(arc));
    QCOMPARE(widget().getGraphSize().height(), widget().getLines().last().y + widget().getLineHeight());
    // Without such arcs the first line is where it always is.
    m_program = Testing::readProgram({m_folder.write("a.c", source)});
    describe({"f", {}});
    QCOMPARE(widget().getLines().first().y, widget().getLineHeight() + 2);
}

void LamportDependencesViewTest::rowsAreInTheColoursOfTheirArrows() {
    describe({"f", {}});
    QSet<QString> kinds;
    for (int i = 0; i < widget().getEdges().size(); ++i) {
        const DependenceRecord& record = table().getRecords().at(static_cast<std::size_t>(i));
        QCOMPARE(record.color, widget().getEdges().at(i)->getPen().color());
        kinds.insert(record.kind);
    }
    QCOMPARE(kinds.size(), 4);
}

void LamportDependencesViewTest::theTableFollowsTheFilter() {
    const int all = describe({"f", {}})["edges"].toArray().size();
    QCOMPARE(table().model()->rowCount(), all);
    QAction* flow = widget().getFilter().getActions().first();
    QCOMPARE(flow->text(), QString("Flow"));
    flow->trigger();
    QCOMPARE(table().model()->rowCount(), all - 3);
    for (int row = 0; row < table().model()->rowCount(); ++row)
        QVERIFY(table().model()->index(row, 0).data().toString() != "flow");
    for (const QJsonValue& edge : m_view->describe()["edges"].toArray())
        QCOMPARE(edge.toObject()["visible"].toBool(), edge.toObject()["kind"].toString() != "flow");
    flow->trigger();
    QCOMPARE(table().model()->rowCount(), all);
}

void LamportDependencesViewTest::aRowShowsItsArrow() {
    describe({"f", {}});
    widget().resize(120, 60);
    widget().show();
    table().selectRow(table().model()->rowCount() - 1);
    const int picked = table().getSelectedRecord();
    QCOMPARE(widget().getSelectedEdge(), picked);
    const QRect seen(widget().horizontalScrollBar()->value(), widget().verticalScrollBar()->value(),
                     widget().viewport()->width(), widget().viewport()->height());
    QVERIFY(QRectF(seen).intersects(widget().getEdges().at(picked)->getShape().boundingRect()));
}

void LamportDependencesViewTest::anArrowShowsItsRow() {
    describe({"f", {}});
    widget().resize(900, 400);
    widget().show();
    const auto& edges = widget().getEdges();
    for (int i = 0; i < edges.size(); ++i) {
        const QPoint place = edges.at(i)->getShape().pointAtPercent(0.3).toPoint();
        const int there = widget().getEdgeByPos(place);
        if (there < 0)
            continue;
        QTest::mouseMove(widget().viewport(), place);
        const int hovered = widget().getSelectedEdge();
        QVERIFY(hovered >= 0);
        QCOMPARE(table().getSelectedRecord(), hovered);
        // The row stays for the eye to find it.
        QTest::mouseMove(widget().viewport(), QPoint(890, 390));
        QCOMPARE(widget().getSelectedEdge(), -1);
        QCOMPARE(table().getSelectedRecord(), hovered);
        return;
    }
    QFAIL("no arrow can be hit");
}

void LamportDependencesViewTest::anArrowStandsForItsEnds() {
    const QJsonArray edges = describe({"f", {}})["edges"].toArray();
    for (int i = 0; i < edges.size(); ++i) {
        widget().selectEdge(i);
        const Picked ends = m_view->findAt(QPoint(0, 0));
        for (const auto& [end, node] : {std::pair{"source", ends.node}, {"target", ends.other}}) {
            const QJsonObject described = edges.at(i).toObject()[end].toObject();
            QCOMPARE(static_cast<int>(node->getSourceRange().beginLine), described["line"].toInt());
            QCOMPARE(static_cast<int>(node->getSourceRange().beginColumn), described["column"].toInt());
        }
    }
    widget().selectEdge(-1);
    QCOMPARE(m_view->findAt(QPoint(0, 0)).node, nullptr);
    m_view->clear();
    QCOMPARE(m_view->findAt(QPoint(0, 0)).node, nullptr);
}

void LamportDependencesViewTest::anOccurrenceSelectsItsArrow() {
    const QJsonArray edges = describe({"f", {}})["edges"].toArray();
    QVERIFY(edges.size() > 1);
    for (int i = 0; i < edges.size(); ++i) {
        widget().selectEdge(i);
        const Tessel::TesselBase* target = m_view->findAt(QPoint(0, 0)).other;
        widget().selectEdge(-1);
        m_view->selectNode(*target);
        const int selected = widget().getSelectedEdge();
        QVERIFY(selected >= 0 && selected <= i);
        const Picked ends = m_view->findAt(QPoint(0, 0));
        QVERIFY(ends.node == target || ends.other == target);
        QCOMPARE(table().getSelectedRecord(), selected);
    }
    // What is in no dependence changes nothing.
    const int before = widget().getSelectedEdge();
    m_view->selectNode(*m_program.getUnit().getTranslationUnit(0));
    QCOMPARE(widget().getSelectedEdge(), before);
}

void LamportDependencesViewTest::toolBarHasTheFilter() {
    QStringList texts;
    for (const QAction* action : m_view->getActions())
        texts.append(action->text());
    QCOMPARE(texts, QStringList({"Flow", "Anti", "Output", "Input", "Variables", "Carriers"}));
}

void LamportDependencesViewTest::clearedViewIsEmpty() {
    describe({"f", {}});
    m_view->clear();
    QVERIFY(!m_view->getWidget().isBuilded());
    QCOMPARE(m_view->summarize(), QString());
    QCOMPARE(table().model()->rowCount(), 0);
    QCOMPARE(m_view->describe()["nodes"].toArray(), QJsonArray());
}

void LamportDependencesViewTest::subjectsWithoutABlockShowNothing() {
    describe({"f", {}});
    QVERIFY(table().model()->rowCount() > 0);
    m_view->show(Subject());
    QVERIFY(!m_view->getWidget().isBuilded());
    QCOMPARE(table().model()->rowCount(), 0);
}

// Where x is written is not known in advance.
void LamportDependencesViewTest::assumedDependencesAreCounted() {
    const QString file = m_folder.write("scatter.c", "void s(double *x, const int *where) {\n"
                                                     "    for (int i = 0; i < 10; i++)\n"
                                                     "        x[where[i]] = 1.0;\n"
                                                     "    *x = where[0];\n}\n");
    m_program = Testing::readProgram({file});
    const QJsonArray edges = describe({"s", {}})["edges"].toArray();
    int assumed = 0;
    for (const QJsonValue& edge : edges)
        assumed += !edge.toObject()["proven"].toBool();
    // Output of x[where[i]] on itself and on *x; the pointers themselves and where[0] are read twice for sure.
    QVERIFY(assumed > 0 && assumed < edges.size());
    QCOMPARE(m_view->summarize(), QString("%1 dependences, %2 of them assumed").arg(edges.size()).arg(assumed));
    m_program = Testing::readProgram({m_folder.write("a.c", source)});
    describe({"f", {}});
    QVERIFY(m_view->summarize().endsWith(" dependences"));
}

void LamportDependencesViewTest::whatIsWorthAPicture() {
    const ViewKind kind = LamportDependencesView::kind();
    const SubjectFinder finder(m_program);
    QVERIFY(kind.isWorthExporting(finder.find({"f", {}}, kind.preference).subject));
    QVERIFY(!kind.isWorthExporting(finder.find({"g", {}}, kind.preference).subject));
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::LamportDependencesViewTest)
#include "LamportDependencesViewTest.moc"
