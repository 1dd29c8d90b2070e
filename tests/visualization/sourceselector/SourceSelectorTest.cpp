// SPDX-License-Identifier: MIT
#include "visualization/sourceselector/SourceSelector.h"

#include "environment/core/Exception.h"
#include "tests/visualization/sourceselector/SampleText.h"

#include <QSignalSpy>
#include <QtTest>

using namespace Kova;
using namespace Kova::GUI;
using namespace Kova::Tessel;

namespace {

const SourceSelector::Options hidingNothing;

QStringList lines(const SourceSelector& selector) {
    QStringList all;
    for (int i = 0; i < selector.getText().getLineCount(); ++i) {
        QString line;
        for (const SourceSelector::SStringPart& part : selector.getText().getLine(i))
            line += part.text;
        all.append(line);
    }
    return all;
}

QList<int> marks(const QSignalSpy& spy) {
    QList<int> numbers;
    for (const QVariantList& arguments : spy)
        numbers.append(arguments.front().toInt());
    return numbers;
}

} // namespace

/// What a selector is told by its host.
class SourceSelectorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aNewSelector();
    void marksOfANewSelector();
    void marksOfANewSelectorTakeChildren();
    void itsProperties();
    void printsIndentedByALevel();
    void hidesDeclarationsUnlessToldOtherwise();
    void optionsPrintAnewOnlyWhenTheyDiffer();
    void aNewRootEmptiesAllMarks();
    void aNullRootKeepsTheRoot();
    void aRootThatWent();
    void forgettingTheRoot();
    void aRootThatPrintsNothing();
    void aListenerMaySetAnotherRoot();
    void aListenerMayChangeTheNumberOfMarks();

    void setMarkPicksANode();
    void setMarkOfTheSameNode();
    void setMarkOfNullOnlyTakesTheColour();
    void setMarkOfWhatIsNotPrinted();
    void setMarkEmptiesTheFragment();
    void setMarkFragment();
    void setMarkFragmentToNone();
    void fragmentsAcrossTheBlockEndThrow();
    void theLargerMarkIsSeen();
    void markNodeStopsAtWhatPrintedNothing();
    void markNodeWithoutChildren();
    void markNodeOfSlotsThatDoNotExist();
    void clearSelectionKeepsOtherSlots();

    void setMarksNumEmptiesMarksSilently();
    void newMarksHaveNoKeys();
    void keysOfMarksThatWentAreFree();
    void fewMarks_data();
    void fewMarks();
    void manyMarks();
    void marksThatDoNotExist();
    void setMarkParams();
    void setOverParams();

    void containsWhatPrintedItself();
    void scrollBars();
    void scrollBarsFollowTheText();
    void fontsChangeStepsButNotRanges();
    void fontsOfAnyPitchCountTheAverage();
    void ensureNodeVisible();
    void aFontWithoutWidth();

private:
    SampleText m_sample;
    std::unique_ptr<SourceSelector> m_selector;
};

void SourceSelectorTest::init() {
    m_selector = std::make_unique<SourceSelector>();
    m_selector->resize(400, 300);
    m_selector->setOptions(hidingNothing);
    m_selector->setRootNode(m_sample.block.get());
}

void SourceSelectorTest::aNewSelector() {
    SourceSelector selector;
    QCOMPARE(selector.getRootNode(), nullptr);
    QCOMPARE(selector.getMarksNum(), 4);
    QCOMPARE(selector.getFont(), QFont("Monospace", 10));
    QVERIFY(!selector.getFont().italic());
    QCOMPARE(selector.getFont().weight(), int(QFont::Normal));
    QCOMPARE(selector.focusPolicy(), Qt::StrongFocus);
    QVERIFY(selector.hasMouseTracking());
    QVERIFY(!selector.fragmentSelectionEnabled());
    QVERIFY(selector.getOptions().hidePrototypes);
    QVERIFY(selector.getOptions().hideVariables);
    QVERIFY(selector.getOptions().hideTypedefs);
    QVERIFY(selector.getOptions().hideExternalDeclarations);
    QCOMPARE(selector.getNodeByPos(QPoint(3, 3)), nullptr);
    QCOMPARE(selector.verticalScrollBar()->maximum(), 0);
    QCOMPARE(selector.horizontalScrollBar()->maximum(), 0);
    QCOMPARE(selector.getTextSize(), QSize(0, 0));
}

