// SPDX-License-Identifier: MIT
#include "shell/window/SourcePane.h"

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/StatementBase.h"
#include "environment/tessel/TranslationUnit.h"
#include "environment/tessel/service/Preorder.h"
#include "shell/program/SubjectFinder.h"
#include "shell/window/SourceFilePage.h"
#include "tests/shell/ShellTesting.h"
#include "visualization/sourceselector/SourceSelector.h"
#include "visualization/sourceselector/SourceSelectorEx.h"

#include <QScrollBar>
#include <QTextBlock>
#include <QtTest>

namespace Kova::Shell {

namespace {

using Tessel::TesselBase;

/// Subroutines f0 to f9, each of 7 lines from line 7 n + 1 on.
QByteArray manySubroutines() {
    QByteArray text;
    for (int i = 0; i < 10; ++i)
        text += "int f" + QByteArray::number(i) +
                "(int n)\n{\n    int s = 0;\n    while (s < n)\n        s = s + 2;\n    return s;\n}\n";
    return text;
}

} // namespace

/// The printed text and the file beside the views.
class SourcePaneTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void isEmptyAtFirst();
    void aProgramShowsItsFirstFile();
    void aSubjectIsMarkedAndScrolledTo();
    void subjectsAreSeenWhole();
    void aHighPaneShowsAllLinesInIt();
    void subjectsOfOtherFiles();
    void aPartOfAFileStaysWhileItHoldsTheSubject();
    void showingIsNoPicking();
    void clickingPicks();
    void otherMarksPickNothing();
    void clickingAfterADrag();
    void pickedInAView();
    void picksLeaveNoHoles();
    void aClickIsSeenWhereAPickWas();
    void theFilePageFollows();
    void theFilePageFollowsScrolling();
    void clickingALineOfTheFilePicks();
    void forgettingTheProgram();

private:
    [[nodiscard]] GUI::SourceSelector& selector() const { return *m_pane->getBrowser().getSelector(); }
    [[nodiscard]] Subject subjectAt(int line) const {
        return SubjectFinder(m_program).find({QString(), line}, {Subject::Kind::Program, Subject::Kind::Statement}).subject;
    }
    [[nodiscard]] Subject program() const { return SubjectFinder(m_program).find({}, {}).subject; }
    void click(const TesselBase& node, Qt::MouseButton button = Qt::LeftButton) {
        selector().ensureNodeVisible(&node);
        const QFontMetrics metrics(selector().getFont());
        const int line = selector().getText().findLine(&node);
        int column = 0;
        for (const GUI::SourceText::Part& part : selector().getText().getLine(line)) {
            if (part.node == &node)
                break;
            column += part.text.size();
        }
        const QPoint position(column * metrics.averageCharWidth() + 2 - selector().horizontalScrollBar()->value(),
                              line * metrics.height() + metrics.height() / 2 + metrics.descent() -
                                  selector().verticalScrollBar()->value());
        QTest::mouseClick(selector().viewport(), button, Qt::NoModifier, position);
    }

    Testing::SourceFolder m_folder;
    OpenedProgram m_program;
    QString m_first;
    QString m_second;
    std::unique_ptr<SourcePane> m_pane;
    QList<TesselBase*> m_picks;
};

void SourcePaneTest::init() {
    m_first = m_folder.write("a.c", manySubroutines());
    m_second = m_folder.write("b.c", "int other(void)\n{\n    return 3;\n}\n");
    m_program = Testing::readProgram({m_first, m_second});
    m_pane = std::make_unique<SourcePane>();
    m_picks.clear();
    connect(m_pane.get(), &SourcePane::nodePicked, this, [this](TesselBase* node) { m_picks.append(node); });
    m_pane->resize(500, 300);
    m_pane->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_pane.get()));
}

void SourcePaneTest::cleanup() {
    m_pane.reset();
}

void SourcePaneTest::isEmptyAtFirst() {
    QCOMPARE(m_pane->count(), 2);
    QCOMPARE(m_pane->currentIndex(), 0);
    QCOMPARE(selector().getText().getLineCount(), 0);
    m_pane->showSubject(Subject());
    m_pane->showPicked(nullptr, nullptr);
    m_pane->setCurrentIndex(1);
    QCOMPARE(m_pane->getFilePage().getPath(), QString());
}

