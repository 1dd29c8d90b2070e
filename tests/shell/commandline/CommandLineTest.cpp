// SPDX-License-Identifier: MIT
#include "shell/commandline/CommandLine.h"

#include <QtTest>

namespace Kova::Shell {

using Outcome = ParsedCommandLine::Outcome;

namespace {

ParsedCommandLine parse(const QStringList& arguments) {
    return parseCommandLine(QStringList{"kova-shell"} + arguments);
}

} // namespace

class CommandLineTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothingOpensAnEmptyWindow();
    void filesKeepTheirOrder();
    void viewAndSubject();
    void readingOptionsAsCompilersTakeThem();
    void batchOptions();
    void exportAndDescribeTogether();
    void afterTwoDashesComeFiles();
    void helpNamesEveryOption();
    void helpAndVersionComeBeforeOtherChecks();
    void wrongUsage_data();
    void wrongUsage();
};

void CommandLineTest::nothingOpensAnEmptyWindow() {
    const ParsedCommandLine parsed = parse({});
    QCOMPARE(parsed.outcome, Outcome::Run);
    QVERIFY(!parsed.options.isBatch());
    QVERIFY(parsed.options.files.isEmpty());
    QVERIFY(!parsed.options.subject.line);
}

void CommandLineTest::filesKeepTheirOrder() {
    const ParsedCommandLine parsed = parse({"b.c", "--view", "call-graph", "a.c"});
    QCOMPARE(parsed.outcome, Outcome::Run);
    QCOMPARE(parsed.options.files, QStringList({"b.c", "a.c"}));
}

void CommandLineTest::viewAndSubject() {
    const Options options = parse({"--view=call-graph", "--function", "main", "--line", "12", "a.c"}).options;
    QCOMPARE(options.view, QString("call-graph"));
    QCOMPARE(options.subject.function, QString("main"));
    QCOMPARE(options.subject.line.value_or(0), 12);
}

void CommandLineTest::readingOptionsAsCompilersTakeThem() {
    const Options options =
        parse({"-Ione", "-I", "two", "-DA", "-D", "B=1", "-DC=x=y", "--std", "c99", "--std", "gnu89", "a.c"}).options;
    QCOMPARE(options.reading.includeDirectories, (std::vector<std::string>{"one", "two"}));
    QCOMPARE(options.reading.definitions, (std::vector<std::string>{"A", "B=1", "C=x=y"}));
    QCOMPARE(options.reading.standard, std::string("gnu89"));
    QCOMPARE(options.files, QStringList("a.c"));
}

void CommandLineTest::batchOptions() {
    QVERIFY(parse({"--list", "a.c"}).options.list);
    QVERIFY(parse({"--list", "a.c"}).options.isBatch());
    QVERIFY(!parse({"--list", "a.c"}).options.isAboutOneView());
    QVERIFY(parse({"--print", "--function", "f", "a.c"}).options.print);
    QVERIFY(parse({"--print", "a.c"}).options.isBatch());
    QCOMPARE(parse({"--export-all", "out", "a.c"}).options.exportDirectory, QString("out"));
    QVERIFY(parse({"--export-all", "out", "a.c"}).options.isBatch());
}

void CommandLineTest::exportAndDescribeTogether() {
    const ParsedCommandLine parsed = parse({"--view", "call-graph", "--describe", "--export", "a.SVG", "a.c"});
    QCOMPARE(parsed.outcome, Outcome::Run);
    QVERIFY(parsed.options.describe);
    QCOMPARE(parsed.options.exportFile, QString("a.SVG"));
    QVERIFY(parsed.options.isAboutOneView());
}

void CommandLineTest::afterTwoDashesComeFiles() {
    QCOMPARE(parse({"--list", "--", "--view", "-I"}).options.files, QStringList({"--view", "-I"}));
}

