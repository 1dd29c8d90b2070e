// SPDX-License-Identifier: MIT
#include "shell/commandline/Platform.h"

#include "tests/shell/ShellTesting.h"

#include <QtTest>

namespace Kova::Shell {

/// The platform is chosen once in a process, so that only real runs show what comes of it.
class PlatformTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void whatTheUserSetStays();
    void theWindowNeedsADisplay();
    void aDisplayThatCannotBeReachedIsNone();
    void batchWorkIgnoresTheDisplay();
};

void PlatformTest::whatTheUserSetStays() {
    qputenv("QT_QPA_PLATFORM", "minimal");
    choosePlatform(true);
    QCOMPARE(qgetenv("QT_QPA_PLATFORM"), QByteArray("minimal"));
    qunsetenv("QT_QPA_PLATFORM");
    qunsetenv("DISPLAY");
    qunsetenv("WAYLAND_DISPLAY");
    choosePlatform(true);
    QCOMPARE(qgetenv("QT_QPA_PLATFORM"), QByteArray("offscreen"));
}

void PlatformTest::theWindowNeedsADisplay() {
    const Testing::Finished run = Testing::runProgram({});
    QCOMPARE(run.status, 2);
    QCOMPARE(run.out, QByteArray());
    QVERIFY2(run.error.startsWith("kova-shell: there is no display"), run.error.constData());
}

void PlatformTest::aDisplayThatCannotBeReachedIsNone() {
    QProcessEnvironment environment = Testing::withoutDisplay();
    environment.insert("DISPLAY", ":54321");
    const Testing::Finished run = Testing::runProgram({}, {}, environment);
    QCOMPARE(run.status, 2);
    QVERIFY2(run.error.contains("kova-shell: there is no display"), run.error.constData());
}

void PlatformTest::batchWorkIgnoresTheDisplay() {
    const Testing::SourceFolder folder;
    QProcessEnvironment environment = Testing::withoutDisplay();
    environment.insert("DISPLAY", ":54321");
    const QString file = folder.write("a.c", "int main(void) { return 0; }\n");
    const Testing::Finished run = Testing::runProgram({"--list", file}, {}, environment);
    QCOMPARE(run.status, 0);
    QCOMPARE(run.error, QByteArray());
}

} // namespace Kova::Shell

QTEST_APPLESS_MAIN(Kova::Shell::PlatformTest)
#include "PlatformTest.moc"
