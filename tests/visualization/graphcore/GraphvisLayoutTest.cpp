// SPDX-License-Identifier: MIT
#include "visualization/graphcore/GraphvisLayout.h"

#include "tests/visualization/graphcore/FakeDot.h"
#include "tests/visualization/graphcore/LayoutGraph.h"

#include <QStandardPaths>
#include <QtTest>

#include <locale>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

using namespace Kova::GUI::GenericGraph;

namespace {

QString dumped(const std::vector<NodeBase*>& nodes) {
    std::ostringstream out;
    GraphvisLayout().dumpNodes(nodes, out);
    return QString::fromStdString(out.str());
}

/// Where the nodes are after a result of dot was read.
std::vector<QPoint> placed(const LayoutGraph& graph, const std::string& plain) {
    GraphvisLayout layout;
    std::ostringstream unused;
    layout.dumpNodes(graph.nodes(), unused);
    std::istringstream in(plain);
    layout.readPlain(in);
    return graph.centers();
}

/// Numbers with a decimal comma and points between thousands, as in many places of the world.
class CommaNumbers : public std::numpunct<char> {
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

} // namespace

class GraphvisLayoutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { init(); }

    void dumpsTwoNodes();
    void dumpsEdgesBehindAllNodes();
    void dumpsTextsAsTheyAre();
    void dumpsOnlyEdgesBetweenTheNodes();
    void dumpsThousandsOfNodes();
    void readsNodes();
    void truncatesPositions();
    void ignoresWhatItDoesNotKnow();
    void stopsAtStop();
    void linesOfLabelsAreNoWords();
    void brokenResultsMoveNothing();
    void numbersDoNotDependOnThePlace();
    void asksDot();
    void realDotMakesLayers();
    void withoutDotNodesStay();
    void readsWhatAnEarlierRunLeft();
    void tellsWhetherDotPlacedTheNodes();
    void doesNotFollowLinks();
    void doesNotWaitForPipes();
};

void GraphvisLayoutTest::init() {
    removeDotFiles();
}

void GraphvisLayoutTest::dumpsTwoNodes() {
    LayoutGraph graph;
    NodeBase& first = graph.add("a");
    graph.join(first, graph.add("b"));
    QCOMPARE(dumped(graph.nodes()), QString("digraph tmp {\n"
                                            "node [shape = box, labeljust=\"l\"];\n"
                                            "N0[ label = \"a\"];\n"
                                            "N1[ label = \"b\"];\n"
                                            "N0->N1;\n"
                                            "}\n"));
    QCOMPARE(dumped({}), QString("digraph tmp {\nnode [shape = box, labeljust=\"l\"];\n}\n"));
}

void GraphvisLayoutTest::dumpsEdgesBehindAllNodes() {
    const LayoutGraph graph(3, {{2, 0}, {0, 2}, {0, 1}, {1, 1}, {0, 2}});
    QCOMPARE(dumped(graph.nodes()).section('\n', 5), QString("N0->N2;\nN0->N1;\nN0->N2;\nN1->N1;\nN2->N0;\n}\n"));
}

void GraphvisLayoutTest::dumpsTextsAsTheyAre() {
    LayoutGraph graph;
    graph.add("say \"hi\\n\"\nend");
    graph.add(QString::fromUtf8("\xD1\x8F"));
    QCOMPARE(dumped(graph.nodes()).section('\n', 2), QString("N0[ label = \"say \"hi\\n\"\nend\"];\n"
                                                             "N1[ label = \"") +
                                                         QString::fromUtf8("\xD1\x8F") + "\"];\n}\n");
}

void GraphvisLayoutTest::dumpsOnlyEdgesBetweenTheNodes() {
    LayoutGraph graph(3, {{0, 1}, {0, 2}, {2, 1}});
    QCOMPARE(dumped({&graph.node(0), &graph.node(1)}).section('\n', 4), QString("N0->N1;\n}\n"));
    graph.removeEdge(0);
    QCOMPARE(dumped(graph.nodes()).section('\n', 5), QString("N0->N2;\nN2->N1;\n}\n"));
}

void GraphvisLayoutTest::dumpsThousandsOfNodes() {
    const LayoutGraph graph(1235, {{1234, 1000}});
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new CommaNumbers));
    std::ostringstream out;
    out.imbue(std::locale::classic());
    GraphvisLayout().dumpNodes(graph.nodes(), out);
    std::locale::global(before);
    QVERIFY(QString::fromStdString(out.str()).contains("N1234[ label = "));
    QVERIFY(QString::fromStdString(out.str()).endsWith("N1234->N1000;\n}\n"));
}

