// SPDX-License-Identifier: MIT
#include "tests/visualization/controlflow/FlowSample.h"
#include "tests/visualization/controlflow/TestedFlowWidget.h"
#include "tests/visualization/graphcore/Tints.h"
#include "visualization/textgraph/EdgeBase.h"

#include <QApplication>
#include <QPainterPath>
#include <QTemporaryDir>
#include <QToolTip>
#include <QtTest>

using Kova::GUI::TextGraph::NodeBase;
using Tints::countAll;
using Tints::countNear;

/// What the mouse finds and what is painted.
class ControlFlowEventsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void everyEdgeIsFound();
    void hoveringHighlightsAnEdge();
    void hoveringAfterARebuild();
    void arrowsArePaintedBlue();
    void arrowsLeaveAndEnterTheirLines();
    void nothingIsCutOff();
    void draggedLinesTakeTheirArrowsAlong();
    void aRightClickOpensTheMenu();
    void exportedPictures();

private:
    [[nodiscard]] static QPainterPath pathOf(const Kova::GUI::TextGraph::EdgeBase& edge) {
        const auto curve = edge.getCurve();
        QPainterPath path(curve.start);
        path.cubicTo(curve.firstControl, curve.secondControl, curve.end);
        return path;
    }
    /// Where the arrow of an edge points to, in graph units.
    [[nodiscard]] QPoint tipOf(int edge) const { return m_widget->edge(edge).getCurve().end; }
    void hover(const QPoint& point) {
        m_widget->mouse(QEvent::MouseMove, QPoint(880, 1380));
        m_widget->mouse(QEvent::MouseMove, point);
    }

    std::unique_ptr<FlowSample> m_sample;
    std::unique_ptr<TestedFlowWidget> m_widget;
};

void ControlFlowEventsTest::init() {
    m_sample = std::make_unique<FlowSample>();
    m_widget = std::make_unique<TestedFlowWidget>();
    m_widget->resize(900, 1400);
    m_widget->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_widget.get()));
    m_widget->onNewBlock(m_sample->block.get(), true);
}

// Where edges cross, the first one is found.
void ControlFlowEventsTest::everyEdgeIsFound() {
    for (int i = 0; i < m_widget->getEdges().size(); ++i) {
        QVERIFY(!m_widget->edgePolygons().at(i).isEmpty());
        int found = 0;
        for (double part = 0.05; part < 1.0; part += 0.05) {
            hover(pathOf(m_widget->edge(i)).pointAtPercent(part).toPoint());
            const int edge = m_widget->getSelectedEdge();
            QVERIFY(edge != -1);
            found += edge == i ? 1 : 0;
        }
        QVERIFY2(found > 0, qPrintable(m_widget->arrows().at(i)));
    }
}

void ControlFlowEventsTest::hoveringHighlightsAnEdge() {
    QVector<int> heard;
    m_widget->setHoverListener([&heard](int edge) { heard.append(edge); });
    const int loop = m_widget->arrows().indexOf("10>11");
    hover(tipOf(loop));
    QCOMPARE(m_widget->getSelectedEdge(), loop);
    hover(tipOf(0));
    QCOMPARE(m_widget->getSelectedEdge(), 0);
    m_widget->mouse(QEvent::MouseMove, QPoint(880, 1380));
    QCOMPARE(m_widget->getSelectedEdge(), -1);
    QCOMPARE(heard, QVector<int>({loop, -1, 0, -1}));
    // Arrows have no hints.
    QCOMPARE(QToolTip::text(), QString());
}

void ControlFlowEventsTest::hoveringAfterARebuild() {
    hover(tipOf(3));
    QVERIFY(m_widget->getSelectedEdge() != -1);
    const QPoint point = tipOf(0);
    m_widget->onNewBlock(m_sample->block.get(), false);
    QCOMPARE(m_widget->getSelectedEdge(), -1);
    hover(point);
    QCOMPARE(m_widget->getSelectedEdge(), 0);
    m_widget->onNewBlock(nullptr, false);
    hover(point);
    QCOMPARE(m_widget->getSelectedEdge(), -1);
}

void ControlFlowEventsTest::arrowsArePaintedBlue() {
    const QImage image = m_widget->renderImage();
    for (int i = 0; i < m_widget->getEdges().size(); ++i) {
        const QPoint middle = pathOf(m_widget->edge(i)).pointAtPercent(0.5).toPoint();
        QVERIFY2(countNear(image, middle, Qt::blue, 2) >= 3, qPrintable(m_widget->arrows().at(i)));
    }
    m_widget->onNewBlock(Kova::Tests::block().get(), true);
    QCOMPARE(countAll(m_widget->renderImage(), Qt::blue), 0);
}

