// SPDX-License-Identifier: MIT
#include "shell/pictures/Gallery.h"

#include "shell/messages/MessageLog.h"
#include "shell/program/OpenedProgram.h"
#include "tests/shell/ShellTesting.h"

#include <QDir>
#include <QImage>
#include <QtTest>

namespace Kova::Shell {

namespace {

using Testing::filesIn;

constexpr auto source = R"(
static int leaf(int x) { return x; }
static int looping(int x) { return x ? looping(x - 1) : 0; }
int main(void) { return leaf(1) + looping(2); }
)";

constexpr auto other = R"(
static int deep(void) { return 1; }
static int looping(void) { return deep(); }
int use(void) { return looping(); }
)";

} // namespace

class GalleryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void writesWhatIsWorthIt();
    void equalNamesGetFilesOfTheirOwn();
    void aProgramWithoutProceduresHasAPageOnly();
    void aFileInTheWayIsReported();
    void whatCannotBeWrittenIsReportedAndTheRestWritten();
    void whatIsTooLargeForAnImageIsThereAsSvg();

private:
    MessageLog m_log;
};

void GalleryTest::writesWhatIsWorthIt() {
    const Testing::SourceFolder folder;
    const OpenedProgram program = Testing::readProgram({folder.write("a.c", source)});
    Gallery gallery(program, folder.path("new/gallery"));
    QCOMPARE(gallery.write(), QStringList());
    QCOMPARE(gallery.getPictureCount(), std::size_t(7)); // no calls of leaf: it calls nothing
    QCOMPARE(
        filesIn(folder.path("new/gallery")),
        QStringList({"call-graph-looping.png", "call-graph-looping.svg", "call-graph-main.png", "call-graph-main.svg",
                     "call-graph-program.png", "call-graph-program.svg", "expression-control-flow-looping.png",
                     "expression-control-flow-looping.svg", "index.html", "source-leaf.png", "source-leaf.svg",
                     "source-looping.png", "source-looping.svg", "source-main.png", "source-main.svg"}));
    QVERIFY(!QImage(folder.path("new/gallery/call-graph-main.png")).isNull());
    const QByteArray page = Testing::contentOf(folder.path("new/gallery/index.html"));
    QVERIFY(page.contains("subroutine looping"));
    QVERIFY(page.contains("3 procedures, 3 calls")); // main to both, looping to itself
    QVERIFY(page.contains("a.c:3, 1 procedure, 1 call"));
}

void GalleryTest::equalNamesGetFilesOfTheirOwn() {
    const Testing::SourceFolder folder;
    const OpenedProgram program = Testing::readProgram({folder.write("a.c", source), folder.write("b.c", other)});
    Gallery gallery(program, folder.path("gallery"));
    QCOMPARE(gallery.write(), QStringList());
    QVERIFY(filesIn(folder.path("gallery")).contains("call-graph-looping.png"));
    QVERIFY(filesIn(folder.path("gallery")).contains("call-graph-looping-2.png"));
}

void GalleryTest::aProgramWithoutProceduresHasAPageOnly() {
    const Testing::SourceFolder folder;
    const OpenedProgram program = Testing::readProgram({folder.write("a.c", "int x;\n")});
    Gallery gallery(program, folder.path("gallery"));
    QCOMPARE(gallery.write(), QStringList());
    QCOMPARE(gallery.getPictureCount(), std::size_t(0));
    QCOMPARE(filesIn(folder.path("gallery")), QStringList("index.html"));
}

void GalleryTest::aFileInTheWayIsReported() {
    const Testing::SourceFolder folder;
    const QString file = folder.write("a.c", source);
    const OpenedProgram program = Testing::readProgram({file});
    QCOMPARE(Gallery(program, file).write().size(), 1);
    QCOMPARE(Gallery(program, file + "/below").write().size(), 1);
    QCOMPARE(Testing::contentOf(file), QByteArray(source));
}

void GalleryTest::whatCannotBeWrittenIsReportedAndTheRestWritten() {
    const Testing::SourceFolder folder;
    const OpenedProgram program = Testing::readProgram({folder.write("a.c", source)});
    QVERIFY(QDir().mkpath(folder.path("gallery/call-graph-main.png"))); // a directory of that name
    Gallery gallery(program, folder.path("gallery"));
    const QStringList failures = gallery.write();
    QCOMPARE(failures.size(), 1);
    QVERIFY(failures.first().contains("call-graph-main.png"));
    QVERIFY(QFile::exists(folder.path("gallery/call-graph-main.svg")));
    const QByteArray page = Testing::contentOf(folder.path("gallery/index.html"));
    QVERIFY(page.contains("call-graph-main.svg"));
    QVERIFY(!page.contains("call-graph-main.png"));
}

// A statement and the distance to the next one take more than 22 units, which makes more than 32,767.
void GalleryTest::whatIsTooLargeForAnImageIsThereAsSvg() {
    const Testing::SourceFolder folder;
    QByteArray text = "void f(int n) {\n    if (n)\n        return;\n";
    for (int i = 0; i < 1500; ++i)
        text += "    n++;\n";
    const OpenedProgram program = Testing::readProgram({folder.write("a.c", text + "}\n")});
    Gallery gallery(program, folder.path("gallery"));
    QCOMPARE(gallery.write(), QStringList());
    const QStringList files = filesIn(folder.path("gallery"));
    QVERIFY(files.contains("control-flow-f.svg"));
    QVERIFY(!files.contains("control-flow-f.png"));
    QVERIFY(files.contains("expression-control-flow-f.png"));
    const QByteArray page = Testing::contentOf(folder.path("gallery/index.html"));
    QVERIFY(page.contains("control-flow-f.svg"));
    QVERIFY(!page.contains("\"control-flow-f.png"));
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::GalleryTest)
#include "GalleryTest.moc"
