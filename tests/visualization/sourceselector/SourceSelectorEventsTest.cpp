// SPDX-License-Identifier: MIT
#include "tests/visualization/sourceselector/SampleText.h"

#include <QSignalSpy>
#include <QtTest>

using namespace Kova::GUI;
using namespace Kova::Tessel;

/// What the mouse does to a selector.
class SourceSelectorEventsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void hitsThePartsOfALine();
    void hitsBetweenLines();
    void hitsAfterScrolling();
    void hitsLeftOfTheText();
    void positionsAreRounded();
    void hitsNothing_data();
    void hitsNothing();

    void clickingMarks_data();
    void clickingMarks();
    void clickingBesideTheText();
    void clickingThePlaceAgain();
    void clickingWithTwoButtons();
    void clickingTakesTheHoverAway();
    void clickingEmptiesTheFragment();

    void hoveringLightsTheSubtree();
    void hoveringOffTheTextLightsNothing();
    void hoverIsSeenOverMarks();
    void leavingKeepsTheHover();
    void hoverIsNotEmptiedByANewRoot();
    void draggingWithoutFragmentsHovers();

    void draggingDown();
    void draggingUp();
    void draggingToAnotherBlock();
    void draggingFromAnExpression();
    void draggingToAnExpression();
    void draggingBackToTheAnchor();
    void draggingOffTheText();
    void draggingFromNowhere();
    void draggingWithAnotherButton();
    void draggingWithEachMark();
    void hoveringWithFragmentsEnabled();

private:
    [[nodiscard]] QRgb plain() const { return m_selector->palette().color(QPalette::Base).rgb(); }
    [[nodiscard]] QRgb seen(int line, int column) { return background(*m_selector, line, column); }
    [[nodiscard]] bool holdsFragment(int mark, StatementBase* first, StatementBase* last) const {
        ProgramFragment fragment;
        fragment.set(*first, *last);
        return m_selector->getMarkFragment(mark) == fragment;
    }

    SampleText m_sample;
    std::unique_ptr<SourceSelector> m_selector;
};

namespace {

constexpr QRgb hovered = qRgb(230, 230, 230);
constexpr QRgb mark0 = qRgb(200, 250, 200);
constexpr QRgb mark1 = qRgb(200, 200, 250);
constexpr QRgb mark2 = qRgb(250, 200, 200);

} // namespace

void SourceSelectorEventsTest::init() {
    m_selector = std::make_unique<SourceSelector>();
    m_selector->setOptions({});
    // As many lines as this is wide are drawn.
    m_selector->resize(500, 400);
    m_selector->setRootNode(m_sample.block.get());
    m_selector->grab();
}

// "        a = b + 1;": what each column belongs to.
void SourceSelectorEventsTest::hitsThePartsOfALine() {
    const auto at = [&](int column) { return m_selector->getNodeByPos(cell(*m_selector, 1, column)); };
    for (int column = 0; column < 8; ++column)
        QCOMPARE(at(column), m_sample.firstStatement);
    QCOMPARE(at(8), m_sample.writtenA);
    QCOMPARE(at(10), m_sample.assignment);
    QCOMPARE(at(12), m_sample.readB);
    QCOMPARE(at(14), m_sample.addition);
    QCOMPARE(at(16), m_sample.constant);
    QCOMPARE(at(17), m_sample.firstStatement);
    QCOMPARE(at(18), nullptr);
    // The first and the last pixel of a character.
    const int width = QFontMetrics(m_selector->getFont()).averageCharWidth();
    const int y = cell(*m_selector, 1, 0).y();
    QCOMPARE(m_selector->getNodeByPos({8 * width - 1, y}), m_sample.firstStatement);
    QCOMPARE(m_selector->getNodeByPos({8 * width, y}), m_sample.writtenA);
    QCOMPARE(m_selector->getNodeByPos({9 * width - 1, y}), m_sample.writtenA);
}