void ControlFlowEventsTest::arrowsLeaveAndEnterTheirLines() {
    for (const auto* edge : m_widget->getEdges()) {
        const auto curve = edge->getCurve();
        const bool isDownwards = edge->getFrom()->getPos().y() < edge->getTo()->getPos().y();
        for (const auto& [point, node, isAbove] : {std::make_tuple(curve.start, edge->getFrom(), isDownwards),
                                                   std::make_tuple(curve.end, edge->getTo(), !isDownwards)}) {
            QVERIFY(point.x() >= node->getPos().x());
            QVERIFY(point.x() <= node->getRightEnd());
            const QRect word = node->getRect().translated(node->getPos());
            QCOMPARE(point.y(), isAbove ? word.bottom() : word.top());
        }
    }
}

void ControlFlowEventsTest::nothingIsCutOff() {
    const QRect picture(QPoint(0, 0), m_widget->getGraphSize());
    for (const auto& line : m_widget->getLines()) {
        for (const NodeBase* word : line.nodes)
            QVERIFY(picture.adjusted(0, 0, 1, 0).contains(word->getRect().translated(word->getPos())));
    }
    for (const auto* edge : m_widget->getEdges())
        QVERIFY(QRectF(picture).contains(edge->getShape().boundingRect()));
}

void ControlFlowEventsTest::draggedLinesTakeTheirArrowsAlong() {
    const QStringList arrows = m_widget->arrows();
    const int into = arrows.indexOf("1>2");
    const int above = arrows.indexOf("0>1");
    const QPoint grip = m_widget->node(2).getPos() + QPoint(m_widget->getCharWidth() / 2, -3);
    const QPoint start = m_widget->edge(into).getCurve().start;
    const QPoint tip = tipOf(into);
    const QPoint tipAbove = tipOf(above);
    const QPoint tipBelow = tipOf(arrows.indexOf("12>13"));
    const int height = m_widget->getGraphSize().height();
    m_widget->mouse(QEvent::MouseButtonPress, grip, Qt::LeftButton, Qt::LeftButton);
    m_widget->mouse(QEvent::MouseMove, grip + QPoint(0, 40), Qt::NoButton, Qt::LeftButton);
    m_widget->mouse(QEvent::MouseButtonRelease, grip + QPoint(0, 40), Qt::LeftButton);
    QCOMPARE(tipOf(into), tip + QPoint(0, 40));
    QCOMPARE(m_widget->edge(into).getCurve().start, start);
    QCOMPARE(tipOf(above), tipAbove);
    QCOMPARE(tipOf(arrows.indexOf("12>13")), tipBelow + QPoint(0, 40));
    QCOMPARE(m_widget->getGraphSize().height(), height + 40);
    QCOMPARE(m_widget->getEdgeByPos(tip + QPoint(0, 40)), into);
    QCOMPARE(m_widget->findStatement(&m_widget->node(2)), m_sample->branch);
}

void ControlFlowEventsTest::aRightClickOpensTheMenu() {
    const QPoint point(700, 300);
    m_widget->mouse(QEvent::MouseButtonPress, point, Qt::RightButton, Qt::RightButton);
    m_widget->mouse(QEvent::MouseButtonRelease, point, Qt::RightButton);
    QCOMPARE(QApplication::activePopupWidget(), &m_widget->menu());
    QCOMPARE(m_widget->menu().actions().size(), 2);
    m_widget->menu().close();
}

void ControlFlowEventsTest::exportedPictures() {
    const QTemporaryDir folder;
    const QString png = folder.filePath("flow.png");
    m_widget->save(png);
    const QImage image(png);
    QCOMPARE(image.size(), m_widget->getGraphSize());
    QVERIFY(countAll(image, Qt::blue) > 500);
    const QString svg = folder.filePath("flow.svg");
    m_widget->saveSvg(svg);
    QFile file(svg);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    QVERIFY(text.contains("while (b)"));
    QVERIFY(text.contains("EXTERNAL"));
    QVERIFY(text.contains("#0000ff"));
}

QTEST_MAIN(ControlFlowEventsTest)
#include "ControlFlowEventsTest.moc"
