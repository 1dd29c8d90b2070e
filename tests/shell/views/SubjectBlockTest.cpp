// SPDX-License-Identifier: MIT
#include "shell/views/SubjectBlock.h"

#include "environment/tessel/LoopStatement.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "shell/program/ProgramOutline.h"
#include "shell/program/Subject.h"
#include "tests/shell/ShellTesting.h"

#include <QtTest>

namespace Kova::Shell {

namespace {

constexpr auto source = "void f(int n) {\n"        // 1
                        "    if (n) {\n"           // 2
                        "        while (n) --n;\n" // 3
                        "        for (;;) {\n"     // 4
                        "            n = 1;\n"     // 5
                        "        }\n"              // 6
                        "    }\n"                  // 7
                        "    do n = 2; while (n);\n"
                        "}\n"
                        "void g(void) {}\n";

} // namespace

class SubjectBlockTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aSubroutineStandsForItsBody();
    void aBlockIsItself();
    void aLoopStandsForTheBlockAroundIt();
    void aProgramHasNone();
    void statementsAreThemselves();
    void eachBlockWithLoopsOnce();

private:
    Testing::SourceFolder m_folder;
    OpenedProgram m_program;
    ProgramOutline m_outline;
    OutlineSubroutine m_f;
};

void SubjectBlockTest::init() {
    m_program = Testing::readProgram({m_folder.write("a.c", source)});
    m_outline = ProgramOutline(m_program);
    m_f = m_outline.getFiles().at(0).subroutines.at(0);
}

void SubjectBlockTest::aSubroutineStandsForItsBody() {
    QCOMPARE(blockOf(Subject(*m_f.subroutine)), m_f.subroutine->getBody());
}

void SubjectBlockTest::aBlockIsItself() {
    for (const OutlineBlock& block : m_f.blocks)
        QCOMPARE(blockOf(Subject(*block.block)), block.block);
}

void SubjectBlockTest::aLoopStandsForTheBlockAroundIt() {
    QCOMPARE(blockOf(Subject(*m_f.loops.at(0).loop)), m_f.blocks.at(0).block);
    QCOMPARE(blockOf(Subject(*m_f.loops.at(1).loop)), m_f.blocks.at(0).block);
    QCOMPARE(blockOf(Subject(*m_f.loops.at(2).loop)), m_f.subroutine->getBody());
    QCOMPARE(blockOf(Subject(*m_f.loops.at(1).loop->getBody()->getStatement(0))), m_f.loops.at(1).loop->getBody());
}

void SubjectBlockTest::aProgramHasNone() {
    QVERIFY(blockOf(Subject(m_program.getUnit())) == nullptr);
    QVERIFY(blockOf(Subject()) == nullptr);
    QVERIFY(!isBlockWithLoops(Subject(m_program.getUnit())));
}

void SubjectBlockTest::statementsAreThemselves() {
    QCOMPARE(statementOf(Subject(*m_f.subroutine)), static_cast<Tessel::StatementBase*>(m_f.subroutine->getBody()));
    Tessel::LoopStatement* loop = m_f.loops.at(0).loop;
    QCOMPARE(statementOf(Subject(*loop)), static_cast<Tessel::StatementBase*>(loop));
    QCOMPARE(statementOf(Subject(*loop->getBody()->getStatement(0))), loop->getBody()->getStatement(0));
    QVERIFY(statementOf(Subject(m_program.getUnit())) == nullptr);
    QVERIFY(statementOf(Subject()) == nullptr);
}

// The body of f has three loops; its picture is the subroutine's. The block of the if has two, and one picture.
void SubjectBlockTest::eachBlockWithLoopsOnce() {
    QVERIFY(isBlockWithLoops(Subject(*m_f.subroutine)));
    QVERIFY(isBlockWithLoops(Subject(*m_f.loops.at(0).loop)));
    QVERIFY(!isBlockWithLoops(Subject(*m_f.loops.at(1).loop)));
    QVERIFY(!isBlockWithLoops(Subject(*m_f.loops.at(2).loop)));
    QVERIFY(!isBlockWithLoops(Subject(*m_outline.getFiles().at(0).subroutines.at(1).subroutine)));
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::SubjectBlockTest)
#include "SubjectBlockTest.moc"
