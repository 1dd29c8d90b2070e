// SPDX-License-Identifier: MIT
#include "shell/pictures/FileNames.h"

#include <QtTest>

namespace Kova::Shell {

class FileNamesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void safeNamesStay();
    void unsafeCharactersBecomeUnderscores();
    void eachNameIsGivenOnce();
    void longNamesAreCut();
};

void FileNamesTest::safeNamesStay() {
    QCOMPARE(FileNames().obtain("call-graph-main_2.x"), QString("call-graph-main_2.x"));
}

void FileNamesTest::unsafeCharactersBecomeUnderscores() {
    QCOMPARE(FileNames().obtain("../../etc/passwd"), QString("_.._.._etc_passwd"));
    QCOMPARE(FileNames().obtain("a b<&>\"'c"), QString("a_b_c"));
    QCOMPARE(FileNames().obtain(QString::fromUtf8("\xc3\xa4")), QString("_"));
    QCOMPARE(FileNames().obtain(""), QString("_"));
    QCOMPARE(FileNames().obtain("."), QString("_."));
}

void FileNamesTest::eachNameIsGivenOnce() {
    FileNames names;
    QCOMPARE(names.obtain("swap"), QString("swap"));
    QCOMPARE(names.obtain("swap"), QString("swap-2"));
    QCOMPARE(names.obtain("SWAP"), QString("SWAP-3"));
    QCOMPARE(names.obtain("swap-2"), QString("swap-2-2"));
}

void FileNamesTest::longNamesAreCut() {
    FileNames names;
    const QString first = names.obtain(QString(5000, 'x'));
    const QString second = names.obtain(QString(6000, 'x'));
    QVERIFY(first.size() <= 100);
    QVERIFY(second.size() <= 100);
    QVERIFY(first != second);
}

} // namespace Kova::Shell

QTEST_APPLESS_MAIN(Kova::Shell::FileNamesTest)
#include "FileNamesTest.moc"
