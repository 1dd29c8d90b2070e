// SPDX-License-Identifier: MIT
#include "tests/visualization/callgraph/TestedWidget.h"

#include <QMetaMethod>
#include <QMouseEvent>
#include <QScrollBar>
#include <QtTest>

using Kova::GUI::CallGraph::CallGraphWidget;

namespace {

class PaintedWidget : public TestedWidget {
public:
    int paints = 0;

    /// Shows a program in a window that is larger than the picture, and waits until all is painted.
    void showAtRest(Kova::Tessel::ProgramUnit& program) {
        resize(1600, 1200);
        show();
        onNewProgram(program);
        QVERIFY(QTest::qWaitForWindowExposed(this));
        QTest::qWait(30);
        paints = 0;
        // Neither the scale nor the scroll bars change when the picture goes: they would repaint, too.
        QCOMPARE(getScale(), 1.0);
        QCOMPARE(horizontalScrollBar()->maximum(), 0);
        QCOMPARE(verticalScrollBar()->maximum(), 0);
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        ++paints;
        TestedWidget::paintEvent(event);
    }
};

/// Does not repaint when it is cleared.
class SilentlyClearedWidget : public PaintedWidget {
public:
    int clears = 0;
    int scrollBarUpdates = 0;

    void clear() override { ++clears; }
    void updateScrollBars() override {
        ++scrollBarUpdates;
        PaintedWidget::updateScrollBars();
    }
};

bool send(QWidget& viewport, QEvent::Type type, const QPoint& position, Qt::MouseButton button) {
    QMouseEvent event(type, position, viewport.mapToGlobal(position), button, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&viewport, &event);
    return event.isAccepted();
}

} // namespace

class CallGraphDetailsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void metaObjectHoldsTheOneSlot() {
        const QMetaObject& meta = CallGraphWidget::staticMetaObject;
        QCOMPARE(meta.className(), "Kova::GUI::CallGraph::CallGraphWidget");
        QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
        const QMetaMethod slot = meta.method(meta.methodOffset());
        QCOMPARE(slot.methodSignature(), QByteArray("setHideOrphans(bool)"));
        QCOMPARE(slot.methodType(), QMetaMethod::Slot);
        QCOMPARE(slot.access(), QMetaMethod::Public);
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    }

    void leftButtonPansOnEmptySpace() {
        Sample sample;
        TestedWidget widget;
        widget.resize(400, 300);
        widget.show();
        widget.onNewProgram(sample.unit());
        widget.setScale(1.0);
        widget.setGraphSize(9000, 9000);
        widget.horizontalScrollBar()->setValue(8000);
        widget.verticalScrollBar()->setValue(8000);
        send(*widget.viewport(), QEvent::MouseButtonPress, QPoint(100, 100), Qt::LeftButton);
        QVERIFY(send(*widget.viewport(), QEvent::MouseMove, QPoint(120, 100), Qt::NoButton));
        QVERIFY(send(*widget.viewport(), QEvent::MouseMove, QPoint(125, 107), Qt::NoButton));
        QCOMPARE(widget.horizontalScrollBar()->value(), 8000 - 5);
        QCOMPARE(widget.verticalScrollBar()->value(), 8000 - 7);
    }

    void pictureOfNothingIsTheMargin() {
        TestedWidget widget;
        widget.showLists({}, {}, {}, {});
        QCOMPARE(widget.getGraphSize(), QSize(50, 50));
    }

    void namesAndCallsAreUtf8() {
        SampleProgram program;
        auto& file = program.addFile("utf8.c");
        auto& main = program.addProcedure(file, "main");
        auto& measure = program.addProcedure(file, "gr\xc3\xb6\xc3\x9f"
                                                   "e");
        program.addCall(main, measure, "1");
        TestedWidget widget;
        widget.onNewProgram(program.unit());
        const QString name = QString::fromUtf8("gr\xc3\xb6\xc3\x9f"
                                               "e");
        QCOMPARE(widget.nodeTexts(), (QStringList{name, "main"}));
        QCOMPARE(widget.getEdges().front()->getToolTip(), name + "(1)");
    }

    void hidingRepaints() {
        Sample sample;
        PaintedWidget widget;
        widget.showAtRest(sample.unit());
        widget.setHideOrphans(true);
        QTRY_VERIFY(widget.paints > 0);
    }

    void clearingRepaints() {
        Sample sample;
        PaintedWidget widget;
        widget.showAtRest(sample.unit());
        widget.clear();
        QTRY_VERIFY(widget.paints > 0);
    }

    // Even where a subclass clears without a repaint.
    void clearGraphUpdatesTheScrollBarsAndRepaints() {
        Sample sample;
        SilentlyClearedWidget widget;
        widget.showAtRest(sample.unit());
        widget.clears = widget.scrollBarUpdates = 0;
        widget.clearGraph();
        QCOMPARE(widget.clears, 1);
        QCOMPARE(widget.scrollBarUpdates, 1);
        QTRY_VERIFY(widget.paints > 0);
    }

    void newPictureRepaints() {
        Sample sample;
        SilentlyClearedWidget widget;
        widget.showAtRest(sample.unit());
        widget.onNewProgram(sample.unit());
        QTRY_VERIFY(widget.paints > 0);
    }
};

QTEST_MAIN(CallGraphDetailsTest)
#include "CallGraphDetailsTest.moc"
