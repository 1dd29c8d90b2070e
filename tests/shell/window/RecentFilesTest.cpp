// SPDX-License-Identifier: MIT
#include "shell/window/RecentFiles.h"

#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

namespace Kova::Shell {

class RecentFilesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_directory = std::make_unique<QTemporaryDir>(); }
    void newestFirstAndOnce();
    void atMostTen();
    void keptInTheSettings();
    void anEntryPicksItsFile();
    void namesMayHoldAmpersands();

private:
    [[nodiscard]] QString settingsFile() const { return m_directory->filePath("settings.ini"); }

    std::unique_ptr<QTemporaryDir> m_directory;
};

void RecentFilesTest::newestFirstAndOnce() {
    QSettings settings(settingsFile(), QSettings::IniFormat);
    RecentFiles recent(settings);
    QVERIFY(!recent.isEnabled());
    recent.add({"/x/a.c", "/x/b.c"});
    recent.add({"/x/c.c"});
    recent.add({"/x/b.c"});
    QCOMPARE(recent.getPaths(), QStringList({"/x/b.c", "/x/c.c", "/x/a.c"}));
    QVERIFY(recent.isEnabled());
    recent.remove("/x/c.c");
    QCOMPARE(recent.getPaths(), QStringList({"/x/b.c", "/x/a.c"}));
    QCOMPARE(recent.actions().size(), 2);
}

void RecentFilesTest::atMostTen() {
    QSettings settings(settingsFile(), QSettings::IniFormat);
    RecentFiles recent(settings);
    for (int i = 0; i < 14; ++i)
        recent.add({QString("/x/%1.c").arg(i)});
    QCOMPARE(recent.getPaths().size(), 10);
    QCOMPARE(recent.getPaths().first(), QString("/x/13.c"));
    QCOMPARE(recent.getPaths().last(), QString("/x/4.c"));
}

void RecentFilesTest::keptInTheSettings() {
    {
        QSettings settings(settingsFile(), QSettings::IniFormat);
        RecentFiles(settings).add({"/x/a.c"});
    }
    QSettings settings(settingsFile(), QSettings::IniFormat);
    QCOMPARE(RecentFiles(settings).getPaths(), QStringList("/x/a.c"));
}

void RecentFilesTest::anEntryPicksItsFile() {
    QSettings settings(settingsFile(), QSettings::IniFormat);
    RecentFiles recent(settings);
    recent.add({"/x/a.c", "/x/b.c"});
    QSignalSpy picked(&recent, &RecentFiles::filePicked);
    recent.actions().at(1)->trigger();
    QCOMPARE(picked.size(), 1);
    QCOMPARE(picked.at(0).at(0).toString(), QString("/x/b.c"));
}

void RecentFilesTest::namesMayHoldAmpersands() {
    QSettings settings(settingsFile(), QSettings::IniFormat);
    RecentFiles recent(settings);
    recent.add({"/x/a&b.c"});
    QCOMPARE(recent.actions().at(0)->text(), QString("&1  /x/a&&b.c"));
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::RecentFilesTest)
#include "RecentFilesTest.moc"
