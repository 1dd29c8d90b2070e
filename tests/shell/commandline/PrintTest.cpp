// SPDX-License-Identifier: MIT
// `kova-shell --print` as scripts see it.
#include "shell/program/PrintedText.h"
#include "tests/shell/ShellTesting.h"

#include <QProcess>
#include <QStandardPaths>
#include <QtTest>

namespace Kova::Shell {

namespace {

using Testing::Finished;
using Testing::runProgram;

constexpr auto source = "#include <stdio.h>\n"
                        "int leaf(int x) { /* twice */ return x + x; }\n"
                        "int main(void) {\n"
                        "    if (leaf(1) == 2) printf(\"yes\\n\"); else return 1;\n"
                        "    return 0;\n"
                        "}\n";

constexpr auto leafText = "int leaf(int x)\n{\n    return x + x;\n}\n";
constexpr auto mainText = "int main(void)\n{\n    if (leaf(1) == 2)\n    {\n        printf(\"yes\\n\");\n    }\n"
                          "    else\n    {\n        return 1;\n    }\n    return 0;\n}\n";

/// Runs a program to its end. @return its output; with its errors in front when it failed.
QByteArray outputOf(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished();
    const bool failed = process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0;
    return (failed ? "failed: " + process.readAllStandardError() : QByteArray()) + process.readAllStandardOutput();
}

} // namespace

class PrintTest : public QObject, private Testing::FreshFolder {
    Q_OBJECT

private Q_SLOTS:
    void init() { renewFolder(); }
    void printsAFile();
    void printsTheSameAgain();
    void compiles();
    void printsAFunctionOrAStatement();
    void printsSeveralFilesUnderTheirNames();
    void exportsAtTheSameTime();
    void unknownFunction();
    void unreadableFile();
    void fullStandardOutput();
    void wrongUsage();
};

void PrintTest::printsAFile() {
    const Finished run = runProgram({"--print", write("a.c", source)});
    QCOMPARE(run.status, 0);
    QCOMPARE(run.error, QByteArray());
    QCOMPARE(run.out, QByteArray("#include <stdio.h>\n\n") + leafText + "\n" + mainText);
}

void PrintTest::printsTheSameAgain() {
    const QByteArray once = runProgram({"--print", write("a.c", source)}).out;
    QCOMPARE(runProgram({"--print", write("b.c", once)}).out, once);
}

void PrintTest::compiles() {
    const QString compiler = QStandardPaths::findExecutable("gcc");
    QVERIFY2(!compiler.isEmpty(), "gcc is missing: it comes with g++, which ./test installs");
    const QString text = write("b.c", runProgram({"--print", write("a.c", source)}).out);
    const QString program = path("b");
    QCOMPARE(outputOf(compiler, {"-Wall", "-Wextra", "-Werror", text, "-o", program}), QByteArray());
    QCOMPARE(outputOf(program, {}), QByteArray("yes\n"));
}

void PrintTest::printsAFunctionOrAStatement() {
    const QString file = write("a.c", source);
    QCOMPARE(runProgram({"--print", "--function", "leaf", file}).out, QByteArray(leafText));
    QCOMPARE(runProgram({"--print", "--function", "main", file}).out, QByteArray(mainText));
    QCOMPARE(runProgram({"--print", "--line", "5", file}).out, QByteArray("return 0;\n"));
}

void PrintTest::printsSeveralFilesUnderTheirNames() {
    const QString first = write("a.c", "int a;\n");
    const QString second = write("b.c", "int b;\n");
    const Finished run = runProgram({"--print", first, second});
    QCOMPARE(run.status, 0);
    QCOMPARE(run.out, QString("/* %1 */\nint a;\n\n/* %2 */\nint b;\n").arg(first, second).toUtf8());
}

void PrintTest::exportsAtTheSameTime() {
    const QString file = write("a.c", source);
    const QString picture = path("a.png");
    const Finished run =
        runProgram({"--print", "--view", "call-graph", "--function", "leaf", "--export", picture, file});
    QCOMPARE(run.status, 0);
    QCOMPARE(run.out, QByteArray(leafText));
    QVERIFY(QFile::exists(picture));
}

void PrintTest::unknownFunction() {
    const Finished run = runProgram({"--print", "--function", "leave", write("a.c", source)});
    QCOMPARE(run.status, 2);
    QCOMPARE(run.out, QByteArray());
    QCOMPARE(run.error, QByteArray("kova-shell: no subroutine 'leave' with a body; there are leaf, main\n"));
}

void PrintTest::unreadableFile() {
    const QString missing = path("missing.c");
    const Finished alone = runProgram({"--print", missing});
    QCOMPARE(alone.status, 3);
    QCOMPARE(alone.out, QByteArray());
    const Finished beside = runProgram({"--print", missing, write("a.c", "int a;\n")});
    QCOMPARE(beside.status, 3);
    QCOMPARE(beside.out, QByteArray("int a;\n"));
}

void PrintTest::fullStandardOutput() {
    const Finished run = runProgram({"--print", write("a.c", source)}, "/dev/full");
    QCOMPARE(run.status, 3);
    QVERIFY(run.error.startsWith("kova-shell: cannot write to standard output: "));
}

void PrintTest::wrongUsage() {
    const QString file = write("a.c", source);
    const QByteArray help = "kova-shell: try --help\n";
    const Finished both = runProgram({"--print", "--list", file});
    QCOMPARE(both.status, 2);
    QCOMPARE(both.error,
             "kova-shell: --describe, --list and --print all print on standard output: give one of them\n" + help);
    const Finished view = runProgram({"--print", "--view", "call-graph", file});
    QCOMPARE(view.status, 2);
    QCOMPARE(view.error, "kova-shell: --view goes with --export, --describe or the window\n" + help);
    const Finished none = runProgram({"--print"});
    QCOMPARE(none.status, 2);
    QCOMPARE(none.error, "kova-shell: there is no file to read\n" + help);
}

} // namespace Kova::Shell

QTEST_GUILESS_MAIN(Kova::Shell::PrintTest)
#include "PrintTest.moc"
