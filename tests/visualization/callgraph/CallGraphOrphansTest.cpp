// SPDX-License-Identifier: MIT
#include "tests/visualization/callgraph/TestedWidget.h"
#include "visualization/callgraph/CallGraphWidget.h"
#include "visualization/graphcore/ChangeStamp.h"

#include <QAction>
#include <QFontMetrics>
#include <QtTest>

#include <cstdlib>

using Kova::GUI::ChangeStamp;
using Kova::GUI::GenericGraph::NodeBase;
using Kova::Tessel::TranslationUnit;
using Procedure = SampleProgram::Procedure;

class CallGraphOrphansTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // Only hidden orphans: the ring of 60 x 300 still counts.
    void hiddenNodesCountForTheSize() {
        SampleProgram program;
        TranslationUnit& file = program.addFile("a.c");
        for (const char* name : {"a", "b", "c", "d"})
            SampleProgram::addProcedure(file, name);
        TestedWidget widget;
        widget.setHideOrphans(true);
        widget.onNewProgram(program.unit());
        // The lowest centre is (110, 350), the name's box half as wide and high around it.
        const QSize box = QFontMetrics(QFont("Arial", 12)).size(0, "c") + QSize(10, 10);
        const int right = 110 - box.width() / 2 + box.width() - 1;
        const int bottom = 350 - box.height() / 2 + box.height() - 1;
        QVERIFY(std::abs(widget.getGraphSize().width() - right - 50) <= 1);
        QCOMPARE(widget.getGraphSize().height(), bottom + 50);
    }

    void orphansHideAndComeBack() {
        Sample sample;
        TestedWidget widget;
        widget.onNewProgram(sample.unit());
        const std::vector<QPoint> shown = widget.centers();
        widget.getNodes()[0]->moveTo(999, 999);
        widget.setHideOrphans(true);
        QVERIFY(widget.isHidingOrphans());
        QVERIFY(widget.actions()[0]->isChecked());
        QVERIFY(!widget.nodeCalled("lonely")->isVisible());
        for (const char* name : {"alpha", "beta", "main"})
            QVERIFY2(widget.nodeCalled(name)->isVisible(), name);
        QCOMPARE(widget.centers(), shown);
        widget.getNodes()[0]->moveTo(999, 999);
        widget.setHideOrphans(false);
        QVERIFY(!widget.actions()[0]->isChecked());
        QVERIFY(widget.nodeCalled("lonely")->isVisible());
        QCOMPARE(widget.centers(), shown);
    }

    // Recursion is an edge.
    void recursiveProcedureIsNoOrphan() {
        SampleProgram program;
        Procedure& f = SampleProgram::addProcedure(program.addFile("a.c"), "f");
        SampleProgram::addCall(f, f, "1");
        TestedWidget widget;
        widget.setHideOrphans(true);
        widget.onNewProgram(program.unit());
        QVERIFY(widget.nodeCalled("f")->isVisible());
    }

    void actionHidesOrphans() {
        Sample sample;
        TestedWidget widget;
        widget.onNewProgram(sample.unit());
        widget.actions()[0]->trigger();
        QVERIFY(widget.isHidingOrphans());
        QVERIFY(!widget.nodeCalled("lonely")->isVisible());
        widget.actions()[0]->trigger();
        QVERIFY(!widget.isHidingOrphans());
        QVERIFY(widget.nodeCalled("lonely")->isVisible());
    }

    // Every move of a node takes change stamps: a call may take those of one layout and of one orphan's visibility.
    void hidingLaysOutOnce() {
        Sample sample;
        TestedWidget widget;
        widget.onNewProgram(sample.unit());
        quint64 before = ChangeStamp::latest();
        widget.layOut();
        const quint64 oneLayout = ChangeStamp::latest() - before;
        before = ChangeStamp::latest();
        widget.setHideOrphans(true);
        QCOMPARE(ChangeStamp::latest() - before, oneLayout + 1);
        before = ChangeStamp::latest();
        widget.setHideOrphans(true);
        QCOMPARE(ChangeStamp::latest(), before);
        widget.actions()[0]->trigger();
        QCOMPARE(ChangeStamp::latest() - before, oneLayout + 1);
    }

    void hidingRecomputesNeitherSizeNorHitMap() {
        Sample sample;
        TestedWidget widget;
        widget.onNewProgram(sample.unit());
        widget.setGraphSize(1234, 567);
        // A map of other places than those where the layout puts the nodes.
        for (NodeBase* node : widget.getNodes())
            node->move(1000, 1000);
        widget.updateMap();
        const QList<QRectF> bounds = widget.edgeBounds();
        widget.setHideOrphans(true);
        QCOMPARE(widget.getGraphSize(), QSize(1234, 567));
        QCOMPARE(widget.edgeBounds(), bounds);
    }

    void flagOutlivesThePicture() {
        Sample sample;
        TestedWidget widget;
        widget.setHideOrphans(true);
        widget.onNewProgram(sample.unit());
        QVERIFY(!widget.nodeCalled("lonely")->isVisible());
        widget.clearGraph();
        QVERIFY(widget.isHidingOrphans());
        QVERIFY(widget.actions()[0]->isChecked());
    }

    void hiddenOrphanIsNotPainted() {
        SampleProgram program;
        SampleProgram::addProcedure(program.addFile("a.c"), "f");
        TestedWidget widget;
        widget.onNewProgram(program.unit());
        const QColor white(Qt::white);
        const auto inkedPixels = [&] {
            const QImage picture = widget.renderImage();
            int count = 0;
            for (int y = 0; y < picture.height(); ++y)
                for (int x = 0; x < picture.width(); ++x)
                    count += picture.pixelColor(x, y) != white ? 1 : 0;
            return count;
        };
        QVERIFY(inkedPixels() > 0);
        widget.setHideOrphans(true);
        QCOMPARE(inkedPixels(), 0);
    }
};

QTEST_MAIN(CallGraphOrphansTest)
#include "CallGraphOrphansTest.moc"
