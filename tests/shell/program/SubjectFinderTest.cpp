// SPDX-License-Identifier: MIT
#include "shell/program/SubjectFinder.h"

#include "environment/tessel/StatementBase.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "tests/shell/ShellTesting.h"

#include <QtTest>

namespace Kova::Shell {

using Kind = Subject::Kind;

namespace {

constexpr auto source = "int g(void);\n"                        // 1
                        "int f(int n) {\n"                      // 2
                        "    int i;\n"                          // 3
                        "    for (i = 0; i < n; ++i) {\n"       // 4
                        "        if (n)\n"                      // 5
                        "            g();\n"                    // 6
                        "        while (g())\n"                 // 7
                        "            --n;\n"                    // 8
                        "    }\n"                               // 9
                        "    switch (n) {\n"                    // 10
                        "    case 1:\n"                         // 11
                        "        g();\n"                        // 12
                        "        break;\n"                      // 13
                        "    case 2: default: return g();\n"    // 14
                        "    }\n"                               // 15
                        "again:\n"                              // 16
                        "    goto again;\n"                     // 17
                        "}\n"                                   // 18
                        "int g(void) { return f(1) + f(2); }\n" // 19
                        "int h(void)\n"                         // 20
                        "{\n"                                   // 21
                        "    return g(\n"                       // 22
                        "        );\n"                          // 23
                        "}\n";                                  // 24

const SubjectPreference forStatements = {Kind::Program, Kind::Statement};
const SubjectPreference forLoops = {Kind::Loop, Kind::Loop};
const SubjectPreference forBlocks = {Kind::Subroutine, Kind::Block};

} // namespace

class SubjectFinderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void statementsAtLines_data();
    void statementsAtLines();
    void linesWithoutAStatement_data();
    void linesWithoutAStatement();
    void loopsAndBlocksAtLines_data();
    void loopsAndBlocksAtLines();
    void defaults();
    void subroutinesByName();
    void unknownNamesNameTheOthers();
    void manyNamesAreCut();
    void staticsOfOneName();
    void linesOfSeveralFiles();
    void findAgainAfterAChange();
    void atANode();
    void around();

private:
    [[nodiscard]] QString titleOf(const SubjectRequest& request, const SubjectPreference& preference) const {
        const FoundSubject found = SubjectFinder(m_program).find(request, preference);
        return found.error.isEmpty() ? found.subject.getTitle() : "error: " + found.error;
    }

    Testing::SourceFolder m_folder;
    OpenedProgram m_program;
    QString m_file;
};

void SubjectFinderTest::initTestCase() {
    m_file = m_folder.write("a.c", source);
    m_program = Testing::readProgram({m_file});
    QVERIFY(!m_program.isEmpty());
}

void SubjectFinderTest::statementsAtLines_data() {
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("title");
    QTest::newRow("the body") << 2 << "block at line 2 in f";
    QTest::newRow("declaration") << 3 << "statement at line 3 in f";
    QTest::newRow("loop, not its parts") << 4 << "loop at line 4 in f";
    QTest::newRow("if") << 5 << "statement at line 5 in f";
    QTest::newRow("branch without braces") << 6 << "statement at line 6 in f";
    QTest::newRow("inner loop") << 7 << "loop at line 7 in f";
    QTest::newRow("case label: what it marks") << 11 << "statement at line 12 in f";
    QTest::newRow("two labels before a statement") << 14 << "statement at line 14 in f";
    QTest::newRow("label: what it marks") << 16 << "statement at line 17 in f";
    QTest::newRow("a body with its statement") << 19 << "block at line 19 in g";
    QTest::newRow("a brace of its own") << 21 << "block at line 21 in h";
}

void SubjectFinderTest::statementsAtLines() {
    QFETCH(int, line);
    QFETCH(QString, title);
    QCOMPARE(titleOf({QString(), line}, forStatements), title);
}

void SubjectFinderTest::linesWithoutAStatement_data() {
    QTest::addColumn<int>("line");
    QTest::newRow("prototype") << 1;
    QTest::newRow("end of a block") << 9;
    QTest::newRow("head of a function") << 20;
    QTest::newRow("middle of a statement") << 23;
    QTest::newRow("behind the file") << 1000;
}

void SubjectFinderTest::linesWithoutAStatement() {
    QFETCH(int, line);
    QCOMPARE(titleOf({QString(), line}, forStatements), QString("error: no statement starts on line %1").arg(line));
}

