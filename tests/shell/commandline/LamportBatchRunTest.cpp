// SPDX-License-Identifier: MIT
// The dependence view as scripts see it: the real program, its output and its exit status.
#include "shell/commandline/BatchRun.h"
#include "tests/shell/ShellTesting.h"

#include <QImage>
#include <QJsonArray>
#include <QtTest>

namespace Kova::Shell {

using namespace Testing;

namespace {

QJsonObject end(const char* text, int line, int column) {
    return {{"text", text}, {"line", line}, {"column", column}};
}

QStringList kindsOf(const QJsonObject& description) {
    return namesIn(description, "edges", "kind");
}

} // namespace

class LamportBatchRunTest : public QObject, private FreshFolder {
    Q_OBJECT

private Q_SLOTS:
    void init() { renewFolder(); }
    void describesAllThatIsDocumented();
    void aLoopsOwnLineIsTheBlockItIsIn();
    void aLineInABodyIsTheBody();
    void assumedDependencesSaySo();
    void exportsThePicture();
    void exportAllWritesBlocksWithLoops();
    void withoutDependencesThereIsTheText();
    void withoutSubroutinesThereIsNothing();
    void tooManyDependencesAreRefused();
    void inputDependencesGoFirst();
    void wrongLinesAreWrongUsage();

private:
    [[nodiscard]] Finished describe(const QByteArray& source, const QStringList& options = {}) const {
        return runProgram(QStringList{"--view", "lamport-dependences", "--describe"} + options +
                          QStringList(write("a.c", source)));
    }
};

void LamportBatchRunTest::describesAllThatIsDocumented() {
    const Finished run = describe(threeDependences, {"--function", "f"});
    QCOMPARE(run.status, 0);
    QCOMPARE(run.error, QByteArray());
    const QJsonObject description = parse(run.out);
    QCOMPARE(description["view"].toString(), QString("lamport-dependences"));
    QCOMPARE(description["file"].toString(), path("a.c"));
    QCOMPARE(description["subject"].toString(), QString("subroutine f"));
    QVERIFY(description["size"].toArray().at(0).toInt() > 0 && description["size"].toArray().at(1).toInt() > 0);
    QCOMPARE(description["messages"].toArray(), QJsonArray());

    const QJsonArray nodes = description["nodes"].toArray();
    for (int i = 0; i < nodes.size(); ++i) {
        QCOMPARE(nodes[i].toObject()["id"].toInt(), i);
        QCOMPARE(nodes[i].toObject()["rect"].toArray().size(), 4);
    }
    const QJsonArray edges = description["edges"].toArray();
    QCOMPARE(kindsOf(description), QStringList({"input", "flow", "anti"}));
    const QJsonObject flow = edges[1].toObject();
    QCOMPARE(flow["source"].toObject(), end("a", 3, 9));
    QCOMPARE(flow["target"].toObject(), end("a", 4, 16));
    QCOMPARE(flow["carriers"].toArray(), QJsonArray({1}));
    QCOMPARE(flow["distance"].toArray(), QJsonArray({1}));
    QCOMPARE(flow["proven"], QJsonValue(true));
    QCOMPARE(flow["visible"], QJsonValue(true));
    const QJsonArray tags = flow["tags"].toArray();
    QCOMPARE(tags.size(), 4);
    QCOMPARE(tags[3].toString(),
             QString("The value written to a[i] in line 3 is read as a[i - 1] in line 4, in the next iteration of the "
                     "loop over i, if n >= 3."));
    QCOMPARE(tags[0].toString(), QString::fromUtf8("Значение, записанное в a[i] в строке 3, читается как a[i - 1] в "
                                                   "строке 4, на следующей итерации цикла по i, если n >= 3."));
    QVERIFY(tags[1].toString().startsWith("flow dependence: a[i] (line 3) -> a[i - 1] (line 4)"));
    QVERIFY(tags[2].toString().startsWith(QString::fromUtf8("потоковая зависимость")));
    QCOMPARE(flow["hint"], tags[0]);
    QCOMPARE(flow["tooltip"], tags[0]);
    for (const char* which : {"from", "to"})
        QCOMPARE(nodes[flow[which].toInt()].toObject()["text"].toString(), QString("a"));
    const QJsonObject anti = edges[2].toObject();
    QCOMPARE(anti["source"].toObject(), end("b", 3, 16));
    QCOMPARE(anti["target"].toObject(), end("b", 4, 9));
    QCOMPARE(anti["carriers"].toArray(), QJsonArray({-1}));
    QCOMPARE(anti["distance"].toArray(), QJsonArray({0}));
    // The bound is tested again and again: by how many iterations later varies.
    QCOMPARE(edges[0].toObject()["distance"].toArray(), QJsonArray({QJsonValue()}));
    QCOMPARE(edges[0].toObject()["source"], edges[0].toObject()["target"]);
    QCOMPARE(describe(threeDependences, {"--function", "f"}).out, run.out);
}

void LamportBatchRunTest::aLoopsOwnLineIsTheBlockItIsIn() {
    const QJsonObject description = parse(describe(threeDependences, {"--line", "2"}).out);
    QCOMPARE(description["subject"].toString(), QString("block at line 1 in f"));
    QCOMPARE(kindsOf(description), QStringList({"input", "flow", "anti"}));
}

void LamportBatchRunTest::aLineInABodyIsTheBody() {
    const QJsonObject description = parse(describe(threeDependences, {"--line", "4"}).out);
    QCOMPARE(description["subject"].toString(), QString("block at line 2 in f"));
    // Within the body a[i] and a[i - 1] are different elements, and i is read four times.
    QCOMPARE(kindsOf(description).count("input"), 4 * 3 / 2);
    QStringList others = kindsOf(description);
    others.removeAll("input");
    QCOMPARE(others, QStringList("anti"));
    for (const QJsonValue& edge : description["edges"].toArray())
        QCOMPARE(edge.toObject()["distance"].toArray(), QJsonArray());
}

void LamportBatchRunTest::assumedDependencesSaySo() {
    const QJsonObject description =
        parse(describe("void f(double a[9], int w[9]) { a[w[0]] = 1; a[w[1]] = 2; }\n").out);
    const QJsonArray edges = description["edges"].toArray();
    QCOMPARE(kindsOf(description), QStringList("output"));
    QCOMPARE(edges[0].toObject()["proven"], QJsonValue(false));
    QVERIFY(edges[0].toObject()["tags"].toArray()[1].toString().contains("assumed"));
}

void LamportBatchRunTest::exportsThePicture() {
    const QString file = write("a.c", threeDependences);
    const Finished run =
        runProgram({"--view", "lamport-dependences", "--function", "f", "--describe", "--export", path("a.png"), file});
    QCOMPARE(run.status, 0);
    const QJsonArray size = parse(run.out)["size"].toArray();
    const QImage image(path("a.png"));
    QCOMPARE(image.size(), QSize(size[0].toInt(), size[1].toInt()));
    // The arrows are there in their colours.
    int blue = 0;
    int red = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            blue += color.blue() > 200 && color.red() < 100 && color.green() < 100 ? 1 : 0;
            red += color.red() > 200 && color.blue() < 100 && color.green() < 100 ? 1 : 0;
        }
    QVERIFY(blue > 20 && red > 20);
    const Finished svg = runProgram({"--view", "lamport-dependences", "--export", path("a.svg"), file});
    QCOMPARE(svg.status, 0);
    QVERIFY(contentOf(path("a.svg")).startsWith("<?xml"));
}

