// SPDX-License-Identifier: MIT
// What the real program makes of files that are missing, broken or odd, and of places where nothing can be written.
#include "shell/commandline/BatchRun.h"
#include "tests/shell/ShellTesting.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonObject>
#include <QtTest>

namespace Kova::Shell {

using namespace Testing;

class BatchRunBadInputTest : public QObject, private FreshFolder {
    Q_OBJECT

private Q_SLOTS:
    void init() { renewFolder(); }
    void missingFile();
    void directory();
    void binaryFile();
    void emptyFile();
    void syntaxErrors();
    void missingInclude();
    void otherDialect();
    void twoFilesOneBroken();
    void nestedParentheses();
    void nestedBlocks();
    void unwritableExports_data();
    void unwritableExports();
    void failedExportLeavesTheOldFile();
    void fullStandardOutput();
    void galleryCannotBeMade();
    void nothingForTheGallery();
};

void BatchRunBadInputTest::missingFile() {
    const Finished alone = runProgram(describing + QStringList(path("missing.c")));
    QCOMPARE(alone.status, 3);
    QCOMPARE(alone.out, QByteArray());
    QVERIFY2(alone.error.startsWith(path("missing.c").toUtf8() + ": error: "), alone.error.constData());
    // The others are processed all the same.
    const Finished among = runProgram(describing + QStringList{path("missing.c"), write("a.c", twoCalls)});
    QCOMPARE(among.status, 3);
    QCOMPARE(namesIn(parse(among.out), "nodes", "text"), QStringList({"leaf", "main"}));
    const Finished list = runProgram({"--list", path("missing.c")});
    QCOMPARE(list.status, 3);
    QCOMPARE(namesIn(parse(list.out), "files", "read"), QStringList("unreadable"));
}

void BatchRunBadInputTest::directory() {
    const Finished run = runProgram(describing + QStringList(path("")));
    QCOMPARE(run.status, 3);
    QVERIFY2(hasMessageForm(run.error) && run.error.contains("directory"), run.error.constData());
}

void BatchRunBadInputTest::binaryFile() {
    QByteArray bytes("\x7f\x45LF\0\1\2\3", 8);
    for (int i = 0; i < 4096; ++i)
        bytes.append(static_cast<char>((i * 7919) % 256));
    const Finished run = runProgram(describing + QStringList(write("binary.c", bytes)));
    QCOMPARE(run.status, 3);
    QVERIFY2(!run.error.isEmpty() && hasMessageForm(run.error), run.error.constData());
    QCOMPARE(run.out, QByteArray());
}

void BatchRunBadInputTest::emptyFile() {
    const QString file = write("empty.c", "");
    const Finished run = runProgram(describing + QStringList{"--export", path("a.png"), file});
    QCOMPARE(run.status, 1);
    QCOMPARE(run.error, QByteArray("kova-shell: Procedure Call graph was not created. Visualization interrupted.\n"));
    const QJsonObject description = parse(run.out);
    QCOMPARE(description["nodes"].toArray(), QJsonArray());
    QCOMPARE(namesIn(description, "messages", "tag"), QStringList("CallGraphVisual"));
    QVERIFY(!QFile::exists(path("a.png")));
    QCOMPARE(runProgram({"--list", file}).status, 0);
}

void BatchRunBadInputTest::syntaxErrors() {
    const QString file =
        write("a.c", "int good(void) { return 1; }\nint broken( { ;\nint also(void) { return good(); }\n");
    const Finished run = runProgram(describing + QStringList(file));
    QCOMPARE(run.status, 0);
    QVERIFY(run.error.startsWith(file.toUtf8() + ":2:"));
    QVERIFY(hasMessageForm(run.error));
    QVERIFY(namesIn(parse(run.out), "nodes", "text").contains("good"));
}

void BatchRunBadInputTest::missingInclude() {
    const QString file = write("a.c", QByteArray("#include \"nowhere.h\"\n") + twoCalls);
    const Finished run = runProgram(describing + QStringList(file));
    QCOMPARE(run.status, 0);
    QVERIFY2(run.error.contains(":1:10: ") && run.error.contains("nowhere.h"), run.error.constData());
    QCOMPARE(namesIn(parse(run.out), "nodes", "text"), QStringList({"leaf", "main"}));
}

void BatchRunBadInputTest::otherDialect() {
    const QString file =
        write("old.c", "int twice(x) int x; { return 2 * x; }\nmain() { return twice(undeclared()); }\n");
    const Finished old = runProgram({"--list", "--std", "gnu89", file});
    QCOMPARE(old.status, 0);
    QVERIFY2(!old.error.contains("error"), old.error.constData());
    QCOMPARE(namesIn(parse(old.out), "subroutines", "name"), QStringList({"twice", "main"}));
    QVERIFY(runProgram({"--list", "--std", "c17", file}).error.contains("error"));
    const Finished unknown = runProgram({"--list", "--std", "c18x", file});
    QCOMPARE(unknown.status, 2);
    QVERIFY(unknown.error.contains("c18x"));
}

void BatchRunBadInputTest::twoFilesOneBroken() {
    const QString good = write("good.c", twoCalls);
    const QString broken = write("broken.c", "%%%%\n");
    const Finished run = runProgram(describing + QStringList{broken, good});
    QCOMPARE(namesIn(parse(run.out), "nodes", "text"), QStringList({"leaf", "main"}));
    QVERIFY(run.error.startsWith(broken.toUtf8() + ":1:"));
    QCOMPARE(run.status, 3); // nothing is left of the broken one
    const QString half = write("half.c", "int half(void) { return leaf_of_nobody; }\nint whole(void) { return 1; }\n");
    const Finished partial = runProgram(describing + QStringList{half, good});
    QCOMPARE(partial.status, 0);
    QVERIFY(namesIn(parse(partial.out), "nodes", "text").contains("whole"));
    QVERIFY(partial.error.contains("leaf_of_nobody"));
}

void BatchRunBadInputTest::nestedParentheses() {
    const QByteArray text = "int leaf(void) { return 1; }\nint main(void) { return " + QByteArray(2000, '(') +
                            "leaf()" + QByteArray(2000, ')') + "; }\n";
    const Finished run = runProgram(describing + QStringList(write("deep.c", text)));
    QCOMPARE(run.status, 0);
    QCOMPARE(run.error, QByteArray());
    QCOMPARE(namesIn(parse(run.out), "edges", "tooltip"), QStringList("leaf()"));
}

void BatchRunBadInputTest::nestedBlocks() {
    QByteArray loops;
    for (int i = 0; i < 2000; ++i)
        loops += "for (;;) {\n";
    const QByteArray text = "int leaf(void) { return 1; }\nint main(void) { " + QByteArray(2000, '{') + "leaf();" +
                            QByteArray(2000, '}') + " return 0; }\nvoid loop(void) {\n" + loops +
                            QByteArray(2000, '}') + "}\n";
    const QString file = write("deep.c", text);
    const Finished run = runProgram(describing + QStringList(file));
    QCOMPARE(run.status, 0);
    QCOMPARE(run.error, QByteArray());
    QCOMPARE(namesIn(parse(run.out), "edges", "tooltip"), QStringList("leaf()"));
    const Finished list = runProgram({"--list", file});
    QCOMPARE(list.status, 0);
    const QJsonArray listed = parse(list.out)["subroutines"].toArray().at(2).toObject()["loops"].toArray();
    QCOMPARE(listed.size(), 2000);
    QCOMPARE(listed.last().toObject()["depth"].toInt(), 2000);
    QCOMPARE(runProgram(describing + QStringList{"--line", "2002", file}).status, 0);
}

void BatchRunBadInputTest::unwritableExports_data() {
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("reason");
    QTest::newRow("missing directory") << "/nowhere/a.png"
                                       << "No such file";
    QTest::newRow("below a file") << "/etc/passwd/a.svg"
                                  << "cannot write";
    QTest::newRow("full disk") << "/dev/full"
                               << "No space left on device";
}

void BatchRunBadInputTest::unwritableExports() {
    QFETCH(QString, target);
    QFETCH(QString, reason);
    const Finished run = runProgram({"--view", "call-graph", "--export", target, write("a.c", twoCalls)});
    QCOMPARE(run.status, 3);
    QVERIFY2(run.error.startsWith("kova-shell: cannot write '" + target.toUtf8()), run.error.constData());
    QVERIFY2(run.error.contains(reason.toUtf8()), run.error.constData());
}

void BatchRunBadInputTest::failedExportLeavesTheOldFile() {
    QVERIFY(QDir().mkpath(path("out/a.png")));
    write("out/keep", "old");
    const Finished directory =
        runProgram({"--view", "call-graph", "--export", path("out/a.png"), write("a.c", twoCalls)});
    QCOMPARE(directory.status, 3);
    QCOMPARE(filesIn("out"), QStringList("keep"));
    const QString link = path("full.svg");
    QVERIFY(QFile::link("/dev/full", link));
    QCOMPARE(runProgram({"--view", "call-graph", "--export", link, path("a.c")}).status, 3);
    QVERIFY(QFileInfo(link).isSymLink());
}

void BatchRunBadInputTest::fullStandardOutput() {
    const QString file = write("a.c", twoCalls);
    for (const QStringList& arguments : {describing + QStringList(file), QStringList{"--list", file}}) {
        const Finished run = runProgram(arguments, "/dev/full");
        QCOMPARE(run.status, 3);
        QCOMPARE(run.error, QByteArray("kova-shell: cannot write to standard output: No space left on device\n"));
    }
}

void BatchRunBadInputTest::galleryCannotBeMade() {
    const QString file = write("a.c", twoCalls);
    const Finished run = runProgram({"--export-all", file + "/below", file});
    QCOMPARE(run.status, 3);
    QVERIFY2(run.error.startsWith("kova-shell: cannot make the directory"), run.error.constData());
    QCOMPARE(contentOf(file), QByteArray(twoCalls));
}

void BatchRunBadInputTest::nothingForTheGallery() {
    const Finished run = runProgram({"--export-all", path("out"), write("a.c", "int x;\n")});
    QCOMPARE(run.status, 1);
    QCOMPARE(filesIn("out"), QStringList("index.html"));
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::BatchRunBadInputTest)
#include "BatchRunBadInputTest.moc"
