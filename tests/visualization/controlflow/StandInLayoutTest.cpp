// SPDX-License-Identifier: MIT
#include "visualization/controlflow/StandInLayout.h"

#include "tests/visualization/graphcore/FakeDot.h"
#include "tests/visualization/graphcore/LayoutGraph.h"

#include <QStandardPaths>

#include <random>

using Kova::GUI::ControlFlowGraphExpr::StandInLayout;
using Kova::GUI::GenericGraph::NodeBase;

namespace {

/// What dot is given, without its first two lines.
QByteArray given(const LayoutGraph& graph) {
    const FakeDot dot("");
    StandInLayout().layOut(graph.nodes());
    return contentOf(dotFile).split('\n').mid(2).join('\n');
}

} // namespace

class StandInLayoutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { removeDotFiles(); }
    void cleanup() { removeDotFiles(); }

    void textsKeepTheirShape_data();
    void textsKeepTheirShape();
    void longTextsAreSeveral();
    void dotGetsTheSameGraph();
    void edgesElsewhereMakeNoDifference();
    void nodesGoWhereDotPutsThem();
    void nodesStayWithoutDot();
    void nodesStayWhereDotFails();
    void dotReadsAnyText();
    void layersFollowTheEdges();
    void noNodes();
};

void StandInLayoutTest::textsKeepTheirShape_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("readable");
    QTest::newRow("plain") << "a = b + f(c[1], 'x') < 2 && d;"
                           << "a = b + f(c[1], 'x') < 2 && d;";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("quotes") << "puts(\"hi\")"
                            << "puts('hi')";
    QTest::newRow("backslashes") << "'\\n' \\N \\"
                                 << "'/n' /N /";
    QTest::newRow("lines") << "a\nnode N0 1 1\nstop"
                           << "a\nnode N0 1 1\nstop";
    QTest::newRow("named characters") << "&lt; &#60; &x1; a&b &; &amp"
                                      << "+lt; +#60; +x1; a&b &; &amp";
    QTest::newRow("markup") << "<b>&quot;</b>"
                            << "<b>+quot;</b>";
    QTest::newRow("control characters") << QString("a\tb\rc") + QChar(0) + QChar(27) + QChar(0xfeff) + 'd'
                                        << "a b c   d";
    QTest::newRow("other letters") << QString::fromUtf8("\xD1\x8F \xF0\x9F\x98\x80 \xEF\xBF\xBD")
                                   << QString::fromUtf8("\xD1\x8F \xF0\x9F\x98\x80 \xEF\xBF\xBD");
}

void StandInLayoutTest::textsKeepTheirShape() {
    QFETCH(QString, text);
    QFETCH(QString, readable);
    QCOMPARE(StandInLayout::readableText(text), readable);
}

void StandInLayoutTest::longTextsAreSeveral() {
    QCOMPARE(StandInLayout::readableText(QString(4000, 'x')), QString(4000, 'x'));
    QCOMPARE(StandInLayout::readableText(QString(4001, 'x')), QString(4000, 'x') + "\" + \"x");
    const QString wide = StandInLayout::readableText(QString(50000, QChar(0x6f22)));
    for (const QByteArray& piece : wide.toUtf8().split('"'))
        QVERIFY(piece.size() < 16384);
    QCOMPARE(wide.count(QChar(0x6f22)), 50000);
}

void StandInLayoutTest::dotGetsTheSameGraph() {
    LayoutGraph graph;
    NodeBase& first = graph.add("puts(\"a\\n\")\nb");
    NodeBase& second = graph.add("c");
    graph.join(second, second);
    graph.join(first, second);
    graph.join(second, first);
    graph.join(first, second);
    QCOMPARE(given(graph), QByteArray("N0[ label = \"puts('a/n')\nb\"];\n"
                                      "N1[ label = \"c\"];\n"
                                      "N0->N1;\nN0->N1;\nN1->N1;\nN1->N0;\n}\n"));
    QCOMPARE(first.getText(), QString("puts(\"a\\n\")\nb"));
    QCOMPARE(first.getOutgoingEdges().size(), std::size_t{2});
    QCOMPARE(second.getIncomingEdges().size(), std::size_t{3});
}

void StandInLayoutTest::edgesElsewhereMakeNoDifference() {
    LayoutGraph graph(3, {{0, 1}, {0, 2}, {2, 1}});
    graph.removeEdge(0);
    const FakeDot dot("");
    StandInLayout().layOut({&graph.node(0), &graph.node(1)});
    QVERIFY(contentOf(dotFile).endsWith("N1[ label = \"1\"];\n}\n"));
}

