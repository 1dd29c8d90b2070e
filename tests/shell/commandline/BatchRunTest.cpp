// SPDX-License-Identifier: MIT
// The command line as scripts see it: the real program, its output and its exit status.
#include "shell/commandline/BatchRun.h"

#include "tests/shell/ShellTesting.h"

#include <QDir>
#include <QImage>
#include <QJsonArray>
#include <QJsonObject>
#include <QPainter>
#include <QSvgRenderer>
#include <QtTest>

namespace Kova::Shell {

using namespace Testing;

namespace {

QImage renderSvg(const QByteArray& svg) {
    QSvgRenderer renderer(svg);
    QImage image(renderer.defaultSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    renderer.render(&painter);
    return image;
}

/// The share of pixels that differ clearly; rasterizers may place the edge of a stroke differently.
double differingShare(const QImage& one, const QImage& other) {
    if (one.size() != other.size())
        return 1.0;
    int count = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            count += std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y))) > 100;
    return static_cast<double>(count) / (one.width() * one.height());
}

} // namespace

class BatchRunTest : public QObject, private FreshFolder {
    Q_OBJECT

private Q_SLOTS:
    void init() { renewFolder(); }
    void helpAndVersion();
    void wrongUsage();
    void describe();
    void describeAndExportTogether();
    void exportEveryFormat();
    void listAndExportAll();
    void functionAndLine();
    void unknownFunctionAndLine();
    void includeAndDefine();
    void deviceGetsPng();
    void headerCountsAsTheProgramsOwn();
    void fileNamesInUtf8();
};

void BatchRunTest::helpAndVersion() {
    const Finished version = runProgram({"--version"});
    QCOMPARE(version.status, 0);
    QCOMPARE(version.out, QByteArray("kova-shell 0.1.0\n"));
    QCOMPARE(version.error, QByteArray());
    const Finished help = runProgram({"--help"});
    QCOMPARE(help.status, 0);
    QVERIFY(help.out.startsWith("Usage: kova-shell [OPTIONS] [FILE...]\n"));
    QCOMPARE(runProgram({"--help"}, "/dev/full").status, 3);
}

void BatchRunTest::wrongUsage() {
    for (const QStringList& arguments : {QStringList{"--nonsense"},
                                         {"--view", "nonsense", "--describe", "a.c"},
                                         {"--export", "a.png", "a.c"},
                                         {"--list"},
                                         {"--line", "none", "a.c"}}) {
        const Finished run = runProgram(arguments);
        QCOMPARE(run.status, 2);
        QCOMPARE(run.out, QByteArray());
        QVERIFY2(run.error.startsWith("kova-shell: ") && hasMessageForm(run.error), run.error.constData());
    }
}

void BatchRunTest::describe() {
    const QString file = write("a.c", twoCalls);
    const Finished run = runProgram(describing + QStringList(file));
    QCOMPARE(run.status, 0);
    QCOMPARE(run.error, QByteArray());
    const QJsonObject description = parse(run.out);
    QCOMPARE(description["view"].toString(), QString("call-graph"));
    QCOMPARE(description["file"].toString(), file);
    QCOMPARE(description["subject"].toString(), QString("program"));
    QCOMPARE(namesIn(description, "nodes", "text"), QStringList({"leaf", "main"}));
    const QJsonArray expected = {
        QJsonObject{{"from", 1}, {"to", 0}, {"kind", "call"}, {"tooltip", "leaf(1)\nleaf(2)"}, {"visible", true}}};
    QCOMPARE(description["edges"].toArray(), expected);
    QCOMPARE(runProgram(describing + QStringList(file)).out, run.out); // the same every time
}

void BatchRunTest::describeAndExportTogether() {
    const QString file = write("a.c", twoCalls);
    const Finished run = runProgram(describing + QStringList{"--export", path("a.png"), file});
    QCOMPARE(run.status, 0);
    const QJsonArray size = parse(run.out)["size"].toArray();
    QCOMPARE(QImage(path("a.png")).size(), QSize(size[0].toInt(), size[1].toInt()));
}

void BatchRunTest::exportEveryFormat() {
    const QString file = write("a.c", twoCalls);
    for (const char* name : {"a.png", "a.xpm", "a.SVG"}) {
        const Finished run = runProgram({"--view", "call-graph", "--export", path(name), file});
        QCOMPARE(run.status, 0);
        QCOMPARE(run.out + run.error, QByteArray());
    }
    const QImage png(path("a.png"));
    QVERIFY(!png.isNull());
    QCOMPARE(QImage(path("a.xpm")).convertToFormat(png.format()), png);
    const QByteArray svg = contentOf(path("a.SVG"));
    QVERIFY(svg.contains(QString("viewBox=\"0 0 %1 %2\"").arg(png.width()).arg(png.height()).toUtf8()));
    QVERIFY(svg.contains(">main<") && svg.contains(">leaf<"));
    QVERIFY(differingShare(png, renderSvg(svg)) < 0.01);
}