void SourceSelectorEventsTest::hitsBetweenLines() {
    const QFontMetrics metrics(m_selector->getFont());
    const int x = cell(*m_selector, 0, 0).x();
    const int firstOfLine1 = metrics.height() + metrics.descent();
    QCOMPARE(m_selector->getNodeByPos({x, firstOfLine1 - 1}), m_sample.block.get());
    QCOMPARE(m_selector->getNodeByPos({x, firstOfLine1}), m_sample.firstStatement);
    // The pixels above the first line belong to it: the quotient is cut towards zero.
    QCOMPARE(m_selector->getNodeByPos({x, 0}), m_sample.block.get());
    QCOMPARE(m_selector->getNodeByPos({x, metrics.descent() - 1}), m_sample.block.get());
    QCOMPARE(m_selector->getNodeByPos({x, metrics.descent() - metrics.height() + 1}), m_sample.block.get());
    QCOMPARE(m_selector->getNodeByPos({x, metrics.descent() - metrics.height()}), nullptr);
}

void SourceSelectorEventsTest::hitsAfterScrolling() {
    m_selector->resize(80, 60);
    m_selector->grab();
    const QPoint before = cell(*m_selector, 1, 12);
    m_selector->verticalScrollBar()->setValue(7);
    m_selector->horizontalScrollBar()->setValue(13);
    QCOMPARE(m_selector->verticalScrollBar()->value(), 7);
    QCOMPARE(m_selector->horizontalScrollBar()->value(), 13);
    QCOMPARE(cell(*m_selector, 1, 12), before - QPoint(13, 7));
    QCOMPARE(m_selector->getNodeByPos(before - QPoint(13, 7)), m_sample.readB);
}

void SourceSelectorEventsTest::hitsLeftOfTheText() {
    const int y = cell(*m_selector, 1, 0).y();
    QCOMPARE(m_selector->getNodeByPos({-1, y}), m_sample.firstStatement);
    QCOMPARE(m_selector->getNodeByPos({-100, y}), m_sample.firstStatement);
}

void SourceSelectorEventsTest::positionsAreRounded() {
    const int width = QFontMetrics(m_selector->getFont()).averageCharWidth();
    const double y = cell(*m_selector, 1, 0).y();
    press(*m_selector, QPointF(8 * width - 0.6, y));
    QCOMPARE(m_selector->getMark(0), m_sample.firstStatement);
    press(*m_selector, QPointF(8 * width - 0.4, y));
    QCOMPARE(m_selector->getMark(0), m_sample.writtenA);
    const QFontMetrics metrics(m_selector->getFont());
    const double top = metrics.height() + metrics.descent();
    press(*m_selector, QPointF(4.5 * width, top - 0.6));
    QCOMPARE(m_selector->getMark(0), m_sample.block.get());
    press(*m_selector, QPointF(4.5 * width, top - 0.4));
    QCOMPARE(m_selector->getMark(0), m_sample.firstStatement);
}

void SourceSelectorEventsTest::hitsNothing_data() {
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    QTest::newRow("below the last line") << 8 << 4;
    QTest::newRow("far below") << 20 << 4;
    QTest::newRow("behind the end of a line") << 0 << 5;
    QTest::newRow("far behind") << 3 << 40;
}

void SourceSelectorEventsTest::hitsNothing() {
    QFETCH(int, line);
    QFETCH(int, column);
    QCOMPARE(m_selector->getNodeByPos(cell(*m_selector, line, column)), nullptr);
}

void SourceSelectorEventsTest::clickingMarks_data() {
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("mark");
    const int shift = Qt::ShiftModifier;
    QTest::newRow("left") << int(Qt::LeftButton) << 0 << 0;
    QTest::newRow("right") << int(Qt::RightButton) << 0 << 1;
    QTest::newRow("middle") << int(Qt::MiddleButton) << 0 << 2;
    QTest::newRow("Shift and left") << int(Qt::LeftButton) << shift << 2;
    QTest::newRow("Shift and right") << int(Qt::RightButton) << shift << 3;
    QTest::newRow("Shift and middle") << int(Qt::MiddleButton) << shift << -1;
    QTest::newRow("Ctrl and left") << int(Qt::LeftButton) << int(Qt::ControlModifier) << -1;
    QTest::newRow("back") << int(Qt::BackButton) << 0 << -1;
}

