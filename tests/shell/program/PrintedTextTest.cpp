// SPDX-License-Identifier: MIT
#include "shell/program/PrintedText.h"

#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "shell/program/Subject.h"
#include "tests/shell/ShellTesting.h"

#include <QtTest>

namespace Kova::Shell {

class PrintedTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ofNothingIsEmpty();
    void ofOneFileHasNoTitle();
    void ofSeveralFilesHasTheirNames();
    void ofAnEmptyFileIsAnEmptyLine();
    void ofASubroutineOrAStatementIsThatAlone();
    void isUtf8();
};

void PrintedTextTest::ofNothingIsEmpty() {
    QCOMPARE(printedTextOf(Subject()), QByteArray());
}

void PrintedTextTest::ofOneFileHasNoTitle() {
    const Testing::WrittenProgram written("int a; int f(void){return a;}\n");
    QCOMPARE(printedTextOf(Subject(written.program.getUnit())),
             QByteArray("int a;\n\nint f(void)\n{\n    return a;\n}\n"));
}

void PrintedTextTest::ofSeveralFilesHasTheirNames() {
    const Testing::WrittenProgram written({{"a.c", "int a;\n"}, {"b.c", "int b;\n"}});
    const QString expected = "/* %1 */\nint a;\n\n/* %2 */\nint b;\n";
    QCOMPARE(printedTextOf(Subject(written.program.getUnit())),
             expected.arg(written.folder.path("a.c"), written.folder.path("b.c")).toUtf8());
}

void PrintedTextTest::ofAnEmptyFileIsAnEmptyLine() {
    const Testing::WrittenProgram written("");
    QCOMPARE(printedTextOf(Subject(written.program.getUnit())), QByteArray("\n"));
}

void PrintedTextTest::ofASubroutineOrAStatementIsThatAlone() {
    const Testing::WrittenProgram written("int a;\nint f(void) {\n  if (a) a = 2;\n  for (;;) ;\n}\n");
    auto& unit = *written.program.getUnit().getTranslationUnit(0);
    auto* function = dynamic_cast<Tessel::SubroutineDeclaration*>(unit.getChild(1));
    QVERIFY(function != nullptr);
    const Tessel::BlockStatement& body = *function->getBody();
    const QByteArray branch = "if (a)\n{\n    a = 2;\n}\n";
    QCOMPARE(printedTextOf(Subject(*body.getStatement(0))), branch);
    QCOMPARE(printedTextOf(Subject(*body.getStatement(1))), QByteArray("for (;;)\n{\n    ;\n}\n"));
    QCOMPARE(printedTextOf(Subject(*function)), QByteArray("int f(void)\n{\n"
                                                           "    if (a)\n    {\n        a = 2;\n    }\n"
                                                           "    for (;;)\n    {\n        ;\n    }\n}\n"));
}

void PrintedTextTest::isUtf8() {
    const QByteArray text = "const char *caf\xc3\xa9 = \"\xc3\xa9\";\n";
    const Testing::WrittenProgram written(text);
    QCOMPARE(printedTextOf(Subject(written.program.getUnit())), text);
}

} // namespace Kova::Shell

QTEST_APPLESS_MAIN(Kova::Shell::PrintedTextTest)
#include "PrintedTextTest.moc"
