// SPDX-License-Identifier: MIT
// The views of control flow as scripts see them: the real program, its output and its exit status.
#include "tests/shell/ShellTesting.h"

#include <QImage>
#include <QJsonArray>
#include <QtTest>

namespace Kova::Shell {

using namespace Testing;

namespace {

QJsonObject at(const QJsonObject& description, const char* list, int index) {
    return description[list].toArray().at(index).toObject();
}

} // namespace

class ControlFlowBatchRunTest : public QObject, private FreshFolder {
    Q_OBJECT

private Q_SLOTS:
    void init() { renewFolder(); }
    void statementsAreDescribed();
    void expressionsAreDescribed();
    void linesChooseTheBlockOrTheStatement();
    void picturesAreExported();
    void exportAllWritesSubroutinesWithChoices();
    void withoutGraphvizOneMessageIsEnough();
    void aFailureOfGraphvizIsTold();
    void manyBlocksAreWarnedOf();
    void withoutSubroutinesThereIsNothing();
    void textsThatAreNoLabels();

private:
    [[nodiscard]] Finished describe(const QString& view, const QByteArray& source,
                                    const QStringList& options = {}) const {
        return runProgram(QStringList{"--view", view, "--describe"} + options + QStringList(write("a.c", source)));
    }
};

void ControlFlowBatchRunTest::statementsAreDescribed() {
    const Finished finished = describe("control-flow", loopsAndBranches);
    QCOMPARE(finished.status, 0);
    QCOMPARE(finished.error, QByteArray());
    const QJsonObject description = parse(finished.out);
    QCOMPARE(description["view"].toString(), QString("control-flow"));
    QCOMPARE(description["file"].toString(), path("a.c"));
    QCOMPARE(description["subject"].toString(), QString("subroutine f"));
    QCOMPARE(description["messages"].toArray(), QJsonArray());
    const QJsonObject loop = at(description, "nodes", 2);
    QCOMPARE(loop["id"].toInt(), 2);
    QCOMPARE(loop["text"].toString(), QString("while (n > 0)"));
    QCOMPARE(loop["line"].toInt(), 3);
    QCOMPARE(loop["external"], QJsonValue(false));
    QCOMPARE(loop["rect"].toArray().size(), 4);
    const QJsonObject outside = at(description, "nodes", 12);
    QCOMPARE(outside["text"].toString(), QString("EXTERNAL"));
    QCOMPARE(outside["line"].toInt(), 0);
    QCOMPARE(outside["external"], QJsonValue(true));
    // As many of each: the loop and the branch have two ways each; the break and the return jump.
    const QStringList kinds = namesIn(description, "edges", "kind");
    QCOMPARE(kinds.count("true"), 2);
    QCOMPARE(kinds.count("false"), 2);
    QCOMPARE(kinds.count("back"), 1);
    QCOMPARE(kinds.count("jump"), 2);
    QCOMPARE(kinds.count("next"), kinds.size() - 7);
    QCOMPARE(describe("control-flow", loopsAndBranches).out, finished.out);
}

void ControlFlowBatchRunTest::expressionsAreDescribed() {
    const Finished finished = describe("expression-control-flow", loopsAndBranches, {"--function", "g"});
    QCOMPARE(finished.status, 0);
    QCOMPARE(finished.error, QByteArray());
    const QJsonObject description = parse(finished.out);
    QCOMPARE(description["view"].toString(), QString("expression-control-flow"));
    QCOMPARE(namesIn(description, "nodes", "kind"), QStringList({"entry", "block", "block", "block", "block", "exit"}));
    QCOMPARE(namesIn(description, "nodes", "text"), QStringList({"Entry", "n", "n--", "n++", "n != 3", "Exit"}));
    QCOMPARE(at(description, "nodes", 2)["expressions"].toArray(), QJsonArray{"n--"});
    QCOMPARE(at(description, "nodes", 0)["expressions"].toArray(), QJsonArray());
    QCOMPARE(at(description, "nodes", 2)["reachable"], QJsonValue(true));
    QCOMPARE(namesIn(description, "edges", "kind"),
             QStringList({"next", "true", "false", "next", "next", "back", "false"}));
    QCOMPARE(at(description, "edges", 5)["from"].toInt(), 4);
    QCOMPARE(at(description, "edges", 5)["to"].toInt(), 1);
}

void ControlFlowBatchRunTest::linesChooseTheBlockOrTheStatement() {
    const QJsonObject block = parse(describe("control-flow", loopsAndBranches, {"--line", "6"}).out);
    QCOMPARE(block["subject"].toString(), QString("block at line 3 in f"));
    const QJsonObject statement = parse(describe("expression-control-flow", loopsAndBranches, {"--line", "6"}).out);
    QCOMPARE(statement["subject"].toString(), QString("statement at line 6 in f"));
    QCOMPARE(namesIn(statement, "nodes", "text"), QStringList({"Entry", "s += n--", "Exit"}));
    const QJsonObject loop = parse(describe("expression-control-flow", loopsAndBranches, {"--line", "3"}).out);
    QCOMPARE(loop["subject"].toString(), QString("loop at line 3 in f"));
    QCOMPARE(describe("control-flow", loopsAndBranches, {"--line", "99"}).status, 2);
}

void ControlFlowBatchRunTest::picturesAreExported() {
    const QString file = write("a.c", loopsAndBranches);
    for (const char* view : {"control-flow", "expression-control-flow"}) {
        const Finished finished = runProgram({"--view", view, "--describe", "--export", path("a.png"), file});
        QCOMPARE(finished.status, 0);
        const QJsonArray size = parse(finished.out)["size"].toArray();
        QCOMPARE(QImage(path("a.png")).size(), QSize(size[0].toInt(), size[1].toInt()));
        QCOMPARE(runProgram({"--view", view, "--export", path("a.svg"), file}).status, 0);
        QVERIFY(contentOf(path("a.svg")).contains("n == 5"));
    }
}

void ControlFlowBatchRunTest::exportAllWritesSubroutinesWithChoices() {
    const QString file = write("a.c", QByteArray(loopsAndBranches) + "int k(int a) { return a ? 1 : 2; }\n");
    QCOMPARE(runProgram({"--export-all", path("out"), file}).status, 0);
    QStringList names = filesIn("out").filter("control-flow").filter(".png");
    QCOMPARE(names, QStringList({"control-flow-f.png", "control-flow-g.png", "expression-control-flow-f.png",
                                 "expression-control-flow-g.png", "expression-control-flow-k.png"}));
    QVERIFY(contentOf(path("out/index.html")).contains("9 statements, 14 transfers"));
    QVERIFY(contentOf(path("out/index.html")).contains("5 blocks, 8 transfers"));
}

void ControlFlowBatchRunTest::withoutGraphvizOneMessageIsEnough() {
    const QByteArray message = "kova-shell: Graphviz's program 'dot' is missing: blocks are placed plainly. The Debian "
                               "package graphviz brings it.\n";
    const QString file = write("a.c", loopsAndBranches);
    const FakeGraphviz graphviz(FakeGraphviz::Program::Missing);
    const Finished all = runProgram({"--export-all", path("out"), file});
    QCOMPARE(all.status, 0);
    QCOMPARE(all.error, message);
    QVERIFY(filesIn("out").contains("expression-control-flow-f.png"));
    QVERIFY(filesIn("out").contains("expression-control-flow-g.png"));
    const Finished one = runProgram({"--view", "expression-control-flow", "--describe", file});
    QCOMPARE(one.status, 0);
    QCOMPARE(one.error, message);
    QCOMPARE(at(parse(one.out), "messages", 0)["text"].toString(), QString(message).trimmed().remove("kova-shell: "));
    // Boxes of the same column stand apart all the same.
    QCOMPARE(parse(one.out)["nodes"].toArray().size(), 7);
    // Text needs no Graphviz.
    QCOMPARE(runProgram({"--view", "control-flow", "--describe", file}).error, QByteArray());
}

void ControlFlowBatchRunTest::aFailureOfGraphvizIsTold() {
    const FakeGraphviz graphviz(FakeGraphviz::Program::Failing);
    const Finished finished = describe("expression-control-flow", loopsAndBranches);
    QVERIFY(graphviz.wasRun());
    QCOMPARE(finished.status, 0);
    QCOMPARE(finished.error, QByteArray("kova-shell: Graphviz's program 'dot' failed: blocks are placed plainly. The "
                                        "Debian package graphviz brings it; its files /tmp/1.dot and /tmp/1.dot.plain "
                                        "must not be somebody else's or in use by another run.\n"));
}

void ControlFlowBatchRunTest::manyBlocksAreWarnedOf() {
    const FakeGraphviz graphviz(FakeGraphviz::Program::Failing);
    const Finished finished = describe("expression-control-flow", manyBranches(751));
    QCOMPARE(finished.status, 0);
    QVERIFY(graphviz.wasRun());
    QVERIFY2(finished.error.startsWith(
                 "kova-shell: The graph has 1502 blocks: Graphviz may take long to place them.\nkova-shell: "),
             finished.error.constData());
    QCOMPARE(parse(finished.out)["nodes"].toArray().size(), 1504);
    // A gallery leaves it out, and has the text.
    const Finished all = runProgram({"--export-all", path("out"), path("a.c")});
    QCOMPARE(all.status, 0);
    QCOMPARE(all.error, QByteArray());
    QVERIFY(filesIn("out").filter("expression-control-flow").isEmpty());
    QVERIFY(filesIn("out").contains("control-flow-f.svg"));
}

void ControlFlowBatchRunTest::withoutSubroutinesThereIsNothing() {
    for (const char* view : {"control-flow", "expression-control-flow"}) {
        const Finished finished = describe(view, "int x;\n");
        QCOMPARE(finished.status, 1);
        QVERIFY2(finished.error.startsWith("kova-shell: "), finished.error.constData());
    }
}

void ControlFlowBatchRunTest::textsThatAreNoLabels() {
    const Finished finished =
        describe("expression-control-flow", "const char *f(int c) {\n"
                                            "    return c ? \"stop\\n\\\"node\\\" N1 [\\\\\" : \"\\\\\";\n"
                                            "}\n");
    QCOMPARE(finished.status, 0);
    QCOMPARE(finished.error, QByteArray());
    const QJsonObject description = parse(finished.out);
    QCOMPARE(namesIn(description, "nodes", "text"),
             QStringList({"Entry", "c", "\"stop\\n\\\"node\\\" N1 [\\\\\"", "\"\\\\\"", "Exit"}));
    // In layers: where control comes first is above what follows it.
    const auto top = [&](int node) { return at(description, "nodes", node)["rect"].toArray()[1].toInt(); };
    QVERIFY(top(0) < top(1) && top(1) < top(2) && top(2) < top(4) && top(3) < top(4));
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::ControlFlowBatchRunTest)
#include "ControlFlowBatchRunTest.moc"