void SourceSelectorTest::marksOfANewSelector() {
    const int shift = 0x02000000;
    const unsigned int colours[] = {qRgb(200, 250, 200), qRgb(200, 200, 250), qRgb(250, 200, 200),
                                    qRgb(250, 250, 200)};
    const std::pair<int, int> keys[] = {{1, 0}, {2, 0}, {4, shift | 1}, {shift | 2, 0}};
    for (int mark = 0; mark < 4; ++mark) {
        QCOMPARE(m_selector->getMarkColor(mark), colours[mark]);
        QCOMPARE(m_selector->getMarkKeys(mark), keys[mark]);
        QCOMPARE(m_selector->getMark(mark), nullptr);
        QVERIFY(m_selector->getMarkFragment(mark).isEmpty());
    }
}

void SourceSelectorTest::marksOfANewSelectorTakeChildren() {
    for (int mark = 0; mark < 4; ++mark) {
        m_selector->setMark(m_sample.firstStatement, mark);
        QVERIFY(m_selector->isNodeSelected(*m_sample.constant));
        m_selector->setMark(nullptr, mark);
        QVERIFY(!m_selector->isNodeSelected(*m_sample.constant));
    }
}

void SourceSelectorTest::itsProperties() {
    QCOMPARE(m_selector->property("marksNumber").toInt(), 4);
    QVERIFY(m_selector->setProperty("marksNumber", 2));
    QCOMPARE(m_selector->getMarksNum(), 2);
    const QFont font("Monospace", 17);
    QVERIFY(m_selector->setProperty("font", font));
    QCOMPARE(m_selector->getFont(), font);
    QCOMPARE(m_selector->property("font").value<QFont>(), font);
}

void SourceSelectorTest::printsIndentedByALevel() {
    QCOMPARE(lines(*m_selector),
             QStringList({"    {", "        a = b + 1;", "        {", "            c = 2;", "        }",
                          "        int d;", "        b = c;", "    }"}));
}

void SourceSelectorTest::hidesDeclarationsUnlessToldOtherwise() {
    SourceSelector selector;
    selector.setRootNode(m_sample.block.get());
    QVERIFY(!lines(selector).contains("        int d;"));
    QCOMPARE(selector.getText().getLineCount(), 7);
}

void SourceSelectorTest::optionsPrintAnewOnlyWhenTheyDiffer() {
    m_selector->setMark(m_sample.firstStatement, 0);
    m_selector->setOptions(hidingNothing);
    QCOMPARE(m_selector->getMark(0), m_sample.firstStatement);
    SourceSelector::Options hidingVariables;
    hidingVariables.hideVariables = true;
    m_selector->setOptions(hidingVariables);
    QCOMPARE(m_selector->getMark(0), nullptr);
    QCOMPARE(m_selector->getOptions(), hidingVariables);
    QCOMPARE(m_selector->getText().getLineCount(), 7);
}

void SourceSelectorTest::aNewRootEmptiesAllMarks() {
    ProgramFragment fragment;
    fragment.set(*m_sample.firstStatement, *m_sample.lastStatement);
    m_selector->setMark(m_sample.firstStatement, 3);
    m_selector->setMark(m_sample.inner, 1);
    m_selector->setMarkFragment(fragment, 2);
    QSignalSpy changes(m_selector.get(), &SourceSelector::markChanged);
    m_selector->setRootNode(m_sample.inner);
    QCOMPARE(marks(changes), QList<int>({1, 3}));
    for (int mark = 0; mark < 4; ++mark) {
        QCOMPARE(m_selector->getMark(mark), nullptr);
        QVERIFY(m_selector->getMarkFragment(mark).isEmpty());
    }
    QVERIFY(!m_selector->isNodeSelected(*m_sample.inner));
    QCOMPARE(m_selector->getRootNode(), m_sample.inner);
    QCOMPARE(lines(*m_selector), QStringList({"    {", "        c = 2;", "    }"}));
    QVERIFY(!m_selector->containsNode(m_sample.firstStatement));
}