void BatchRunTest::listAndExportAll() {
    const QString file = write("a.c", twoCalls);
    const Finished run = runProgram({"--list", "--export-all", path("out"), file});
    QCOMPARE(run.status, 0);
    QCOMPARE(run.error, QByteArray());
    QCOMPARE(namesIn(parse(run.out), "subroutines", "name"), QStringList({"leaf", "main"}));
    QCOMPARE(filesIn("out"), QStringList({"call-graph-main.png", "call-graph-main.svg", "call-graph-program.png",
                                          "call-graph-program.svg", "index.html", "source-leaf.png", "source-leaf.svg",
                                          "source-main.png", "source-main.svg"}));
}

void BatchRunTest::functionAndLine() {
    const QString file = write("a.c", twoCalls);
    const QJsonObject leaf = parse(runProgram(describing + QStringList{"--function", "leaf", file}).out);
    QCOMPARE(leaf["subject"].toString(), QString("subroutine leaf"));
    QCOMPARE(namesIn(leaf, "nodes", "text"), QStringList("leaf"));
    const QJsonObject line = parse(runProgram(describing + QStringList{"--line", "3", file}).out);
    QCOMPARE(line["subject"].toString(), QString("statement at line 3 in main"));
    QCOMPARE(namesIn(line, "edges", "tooltip"), QStringList("leaf(1)"));
}

void BatchRunTest::unknownFunctionAndLine() {
    const QString file = write("a.c", twoCalls);
    const Finished function = runProgram(describing + QStringList{"--function", "Main", file});
    QCOMPARE(function.status, 2);
    QCOMPARE(function.out, QByteArray());
    QCOMPARE(function.error, QByteArray("kova-shell: no subroutine 'Main' with a body; there are leaf, main\n"));
    const Finished line = runProgram(describing + QStringList{"--line", "5", file});
    QCOMPARE(line.status, 2);
    QCOMPARE(line.error, QByteArray("kova-shell: no statement starts on line 5\n"));
}

void BatchRunTest::includeAndDefine() {
    QVERIFY(QDir().mkpath(path("include")));
    write("include/leaf.h", "static int leaf(void) { return 0; }\n");
    const QString file = write("a.c", "#include <leaf.h>\n#ifdef DEEP\nint deep(void) { return leaf(); }\n#endif\n"
                                      "int value(void) { return VALUE + leaf(); }\n");
    for (const QStringList& options : {QStringList{"-I" + path("include"), "-DDEEP", "-DVALUE=3"},
                                       QStringList{"-I", path("include"), "-D", "DEEP", "-D", "VALUE=3"}}) {
        const Finished run = runProgram(QStringList{"--list"} + options + QStringList(file));
        QCOMPARE(run.status, 0);
        QCOMPARE(run.error, QByteArray());
        QVERIFY(namesIn(parse(run.out), "subroutines", "name").contains("deep"));
    }
}

void BatchRunTest::deviceGetsPng() {
    const Finished run = runProgram({"--view", "call-graph", "--export", "/dev/stdout", write("a.c", twoCalls)});
    QCOMPARE(run.status, 0);
    QVERIFY(!QImage::fromData(run.out, "PNG").isNull());
}

void BatchRunTest::headerCountsAsTheProgramsOwn() {
    write("own.h", "static int own(void) { return 1; }\n");
    const QString file =
        write("a.c", "#include <stdio.h>\n#include \"own.h\"\nint main(void) { puts(\"\"); return own(); }\n");
    const QJsonObject description = parse(runProgram(describing + QStringList(file)).out);
    QCOMPARE(namesIn(description, "nodes", "text"), QStringList({"main", "own"}));
    QVERIFY(namesIn(description, "nodes", "file").at(1).endsWith("own.h"));
}

void BatchRunTest::fileNamesInUtf8() {
    const QString file = write(QString::fromUtf8("gr\xc3\xbc\xc3\x9f e.c"), twoCalls);
    QProcessEnvironment environment = withoutDisplay();
    environment.insert("LC_ALL", "C");
    const QString picture = path(QString::fromUtf8("b\xc3\xa4r.png"));
    const Finished run = runProgram(describing + QStringList{"--export", picture, file}, {}, environment);
    QCOMPARE(run.status, 0);
    QCOMPARE(parse(run.out)["file"].toString(), file);
    QVERIFY(!QImage(picture).isNull());
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::BatchRunTest)
#include "BatchRunTest.moc"
