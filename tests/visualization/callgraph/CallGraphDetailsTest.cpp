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

protected:
    void paintEvent(QPaintEvent* event) override {
        ++paints;
        TestedWidget::paintEvent(event);
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
        widget.resize(400, 300);
        widget.show();
        widget.onNewProgram(sample.unit());
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        QTest::qWait(30);
        widget.paints = 0;
        widget.setHideOrphans(true);
        QTRY_VERIFY(widget.paints > 0);
        widget.paints = 0;
        widget.clear();
        QTRY_VERIFY(widget.paints > 0);
    }
};

QTEST_MAIN(CallGraphDetailsTest)
#include "CallGraphDetailsTest.moc"
