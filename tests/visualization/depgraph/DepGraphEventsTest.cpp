// SPDX-License-Identifier: MIT
#include "tests/visualization/depgraph/TestedWidget.h"
#include "tests/visualization/graphcore/Tints.h"
#include "visualization/depgraph/DepGraphWidget.h"

#include <QImage>
#include <QPainterPath>
#include <QToolTip>
#include <QtTest>

using namespace DepGraph;
using Kova::GUI::TextGraph::NodeBase;
using Tints::countAll;
using Tints::countNear;

namespace {

const QColor kindColours[] = {QColor(0, 0, 255), QColor(255, 0, 0), QColor(0, 128, 0), QColor(255, 0, 255)};

} // namespace

/// What the mouse finds and what is painted.
class DepGraphEventsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void hoveringShowsTheHint();
    void hoveringShowsTheChosenForm();
    void hoveringFindsNoHiddenEdges();
    void hoveringAfterARebuild();
    void arrowsArePaintedInTheirColours();
    void arrowsLeaveAndEnterTheirWords();
    void hiddenKindsAreNotPainted();
    void wordsDoNotOverlap();
    void nothingIsCutOff();
    void draggedLinesTakeTheirEdgesAlong();

private:
    void build() { m_widget->build(*m_sample); }
    /// In the middle of the curve of an edge, in graph units.
    [[nodiscard]] QPoint middleOf(int edge) const {
        const auto curve = m_widget->edge(edge).getCurve();
        QPainterPath path(curve.start);
        path.cubicTo(curve.firstControl, curve.secondControl, curve.end);
        return path.pointAtPercent(0.5).toPoint();
    }
    /// Where the arrow of an edge points to, in graph units.
    [[nodiscard]] QPoint tipOf(int edge) const { return m_widget->edge(edge).getCurve().end; }
    /// Moves the mouse there from elsewhere. @return what the tool tip says afterwards.
    QString hover(const QPoint& point) {
        m_widget->mouse(QEvent::MouseMove, QPoint(880, 580));
        m_widget->mouse(QEvent::MouseMove, point);
        return QToolTip::text();
    }

    std::unique_ptr<SampleBlock> m_sample;
    std::unique_ptr<TestedWidget> m_widget;
};

void DepGraphEventsTest::init() {
    m_sample = std::make_unique<SampleBlock>();
    m_sample->addOneOfEachKind();
    m_widget = std::make_unique<TestedWidget>();
    m_widget->resize(900, 600);
    m_widget->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_widget.get()));
    build();
}

void DepGraphEventsTest::hoveringShowsTheHint() {
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(hover(tipOf(i)), m_widget->edge(i).getTags().at(0));
        QCOMPARE(m_widget->getSelectedEdge(), i);
    }
    hover(QPoint(700, 500));
    QCOMPARE(m_widget->getSelectedEdge(), -1);
    QTRY_COMPARE(QToolTip::text(), QString());
}

void DepGraphEventsTest::hoveringShowsTheChosenForm() {
    m_widget->entry("Developer English")->trigger();
    QCOMPARE(hover(tipOf(1)), QString("anti dependence: s -> s; loop-independent and carried by loop 1; proven"));
    m_widget->entry("Popular English")->trigger();
    QCOMPARE(hover(tipOf(1)),
             QString("The value read from s is overwritten, in the same iteration or in a later iteration of loop 1."));
}

void DepGraphEventsTest::hoveringFindsNoHiddenEdges() {
    const QPoint point = tipOf(0);
    hover(point);
    QCOMPARE(m_widget->getSelectedEdge(), 0);
    m_widget->entry("Flow")->trigger();
    hover(point);
    QCOMPARE(m_widget->getSelectedEdge(), -1);
    QTRY_COMPARE(QToolTip::text(), QString());
    m_widget->entry("Flow")->trigger();
    QCOMPARE(hover(tipOf(0)), m_widget->edge(0).getHint());
}