void GraphvisLayoutTest::readsNodes() {
    const LayoutGraph graph(2, {});
    const std::vector<QPoint> centers = placed(graph, "graph 1 5 3\n"
                                                      "node N1 2.5 1 0.75 0.5 b solid box black lightgrey\n"
                                                      "node N0 0.5 2.75 0.75 0.5 a solid box black lightgrey\n"
                                                      "edge N0 N1 4 1 2 3 4 5 6 7 8 solid black\n"
                                                      "stop\n");
    QCOMPARE(centers[1], QPoint(250, 200));
    QCOMPARE(centers[0], QPoint(50, 25));
}

// 100 times 0.29 is a little less than 29.
void GraphvisLayoutTest::truncatesPositions() {
    const LayoutGraph graph(1, {});
    QCOMPARE(placed(graph, "graph 1 5 3\nnode N0 0.29 1.999 1 1 a\n").front(), QPoint(28, 100));
}

void GraphvisLayoutTest::ignoresWhatItDoesNotKnow() {
    const LayoutGraph graph(1, {});
    graph.node(0).moveTo(7, 8);
    QCOMPARE(placed(graph, "graph 1 5 3\n"
                           "node N1 1 1 1 1 a\n"
                           "node N 1 1 1 1 a\n"
                           "node Nx 1 1 1 1 a\n"
                           "node N-1 1 1 1 1 a\n"
                           "cluster node N0 1 1 1 1\n")
                 .front(),
             QPoint(7, 8));
    QCOMPARE(placed(graph, "node N5 1 1 1 1 a\ngraph 1 5 3\nnode N0 1 1 1 1 a").front(), QPoint(100, 200));
}

void GraphvisLayoutTest::stopsAtStop() {
    const LayoutGraph graph(1, {});
    graph.node(0).moveTo(7, 8);
    QCOMPARE(placed(graph, "graph 1 5 3\nstop\nnode N0 1 1 1 1 a\n").front(), QPoint(7, 8));
}

// Variables of C may be called node, stop and graph.
void GraphvisLayoutTest::linesOfLabelsAreNoWords() {
    const LayoutGraph graph(3, {});
    const std::vector<QPoint> centers = placed(graph, "graph 1 5 3\n"
                                                      "node N0 1 1 1 1 \"a = 1\nstop\nnode N1 4 2 1 1\" solid box\n"
                                                      "node N1 2 1 1 1 \"say \\\"\nstop\\\\\" solid box\n"
                                                      "node N2 3 1 1 1 c solid box\n"
                                                      "stop\n");
    QCOMPARE(centers[0], QPoint(100, 200));
    QCOMPARE(centers[1], QPoint(200, 200));
    QCOMPARE(centers[2], QPoint(300, 200));
}

void GraphvisLayoutTest::brokenResultsMoveNothing() {
    const LayoutGraph graph(1, {});
    for (const char* plain : {"", "graph", "graph 1 x", "node", "node N0", "node N0 1", "node N0 1 y",
                              "graph 1 5 3\nnode N0 nan", "node N0 1 \"\nstop", "\"", "graph 1 5 3 \"\nnode N7"}) {
        graph.node(0).moveTo(7, 8);
        QCOMPARE(placed(graph, plain).front(), QPoint(7, 8));
    }
}

void GraphvisLayoutTest::numbersDoNotDependOnThePlace() {
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new CommaNumbers));
    const LayoutGraph graph(1, {});
    const QPoint center = placed(graph, "graph 1 5.5 3.5\nnode N0 2.5 1.5 1 1 a\n").front();
    std::locale::global(before);
    QCOMPARE(center, QPoint(250, 200));
}

void GraphvisLayoutTest::asksDot() {
    const FakeDot dot("graph 1 5 3\nnode N1 2.5 1 0.75 0.5 b\nstop\n");
    write(dotFile, QByteArray(5000, 'x'));
    const LayoutGraph graph(2, {{0, 1}});
    graph.node(0).moveTo(7, 8);
    GraphvisLayout().layOut(graph.nodes());
    QCOMPARE(dot.arguments(), QByteArray("-Tplain -o/tmp/1.dot.plain /tmp/1.dot\n"));
    QCOMPARE(QString::fromUtf8(contentOf(dotFile)), dumped(graph.nodes()));
    QCOMPARE(graph.centers()[0], QPoint(7, 8));
    QCOMPARE(graph.centers()[1], QPoint(250, 200));
}

