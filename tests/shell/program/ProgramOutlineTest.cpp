// SPDX-License-Identifier: MIT
#include "shell/program/ProgramOutline.h"

#include "environment/tessel/SubroutineDeclaration.h"
#include "tests/shell/ShellTesting.h"

#include <QtTest>

namespace Kova::Shell {

class ProgramOutlineTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void filesSubroutinesAndLoops();
    void blocksInBraces();
    void headersComeAfterTheFiles();
    void aHeaderInTwoFilesIsShownOnce();
    void equalNamesInOneFileStay();
    void anEmptyFileIsThere();
    void deepNesting();
};

void ProgramOutlineTest::filesSubroutinesAndLoops() {
    const Testing::WrittenProgram written("int prototype(void);\n"
                                          "int f(int n) {\n"
                                          "    for (int i = 0; i < n; ++i) {\n"
                                          "        while (n)\n"
                                          "            --n;\n"
                                          "        if (n)\n"
                                          "            do {\n"
                                          "                ++n;\n"
                                          "            } while (n < 3);\n"
                                          "    }\n"
                                          "    for (;;) ;\n"
                                          "}\n"
                                          "void g(void) {}\n");
    const ProgramOutline outline(written.program);
    QCOMPARE(outline.getFiles().size(), std::size_t(1));
    QCOMPARE(outline.getFiles()[0].path, written.folder.path("a.c"));
    QCOMPARE(outline.getFiles()[0].language, QString("C"));
    const std::vector<OutlineSubroutine>& subroutines = outline.getFiles()[0].subroutines;
    QCOMPARE(subroutines.size(), std::size_t(2)); // not the prototype
    QCOMPARE(subroutines[0].name, QString("f"));
    QCOMPARE(subroutines[0].firstLine, 2U);
    QCOMPARE(subroutines[0].lastLine, 12U);
    QCOMPARE(subroutines[1].name, QString("g"));
    QCOMPARE(subroutines[1].firstLine, 13U);
    QCOMPARE(subroutines[1].loops.size(), std::size_t(0));

    struct Expected {
        const char* kind;
        std::uint32_t first, last;
        int depth, outer;
    };
    const std::vector<Expected> expected = {
        {"for", 3, 10, 1, -1}, {"while", 4, 5, 2, 0}, {"do", 7, 9, 2, 0}, {"for", 11, 11, 1, -1}};
    const std::vector<OutlineLoop>& loops = subroutines[0].loops;
    QCOMPARE(loops.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        QCOMPARE(loops[i].kind, QString(expected[i].kind));
        QCOMPARE(loops[i].firstLine, expected[i].first);
        QCOMPARE(loops[i].lastLine, expected[i].last);
        QCOMPARE(loops[i].depth, expected[i].depth);
        QCOMPARE(loops[i].outer, expected[i].outer);
    }
}

void ProgramOutlineTest::blocksInBraces() {
    const Testing::WrittenProgram written(Testing::blocksOfAllKinds);
    const ProgramOutline outline(written.program);
    const OutlineSubroutine& f = outline.getFiles().at(0).subroutines.at(0);
    struct Expected {
        const char* kind;
        std::uint32_t first, last;
        int outer;
        std::size_t loopsBefore;
    };
    const std::vector<Expected> expected = {
        {"body", 2, 8, 0, 1}, {"else", 5, 7, 0, 1}, {"block", 9, 11, -1, 1}, {"then", 12, 14, -1, 1}};
    QCOMPARE(f.blocks.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        QCOMPARE(f.blocks[i].kind, QString(expected[i].kind));
        QCOMPARE(f.blocks[i].firstLine, expected[i].first);
        QCOMPARE(f.blocks[i].lastLine, expected[i].last);
        QCOMPARE(f.blocks[i].outer, expected[i].outer);
        QCOMPARE(f.blocks[i].loopsBefore, expected[i].loopsBefore);
    }
}

void ProgramOutlineTest::headersComeAfterTheFiles() {
    const Testing::WrittenProgram written({{"h.h", "static int in_header(void) { return 1; }\n"},
                                           {"a.c", "#include \"h.h\"\nint a(void) { return in_header(); }\n"},
                                           {"b.c", "int b(void) { return 2; }\n"}});
    const ProgramOutline outline(written.program);
    QCOMPARE(outline.getFiles().size(), std::size_t(3));
    QCOMPARE(outline.getFiles()[0].path, written.folder.path("a.c"));
    QCOMPARE(outline.getFiles()[1].path, written.folder.path("b.c"));
    QVERIFY(outline.getFiles()[2].path.endsWith("h.h"));
    QCOMPARE(outline.getFiles()[2].subroutines.size(), std::size_t(1));
    QCOMPARE(outline.getFiles()[2].subroutines[0].name, QString("in_header"));
}

void ProgramOutlineTest::aHeaderInTwoFilesIsShownOnce() {
    const Testing::WrittenProgram written(
        {{"h.h", "static int one(void) { return 1; }\nstatic int two(void) { return 2; }\n"},
         {"a.c", "#include \"h.h\"\nint a(void) { return one(); }\n"},
         {"b.c", "#include \"h.h\"\nint b(void) { return one(); }\n"}});
    const ProgramOutline outline(written.program);
    QCOMPARE(outline.getFiles().size(), std::size_t(3));
    QCOMPARE(outline.getFiles()[2].subroutines.size(), std::size_t(2));
}

void ProgramOutlineTest::equalNamesInOneFileStay() {
    const Testing::WrittenProgram written(Testing::staticsOfOneName);
    const ProgramOutline outline(written.program);
    QCOMPARE(outline.getFiles()[0].subroutines.size(), std::size_t(1));
    QCOMPARE(outline.getFiles()[1].subroutines.size(), std::size_t(1));
}

void ProgramOutlineTest::anEmptyFileIsThere() {
    const Testing::WrittenProgram written("");
    const ProgramOutline outline(written.program);
    QCOMPARE(outline.getFiles().size(), std::size_t(1));
    QCOMPARE(outline.getFiles()[0].subroutines.size(), std::size_t(0));
}

void ProgramOutlineTest::deepNesting() {
    constexpr int depth = 120;
    QByteArray text = "void f(void) {\n";
    for (int i = 0; i < depth; ++i)
        text += "for (;;) {\n";
    text += QByteArray(depth, '}') + "}\n";
    const Testing::WrittenProgram written(text);
    const ProgramOutline outline(written.program);
    const std::vector<OutlineLoop>& loops = outline.getFiles().at(0).subroutines.at(0).loops;
    QCOMPARE(loops.size(), std::size_t(depth));
    QCOMPARE(loops.back().depth, depth);
    QCOMPARE(loops.back().outer, depth - 2);
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::ProgramOutlineTest)
#include "ProgramOutlineTest.moc"
