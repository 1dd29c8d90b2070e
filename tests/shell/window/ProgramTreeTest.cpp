// SPDX-License-Identifier: MIT
#include "shell/window/ProgramTree.h"

#include "shell/program/SubjectFinder.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "tests/shell/ShellTesting.h"

#include <QtTest>

namespace Kova::Shell {

class ProgramTreeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void filesAreOpen();
    void clicksAndKeysPick();
    void showingASubjectPicksNothing();
    void forgettingEmptiesTheTree();
    void blocksComeAndGo();

private:
    [[nodiscard]] QModelIndex fileRow() const { return m_tree->getModel().index(0, 0); }

    Testing::SourceFolder m_folder;
    OpenedProgram m_program;
    std::unique_ptr<ProgramTree> m_tree;
    QStringList m_picked;
};

void ProgramTreeTest::init() {
    m_program =
        Testing::readProgram({m_folder.write("a.c", "int f(void) { for (;;) ; }\nint g(void) { return 0; }\n")});
    m_tree = std::make_unique<ProgramTree>();
    m_tree->resize(300, 400);
    m_tree->setProgram(m_program);
    m_tree->show();
    m_picked.clear();
    connect(m_tree.get(), &ProgramTree::subjectPicked, this,
            [this](const Subject& subject) { m_picked.append(subject.getTitle()); });
}

void ProgramTreeTest::filesAreOpen() {
    const QModelIndex file = m_tree->getModel().index(0, 0);
    QVERIFY(m_tree->isExpanded(file));
    QVERIFY(!m_tree->isExpanded(m_tree->getModel().index(0, 0, file)));
    QCOMPARE(m_picked, QStringList());
}

void ProgramTreeTest::clicksAndKeysPick() {
    const QModelIndex file = m_tree->getModel().index(0, 0);
    const QModelIndex g = m_tree->getModel().index(1, 0, file);
    QTest::mouseClick(m_tree->viewport(), Qt::LeftButton, {}, m_tree->visualRect(g).center());
    QCOMPARE(m_picked, QStringList("subroutine g")); // once: showing may be slow
    m_picked.clear();
    QTest::keyClick(m_tree.get(), Qt::Key_Up);
    QCOMPARE(m_picked, QStringList("subroutine f"));
}

void ProgramTreeTest::showingASubjectPicksNothing() {
    const Subject loop =
        SubjectFinder(m_program).find({QString(), 1}, {Subject::Kind::Loop, Subject::Kind::Loop}).subject;
    const Subject f = SubjectFinder(m_program).find({"f", {}}, {}).subject;
    m_tree->showSubject(f);
    QCOMPARE(m_tree->currentIndex().data().toString(), QString("f"));
    m_tree->showSubject(loop); // the body is no loop: no row
    QVERIFY(!m_tree->currentIndex().isValid());
    // What has no row of its own is in what is around it.
    const SubjectFinder finder(m_program);
    m_tree->showSubject(Subject(*finder.findStatement(2, nullptr)));
    QCOMPARE(m_tree->currentIndex().data().toString(), QString("g"));
    m_tree->showSubject(Subject(*f.getSubroutine()->getBody()->getStatement(0)));
    QCOMPARE(m_tree->currentIndex().data().toString(), QString("for loop"));
    QCOMPARE(m_picked, QStringList());
}

void ProgramTreeTest::forgettingEmptiesTheTree() {
    m_tree->showSubject(SubjectFinder(m_program).find({"f", {}}, {}).subject);
    m_tree->forgetProgram();
    QCOMPARE(m_tree->getModel().rowCount(), 0);
    QCOMPARE(m_picked, QStringList());
}

void ProgramTreeTest::blocksComeAndGo() {
    const QString file = m_folder.write("b.c", Testing::blocksOfAllKinds);
    m_program = Testing::readProgram({file});
    m_tree->setShowsBlocks(true); // of the next program, too
    m_tree->setProgram(m_program);
    const auto rowsOfF = [this] { return m_tree->getModel().rowCount(m_tree->getModel().index(0, 0, fileRow())); };
    QCOMPARE(rowsOfF(), 4); // two loops, two blocks outside of loops
    QVERIFY(m_tree->isExpanded(fileRow()));
    m_tree->setShowsBlocks(false);
    QCOMPARE(rowsOfF(), 2);
    m_tree->setShowsBlocks(true);
    QCOMPARE(rowsOfF(), 4);
    QCOMPARE(m_picked, QStringList());
    const QModelIndex block = m_tree->getModel().index(1, 0, m_tree->getModel().index(0, 0, fileRow()));
    m_tree->setCurrentIndex(block);
    QCOMPARE(m_picked, QStringList("block at line 9 in f"));
    m_tree->forgetProgram();
    m_tree->setShowsBlocks(false);
    QCOMPARE(m_tree->getModel().rowCount(), 0);
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::ProgramTreeTest)
#include "ProgramTreeTest.moc"