void SourceSelectorEventsTest::clickingMarks() {
    QFETCH(int, button);
    QFETCH(int, modifiers);
    QFETCH(int, mark);
    QSignalSpy changes(m_selector.get(), &SourceSelector::markChanged);
    press(*m_selector, cell(*m_selector, 1, 12), Qt::MouseButton(button), Qt::KeyboardModifiers(modifiers));
    for (int i = 0; i < 4; ++i)
        QCOMPARE(m_selector->getMark(i), i == mark ? m_sample.readB : nullptr);
    QCOMPARE(changes.count(), mark < 0 ? 0 : 1);
    if (mark >= 0) {
        QCOMPARE(changes.front().front().toInt(), mark);
        QCOMPARE(seen(1, 12), m_selector->getMarkColor(mark));
    }
    QCOMPARE(seen(1, 8), plain());
}

void SourceSelectorEventsTest::clickingBesideTheText() {
    press(*m_selector, cell(*m_selector, 1, 12));
    QSignalSpy changes(m_selector.get(), &SourceSelector::markChanged);
    press(*m_selector, cell(*m_selector, 9, 12));
    QCOMPARE(m_selector->getMark(0), nullptr);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(seen(1, 12), plain());
    press(*m_selector, cell(*m_selector, 1, 30));
    QCOMPARE(changes.count(), 1);
}

void SourceSelectorEventsTest::clickingThePlaceAgain() {
    press(*m_selector, cell(*m_selector, 1, 0));
    QSignalSpy changes(m_selector.get(), &SourceSelector::markChanged);
    m_selector->clearSelection(2);
    press(*m_selector, cell(*m_selector, 1, 17));
    QCOMPARE(changes.count(), 0);
    QCOMPARE(m_selector->getMark(0), m_sample.firstStatement);
    QCOMPARE(seen(1, 12), mark0);
}

void SourceSelectorEventsTest::clickingWithTwoButtons() {
    sendMouse(*m_selector, QEvent::MouseButtonPress, cell(*m_selector, 1, 0), Qt::RightButton,
              Qt::LeftButton | Qt::RightButton);
    for (int mark = 0; mark < 4; ++mark)
        QCOMPARE(m_selector->getMark(mark), nullptr);
}

void SourceSelectorEventsTest::clickingTakesTheHoverAway() {
    move(*m_selector, cell(*m_selector, 6, 0));
    QCOMPARE(seen(6, 8), hovered);
    press(*m_selector, cell(*m_selector, 1, 0));
    QCOMPARE(seen(6, 8), plain());
    QCOMPARE(seen(1, 8), mark0);
    // A button that marks nothing changes nothing.
    move(*m_selector, cell(*m_selector, 6, 0));
    press(*m_selector, cell(*m_selector, 1, 0), Qt::BackButton);
    QCOMPARE(seen(6, 8), hovered);
}

void SourceSelectorEventsTest::clickingEmptiesTheFragment() {
    ProgramFragment fragment;
    fragment.set(*m_sample.firstStatement, *m_sample.lastStatement);
    m_selector->setMarkFragment(fragment, 0);
    press(*m_selector, cell(*m_selector, 6, 0));
    QVERIFY(m_selector->getMarkFragment(0).isEmpty());
    QCOMPARE(seen(1, 8), plain());
    QCOMPARE(seen(6, 8), mark0);
}

void SourceSelectorEventsTest::hoveringLightsTheSubtree() {
    move(*m_selector, cell(*m_selector, 1, 10));
    // The assignment with both sides, without what its statement printed.
    QCOMPARE(seen(1, 7), plain());
    for (const int column : {8, 10, 12, 14, 16})
        QCOMPARE(seen(1, column), hovered);
    QCOMPARE(seen(1, 17), plain());
    move(*m_selector, cell(*m_selector, 0, 4));
    for (int line = 0; line < 8; ++line)
        QCOMPARE(seen(line, 0), hovered);
    QCOMPARE(seen(3, 12), hovered);
    // Of "int d;" the indentation and the semicolon are the statement's.
    QCOMPARE(seen(5, 8), plain());
    QCOMPARE(seen(5, 12), plain());
    move(*m_selector, cell(*m_selector, 6, 8));
    QCOMPARE(seen(6, 8), hovered);
    QCOMPARE(seen(6, 10), plain());
    QCOMPARE(seen(0, 4), plain());
}

void SourceSelectorEventsTest::hoveringOffTheTextLightsNothing() {
    move(*m_selector, cell(*m_selector, 1, 0));
    move(*m_selector, cell(*m_selector, 1, 25));
    QCOMPARE(seen(1, 0), plain());
}