void DepGraphEventsTest::hoveringAfterARebuild() {
    hover(tipOf(3));
    QCOMPARE(m_widget->getSelectedEdge(), 3);
    build();
    QCOMPARE(m_widget->getSelectedEdge(), -1);
    QCOMPARE(hover(tipOf(2)), m_widget->edge(2).getHint());
    const QPoint point = tipOf(2);
    m_widget->onNewBlock(nullptr);
    hover(point);
    QCOMPARE(m_widget->getSelectedEdge(), -1);
}

void DepGraphEventsTest::arrowsArePaintedInTheirColours() {
    const QImage image = m_widget->renderImage();
    for (int i = 0; i < 4; ++i)
        QVERIFY2(countNear(image, middleOf(i), kindColours[i], 2) >= 3, qPrintable(QString::number(i)));
}

void DepGraphEventsTest::arrowsLeaveAndEnterTheirWords() {
    const QImage image = m_widget->renderImage();
    for (int i = 0; i < 4; ++i) {
        const auto& edge = m_widget->edge(i);
        const auto curve = edge.getCurve();
        for (const auto& [point, node] :
             {std::make_pair(curve.start, edge.getFrom()), std::make_pair(curve.end, edge.getTo())}) {
            QVERIFY(point.x() > node->getPos().x());
            QVERIFY(point.x() < node->getRightEnd());
            const QRect word = node->getRect().translated(node->getPos());
            QVERIFY(point.y() == word.top() || point.y() == word.bottom());
            QVERIFY(countNear(image, point, kindColours[i], 3) > 0);
        }
    }
}

void DepGraphEventsTest::hiddenKindsAreNotPainted() {
    const QStringList texts = {"Flow", "Anti", "Output", "Input"};
    for (int i = 0; i < 4; ++i) {
        QVERIFY(countAll(m_widget->renderImage(), kindColours[i]) > 10);
        m_widget->entry(texts.at(i))->trigger();
        QCOMPARE(countAll(m_widget->renderImage(), kindColours[i]), 0);
    }
}

void DepGraphEventsTest::wordsDoNotOverlap() {
    for (const auto& line : m_widget->getLines()) {
        for (int i = 1; i < line.nodes.size(); ++i)
            QVERIFY(line.nodes.at(i)->getPos().x() >= line.nodes.at(i - 1)->getRightEnd());
    }
    for (int i = 1; i < m_widget->getLines().size(); ++i)
        QVERIFY(m_widget->getLines().at(i).y > m_widget->getLines().at(i - 1).y + m_widget->getLineHeight());
}

void DepGraphEventsTest::nothingIsCutOff() {
    const QRect picture(QPoint(0, 0), m_widget->getGraphSize());
    for (const auto& line : m_widget->getLines()) {
        for (const NodeBase* word : line.nodes)
            QVERIFY(picture.adjusted(0, 0, 1, 0).contains(word->getRect().translated(word->getPos())));
    }
    for (int i = 0; i < 4; ++i)
        QVERIFY(QRectF(picture).contains(m_widget->edge(i).getShape().boundingRect()));
}

void DepGraphEventsTest::draggedLinesTakeTheirEdgesAlong() {
    m_widget->mouse(QEvent::MouseMove, QPoint(880, 580));
    const QPoint grip = m_widget->node(2, 0).getPos() + QPoint(m_widget->getCharWidth() / 2, -3);
    const QPoint before = tipOf(0);
    const int height = m_widget->getGraphSize().height();
    m_widget->mouse(QEvent::MouseButtonPress, grip, Qt::LeftButton, Qt::LeftButton);
    m_widget->mouse(QEvent::MouseMove, grip + QPoint(0, 40), Qt::NoButton, Qt::LeftButton);
    m_widget->mouse(QEvent::MouseButtonRelease, grip + QPoint(0, 40), Qt::LeftButton);
    QCOMPARE(tipOf(0), before + QPoint(0, 40));
    QCOMPARE(m_widget->getGraphSize().height(), height + 40);
    QCOMPARE(hover(tipOf(0)), m_widget->edge(0).getHint());
}

QTEST_MAIN(DepGraphEventsTest)
#include "DepGraphEventsTest.moc"