void SourceSelectorTest::aNullRootKeepsTheRoot() {
    m_selector->setMark(m_sample.firstStatement, 0);
    QSignalSpy changes(m_selector.get(), &SourceSelector::markChanged);
    m_selector->setRootNode(nullptr);
    QCOMPARE(m_selector->getRootNode(), m_sample.block.get());
    QCOMPARE(m_selector->getText().getLineCount(), 0);
    QCOMPARE(marks(changes), QList<int>({0}));
    QVERIFY(!m_selector->containsNode(m_sample.firstStatement));
    QCOMPARE(m_selector->getNodeByPos(cell(*m_selector, 0, 4)), nullptr);
    QCOMPARE(m_selector->verticalScrollBar()->maximum(), 0);
    // The next options are for the root that is remembered.
    SourceSelector::Options hidingVariables;
    hidingVariables.hideVariables = true;
    m_selector->setOptions(hidingVariables);
    QCOMPARE(m_selector->getText().getLineCount(), 7);
}

// What was hovered, marked and shown is gone; only its address is known.
void SourceSelectorTest::aRootThatWent() {
    auto temporary = std::make_unique<SampleText>();
    TesselBase* gone = temporary->inner;
    m_selector->setRootNode(temporary->block.get());
    m_selector->setMark(temporary->inner, 0);
    move(*m_selector, cell(*m_selector, 0, 4));
    m_selector->setRootNode(nullptr);
    temporary.reset();
    m_selector->grab();
    move(*m_selector, QPointF(5, 5));
    press(*m_selector, QPointF(5, 5));
    m_selector->ensureNodeVisible(gone);
    m_selector->setMark(gone, 1);
    QVERIFY(!m_selector->containsNode(gone));
    QCOMPARE(m_selector->getMark(1), nullptr);
    m_selector->setRootNode(m_sample.block.get());
    m_selector->grab();
    QCOMPARE(m_selector->getText().getLineCount(), 8);
}

void SourceSelectorTest::forgettingTheRoot() {
    auto temporary = std::make_unique<SampleText>();
    m_selector->setRootNode(temporary->block.get());
    move(*m_selector, cell(*m_selector, 0, 4));
    m_selector->setMark(temporary->inner, 0);
    m_selector->forgetRootNode();
    temporary.reset();
    QCOMPARE(m_selector->getRootNode(), nullptr);
    QCOMPARE(m_selector->getMark(0), nullptr);
    m_selector->setOptions({true, false, false, false});
    QCOMPARE(m_selector->getText().getLineCount(), 0);
    move(*m_selector, QPointF(5, 5));
    m_selector->grab();
    m_selector->setRootNode(m_sample.block.get());
    m_selector->grab();
    QCOMPARE(m_selector->getText().getLineCount(), 8);
}

void SourceSelectorTest::aRootThatPrintsNothing() {
    ProgramUnit empty;
    m_selector->setRootNode(&empty);
    QCOMPARE(m_selector->getRootNode(), &empty);
    press(*m_selector, QPointF(50, 5));
    QCOMPARE(m_selector->getMark(0), nullptr);
}

void SourceSelectorTest::aListenerMaySetAnotherRoot() {
    m_selector->setMark(m_sample.firstStatement, 0);
    bool once = true;
    connect(m_selector.get(), &SourceSelector::markChanged, this, [&] {
        if (std::exchange(once, false))
            m_selector->setRootNode(m_sample.inner);
    });
    m_selector->setRootNode(m_sample.block.get());
    QCOMPARE(m_selector->getText().getLineCount(), 8);
    QCOMPARE(m_selector->getRootNode(), m_sample.block.get());
}

void SourceSelectorTest::aListenerMayChangeTheNumberOfMarks() {
    connect(m_selector.get(), &SourceSelector::markChanged, this, [&] { m_selector->setMarksNum(0); });
    m_selector->setMark(m_sample.firstStatement, 3);
    QCOMPARE(m_selector->getMarksNum(), 0);
    disconnect(m_selector.get(), nullptr, this, nullptr);
    m_selector->setMarksNum(4);
    m_selector->setMarkParams(3, 0xFF000000, 0xFFFFFFFF, true, {Qt::LeftButton, 0});
    connect(m_selector.get(), &SourceSelector::markChanged, this, [&] { m_selector->setMarksNum(1); });
    press(*m_selector, cell(*m_selector, 1, 0));
    QCOMPARE(m_selector->getMarksNum(), 1);
    m_selector->setMark(m_sample.inner, 0);
    m_selector->setRootNode(m_sample.inner);
    QCOMPARE(m_selector->getMarksNum(), 1);
    disconnect(m_selector.get(), nullptr, this, nullptr);
}