void SourceSelectorEventsTest::hoverIsSeenOverMarks() {
    press(*m_selector, cell(*m_selector, 1, 0), Qt::MiddleButton);
    move(*m_selector, cell(*m_selector, 1, 12));
    QCOMPARE(seen(1, 12), hovered);
    QCOMPARE(seen(1, 8), mark2);
    move(*m_selector, cell(*m_selector, 6, 0));
    QCOMPARE(seen(1, 12), mark2);
}

void SourceSelectorEventsTest::leavingKeepsTheHover() {
    move(*m_selector, cell(*m_selector, 1, 0));
    leave(*m_selector);
    QCOMPARE(seen(1, 8), hovered);
    move(*m_selector, cell(*m_selector, 6, 0));
    QCOMPARE(seen(1, 8), plain());
}

void SourceSelectorEventsTest::hoverIsNotEmptiedByANewRoot() {
    move(*m_selector, cell(*m_selector, 3, 0));
    m_selector->setRootNode(m_sample.inner);
    QCOMPARE(seen(1, 8), hovered);
    QCOMPARE(seen(0, 4), plain());
}

void SourceSelectorEventsTest::draggingWithoutFragmentsHovers() {
    press(*m_selector, cell(*m_selector, 1, 0));
    move(*m_selector, cell(*m_selector, 6, 0), Qt::LeftButton);
    QCOMPARE(seen(6, 8), hovered);
    QCOMPARE(seen(1, 8), mark0);
    QVERIFY(m_selector->getMarkFragment(0).isEmpty());
}

void SourceSelectorEventsTest::draggingDown() {
    m_selector->enableFragmentSelection(true);
    QVERIFY(m_selector->fragmentSelectionEnabled());
    press(*m_selector, cell(*m_selector, 1, 0));
    QSignalSpy changes(m_selector.get(), &SourceSelector::markChanged);
    move(*m_selector, cell(*m_selector, 2, 0), Qt::LeftButton);
    QVERIFY(holdsFragment(0, m_sample.firstStatement, m_sample.inner));
    QCOMPARE(seen(3, 12), mark0);
    move(*m_selector, cell(*m_selector, 6, 0), Qt::LeftButton);
    QVERIFY(holdsFragment(0, m_sample.firstStatement, m_sample.lastStatement));
    QCOMPARE(seen(1, 8), mark0);
    QCOMPARE(seen(6, 8), mark0);
    QCOMPARE(seen(0, 4), plain());
    // Variables keep their plain colour.
    QCOMPARE(seen(5, 12), plain());
    move(*m_selector, cell(*m_selector, 4, 0), Qt::LeftButton);
    QVERIFY(holdsFragment(0, m_sample.firstStatement, m_sample.inner));
    QCOMPARE(seen(6, 8), plain());
    // The anchor stays what the mark holds, and nobody is told.
    QCOMPARE(m_selector->getMark(0), m_sample.firstStatement);
    QCOMPARE(changes.count(), 0);
}

void SourceSelectorEventsTest::draggingUp() {
    m_selector->enableFragmentSelection(true);
    press(*m_selector, cell(*m_selector, 6, 0));
    move(*m_selector, cell(*m_selector, 1, 0), Qt::LeftButton);
    QVERIFY(holdsFragment(0, m_sample.firstStatement, m_sample.lastStatement));
    QCOMPARE(m_selector->getMark(0), m_sample.lastStatement);
    QCOMPARE(seen(3, 12), mark0);
}

void SourceSelectorEventsTest::draggingToAnotherBlock() {
    m_selector->enableFragmentSelection(true);
    press(*m_selector, cell(*m_selector, 1, 0));
    move(*m_selector, cell(*m_selector, 6, 0), Qt::LeftButton);
    move(*m_selector, cell(*m_selector, 3, 0), Qt::LeftButton);
    QVERIFY(m_selector->getMarkFragment(0).isEmpty());
    QCOMPARE(seen(1, 8), mark0);
    QCOMPARE(seen(3, 12), plain());
    QCOMPARE(seen(6, 8), plain());
    QCOMPARE(m_selector->getMark(0), m_sample.firstStatement);
}