void StandInLayoutTest::nodesGoWhereDotPutsThem() {
    const FakeDot dot("graph 1 5 3\nnode N1 2.5 1 0.75 0.5 b\nnode N0 0.29 2 1 1 a\nstop\n");
    LayoutGraph graph;
    NodeBase& first = graph.add("\"", 41);
    const LayoutGraph::Edge& edge = graph.join(first, graph.add("\\", 20));
    StandInLayout layout;
    QVERIFY(!layout.hasSucceeded());
    layout.layOut(graph.nodes());
    QVERIFY(layout.hasSucceeded());
    QCOMPARE(graph.centers(), (std::vector<QPoint>{{28, 100}, {250, 200}}));
    QCOMPARE(first.getWidth(), 41);
    // The edges follow: this one comes to the second box, which begins 10 to the left of its centre.
    QCOMPARE(edge.getEnd().x(), 240);
}

void StandInLayoutTest::nodesStayWithoutDot() {
    const LayoutGraph graph(2, {{0, 1}});
    graph.node(0).moveTo(7, 8);
    StandInLayout layout;
    {
        const FakeDot dot("graph 1 5 3\nnode N1 2.5 1 0.75 0.5 b\nstop\n");
        layout.layOut({&graph.node(1)});
        QVERIFY(layout.hasSucceeded());
    }
    const std::vector<QPoint> before = graph.centers();
    const NoDot absence;
    // What dot left for another graph would be misleading.
    layout.layOut(graph.nodes());
    QVERIFY(!layout.hasSucceeded());
    QCOMPARE(graph.centers(), before);
}

void StandInLayoutTest::nodesStayWhereDotFails() {
    const FakeDot dot("graph 1 5 3\nnode N0 2.5 1 0.75 0.5 b\nstop\n", 1);
    const LayoutGraph graph(1, {});
    graph.node(0).moveTo(7, 8);
    StandInLayout layout;
    layout.layOut(graph.nodes());
    QVERIFY(!layout.hasSucceeded());
    QCOMPARE(graph.centers().front(), QPoint(7, 8));
}

// Each text in the middle of a chain: behind it, there has to be something that its lines could be mistaken for.
void StandInLayoutTest::dotReadsAnyText() {
    QVERIFY2(!QStandardPaths::findExecutable("dot").isEmpty(), "install the package graphviz");
    QStringList texts = {"\"",
                         "\\",
                         "\\\\\"\\",
                         "a\"];\nN1->N0;",
                         "node N2 1 1 1 1 a",
                         "x\nnode N2 1 1 1 1 a\nstop\ngraph 1 1 1\nedge N0 N1",
                         "\n\nstop\n",
                         "<b>&lt;</b>",
                         "\\N\\G\\l\\r",
                         "{a|b}",
                         "// c",
                         "/* c",
                         "# c",
                         "",
                         QString(QChar(0)),
                         QString("x = ") + QString(100000, 'y'),
                         QString("a = b\n").repeated(20000)};
    std::mt19937 random(3);
    for (int i = 0; i < 30; ++i) {
        QByteArray bytes;
        while (bytes.size() < 60)
            bytes.append(static_cast<char>(random()));
        texts.append(QString::fromUtf8(bytes));
    }
    for (const QString& text : texts) {
        LayoutGraph graph;
        NodeBase& first = graph.add("first");
        NodeBase& middle = graph.add(text);
        NodeBase& last = graph.add("stop");
        graph.join(first, middle);
        graph.join(middle, last);
        StandInLayout layout;
        layout.layOut(graph.nodes());
        QVERIFY2(layout.hasSucceeded(), qPrintable(text.left(100)));
        QVERIFY2(first.getCenter().y() + 50 <= middle.getCenter().y(), qPrintable(text.left(100)));
        QVERIFY2(middle.getCenter().y() + 50 <= last.getCenter().y(), qPrintable(text.left(100)));
        QCOMPARE(middle.getText(), text);
    }
}

void StandInLayoutTest::layersFollowTheEdges() {
    const LayoutGraph graph(4, {{0, 1}, {0, 2}, {1, 3}, {2, 3}, {3, 3}});
    StandInLayout().layOut(graph.nodes());
    const std::vector<QPoint> centers = graph.centers();
    QCOMPARE(centers[1].y(), centers[2].y());
    QVERIFY(std::abs(centers[1].x() - centers[2].x()) >= 75);
    QVERIFY(centers[0].y() < centers[1].y());
    QVERIFY(centers[1].y() < centers[3].y());
}

void StandInLayoutTest::noNodes() {
    const FakeDot dot("");
    StandInLayout layout;
    layout.layOut({});
    QVERIFY(layout.hasSucceeded());
}

QTEST_APPLESS_MAIN(StandInLayoutTest)
#include "StandInLayoutTest.moc"
