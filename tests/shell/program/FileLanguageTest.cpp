// SPDX-License-Identifier: MIT
#include "shell/program/FileLanguage.h"

#include <QtTest>

namespace Kova::Shell {

class FileLanguageTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void byTheEnding();
};

void FileLanguageTest::byTheEnding() {
    for (const char* path : {"a.f", "a.F", "a.for", "a.FOR", "a.ftn", "a.f77", "a.f90", "a.F90", "a.f95", "a.f03",
                             "a.F08", "/x.c/a.b.f90"})
        QVERIFY2(languageOf(path) == Tessel::LANG_FORTRAN, path);
    for (const char* path : {"a.c", "a.h", "a.C", "a.inc", "a", "", "f90", "a.f9", "a.f90.c", "/x.f90/a"})
        QVERIFY2(languageOf(path) == Tessel::LANG_C, path);
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::FileLanguageTest)
#include "FileLanguageTest.moc"
