// SPDX-License-Identifier: MIT
#include "shell/program/SourceReader.h"

#include "environment/tessel/ProgramUnit.h"
#include "tests/shell/ShellTesting.h"

#include <QDir>
#include <QtTest>

namespace Kova::Shell {

using State = OpenedFile::State;

class SourceReaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsFilesInOrder();
    void aFileIsReadOnce();
    void statesAndWhatTheyMean();
    void fortranIsRefusedByName();
    void optionsReachTheFrontEnd();
    void optionsAreChecked();
    void namesInUtf8();
};

void SourceReaderTest::readsFilesInOrder() {
    const Testing::SourceFolder folder;
    const QString b = folder.write("b.c", "int b(void) { return 0; }\n");
    const QString a = folder.write("a.c", "int a(void) { return 0; }\n");
    const OpenedProgram program = Testing::readProgram({b, a});
    QCOMPARE(program.getUnit().getChildCount(), std::size_t(2));
    QCOMPARE(program.getUnit().getTranslationUnit(0)->getPath(), b.toStdString());
    QCOMPARE(program.getUnit().getTranslationUnit(1)->getPath(), a.toStdString());
    QVERIFY(!program.isEmpty());
    QVERIFY(!program.hasUnreadableFile());
}

void SourceReaderTest::aFileIsReadOnce() {
    const Testing::SourceFolder folder;
    const QString a = folder.write("a.c", "int a(void) { return 0; }\n");
    QDir().mkpath(folder.path("sub"));
    const OpenedProgram program = Testing::readProgram({a, a, folder.path("sub/../a.c")});
    QCOMPARE(program.getFiles().size(), std::size_t(1));
    QCOMPARE(program.getUnit().getChildCount(), std::size_t(1));
    QCOMPARE(program.getDiagnosticTexts().size(), std::size_t(0));
}

void SourceReaderTest::statesAndWhatTheyMean() {
    const Testing::SourceFolder folder;
    const QString good = folder.write("good.c", "int good(void) { return 0; }\n");
    const QString half = folder.write("half.c", "int half(void) { return 0; }\nint broken(void) { return x; }\n");
    const QString missing = folder.path("missing.c");
    const OpenedProgram program = Testing::readProgram({good, missing, half, folder.path("")});
    QCOMPARE(program.getFiles().size(), std::size_t(4));
    QVERIFY(program.getFiles()[0].state == State::Complete);
    QVERIFY(program.getFiles()[1].state == State::Unreadable);
    QVERIFY(program.getFiles()[2].state == State::Partial);
    QVERIFY(program.getFiles()[3].state == State::Unreadable); // a directory
    QVERIFY(program.hasUnreadableFile());
    QVERIFY(!program.isEmpty());
    QVERIFY(Testing::readProgram({missing}).isEmpty());
    QVERIFY(Testing::readProgram({}).isEmpty());
    bool saysWhere = false;
    for (const std::string& text : program.getDiagnosticTexts())
        saysWhere = saysWhere || text.rfind(half.toStdString() + ":2:27: error: ", 0) == 0;
    QVERIFY(saysWhere);
}

void SourceReaderTest::fortranIsRefusedByName() {
    const Testing::SourceFolder folder;
    const OpenedProgram program = Testing::readProgram({folder.write("a.F90", "end\n")});
    QVERIFY(program.isEmpty());
    QCOMPARE(program.getDiagnosticTexts().size(), std::size_t(1));
    QCOMPARE(program.getDiagnosticTexts()[0],
             folder.path("a.F90").toStdString() + ": error: cannot be read: only C files can");
}

void SourceReaderTest::optionsReachTheFrontEnd() {
    const Testing::SourceFolder folder;
    QDir().mkpath(folder.path("include"));
    folder.write("include/shared.h", "static int shared(void) { return 0; }\n");
    const QString file = folder.write("a.c", "#include \"shared.h\"\n#if VALUE == 3\nint three(void) { return 3; }\n"
                                             "#endif\nint old() { return undeclared(); }\n");
    Frontends::COptions options;
    options.includeDirectories = {folder.path("include").toStdString()};
    options.definitions = {"VALUE=3"};
    options.standard = "gnu89";
    const OpenedProgram program = SourceReader(options).read({file});
    QVERIFY(program.getFiles()[0].state == State::Complete);
    QVERIFY(Testing::readProgram({file}).getFiles()[0].state != State::Complete);
}

void SourceReaderTest::optionsAreChecked() {
    QCOMPARE(SourceReader(Frontends::COptions()).checkOptions(), QString());
    Frontends::COptions options;
    options.standard = "c3000";
    QVERIFY(!SourceReader(options).checkOptions().isEmpty());
}

void SourceReaderTest::namesInUtf8() {
    const Testing::SourceFolder folder;
    const QString file = folder.write(QString::fromUtf8("gr\xc3\xbc\xc3\x9f e.c"), "int a(void) { return 0; }\n");
    QVERIFY(Testing::readProgram({file}).getFiles()[0].state == State::Complete);
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::SourceReaderTest)
#include "SourceReaderTest.moc"