// Each node below the one that it is reached from, and beside those of its own layer.
void GraphvisLayoutTest::realDotMakesLayers() {
    QVERIFY2(!QStandardPaths::findExecutable("dot").isEmpty(), "install the package graphviz");
    const LayoutGraph graph(5, {{0, 1}, {0, 2}, {1, 3}, {2, 3}, {3, 4}});
    GraphvisLayout().layOut(graph.nodes());
    const std::vector<QPoint> centers = graph.centers();
    for (const auto& [source, target] : {std::pair{0, 1}, {0, 2}, {1, 3}, {2, 3}, {3, 4}})
        QVERIFY(centers[std::size_t(source)].y() + 50 <= centers[std::size_t(target)].y());
    QCOMPARE(centers[1].y(), centers[2].y());
    QVERIFY(std::abs(centers[1].x() - centers[2].x()) >= 75);
    for (const QPoint& center : centers)
        QVERIFY(center.x() > 0 && center.y() > 0 && center.x() < 500 && center.y() < 1000);
}

void GraphvisLayoutTest::withoutDotNodesStay() {
    const NoDot absence;
    const LayoutGraph graph(2, {{0, 1}});
    graph.node(0).moveTo(7, 8);
    graph.node(1).moveTo(9, 10);
    GraphvisLayout().layOut(graph.nodes());
    QCOMPARE(graph.centers(), (std::vector<QPoint>{{7, 8}, {9, 10}}));
}

void GraphvisLayoutTest::readsWhatAnEarlierRunLeft() {
    const NoDot absence;
    write(plainFile, "graph 1 5 3\nnode N0 2.5 1 0.75 0.5 b\nstop\n");
    const LayoutGraph graph(1, {});
    GraphvisLayout().layOut(graph.nodes());
    QCOMPARE(graph.centers().front(), QPoint(250, 200));
}

void GraphvisLayoutTest::tellsWhetherDotPlacedTheNodes() {
    const QByteArray result = "graph 1 5 3\nnode N0 2.5 1 0.75 0.5 b\nstop\n";
    const LayoutGraph graph(1, {});
    GraphvisLayout layout;
    QVERIFY(!layout.hasSucceeded());
    {
        const FakeDot dot(result);
        layout.layOut(graph.nodes());
        QVERIFY(layout.hasSucceeded());
    }
    {
        // The earlier result is read all the same.
        const NoDot absence;
        layout.layOut(graph.nodes());
        QVERIFY(!layout.hasSucceeded());
    }
    {
        const FakeDot dot(result, 1);
        layout.layOut(graph.nodes());
        QVERIFY(!layout.hasSucceeded());
    }
    {
        const FakeDot dot(result);
        layout.layOut(graph.nodes());
        QVERIFY(layout.hasSucceeded());
        // Its input was not what is to be laid out.
        removeDotFiles();
        QVERIFY(QDir("/tmp").mkdir("1.dot"));
        layout.layOut(graph.nodes());
        QVERIFY(QDir("/tmp").rmdir("1.dot"));
        QVERIFY(!layout.hasSucceeded());
    }
}

// The folder is everybody's: what somebody has put there must not lead to other files.
void GraphvisLayoutTest::doesNotFollowLinks() {
    const FakeDot dot("graph 1 5 3\nnode N0 2.5 1 0.75 0.5 b\nstop\n");
    QTemporaryDir folder;
    const QString precious = folder.filePath("precious");
    write(precious, "keep");
    const LayoutGraph graph(1, {});
    graph.node(0).moveTo(7, 8);
    for (const char* path : {dotFile, plainFile}) {
        QVERIFY(QFile::link(precious, path));
        GraphvisLayout().layOut(graph.nodes());
        QCOMPARE(contentOf(precious), QByteArray("keep"));
        QCOMPARE(graph.centers().front(), QPoint(7, 8));
        QVERIFY(QFile::remove(path));
    }
    // Neither is a file with a second name, which is somebody's, too.
    QCOMPARE(::link(precious.toUtf8().constData(), plainFile), 0);
    GraphvisLayout().layOut(graph.nodes());
    QCOMPARE(contentOf(precious), QByteArray("keep"));
    QCOMPARE(graph.centers().front(), QPoint(7, 8));
}

void GraphvisLayoutTest::doesNotWaitForPipes() {
    const NoDot absence;
    const LayoutGraph graph(1, {});
    graph.node(0).moveTo(7, 8);
    for (const char* path : {dotFile, plainFile}) {
        QCOMPARE(::mkfifo(path, 0600), 0);
        GraphvisLayout().layOut(graph.nodes());
        QCOMPARE(graph.centers().front(), QPoint(7, 8));
        QVERIFY(QFile::remove(path));
    }
}

QTEST_APPLESS_MAIN(GraphvisLayoutTest)
#include "GraphvisLayoutTest.moc"