void SubjectFinderTest::loopsAndBlocksAtLines_data() {
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("loop");
    QTest::addColumn<QString>("block");
    QTest::newRow("loop") << 4 << "loop at line 4 in f"
                          << "block at line 2 in f";
    QTest::newRow("inner loop") << 7 << "loop at line 7 in f"
                                << "block at line 4 in f";
    QTest::newRow("in the inner loop") << 8 << "loop at line 7 in f"
                                       << "block at line 8 in f";
    QTest::newRow("branch in a loop") << 6 << "loop at line 4 in f"
                                      << "block at line 6 in f";
    QTest::newRow("no loop") << 3 << "error: no loop is around line 3"
                             << "block at line 2 in f";
}

void SubjectFinderTest::loopsAndBlocksAtLines() {
    QFETCH(int, line);
    QFETCH(QString, loop);
    QFETCH(QString, block);
    QCOMPARE(titleOf({QString(), line}, forLoops), loop);
    QCOMPARE(titleOf({QString(), line}, forBlocks), block);
}

void SubjectFinderTest::defaults() {
    QCOMPARE(titleOf({}, forStatements), QString("program"));
    QCOMPARE(titleOf({}, forBlocks), QString("subroutine f"));
    QCOMPARE(titleOf({}, forLoops), QString("loop at line 4 in f"));
    QCOMPARE(titleOf({"f", {}}, forLoops), QString("loop at line 4 in f"));
    QCOMPARE(titleOf({"g", {}}, forLoops), QString("error: there is no loop"));
    const Testing::SourceFolder folder;
    const OpenedProgram empty = Testing::readProgram({folder.write("a.c", "")});
    QCOMPARE(SubjectFinder(empty).find({}, forBlocks).error, QString("there is no subroutine"));
    QCOMPARE(SubjectFinder(empty).find({}, forStatements).subject.getTitle(), QString("program"));
}

void SubjectFinderTest::subroutinesByName() {
    QCOMPARE(titleOf({"g", {}}, forStatements), QString("subroutine g"));
    QCOMPARE(titleOf({"f", 7}, forStatements), QString("loop at line 7 in f"));
    QCOMPARE(titleOf({"g", 7}, forStatements),
             QString("error: no statement starts on line 7 of 'g', which spans lines 19 to 19"));
}

void SubjectFinderTest::unknownNamesNameTheOthers() {
    QCOMPARE(titleOf({"F", {}}, forStatements), QString("error: no subroutine 'F' with a body; there are f, g, h"));
    const Testing::SourceFolder folder;
    const OpenedProgram none = Testing::readProgram({folder.write("a.c", "int x;\n")});
    QCOMPARE(SubjectFinder(none).find({"f", {}}, forStatements).error,
             QString("no subroutine 'f' with a body; there is none"));
    const OpenedProgram one = Testing::readProgram({folder.write("b.c", "int x(void) { return 0; }\n")});
    QCOMPARE(SubjectFinder(one).find({"f", {}}, forStatements).error,
             QString("no subroutine 'f' with a body; there is x"));
}

void SubjectFinderTest::manyNamesAreCut() {
    QByteArray text;
    for (int i = 0; i < 40; ++i)
        text += "void f" + QByteArray::number(i) + "(void) {}\n";
    const Testing::WrittenProgram written(text);
    const QString error = SubjectFinder(written.program).find({"x", {}}, forStatements).error;
    QVERIFY2(error.endsWith("f28, f29 and 10 more"), qPrintable(error));
}

void SubjectFinderTest::staticsOfOneName() {
    const Testing::WrittenProgram written(Testing::staticsOfOneName);
    const SubjectFinder finder(written.program);
    QCOMPARE(finder.find({"f", {}}, forStatements).subject.getFile(), written.folder.path("a.c"));
    QCOMPARE(finder.find({"f (b.c)", {}}, forStatements).subject.getFile(), written.folder.path("b.c"));
    QVERIFY(finder.findSubroutine("f (c.c)") == nullptr);
}

void SubjectFinderTest::linesOfSeveralFiles() {
    const Testing::WrittenProgram written(
        {{"a.c", "int f(void) {\n  return 1;\n}\n"}, {"b.c", "int g(void) {\n  return 2;\n\n  return 3;\n}\n"}});
    const SubjectFinder finder(written.program);
    QCOMPARE(finder.find({QString(), 2}, forStatements).subject.getFile(), written.folder.path("a.c"));
    QCOMPARE(finder.find({"g", 2}, forStatements).subject.getFile(), written.folder.path("b.c"));
    QCOMPARE(finder.find({QString(), 4}, forStatements).subject.getTitle(), QString("statement at line 4 in g"));
}