void LamportBatchRunTest::exportAllWritesBlocksWithLoops() {
    const QString file = write("a.c", QByteArray(threeDependences) + "int g(int x) { return x; }\n");
    QCOMPARE(runProgram({"--export-all", path("out"), file}).status, 0);
    const QStringList names = filesIn("out");
    QVERIFY(names.contains("lamport-dependences-f.png") && names.contains("lamport-dependences-f.svg"));
    QVERIFY(!names.contains("lamport-dependences-g.png"));
    QVERIFY(contentOf(path("out/index.html")).contains("lamport-dependences-f.png"));
    QVERIFY(contentOf(path("out/index.html")).contains("3 dependences"));
}

void LamportBatchRunTest::withoutDependencesThereIsTheText() {
    const Finished run = describe("int g(int x) { return x; }\nvoid e(void) {}\n", {"--function", "g"});
    QCOMPARE(run.status, 0);
    QCOMPARE(parse(run.out)["edges"].toArray(), QJsonArray());
    QVERIFY(namesIn(parse(run.out), "nodes", "text").contains("return "));
    const Finished empty = describe("int g(int x) { return x; }\nvoid e(void) {}\n", {"--function", "e"});
    QCOMPARE(empty.status, 0);
    QCOMPARE(namesIn(parse(empty.out), "nodes", "text"), QStringList({"{", "}"}));
}

void LamportBatchRunTest::withoutSubroutinesThereIsNothing() {
    const Finished run = describe("int x;\n");
    QCOMPARE(run.status, 1);
    QVERIFY2(run.error.startsWith("kova-shell: "), run.error.constData());
}

void LamportBatchRunTest::tooManyDependencesAreRefused() {
    QByteArray source = "void f(double x) {\n";
    for (int i = 0; i < 600; ++i)
        source += "    x = x + 1;\n";
    const QString file = write("a.c", source + "}\n");
    const Finished run = runProgram({"--view", "lamport-dependences", "--describe", "--export", path("a.png"), file});
    QCOMPARE(run.status, 1);
    const QByteArray text = "The block has more than 300000 dependences: none is shown. Choose a smaller block.";
    QCOMPARE(run.error, "kova-shell: " + text + "\n");
    const QJsonObject description = parse(run.out);
    QCOMPARE(description["nodes"].toArray(), QJsonArray());
    QCOMPARE(description["messages"].toArray().at(0).toObject()["text"].toString(), QString(text));
    QVERIFY(!QFile::exists(path("a.png")));
}

void LamportBatchRunTest::inputDependencesGoFirst() {
    QByteArray source = "double f(double x) {\n    double y = x;\n";
    for (int i = 0; i < 1100; ++i)
        source += "    (void)x;\n";
    const Finished run = describe(source + "    y = 2;\n    return y;\n}\n");
    QCOMPARE(run.status, 0);
    QCOMPARE(run.error,
             QByteArray("kova-shell: The block has more than 300000 dependences: input dependences are left out.\n"));
    QCOMPARE(kindsOf(parse(run.out)), QStringList("flow"));
}

void LamportBatchRunTest::wrongLinesAreWrongUsage() {
    for (const char* line : {"5", "99"}) {
        const Finished run = describe(threeDependences, {"--line", line});
        QCOMPARE(run.status, 2);
        QCOMPARE(run.out, QByteArray());
        QVERIFY(hasMessageForm(run.error));
    }
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::LamportBatchRunTest)
#include "LamportBatchRunTest.moc"
