// SPDX-License-Identifier: MIT
#include "shell/program/Subject.h"

#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "tests/shell/ShellTesting.h"

#include <QtTest>

namespace Kova::Shell {

using Kind = Subject::Kind;

class SubjectTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void none();
    void program();
    void subroutine();
    void statements();
    void holdsWhatIsBelow();
};

void SubjectTest::none() {
    const Subject subject;
    QVERIFY(subject.getKind() == Kind::None);
    QVERIFY(subject.getTitle().isEmpty());
    QVERIFY(subject.getFile().isEmpty());
    QCOMPARE(subject.getLine(), 0U);
    QVERIFY(subject.getProgram() == nullptr);
    QVERIFY(subject.getSubroutine() == nullptr);
    QVERIFY(subject.getStatement() == nullptr);
    QVERIFY(subject == Subject());
}

void SubjectTest::program() {
    const Testing::SourceFolder folder;
    const QString file = folder.write("a.c", "int f(void) { return 0; }\n");
    const OpenedProgram opened = Testing::readProgram({file, folder.write("b.c", "int g;\n")});
    const Subject subject(opened.getUnit());
    QVERIFY(subject.getKind() == Kind::Program);
    QCOMPARE(subject.getProgram(), &opened.getUnit());
    QCOMPARE(subject.getTitle(), QString("program"));
    QCOMPARE(subject.getFile(), file);
    QCOMPARE(subject.getLine(), 0U);
    QVERIFY(subject.getSubroutine() == nullptr);
}

void SubjectTest::subroutine() {
    const Testing::SourceFolder folder;
    const QString file = folder.write("a.c", "\n\nint f(void) { return 0; }\n");
    const OpenedProgram opened = Testing::readProgram({file});
    auto* function = dynamic_cast<Tessel::SubroutineDeclaration*>(opened.getUnit().getTranslationUnit(0)->getChild(0));
    QVERIFY(function != nullptr);
    const Subject subject(*function);
    QVERIFY(subject.getKind() == Kind::Subroutine);
    QCOMPARE(subject.getSubroutine(), function);
    QCOMPARE(subject.getTitle(), QString("subroutine f"));
    QCOMPARE(subject.getFile(), file);
    QCOMPARE(subject.getLine(), 3U);
    QVERIFY(subject.getStatement() == nullptr);
    QVERIFY(subject != Subject(opened.getUnit()));
}

void SubjectTest::statements() {
    const Testing::SourceFolder folder;
    const OpenedProgram opened = Testing::readProgram({folder.write("a.c", "int f(void) {\n"
                                                                           "  int i;\n"
                                                                           "  for (i = 0; i < 3; ++i) ;\n"
                                                                           "  { }\n"
                                                                           "}\n")});
    auto* function = dynamic_cast<Tessel::SubroutineDeclaration*>(opened.getUnit().getTranslationUnit(0)->getChild(0));
    QVERIFY(function != nullptr);
    const Tessel::BlockStatement& body = *function->getBody();
    const Subject declaration(*body.getStatement(0));
    const Subject loop(*body.getStatement(1));
    const Subject block(*body.getStatement(2));
    QVERIFY(declaration.getKind() == Kind::Statement);
    QVERIFY(loop.getKind() == Kind::Loop);
    QVERIFY(block.getKind() == Kind::Block);
    QCOMPARE(declaration.getTitle(), QString("statement at line 2 in f"));
    QCOMPARE(loop.getTitle(), QString("loop at line 3 in f"));
    QCOMPARE(block.getTitle(), QString("block at line 4 in f"));
    QCOMPARE(loop.getSubroutine(), function);
    QCOMPARE(loop.getStatement(), body.getStatement(1));
    QCOMPARE(loop.getLine(), 3U);
}

void SubjectTest::holdsWhatIsBelow() {
    const Testing::SourceFolder folder;
    const OpenedProgram opened =
        Testing::readProgram({folder.write("a.c", "void f(int n) { while (n) n--; n = 2; }\n")});
    auto* function = dynamic_cast<Tessel::SubroutineDeclaration*>(opened.getUnit().getTranslationUnit(0)->getChild(0));
    QVERIFY(function != nullptr);
    Tessel::StatementBase& loop = *function->getBody()->getStatement(0);
    Tessel::StatementBase& last = *function->getBody()->getStatement(1);
    QVERIFY(Subject(loop).holds(loop));
    QVERIFY(Subject(loop).holds(*loop.getChild(0)));
    QVERIFY(!Subject(loop).holds(last));
    QVERIFY(!Subject(loop).holds(*function));
    QVERIFY(Subject(*function).holds(last));
    QVERIFY(Subject(opened.getUnit()).holds(last));
    QVERIFY(!Subject().holds(last));
}

} // namespace Kova::Shell

QTEST_APPLESS_MAIN(Kova::Shell::SubjectTest)
#include "SubjectTest.moc"