void SubjectFinderTest::findAgainAfterAChange() {
    const SubjectFinder finder(m_program);
    const auto again = [&](const SubjectRequest& request) {
        return SubjectFinder::identify(finder.find(request, forStatements).subject);
    };
    const OpenedProgram same = Testing::readProgram({m_file});
    for (const SubjectRequest& request : {SubjectRequest{}, SubjectRequest{"g", {}}, SubjectRequest{"f", 7}}) {
        const Subject found = SubjectFinder(same).findAgain(again(request));
        QCOMPARE(found.getTitle(), titleOf(request, forStatements));
        QVERIFY(found != finder.find(request, forStatements).subject); // of the new program
    }
    m_folder.write("a.c", "int f(int n) {\n  return n;\n}\n");
    const OpenedProgram changed = Testing::readProgram({m_file});
    QCOMPARE(SubjectFinder(changed).findAgain(again({"f", 7})).getTitle(), QString("subroutine f"));
    QCOMPARE(SubjectFinder(changed).findAgain(again({"g", {}})).getTitle(), QString("program"));
    QCOMPARE(SubjectFinder(changed).findAgain({}).getTitle(), QString("program"));
    m_folder.write("a.c", source);
}

// What views look at when a person points at a node.
void SubjectFinderTest::atANode() {
    const Testing::WrittenProgram written("int g;\n"                          // 1
                                          "int f(int n) {\n"                  // 2
                                          "  for (int i = 0; i < n; i++) {\n" // 3
                                          "    while (n > i)\n"               // 4
                                          "      n = n - i;\n"                // 5
                                          "  }\n"                             // 6
                                          "  return n;\n"                     // 7
                                          "}\n");                             // 8
    const SubjectFinder finder(written.program);
    const auto titleAt = [&](Tessel::TesselBase* node, Kind kind) {
        return SubjectFinder::subjectAt(*node, kind).getTitle();
    };
    Tessel::TesselBase* assignment = finder.find({QString(), 5}, forStatements).subject.getNode();
    for (Tessel::TesselBase* node : {assignment, assignment->getChild(0), assignment->getChild(0)->getChild(1)}) {
        QCOMPARE(titleAt(node, Kind::Statement), QString("statement at line 5 in f"));
        QCOMPARE(titleAt(node, Kind::Loop), QString("loop at line 4 in f"));
        QCOMPARE(titleAt(node, Kind::Block), QString("block at line 5 in f"));
    }
    Tessel::TesselBase* loop = finder.find({QString(), 4}, forStatements).subject.getNode();
    QCOMPARE(titleAt(loop, Kind::Statement), QString("loop at line 4 in f"));
    QCOMPARE(titleAt(loop, Kind::Loop), QString("loop at line 4 in f"));
    QCOMPARE(titleAt(loop, Kind::Block), QString("block at line 3 in f"));
    Tessel::TesselBase* last = finder.find({QString(), 7}, forStatements).subject.getNode();
    QCOMPARE(titleAt(last, Kind::Loop), QString("subroutine f"));
    QCOMPARE(titleAt(last, Kind::Block), QString("block at line 2 in f"));
    Tessel::TesselBase* subroutine = finder.find({"f", {}}, forStatements).subject.getNode();
    QCOMPARE(titleAt(subroutine, Kind::Statement), QString("subroutine f"));
    QCOMPARE(titleAt(subroutine->getChild(0), Kind::Block), QString("subroutine f")); // its parameter
    Tessel::TesselBase* file = subroutine->getParent();
    QVERIFY(SubjectFinder::subjectAt(*file, Kind::Statement).getKind() == Kind::None);
    QVERIFY(SubjectFinder::subjectAt(*file->getChild(0), Kind::Block).getKind() == Kind::None);
}

void SubjectFinderTest::around() {
    const SubjectFinder finder(m_program);
    QCOMPARE(finder.findAround(m_file, 3).getTitle(), QString("subroutine f"));
    QCOMPARE(finder.findAround(m_file, 9).getTitle(), QString("loop at line 4 in f"));
    QCOMPARE(finder.findAround(m_file, 8).getTitle(), QString("loop at line 7 in f"));
    QCOMPARE(finder.findAround(m_file, 19).getTitle(), QString("subroutine g"));
    QVERIFY(finder.findAround(m_file, 1).getKind() == Kind::None);
    QVERIFY(finder.findAround("other.c", 8).getKind() == Kind::None);
}

} // namespace Kova::Shell

QTEST_APPLESS_MAIN(Kova::Shell::SubjectFinderTest)
#include "SubjectFinderTest.moc"
