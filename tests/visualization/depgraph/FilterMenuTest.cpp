// SPDX-License-Identifier: MIT
#include "visualization/depgraph/FilterMenu.h"

#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

using Kova::GUI::DepGraph::FilterMenu;
using Kova::GUI::DepGraph::makeCheckedAction;

class FilterMenuTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void checkedActions();
    void emptyMenu();
    void filledMenu();
    void clearDeletesEntriesButNotAll();
    void fillingChecksAllOnce();
    void entriesFollowAll();
    void entriesMayGoWhileTheyFollow();
};

void FilterMenuTest::checkedActions() {
    QObject parent;
    const QAction* action = makeCheckedAction("x", &parent);
    QCOMPARE(action->parent(), &parent);
    QCOMPARE(action->text(), QString("x"));
    QVERIFY(action->isCheckable());
    QVERIFY(action->isChecked());
}

void FilterMenuTest::emptyMenu() {
    FilterMenu filter("Title", "Everything");
    QCOMPARE(filter.menu().title(), QString("Title"));
    QVERIFY(filter.menu().isEmpty());
    QCOMPARE(filter.allAction().text(), QString("Everything"));
    QVERIFY(filter.allAction().isCheckable());
    QVERIFY(!filter.allAction().isChecked());
    filter.followAll();
}

void FilterMenuTest::filledMenu() {
    FilterMenu filter("Title", "Everything");
    const QList<QAction*> entries = filter.fill({"b", "a"});
    QCOMPARE(entries.size(), 2);
    const QList<QAction*> actions = filter.menu().actions();
    QCOMPARE(actions.size(), 4);
    QCOMPARE(actions.at(0), &filter.allAction());
    QVERIFY(actions.at(0)->isChecked());
    QVERIFY(actions.at(1)->isSeparator());
    QCOMPARE(actions.mid(2), entries);
    QCOMPARE(entries.at(0)->text(), QString("b"));
    QCOMPARE(entries.at(1)->text(), QString("a"));
    for (const QAction* entry : entries)
        QVERIFY(entry->isCheckable() && entry->isChecked());
}

void FilterMenuTest::clearDeletesEntriesButNotAll() {
    FilterMenu filter("Title", "Everything");
    const QPointer<QAction> entry = filter.fill({"a"}).first();
    const QPointer<QAction> separator = filter.menu().actions().at(1);
    filter.clear();
    QVERIFY(filter.menu().isEmpty());
    QVERIFY(!entry);
    QVERIFY(!separator);
    QCOMPARE(filter.allAction().text(), QString("Everything"));
    filter.fill({"b", "c"});
    QCOMPARE(filter.menu().actions().size(), 4);
    QCOMPARE(filter.menu().actions().first(), &filter.allAction());
}

void FilterMenuTest::fillingChecksAllOnce() {
    FilterMenu filter("Title", "Everything");
    QSignalSpy changes(&filter.allAction(), &QAction::changed);
    filter.fill({"a"});
    QCOMPARE(changes.count(), 1);
    filter.clear();
    filter.fill({"a"});
    QCOMPARE(changes.count(), 1);
}

void FilterMenuTest::entriesFollowAll() {
    FilterMenu filter("Title", "Everything");
    const QList<QAction*> entries = filter.fill({"a", "b", "c"});
    entries.at(1)->setChecked(false);
    QSignalSpy first(entries.at(0), &QAction::changed);
    QSignalSpy second(entries.at(1), &QAction::changed);
    filter.allAction().setChecked(false);
    filter.followAll();
    for (const QAction* entry : entries)
        QVERIFY(!entry->isChecked());
    QCOMPARE(first.count(), 1);
    QCOMPARE(second.count(), 0);
    filter.allAction().setChecked(true);
    filter.followAll();
    for (const QAction* entry : entries)
        QVERIFY(entry->isChecked());
    QVERIFY(!filter.menu().actions().at(1)->isCheckable());
}

void FilterMenuTest::entriesMayGoWhileTheyFollow() {
    FilterMenu filter("Title", "Everything");
    const QList<QAction*> entries = filter.fill({"a", "b"});
    connect(entries.at(0), &QAction::changed, this, [&filter] { filter.clear(); });
    filter.allAction().setChecked(false);
    filter.followAll();
    QVERIFY(filter.menu().isEmpty());
}

QTEST_MAIN(FilterMenuTest)
#include "FilterMenuTest.moc"
