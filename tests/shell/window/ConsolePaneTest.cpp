// SPDX-License-Identifier: MIT
#include "shell/window/ConsolePane.h"

#include "environment/tessel/Diagnostic.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QSignalSpy>
#include <QtTest>

namespace Kova::Shell {

class ConsolePaneTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void messagesByLevel();
    void diagnosticsLeadToTheirPlace();
    void oldLinesGo();
    void selectedLinesAreCopied();
    void clearAction();
};

void ConsolePaneTest::messagesByLevel() {
    ConsolePane pane;
    pane.append(Message{"Tag", 2, "interrupted"});
    pane.append(Message{"Tag", 4, "failed"});
    pane.append(Message{"", 1, "read"});
    QCOMPARE(pane.count(), 3);
    QCOMPARE(pane.item(0)->text(), QString("Tag: interrupted"));
    QCOMPARE(pane.item(2)->text(), QString("read"));
    QVERIFY(pane.item(0)->foreground() != pane.item(1)->foreground());
    QVERIFY(pane.item(1)->foreground() != pane.item(2)->foreground());
    QVERIFY(pane.item(1)->foreground().color().red() > 2 * pane.item(1)->foreground().color().blue());
}

void ConsolePaneTest::diagnosticsLeadToTheirPlace() {
    ConsolePane pane;
    pane.resize(400, 200);
    pane.show();
    pane.append(Tessel::Diagnostic{Tessel::Diagnostic::Level::Warning, "a.c", 7, 3, "odd"});
    pane.append(Tessel::Diagnostic{Tessel::Diagnostic::Level::Error, "b.c", 0, 0, "missing"});
    QCOMPARE(pane.item(0)->text(), QString("a.c:7:3: warning: odd"));
    QSignalSpy picked(&pane, &ConsolePane::placePicked);
    for (int row = 0; row < 2; ++row) {
        const QPoint place = pane.visualItemRect(pane.item(row)).center();
        QTest::mouseClick(pane.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(pane.viewport(), Qt::LeftButton, {}, place);
    }
    QCOMPARE(picked.size(), 1); // the second is of no line
    QCOMPARE(picked.at(0).at(0).toString(), QString("a.c"));
    QCOMPARE(picked.at(0).at(1).toInt(), 7);
}

void ConsolePaneTest::oldLinesGo() {
    ConsolePane pane;
    for (int i = 0; i < 5003; ++i)
        pane.append(Message{"", 1, QString::number(i)});
    QCOMPARE(pane.count(), 5000);
    QCOMPARE(pane.item(0)->text(), QString("3"));
    QCOMPARE(pane.item(4999)->text(), QString("5002"));
}

void ConsolePaneTest::selectedLinesAreCopied() {
    ConsolePane pane;
    for (const char* text : {"one", "two", "three"})
        pane.append(Message{"", 1, text});
    pane.item(0)->setSelected(true);
    pane.item(2)->setSelected(true);
    pane.actions().at(0)->trigger();
    QCOMPARE(QApplication::clipboard()->text(), QString("one\nthree"));
}

void ConsolePaneTest::clearAction() {
    ConsolePane pane;
    pane.append(Message{"", 1, "one"});
    pane.actions().at(1)->trigger();
    QCOMPARE(pane.count(), 0);
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::ConsolePaneTest)
#include "ConsolePaneTest.moc"
