// SPDX-License-Identifier: MIT
#include "shell/program/ProgramSession.h"

#include "environment/tessel/ProgramUnit.h"
#include "tests/shell/ShellTesting.h"

#include <QSignalSpy>
#include <QtTest>

namespace Kova::Shell {

class ProgramSessionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void openReplaces();
    void failureLeavesTheOldProgram();
    void addKeepsWhatIsThere();
    void reloadReadsAgain();
    void oldProgramLivesUntilAllForgotIt();
};

void ProgramSessionTest::openReplaces() {
    const Testing::SourceFolder folder;
    const QString a = folder.write("a.c", "int a(void) { return 0; }\n");
    const QString b = folder.write("b.c", "int b(void) { return 0; }\n");
    ProgramSession session({});
    QCOMPARE(session.getPaths(), QStringList());
    QSignalSpy changed(&session, &ProgramSession::programChanged);
    QVERIFY(session.open({a}));
    QVERIFY(session.open({b}));
    QCOMPARE(session.getPaths(), QStringList(b));
    QCOMPARE(session.getProgram().getUnit().getChildCount(), std::size_t(1));
    QCOMPARE(changed.size(), 2);
}

void ProgramSessionTest::failureLeavesTheOldProgram() {
    const Testing::SourceFolder folder;
    const QString a = folder.write("a.c", "int a(void) { return 0; }\n");
    ProgramSession session({});
    QVERIFY(session.open({a}));
    const Tessel::ProgramUnit* before = &session.getProgram().getUnit();
    QSignalSpy about(&session, &ProgramSession::programAboutToChange);
    QSignalSpy read(&session, &ProgramSession::fileRead);
    QVERIFY(!session.open({folder.path("missing.c")}));
    QVERIFY(!session.add({folder.path("missing.c")}));
    QVERIFY(!session.open({}));
    QCOMPARE(about.size(), 0);
    QCOMPARE(read.size(), 3);
    QCOMPARE(&session.getProgram().getUnit(), before);
    QVERIFY(session.open({folder.path("missing.c"), a})); // something of it can be looked at
    QVERIFY(session.getProgram().hasUnreadableFile());
}

void ProgramSessionTest::addKeepsWhatIsThere() {
    const Testing::SourceFolder folder;
    const QString a = folder.write("a.c", "int a(void) { return 0; }\n");
    const QString b = folder.write("b.c", "int b(void) { return 0; }\n");
    ProgramSession session({});
    QVERIFY(session.open({a}));
    QVERIFY(session.add({b}));
    QCOMPARE(session.getPaths(), QStringList({a, b}));
    QVERIFY(session.add({a})); // already there
    QCOMPARE(session.getPaths(), QStringList({a, b}));
    QVERIFY(session.add({folder.path("./b.c")})); // there by another name
    QCOMPARE(session.getPaths(), QStringList({a, b}));
}

void ProgramSessionTest::reloadReadsAgain() {
    const Testing::SourceFolder folder;
    const QString a = folder.write("a.c", "int a(void) { return 0; }\n");
    ProgramSession session({});
    QVERIFY(!session.reload());
    QVERIFY(session.open({a}));
    folder.write("a.c", "int a(void) { return 0; }\nint b(void) { return 0; }\n");
    QVERIFY(session.reload());
    QCOMPARE(session.getProgram().getUnit().getTranslationUnit(0)->getChildCount(), std::size_t(2));
    QVERIFY(QFile::remove(a));
    QVERIFY(!session.reload());
    QCOMPARE(session.getProgram().getUnit().getTranslationUnit(0)->getChildCount(), std::size_t(2));
}

void ProgramSessionTest::oldProgramLivesUntilAllForgotIt() {
    const Testing::SourceFolder folder;
    const QString a = folder.write("a.c", "int a(void) { return 0; }\n");
    ProgramSession session({});
    QVERIFY(session.open({a}));
    std::size_t seen = 0;
    connect(&session, &ProgramSession::programAboutToChange, this,
            [&] { seen = session.getProgram().getUnit().getChildCount(); });
    QVERIFY(session.open({a, folder.write("b.c", "int b;\n")}));
    QCOMPARE(seen, std::size_t(1));
    QCOMPARE(session.getProgram().getUnit().getChildCount(), std::size_t(2));
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::ProgramSessionTest)
#include "ProgramSessionTest.moc"