void SourceSelectorTest::setMarkPicksANode() {
    QSignalSpy changes(m_selector.get(), &SourceSelector::markChanged);
    m_selector->setMark(m_sample.firstStatement, 2);
    QCOMPARE(m_selector->getMark(2), m_sample.firstStatement);
    QCOMPARE(marks(changes), QList<int>({2}));
    for (const TesselBase* node : std::initializer_list<const TesselBase*>{
             m_sample.firstStatement, m_sample.assignment, m_sample.addition, m_sample.writtenA, m_sample.constant})
        QVERIFY(m_selector->isNodeSelected(*node));
    QVERIFY(!m_selector->isNodeSelected(*m_sample.lastStatement));
    QVERIFY(!m_selector->isNodeSelected(*m_sample.block));
    // Another one takes the colour with it.
    m_selector->setMark(m_sample.lastStatement, 2);
    QCOMPARE(marks(changes), QList<int>({2, 2}));
    QVERIFY(!m_selector->isNodeSelected(*m_sample.firstStatement));
    QVERIFY(m_selector->isNodeSelected(*m_sample.lastStatement));
}

void SourceSelectorTest::setMarkOfTheSameNode() {
    m_selector->setMark(m_sample.firstStatement, 0);
    QSignalSpy changes(m_selector.get(), &SourceSelector::markChanged);
    m_selector->clearSelection(2);
    m_selector->setMark(m_sample.firstStatement, 0);
    QCOMPARE(changes.count(), 0);
    QVERIFY(!m_selector->isNodeSelected(*m_sample.firstStatement));
}

void SourceSelectorTest::setMarkOfNullOnlyTakesTheColour() {
    m_selector->setMark(m_sample.firstStatement, 1);
    QSignalSpy changes(m_selector.get(), &SourceSelector::markChanged);
    m_selector->setMark(nullptr, 1);
    QCOMPARE(changes.count(), 0);
    QCOMPARE(m_selector->getMark(1), m_sample.firstStatement);
    QVERIFY(!m_selector->isNodeSelected(*m_sample.firstStatement));
    QVERIFY(!m_selector->isNodeSelected(*m_sample.addition));
}

void SourceSelectorTest::setMarkOfWhatIsNotPrinted() {
    SampleText other;
    m_selector->setMark(m_sample.firstStatement, 0);
    QSignalSpy changes(m_selector.get(), &SourceSelector::markChanged);
    m_selector->setMark(other.firstStatement, 0);
    QCOMPARE(changes.count(), 0);
    QCOMPARE(m_selector->getMark(0), m_sample.firstStatement);
    QVERIFY(m_selector->isNodeSelected(*m_sample.firstStatement));
}

void SourceSelectorTest::setMarkEmptiesTheFragment() {
    ProgramFragment fragment;
    fragment.set(*m_sample.firstStatement, *m_sample.lastStatement);
    m_selector->setMarkFragment(fragment, 0);
    m_selector->setMark(m_sample.inner, 0);
    QVERIFY(m_selector->getMarkFragment(0).isEmpty());
    QVERIFY(!m_selector->isNodeSelected(*m_sample.firstStatement));
}

void SourceSelectorTest::setMarkFragment() {
    m_selector->setMark(m_sample.lastStatement, 0);
    QSignalSpy changes(m_selector.get(), &SourceSelector::markChanged);
    ProgramFragment fragment;
    fragment.set(*m_sample.firstStatement, *m_sample.declaration);
    m_selector->setMarkFragment(fragment, 0);
    QCOMPARE(changes.count(), 0);
    QCOMPARE(m_selector->getMark(0), nullptr);
    QVERIFY(m_selector->getMarkFragment(0) == fragment);
    QVERIFY(m_selector->isNodeSelected(*m_sample.firstStatement));
    QVERIFY(m_selector->isNodeSelected(*m_sample.innerStatement));
    QVERIFY(m_selector->isNodeSelected(*m_sample.declaration));
    QVERIFY(!m_selector->isNodeSelected(*m_sample.variable));
    QVERIFY(!m_selector->isNodeSelected(*m_sample.lastStatement));
    // The same once more does nothing.
    m_selector->clearSelection(2);
    m_selector->setMarkFragment(fragment, 0);
    QVERIFY(!m_selector->isNodeSelected(*m_sample.firstStatement));
}