void SourcePaneTest::aProgramShowsItsFirstFile() {
    m_pane->showSubject(program());
    QCOMPARE(m_pane->getBrowser().getRootNode(), m_program.getUnit().getTranslationUnit(0));
    QCOMPARE(selector().getMark(0), nullptr);
}

void SourcePaneTest::aSubjectIsMarkedAndScrolledTo() {
    const Subject subject = subjectAt(5 * 7 + 5);
    m_pane->showSubject(subject);
    QCOMPARE(selector().getMark(0), subject.getNode());
    QVERIFY(selector().isNodeSelected(*subject.getNode()));
    QVERIFY(selector().verticalScrollBar()->value() > 0);
    // The program as a whole has no mark.
    m_pane->showSubject(program());
    QVERIFY(!selector().isNodeSelected(*subject.getNode()));
    m_pane->showSubject(subject);
    QVERIFY(selector().isNodeSelected(*subject.getNode()));
}

// Each statement of the text in turn, from the top of the text.
void SourcePaneTest::subjectsAreSeenWhole() {
    m_pane->showSubject(program());
    const QFontMetrics metrics(selector().getFont());
    int moved = 0;
    for (int line = 3; line <= 70; ++line) {
        const Subject subject = subjectAt(line);
        if (!selector().containsNode(subject.getNode()))
            continue;
        selector().verticalScrollBar()->setValue(0);
        m_pane->showSubject(subject);
        const int scrolled = selector().verticalScrollBar()->value();
        const int top = selector().getText().findLine(subject.getNode()) * metrics.height() - scrolled;
        QVERIFY(top >= 0);
        QVERIFY(top + metrics.height() + metrics.descent() <= selector().viewport()->height());
        moved += scrolled > 0 ? 1 : 0;
    }
    QVERIFY(moved > 0);
}

void SourcePaneTest::aHighPaneShowsAllLinesInIt() {
    m_pane->resize(150, 700);
    m_pane->showSubject(program());
    const int height = QFontMetrics(selector().getFont()).height();
    const QImage picture = selector().viewport()->grab().toImage();
    const QRgb ground = selector().palette().color(QPalette::Base).rgb();
    QVERIFY(picture.height() > 2 * picture.width());
    // Every line of the program has something in it.
    for (int top = 0; top + height <= picture.height(); top += height) {
        int ink = 0;
        for (int y = top; y < top + height; ++y)
            for (int x = 0; x < picture.width(); ++x)
                ink += picture.pixel(x, y) != ground ? 1 : 0;
        QVERIFY2(ink > 0, qPrintable(QString::number(top / height)));
    }
    // A part of the picture is drawn as the whole is.
    const QRect part(0, 300, picture.width(), 50);
    QCOMPARE(selector().viewport()->grab(part).toImage(), picture.copy(part));
}

void SourcePaneTest::subjectsOfOtherFiles() {
    m_pane->showSubject(subjectAt(5));
    const Subject other = SubjectFinder(m_program).find({"other", {}}, {}).subject;
    m_pane->showSubject(other);
    QCOMPARE(m_pane->getBrowser().getRootNode(), m_program.getUnit().getTranslationUnit(1));
    QCOMPARE(selector().getMark(0), other.getNode());
    m_pane->showSubject(subjectAt(12));
    QCOMPARE(m_pane->getBrowser().getRootNode(), m_program.getUnit().getTranslationUnit(0));
}

void SourcePaneTest::aPartOfAFileStaysWhileItHoldsTheSubject() {
    TesselBase* subroutine = SubjectFinder(m_program).find({"f1", {}}, {}).subject.getNode();
    m_pane->showSubject(program());
    m_pane->getBrowser().setRootNode(subroutine);
    m_pane->showSubject(subjectAt(12));
    QCOMPARE(m_pane->getBrowser().getRootNode(), subroutine);
    m_pane->showSubject(subjectAt(5));
    QCOMPARE(m_pane->getBrowser().getRootNode(), m_program.getUnit().getTranslationUnit(0));
}

