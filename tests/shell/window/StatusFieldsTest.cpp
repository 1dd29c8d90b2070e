// SPDX-License-Identifier: MIT
#include "shell/window/StatusFields.h"

#include <QLabel>
#include <QStatusBar>
#include <QtTest>

namespace Kova::Shell {

class StatusFieldsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void emptyFieldsAreHidden();
    void texts();
};

void StatusFieldsTest::emptyFieldsAreHidden() {
    QStatusBar bar;
    StatusFields fields(bar);
    for (const QLabel* label : bar.findChildren<QLabel*>())
        QVERIFY(label->isHidden());
    fields.setScale(1.0);
    QVERIFY(!bar.findChild<QLabel*>("zoom")->isHidden());
    fields.hideScale();
    QVERIFY(bar.findChild<QLabel*>("zoom")->isHidden());
}

void StatusFieldsTest::texts() {
    QStatusBar bar;
    StatusFields fields(bar);
    fields.setScale(0.4234);
    fields.setSubject("subroutine f");
    fields.setSummary("2 procedures");
    fields.setFileCount(1);
    QCOMPARE(bar.findChild<QLabel*>("zoom")->text(), QString("42 %"));
    QCOMPARE(bar.findChild<QLabel*>("subject")->text(), QString("subroutine f"));
    QCOMPARE(bar.findChild<QLabel*>("summary")->text(), QString("2 procedures"));
    QCOMPARE(bar.findChild<QLabel*>("files")->text(), QString("1 file"));
    fields.setFileCount(3);
    QCOMPARE(bar.findChild<QLabel*>("files")->text(), QString("3 files"));
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::StatusFieldsTest)
#include "StatusFieldsTest.moc"
