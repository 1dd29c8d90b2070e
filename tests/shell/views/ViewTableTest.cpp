// SPDX-License-Identifier: MIT
#include "shell/views/ViewTable.h"

#include "visualization/graphcore/GraphWidgetBase.h"

#include <QtTest>

namespace Kova::Shell {

/// What every view has to hold to.
class ViewTableTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void namesAreDistinctAndFound();
    void kindsAreComplete();
    void aNewViewIsEmpty();
};

void ViewTableTest::namesAreDistinctAndFound() {
    QVERIFY(getViewNames().contains("call-graph"));
    QStringList names = getViewNames();
    QCOMPARE(names.removeDuplicates(), 0);
    for (const ViewKind& kind : getViewKinds())
        QCOMPARE(findViewKind(kind.name), &kind);
    QVERIFY(findViewKind("Call-Graph") == nullptr);
    QVERIFY(findViewKind("") == nullptr);
}

void ViewTableTest::kindsAreComplete() {
    for (const ViewKind& kind : getViewKinds()) {
        QVERIFY(!kind.title.isEmpty());
        QVERIFY(kind.takes != nullptr && kind.isWorthExporting != nullptr && kind.create != nullptr);
        QVERIFY(!kind.takes(Subject()));
    }
}

void ViewTableTest::aNewViewIsEmpty() {
    for (const ViewKind& kind : getViewKinds()) {
        const std::unique_ptr<View> view = kind.create();
        QVERIFY(!view->getWidget().isBuilded());
        QCOMPARE(view->summarize(), QString());
        QVERIFY(view->describe().contains("nodes"));
        QVERIFY(view->describe().contains("edges"));
        view->clear();
        QVERIFY(!view->getWidget().isBuilded());
    }
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::ViewTableTest)
#include "ViewTableTest.moc"