void CommandLineTest::helpNamesEveryOption() {
    const QString help = helpText();
    for (const char* option : {"--view NAME", "--function NAME", "--line N", "--export FILE", "--export-all DIR",
                               "--describe", "--print", "--list", "-I DIR", "-D NAME[=VALUE]", "--std STD", "--help", "--version",
                               "call-graph", "control-flow", "source", ".png .xpm .svg", "Exit status"})
        QVERIFY2(help.contains(option), option);
    for (const QString& line : help.split('\n'))
        QVERIFY2(line.size() <= 80, qPrintable(line));
}

void CommandLineTest::helpAndVersionComeBeforeOtherChecks() {
    QCOMPARE(parse({"--help", "--view", "nonsense"}).outcome, Outcome::Help);
    QCOMPARE(parse({"--version", "--export", "a.png"}).outcome, Outcome::Version);
    QCOMPARE(versionText(), QString("kova-shell 0.1.0\n"));
}

void CommandLineTest::wrongUsage_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("inMessage");
    QTest::newRow("unknown option") << QStringList{"--config", "x", "a.c"} << "config";
    QTest::newRow("print without files") << QStringList{"--print"} << "no file";
    QTest::newRow("text and list") << QStringList{"--print", "--list", "a.c"} << "--print";
    QTest::newRow("text of a view") << QStringList{"--print", "--view", "call-graph", "a.c"} << "--view";
    QTest::newRow("value missing") << QStringList{"--view"} << "view";
    QTest::newRow("flag with a value") << QStringList{"--list=yes", "a.c"} << "list";
    QTest::newRow("empty value") << QStringList{"--function=", "a.c"} << "--function needs a value";
    QTest::newRow("empty directory") << QStringList{"-I", "", "a.c"} << "-I needs a value";
    QTest::newRow("unknown view") << QStringList{"--view", "lattice", "a.c"} << "there is call-graph";
    QTest::newRow("two views") << QStringList{"--view", "call-graph", "--view", "call-graph", "a.c"}
                               << "more than once";
    QTest::newRow("two lines") << QStringList{"--line", "1", "--line", "2", "a.c"} << "more than once";
    QTest::newRow("line 0") << QStringList{"--line", "0", "a.c"} << "'0'";
    QTest::newRow("line -3") << QStringList{"--line=-3", "a.c"} << "'-3'";
    QTest::newRow("line x") << QStringList{"--line", "x", "a.c"} << "'x'";
    QTest::newRow("huge line") << QStringList{"--line", "99999999999", "a.c"} << "'99999999999'";
    QTest::newRow("export without view") << QStringList{"--export", "a.png", "a.c"} << "--export needs --view";
    QTest::newRow("describe without view") << QStringList{"--describe", "a.c"} << "--describe needs --view";
    QTest::newRow("unknown suffix") << QStringList{"--view", "call-graph", "--export", "a.gif", "a.c"}
                                    << ".png .xpm .svg";
    QTest::newRow("no suffix") << QStringList{"--view", "call-graph", "--export", "picture", "a.c"} << ".png .xpm .svg";
    QTest::newRow("two documents") << QStringList{"--view", "call-graph", "--describe", "--list", "a.c"}
                                   << "one of them";
    QTest::newRow("list of a function") << QStringList{"--list", "--function", "f", "a.c"} << "--function";
    QTest::newRow("list without files") << QStringList{"--list"} << "no file";
    QTest::newRow("unknown standard") << QStringList{"--std", "c3000", "--list", "a.c"} << "c3000";
}

void CommandLineTest::wrongUsage() {
    QFETCH(QStringList, arguments);
    QFETCH(QString, inMessage);
    const ParsedCommandLine parsed = parse(arguments);
    QCOMPARE(parsed.outcome, Outcome::Error);
    QVERIFY2(parsed.error.contains(inMessage), qPrintable(parsed.error));
    QVERIFY2(!parsed.error.contains('\n'), qPrintable(parsed.error));
}

} // namespace Kova::Shell

QTEST_APPLESS_MAIN(Kova::Shell::CommandLineTest)
#include "CommandLineTest.moc"