void SourcePaneTest::showingIsNoPicking() {
    m_pane->showSubject(subjectAt(5));
    m_pane->showSubject(subjectAt(12));
    m_pane->showPicked(subjectAt(19).getNode(), nullptr);
    m_pane->forgetProgram();
    QCOMPARE(m_picks.size(), 0);
}

void SourcePaneTest::clickingPicks() {
    m_pane->showSubject(program());
    TesselBase* loop = subjectAt(4).getNode();
    click(*loop);
    QCOMPARE(m_picks, QList<TesselBase*>({loop}));
    // Beside the text nothing is picked.
    QTest::mouseClick(selector().viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(selector().viewport()->width() - 2, 2));
    QCOMPARE(selector().getMark(0), nullptr);
    QCOMPARE(m_picks.size(), 1);
}

void SourcePaneTest::otherMarksPickNothing() {
    m_pane->showSubject(program());
    TesselBase* loop = subjectAt(4).getNode();
    click(*loop, Qt::RightButton);
    QCOMPARE(selector().getMark(1), loop);
    QCOMPARE(m_picks.size(), 0);
}

// A range of statements gives way to the node that is clicked next.
void SourcePaneTest::clickingAfterADrag() {
    m_pane->showSubject(program());
    auto* first = subjectAt(3).getStatement();
    auto* last = subjectAt(6).getStatement();
    Tessel::ProgramFragment fragment;
    fragment.set(*first, *last);
    selector().setMarkFragment(fragment, 0);
    QVERIFY(selector().isNodeSelected(*last));
    click(*subjectAt(4).getNode());
    QVERIFY(selector().isNodeSelected(*subjectAt(4).getNode()));
    QVERIFY(!selector().isNodeSelected(*first));
    QVERIFY(!selector().isNodeSelected(*last));
}

void SourcePaneTest::pickedInAView() {
    const Subject loop = subjectAt(4);
    m_pane->showSubject(loop);
    TesselBase* body = subjectAt(5).getNode();
    TesselBase* far = subjectAt(5 * 7 + 5).getNode();
    m_pane->showPicked(body, far);
    QCOMPARE(selector().getMark(4), body);
    QCOMPARE(selector().getMark(5), far);
    QCOMPARE(selector().getMark(0), loop.getNode());
    QVERIFY(selector().getMarkColor(4) != selector().getMarkColor(5));
    QCOMPARE(selector().getMarkKeys(4), (std::pair<int, int>(0, 0)));
    m_pane->showPicked(far, nullptr);
    QCOMPARE(selector().getMark(4), far);
    QVERIFY(!selector().isNodeSelected(*body) || selector().getMark(0) == loop.getNode());
    m_pane->showPicked(nullptr, nullptr);
    QVERIFY(!selector().isNodeSelected(*far));
    // In another file, that file is shown.
    TesselBase* other = SubjectFinder(m_program).find({"other", {}}, {}).subject.getNode();
    m_pane->showPicked(other, nullptr);
    QCOMPARE(m_pane->getBrowser().getRootNode(), m_program.getUnit().getTranslationUnit(1));
    QVERIFY(selector().isNodeSelected(*other));
}

// A loop is the subject, and its parts are picked one after the other.
void SourcePaneTest::picksLeaveNoHoles() {
    const Subject loop = subjectAt(4);
    TesselBase* body = subjectAt(5).getNode();
    m_pane->showSubject(loop);
    m_pane->showPicked(body, nullptr);
    m_pane->showPicked(nullptr, body);
    m_pane->showPicked(nullptr, nullptr);
    QVERIFY(selector().isNodeSelected(*body));
    selector().clearSelection(2);
    QVERIFY(!selector().isNodeSelected(*body));
    // The program as a whole has no mark, and gets none back.
    m_pane->showSubject(loop);
    m_pane->showSubject(program());
    m_pane->showPicked(body, nullptr);
    m_pane->showPicked(nullptr, nullptr);
    QVERIFY(!selector().isNodeSelected(*body));
    QVERIFY(!selector().isNodeSelected(*loop.getNode()));
}