void SourceSelectorTest::setMarkFragmentToNone() {
    ProgramFragment fragment;
    fragment.set(*m_sample.firstStatement, *m_sample.inner);
    m_selector->setMarkFragment(fragment, 1);
    QSignalSpy changes(m_selector.get(), &SourceSelector::markChanged);
    m_selector->setMarkFragment(ProgramFragment(), 1);
    QCOMPARE(changes.count(), 0);
    QVERIFY(m_selector->getMarkFragment(1).isEmpty());
    QVERIFY(!m_selector->isNodeSelected(*m_sample.firstStatement));
    // An empty one equals an empty one: the node stays.
    m_selector->setMark(m_sample.inner, 1);
    m_selector->setMarkFragment(ProgramFragment(), 1);
    QCOMPARE(m_selector->getMark(1), m_sample.inner);
}

// The last statement moved into another block after the fragment was made: its end is never met.
void SourceSelectorTest::fragmentsAcrossTheBlockEndThrow() {
    SampleText sample;
    ProgramFragment fragment;
    fragment.set(*sample.firstStatement, *sample.declaration);
    sample.inner->append(sample.block->take(2));
    sample.inner->append(sample.block->take(2));
    m_selector->setRootNode(sample.block.get());
    try {
        m_selector->setMarkFragment(fragment, 0);
        QFAIL("marked");
    } catch (const StateError& error) {
        QCOMPARE(QString(error.what()), QString("Unexpected dereferencing of null iterator."));
    }
    QVERIFY(m_selector->getMarkFragment(0).isEmpty());
    m_selector->grab();
    m_selector->forgetRootNode();
}

void SourceSelectorTest::theLargerMarkIsSeen() {
    m_selector->setMark(m_sample.firstStatement, 2);
    m_selector->setMark(m_sample.block.get(), 0);
    QVERIFY(m_selector->isNodeSelected(*m_sample.block));
    QVERIFY(m_selector->isNodeSelected(*m_sample.firstStatement));
    m_selector->clearSelection(4);
    QVERIFY(!m_selector->isNodeSelected(*m_sample.firstStatement));
    QVERIFY(!m_selector->isNodeSelected(*m_sample.addition));
    QVERIFY(m_selector->isNodeSelected(*m_sample.lastStatement));
}

void SourceSelectorTest::markNodeStopsAtWhatPrintedNothing() {
    // With variables hidden, their statement prints nothing.
    SourceSelector selector;
    selector.setRootNode(m_sample.block.get());
    selector.markNode(m_sample.block.get(), 2);
    QVERIFY(selector.isNodeSelected(*m_sample.firstStatement));
    QVERIFY(!selector.isNodeSelected(*m_sample.declaration));
    // Asked for itself it is marked all the same.
    selector.markNode(m_sample.declaration, 3);
    QVERIFY(selector.isNodeSelected(*m_sample.declaration));
}

void SourceSelectorTest::markNodeWithoutChildren() {
    m_selector->setMarkParams(0, 0xFF000000, 0xFF00FF00, false, {Qt::LeftButton, 0});
    m_selector->setMark(m_sample.firstStatement, 0);
    QVERIFY(m_selector->isNodeSelected(*m_sample.firstStatement));
    QVERIFY(!m_selector->isNodeSelected(*m_sample.assignment));
}

void SourceSelectorTest::markNodeOfSlotsThatDoNotExist() {
    for (const int slot : {-1, 6, 1000}) {
        m_selector->markNode(m_sample.firstStatement, slot);
        QVERIFY(!m_selector->isNodeSelected(*m_sample.firstStatement));
    }
    m_selector->markNode(nullptr, 2);
    // What is hovered is no selection.
    m_selector->markNode(m_sample.firstStatement, 1);
    QVERIFY(!m_selector->isNodeSelected(*m_sample.firstStatement));
}

void SourceSelectorTest::clearSelectionKeepsOtherSlots() {
    m_selector->setMark(m_sample.firstStatement, 0);
    m_selector->setMark(m_sample.lastStatement, 1);
    m_selector->clearSelection(2);
    QVERIFY(!m_selector->isNodeSelected(*m_sample.firstStatement));
    QVERIFY(m_selector->isNodeSelected(*m_sample.lastStatement));
    QCOMPARE(m_selector->getMark(0), m_sample.firstStatement);
}

