// SPDX-License-Identifier: MIT
#include "visualization/graphcore/ChangedItems.h"

#include <QtTest>

#include <algorithm>
#include <vector>

using namespace Kova::GUI;

namespace {

struct Item {
    quint64 stamp = ChangeStamp::next();
    [[nodiscard]] quint64 getStamp() const { return stamp; }
    void touch() { stamp = ChangeStamp::next(); }
};

using Indices = std::vector<std::size_t>;

} // namespace

class ChangedItemsTest : public QObject {
    Q_OBJECT

    Item m_a, m_b, m_c;
    ChangedItems<Item> m_changes;
    std::vector<Item*> m_items;

    Indices update() {
        Indices refreshed;
        m_changed = m_changes.update(m_items, [&](std::size_t i) { refreshed.push_back(i); });
        return refreshed;
    }
    bool m_changed = false;

private Q_SLOTS:
    void init() {
        m_changes = ChangedItems<Item>();
        m_items = {&m_a, &m_b, &m_c};
        QCOMPARE(update(), Indices({0, 1, 2}));
        QVERIFY(m_changed);
        QCOMPARE(update(), Indices());
        QVERIFY(!m_changed);
    }

    void changedItemIsRefreshed() {
        m_b.touch();
        QCOMPARE(update(), Indices({1}));
        QVERIFY(m_changed);
        QCOMPARE(update(), Indices());
    }

    void changesElsewhereRefreshNothing() {
        Item other;
        other.touch();
        QCOMPARE(update(), Indices());
        QVERIFY(!m_changed);
    }

    void orderIsNoticed() {
        std::swap(m_items[0], m_items[2]);
        QCOMPARE(update(), Indices({0, 2}));
    }

    void shorterListIsNoticed() {
        m_items.pop_back();
        QCOMPARE(update(), Indices());
        QVERIFY(m_changed);
        m_items.erase(m_items.begin());
        QCOMPARE(update(), Indices({0}));
    }

    void newItemAtAnOldAddressIsNoticed() {
        alignas(Item) unsigned char memory[sizeof(Item)];
        auto* item = new (memory) Item;
        m_items.push_back(item);
        QCOMPARE(update(), Indices({3}));
        item->~Item();
        new (memory) Item;
        QCOMPARE(update(), Indices({3}));
    }

    void forgetRefreshesAll() {
        m_changes.forget();
        QCOMPARE(update(), Indices({0, 1, 2}));
    }
};

QTEST_APPLESS_MAIN(ChangedItemsTest)
#include "ChangedItemsTest.moc"
