// SPDX-License-Identifier: MIT
// libLLVM exports an isl of its own under the same names: whichever library is loaded first serves every call.
#include "tests/shell/ShellTesting.h"

#include <QDir>
#include <QtTest>

#include <dlfcn.h>

namespace Kova::Shell {

class IslLibraryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void versionInAProcessWithTheShellsLibraries();
    void theProgramCallsLibisl();
};

void IslLibraryTest::versionInAProcessWithTheShellsLibraries() {
    using Version = const char* (*)();
    const auto version = reinterpret_cast<Version>(dlsym(RTLD_DEFAULT, "isl_version"));
    QVERIFY(version != nullptr);
    QCOMPARE(QByteArray(version()).trimmed(), QByteArray("isl-0.25-GMP"));
}

// The loader tells which library each name was bound to.
void IslLibraryTest::theProgramCallsLibisl() {
    const Testing::SourceFolder folder;
    const QString file = folder.write("a.c", "void f(int a[9]) { for (int i = 1; i < 9; i++) a[i] = a[i - 1]; }\n");
    QProcessEnvironment environment = Testing::withoutDisplay();
    environment.insert("LD_DEBUG", "bindings");
    environment.insert("LD_DEBUG_OUTPUT", folder.path("bindings"));
    const Testing::Finished run = Testing::runProgram({"--view", "lamport-dependences", "--describe", file},
                                                      folder.path("out.json"), environment);
    QCOMPARE(run.status, 0);
    int bound = 0;
    for (const QString& name : QFileInfo(folder.path("out.json")).dir().entryList({"bindings*"}))
        for (const QByteArray& line : Testing::contentOf(folder.path(name)).split('\n'))
            if (line.contains("libKovaEnvironment") && line.contains("`isl_")) {
                QVERIFY2(line.contains("libisl.so"), line.constData());
                ++bound;
            }
    QVERIFY(bound > 10);
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::IslLibraryTest)
#include "IslLibraryTest.moc"