void SourceSelectorTest::setMarksNumEmptiesMarksSilently() {
    m_selector->setMark(m_sample.firstStatement, 0);
    QSignalSpy changes(m_selector.get(), &SourceSelector::markChanged);
    m_selector->setMarksNum(4);
    QCOMPARE(changes.count(), 0);
    QCOMPARE(m_selector->getMark(0), nullptr);
    QVERIFY(m_selector->isNodeSelected(*m_sample.firstStatement));
    QCOMPARE(m_selector->getMarkColor(0), qRgb(200, 250, 200));
}

void SourceSelectorTest::newMarksHaveNoKeys() {
    m_selector->setMarksNum(6);
    QCOMPARE(m_selector->getMarkKeys(5), (std::pair<int, int>(0, 0)));
    QCOMPARE(m_selector->getMarkColor(5), 0xFFFFFFFF);
    QCOMPARE(m_selector->getMarkColor(3), qRgb(250, 250, 200));
    m_selector->setMark(m_sample.firstStatement, 5);
    QVERIFY(m_selector->isNodeSelected(*m_sample.constant));
}

void SourceSelectorTest::keysOfMarksThatWentAreFree() {
    m_selector->setMarksNum(1);
    m_selector->setMarksNum(4);
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        press(*m_selector, cell(*m_selector, 1, 8), button);
        for (int mark = 0; mark < 4; ++mark)
            QCOMPARE(m_selector->getMark(mark), nullptr);
    }
    press(*m_selector, cell(*m_selector, 1, 8));
    QCOMPARE(m_selector->getMark(0), m_sample.writtenA);
}

void SourceSelectorTest::fewMarks_data() {
    QTest::addColumn<int>("count");
    QTest::newRow("none") << 0;
    QTest::newRow("less than none") << -1;
    QTest::newRow("least") << std::numeric_limits<int>::min();
}

void SourceSelectorTest::fewMarks() {
    QFETCH(int, count);
    m_selector->setMarksNum(count);
    QCOMPARE(m_selector->getMarksNum(), 0);
    QSignalSpy changes(m_selector.get(), &SourceSelector::markChanged);
    move(*m_selector, cell(*m_selector, 1, 8));
    press(*m_selector, cell(*m_selector, 1, 8));
    QCOMPARE(background(*m_selector, 1, 8), m_selector->palette().color(QPalette::Base).rgb());
    QCOMPARE(changes.count(), 0);
}

void SourceSelectorTest::manyMarks() {
    m_selector->setMarksNum(100);
    QCOMPARE(m_selector->getMarksNum(), 100);
    m_selector->setMarkParams(99, 0xFF000000, 0xFF123456, true, {Qt::BackButton, 0});
    press(*m_selector, cell(*m_selector, 1, 8), Qt::BackButton);
    QCOMPARE(m_selector->getMark(99), m_sample.writtenA);
    m_selector->setMarksNum(1);
    // A slot that is gone is drawn plain.
    QCOMPARE(background(*m_selector, 1, 8), m_selector->palette().color(QPalette::Base).rgb());
    m_selector->setMarksNum(100);
    QCOMPARE(background(*m_selector, 1, 8), 0xFFFFFFFF);
}

void SourceSelectorTest::marksThatDoNotExist() {
    ProgramFragment fragment;
    fragment.set(*m_sample.firstStatement, *m_sample.lastStatement);
    QSignalSpy changes(m_selector.get(), &SourceSelector::markChanged);
    for (const int mark : {-3, -2, -1, 4, std::numeric_limits<int>::max()}) {
        m_selector->setMark(m_sample.firstStatement, mark);
        m_selector->setMarkFragment(fragment, mark);
        m_selector->setMarkParams(mark, 0, 0, false, {Qt::LeftButton, 0});
        QCOMPARE(m_selector->getMark(mark), nullptr);
        QVERIFY(m_selector->getMarkFragment(mark).isEmpty());
        QCOMPARE(m_selector->getMarkColor(mark), 0U);
        QCOMPARE(m_selector->getMarkKeys(mark), (std::pair<int, int>(0, 0)));
    }
    QVERIFY(!m_selector->isNodeSelected(*m_sample.firstStatement));
    QCOMPARE(changes.count(), 0);
    press(*m_selector, cell(*m_selector, 1, 8));
    QCOMPARE(marks(changes), QList<int>({0}));
}