void SourceSelectorEventsTest::draggingFromAnExpression() {
    m_selector->enableFragmentSelection(true);
    press(*m_selector, cell(*m_selector, 1, 12));
    move(*m_selector, cell(*m_selector, 6, 0), Qt::LeftButton);
    QVERIFY(m_selector->getMarkFragment(0).isEmpty());
    QCOMPARE(seen(1, 12), mark0);
    QCOMPARE(seen(6, 8), plain());
}

void SourceSelectorEventsTest::draggingToAnExpression() {
    m_selector->enableFragmentSelection(true);
    press(*m_selector, cell(*m_selector, 1, 0));
    move(*m_selector, cell(*m_selector, 6, 0), Qt::LeftButton);
    move(*m_selector, cell(*m_selector, 6, 8), Qt::LeftButton);
    QVERIFY(m_selector->getMarkFragment(0).isEmpty());
    QCOMPARE(seen(1, 8), mark0);
    QCOMPARE(seen(6, 0), plain());
}

void SourceSelectorEventsTest::draggingBackToTheAnchor() {
    m_selector->enableFragmentSelection(true);
    press(*m_selector, cell(*m_selector, 1, 0));
    move(*m_selector, cell(*m_selector, 6, 0), Qt::LeftButton);
    move(*m_selector, cell(*m_selector, 1, 17), Qt::LeftButton);
    QVERIFY(holdsFragment(0, m_sample.firstStatement, m_sample.lastStatement));
    QCOMPARE(seen(6, 8), mark0);
}

void SourceSelectorEventsTest::draggingOffTheText() {
    m_selector->enableFragmentSelection(true);
    press(*m_selector, cell(*m_selector, 1, 0));
    move(*m_selector, cell(*m_selector, 6, 0), Qt::LeftButton);
    move(*m_selector, cell(*m_selector, 12, 0), Qt::LeftButton);
    QVERIFY(holdsFragment(0, m_sample.firstStatement, m_sample.lastStatement));
    QCOMPARE(seen(6, 8), mark0);
}

void SourceSelectorEventsTest::draggingFromNowhere() {
    m_selector->enableFragmentSelection(true);
    press(*m_selector, cell(*m_selector, 12, 0));
    move(*m_selector, cell(*m_selector, 1, 0), Qt::LeftButton);
    QVERIFY(m_selector->getMarkFragment(0).isEmpty());
    QCOMPARE(m_selector->getMark(0), nullptr);
    // Nothing is hovered while a button is held.
    QCOMPARE(seen(1, 0), plain());
}

void SourceSelectorEventsTest::draggingWithAnotherButton() {
    m_selector->enableFragmentSelection(true);
    move(*m_selector, cell(*m_selector, 6, 0));
    move(*m_selector, cell(*m_selector, 1, 0), Qt::BackButton);
    QCOMPARE(seen(6, 8), hovered);
    move(*m_selector, cell(*m_selector, 1, 0), Qt::RightButton);
    QCOMPARE(seen(6, 8), plain());
    QCOMPARE(m_selector->getMark(1), nullptr);
}

void SourceSelectorEventsTest::draggingWithEachMark() {
    m_selector->enableFragmentSelection(true);
    press(*m_selector, cell(*m_selector, 1, 0), Qt::LeftButton, Qt::ShiftModifier);
    move(*m_selector, cell(*m_selector, 2, 0), Qt::LeftButton, Qt::ShiftModifier);
    QVERIFY(holdsFragment(2, m_sample.firstStatement, m_sample.inner));
    press(*m_selector, cell(*m_selector, 2, 0), Qt::RightButton);
    move(*m_selector, cell(*m_selector, 6, 0), Qt::RightButton);
    QVERIFY(holdsFragment(1, m_sample.inner, m_sample.lastStatement));
    QCOMPARE(seen(1, 8), mark2);
    QCOMPARE(seen(3, 12), mark2);
    QCOMPARE(seen(6, 8), mark1);
    QVERIFY(m_selector->getMarkFragment(0).isEmpty());
}

void SourceSelectorEventsTest::hoveringWithFragmentsEnabled() {
    m_selector->enableFragmentSelection(true);
    move(*m_selector, cell(*m_selector, 1, 0));
    QCOMPARE(seen(1, 8), hovered);
}

QTEST_MAIN(SourceSelectorEventsTest)
#include "SourceSelectorEventsTest.moc"