void SourcePaneTest::aClickIsSeenWhereAPickWas() {
    TesselBase* subroutine = SubjectFinder(m_program).find({"f0", {}}, {}).subject.getNode();
    TesselBase* loop = subjectAt(4).getNode();
    m_pane->showSubject(program());
    m_pane->showPicked(subroutine, nullptr);
    click(*loop);
    QCOMPARE(selector().getMark(0), loop);
    QVERIFY(selector().isNodeSelected(*loop));
    QVERIFY(!selector().isNodeSelected(*subroutine));
    selector().clearSelection(2);
    QVERIFY(!selector().isNodeSelected(*loop));
    // The other marks likewise.
    m_pane->showPicked(subroutine, nullptr);
    click(*loop, Qt::RightButton);
    QVERIFY(selector().isNodeSelected(*loop));
    QVERIFY(!selector().isNodeSelected(*subroutine));
    QCOMPARE(m_picks, QList<TesselBase*>({loop}));
}

void SourcePaneTest::theFilePageFollows() {
    m_pane->showSubject(subjectAt(5 * 7 + 5));
    QCOMPARE(m_pane->getFilePage().getPath(), QString());
    m_pane->setCurrentIndex(1);
    QCOMPARE(m_pane->getFilePage().getPath(), m_first);
    QCOMPARE(m_pane->getFilePage().getMarkedLine(), 5 * 7 + 5);
    m_pane->showSubject(SubjectFinder(m_program).find({"other", {}}, {}).subject);
    QCOMPARE(m_pane->getFilePage().getPath(), m_second);
    QCOMPARE(m_pane->getFilePage().getMarkedLine(), 1);
    // What is picked in a view is what the file shows, too.
    m_pane->showPicked(subjectAt(12).getNode(), nullptr);
    QCOMPARE(m_pane->getFilePage().getPath(), m_first);
    QCOMPARE(m_pane->getFilePage().getMarkedLine(), 12);
    m_pane->showText();
    QCOMPARE(m_pane->currentIndex(), 0);
}

void SourcePaneTest::theFilePageFollowsScrolling() {
    m_pane->showSubject(program());
    const int height = QFontMetrics(selector().getFont()).height();
    TesselBase* f3 = SubjectFinder(m_program).find({"f3", {}}, {}).subject.getNode();
    selector().verticalScrollBar()->setValue(selector().getText().findLine(f3) * height);
    m_pane->setCurrentIndex(1);
    QCOMPARE(m_pane->getFilePage().getMarkedLine(), 3 * 7 + 1);
    TesselBase* f6 = SubjectFinder(m_program).find({"f6", {}}, {}).subject.getNode();
    selector().verticalScrollBar()->setValue(selector().getText().findLine(f6) * height);
    QCOMPARE(m_pane->getFilePage().getMarkedLine(), 6 * 7 + 1);
}

void SourcePaneTest::clickingALineOfTheFilePicks() {
    m_pane->showSubject(program());
    m_pane->setCurrentIndex(1);
    Q_EMIT m_pane->getFilePage().lineClicked(4 * 7 + 4);
    QCOMPARE(m_picks, QList<TesselBase*>({subjectAt(4 * 7 + 4).getNode()}));
    QCOMPARE(selector().getMark(0), subjectAt(4 * 7 + 4).getNode());
    QCOMPARE(m_pane->getFilePage().getMarkedLine(), 4 * 7 + 4);
    // Lines on which nothing begins.
    Q_EMIT m_pane->getFilePage().lineClicked(7);
    Q_EMIT m_pane->getFilePage().lineClicked(7000);
    QCOMPARE(m_picks.size(), 1);
}

void SourcePaneTest::forgettingTheProgram() {
    m_pane->showSubject(subjectAt(5));
    m_pane->setCurrentIndex(1);
    m_pane->forgetProgram();
    m_program = OpenedProgram();
    QCOMPARE(selector().getText().getLineCount(), 0);
    QCOMPARE(m_pane->getFilePage().getPath(), QString());
    m_pane->setCurrentIndex(0);
    m_pane->setCurrentIndex(1);
    Q_EMIT m_pane->getFilePage().lineClicked(4);
    QCOMPARE(m_pane->getBrowser().getRootNode(), nullptr);
    m_pane->grab();
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::SourcePaneTest)
#include "SourcePaneTest.moc"