void SourceSelectorTest::setMarkParams() {
    m_selector->setMarkParams(1, 0xFFFF0000, 0xFF0000FF, true, {Qt::LeftButton, 0});
    QCOMPARE(m_selector->getMarkColor(1), 0xFF0000FF);
    // Two marks share the button: the later one is picked.
    press(*m_selector, cell(*m_selector, 1, 8));
    QCOMPARE(m_selector->getMark(0), nullptr);
    QCOMPARE(m_selector->getMark(1), m_sample.writtenA);
    QCOMPARE(background(*m_selector, 1, 8), 0xFF0000FF);
    // The button it had before is free.
    press(*m_selector, cell(*m_selector, 1, 12), Qt::RightButton);
    QCOMPARE(m_selector->getMark(1), m_sample.writtenA);
    // Without a key a mark cannot be picked, whatever comes.
    m_selector->setMarkParams(1, 0xFFFF0000, 0xFF0000FF, true, {0, 0});
    QSignalSpy changes(m_selector.get(), &SourceSelector::markChanged);
    sendMouse(*m_selector, QEvent::MouseButtonPress, cell(*m_selector, 1, 12), Qt::NoButton, Qt::NoButton);
    QCOMPARE(changes.count(), 0);
}

void SourceSelectorTest::setOverParams() {
    m_selector->setOverParams(0xFFFFFFFF, 0xFF00FFFF);
    move(*m_selector, cell(*m_selector, 1, 0));
    QCOMPARE(background(*m_selector, 1, 8), 0xFF00FFFF);
    QVERIFY(!m_selector->isNodeSelected(*m_sample.firstStatement));
}

void SourceSelectorTest::containsWhatPrintedItself() {
    QVERIFY(m_selector->containsNode(m_sample.block.get()));
    QVERIFY(m_selector->containsNode(m_sample.constant));
    QVERIFY(m_selector->containsNode(m_sample.variable));
    QVERIFY(!m_selector->containsNode(nullptr));
    SampleText other;
    QVERIFY(!m_selector->containsNode(other.block.get()));
}

void SourceSelectorTest::scrollBars() {
    const QFontMetrics metrics(m_selector->getFont());
    // 8 lines; the widest is "            c = 2;" with 18 characters, as wide as "        a = b + 1;".
    const QSize size(18 * metrics.averageCharWidth(), 8 * metrics.height());
    QCOMPARE(m_selector->getTextSize(), size);
    for (const QSize& window : {QSize(100, 60), QSize(300, 50), QSize(60, 300)}) {
        m_selector->resize(window);
        m_selector->grab();
        const QSize page = m_selector->viewport()->size();
        QCOMPARE(m_selector->verticalScrollBar()->pageStep(), page.height());
        QCOMPARE(m_selector->horizontalScrollBar()->pageStep(), page.width());
        QCOMPARE(m_selector->verticalScrollBar()->minimum(), 0);
        QCOMPARE(m_selector->verticalScrollBar()->maximum(), std::max(0, size.height() - page.height()));
        QCOMPARE(m_selector->horizontalScrollBar()->maximum(), std::max(0, size.width() - page.width()));
    }
    QCOMPARE(m_selector->verticalScrollBar()->singleStep(), metrics.height());
    QCOMPARE(m_selector->horizontalScrollBar()->singleStep(), metrics.averageCharWidth());
}

void SourceSelectorTest::scrollBarsFollowTheText() {
    const QFontMetrics metrics(m_selector->getFont());
    m_selector->resize(60, 60);
    m_selector->grab();
    const QSize page = m_selector->viewport()->size();
    // "        c = 2;" has 14 characters.
    m_selector->setRootNode(m_sample.inner);
    QCOMPARE(m_selector->verticalScrollBar()->maximum(), std::max(0, 3 * metrics.height() - page.height()));
    QCOMPARE(m_selector->horizontalScrollBar()->maximum(), 14 * metrics.averageCharWidth() - page.width());
    m_selector->setRootNode(m_sample.block.get());
    QCOMPARE(m_selector->verticalScrollBar()->maximum(), 8 * metrics.height() - page.height());
    m_selector->setRootNode(nullptr);
    QCOMPARE(m_selector->horizontalScrollBar()->maximum(), 0);
}

void SourceSelectorTest::fontsOfAnyPitchCountTheAverage() {
    const QFont sans("DejaVu Sans", 12);
    const QFontMetrics metrics(sans);
    QVERIFY(metrics.averageCharWidth() < metrics.maxWidth());
    m_selector->setFont(sans);
    QCOMPARE(m_selector->horizontalScrollBar()->singleStep(), metrics.averageCharWidth());
    QCOMPARE(m_selector->getTextSize(), QSize(18 * metrics.averageCharWidth(), 8 * metrics.height()));
    const int y = metrics.height() + metrics.descent();
    QCOMPARE(m_selector->getNodeByPos({8 * metrics.averageCharWidth(), y}), m_sample.writtenA);
    QCOMPARE(m_selector->getNodeByPos({8 * metrics.averageCharWidth() - 1, y}), m_sample.firstStatement);
}

void SourceSelectorTest::fontsChangeStepsButNotRanges() {
    m_selector->resize(100, 60);
    m_selector->grab();
    const int range = m_selector->verticalScrollBar()->maximum();
    const QFont large("Monospace", 30);
    m_selector->setMark(m_sample.inner, 0);
    m_selector->setFont(large);
    QCOMPARE(m_selector->verticalScrollBar()->maximum(), range);
    QCOMPARE(m_selector->verticalScrollBar()->singleStep(), QFontMetrics(large).height());
    QCOMPARE(m_selector->horizontalScrollBar()->singleStep(), QFontMetrics(large).averageCharWidth());
    m_selector->resize(101, 60);
    m_selector->grab();
    QCOMPARE(m_selector->verticalScrollBar()->maximum(),
             8 * QFontMetrics(large).height() - m_selector->viewport()->height());
    QCOMPARE(m_selector->getMark(0), m_sample.inner);
    QCOMPARE(m_selector->getNodeByPos(cell(*m_selector, 1, 8)), m_sample.writtenA);
}

void SourceSelectorTest::ensureNodeVisible() {
    // Many lines, each a statement of its own.
    auto block = std::make_unique<BlockStatement>();
    for (int i = 0; i < 100; ++i)
        block->append(Kova::Tests::statement(Kova::Tests::literal(std::to_string(i))));
    const auto statementOn = [&](int line) { return block->getStatement(std::size_t(line - 1)); };
    const int height = QFontMetrics(m_selector->getFont()).height();
    m_selector->resize(300, 10 * height + 3);
    m_selector->setRootNode(block.get());
    m_selector->grab();
    QScrollBar& bar = *m_selector->verticalScrollBar();
    // The widget holds ten whole lines: line 11 still counts as visible, 12 does not.
    m_selector->ensureNodeVisible(statementOn(11));
    QCOMPARE(bar.value(), 0);
    m_selector->ensureNodeVisible(statementOn(12));
    QCOMPARE(bar.value(), 12 * height);
    m_selector->ensureNodeVisible(statementOn(23));
    QCOMPARE(bar.value(), 12 * height);
    m_selector->ensureNodeVisible(statementOn(12));
    QCOMPARE(bar.value(), 12 * height);
    m_selector->ensureNodeVisible(statementOn(11));
    QCOMPARE(bar.value(), 11 * height);
    // Half a line is still its line.
    bar.setValue(20 * height + height - 1);
    m_selector->ensureNodeVisible(statementOn(20));
    QCOMPARE(bar.value(), 20 * height + height - 1);
    m_selector->ensureNodeVisible(m_sample.firstStatement);
    m_selector->ensureNodeVisible(nullptr);
    QCOMPARE(bar.value(), 20 * height + height - 1);
    m_selector->ensureNodeVisible(statementOn(100));
    QCOMPARE(bar.value(), bar.maximum());
}

// No font is that narrow, but one may be asked for.
void SourceSelectorTest::aFontWithoutWidth() {
    QFont flat("Monospace");
    flat.setPixelSize(1);
    flat.setStretch(1);
    m_selector->setFont(flat);
    m_selector->setRootNode(m_sample.block.get());
    move(*m_selector, QPointF(10, 3));
    press(*m_selector, QPointF(10, 3));
    m_selector->ensureNodeVisible(m_sample.lastStatement);
    m_selector->grab();
    QCOMPARE(m_selector->getText().getLineCount(), 8);
}

QTEST_MAIN(SourceSelectorTest)
#include "SourceSelectorTest.moc"
