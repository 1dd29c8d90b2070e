// SPDX-License-Identifier: MIT
#include "shell/views/SourceView.h"

#include "environment/tessel/StatementBase.h"
#include "shell/views/SourceSheet.h"
#include "tests/shell/ShellTesting.h"

#include <QAction>
#include <QBuffer>
#include <QFontMetrics>
#include <QJsonArray>
#include <QScrollBar>
#include <QtTest>

namespace Kova::Shell {

namespace {

constexpr auto source = "typedef int word;\n"       // 1
                        "int one(int n)\n"          // 2
                        "{\n"                       // 3
                        "    while (n > 1)\n"       // 4
                        "        n = n - 1;\n"      // 5
                        "    return n;\n"           // 6
                        "}\n"                       // 7
                        "int two(void)\n"           // 8
                        "{\n"                       // 9
                        "    return one(2);\n"      // 10
                        "}\n";                      // 11

QStringList linesOf(const QJsonObject& description) {
    QStringList lines;
    for (const QJsonValue& line : description["lines"].toArray()) {
        QString text;
        for (const QJsonValue& part : line.toArray())
            text += part.toObject()["text"].toString();
        lines.append(text);
    }
    return lines;
}

/// Outside of a picture there is no ink.
bool isInked(const QImage& picture, const QRect& area) {
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            if (picture.rect().contains(x, y) && qAlpha(picture.pixel(x, y)) > 0 && qGray(picture.pixel(x, y)) < 160)
                return true;
    return false;
}

} // namespace

class SourceViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void theWholeProgram();
    void aSubroutine();
    void aStatementIsMarkedInItsSubroutine();
    void partsSayWhatTheyAre();
    void thePictureHoldsAllOfTheText();
    void thePictureHasItsMarks();
    void onScreenAsExported();
    void placesAreNodes();
    void placesBelowManyDeclarations();
    void whatIsWorthAPicture();
    void clearedViewIsEmpty();
    void summaries();

private:
    [[nodiscard]] Subject find(const SubjectRequest& request) const {
        return SubjectFinder(m_program).find(request, SourceView::kind().preference).subject;
    }
    QJsonObject describe(const SubjectRequest& request) {
        m_view->show(find(request));
        return m_view->describe();
    }

    Testing::SourceFolder m_folder;
    OpenedProgram m_program;
    std::unique_ptr<SourceView> m_view;
};

void SourceViewTest::init() {
    m_program = Testing::readProgram({m_folder.write("a.c", source)});
    m_view = std::make_unique<SourceView>();
}

void SourceViewTest::theWholeProgram() {
    const QJsonObject description = describe({});
    const QStringList lines = linesOf(description);
    QVERIFY(lines.contains("    typedef int word;"));
    QVERIFY(lines.contains("    int two(void)"));
    QCOMPARE(description["subroutines"].toArray(), (QJsonArray{"one", "two"}));
    QVERIFY(description["marks"].toArray().isEmpty());
    QVERIFY(description["nodes"].toArray().isEmpty());
    QVERIFY(description["edges"].toArray().isEmpty());
}

void SourceViewTest::aSubroutine() {
    const QJsonObject description = describe({"two", {}});
    QCOMPARE(linesOf(description),
             QStringList({"    int two(void)", "    {", "        return one(2);", "    }"}));
    QCOMPARE(description["subroutines"].toArray(), (QJsonArray{"two"}));
}

void SourceViewTest::aStatementIsMarkedInItsSubroutine() {
    const QJsonObject description = describe({QString(), 4});
    QCOMPARE(linesOf(description).front(), QString("    int one(int n)"));
    QCOMPARE(description["marks"].toArray(),
             (QJsonArray{QJsonObject{{"mark", 0}, {"node", "WhileStatement"}, {"line", 4}}}));
}

void SourceViewTest::partsSayWhatTheyAre() {
    const QJsonArray line = describe({"two", {}})["lines"].toArray().at(2).toArray();
    const QJsonArray wanted = {QJsonObject{{"text", "        "}, {"node", "ReturnStatement"}, {"line", 10}},
                               QJsonObject{{"text", "return "}, {"node", "ReturnStatement"}, {"line", 10}},
                               QJsonObject{{"text", "one"}, {"node", "SubroutineReference"}, {"line", 10}},
                               QJsonObject{{"text", "("}, {"node", "SubroutineCallExpression"}, {"line", 10}},
                               QJsonObject{{"text", "2"}, {"node", "LiteralExpression"}, {"line", 10}},
                               QJsonObject{{"text", ")"}, {"node", "SubroutineCallExpression"}, {"line", 10}},
                               QJsonObject{{"text", ";"}, {"node", "ReturnStatement"}, {"line", 10}}};
    QCOMPARE(line, wanted);
}

void SourceViewTest::thePictureHoldsAllOfTheText() {
    m_view->show(find({"two", {}}));
    const QFontMetrics metrics(QFont("Monospace", 10));
    // 4 lines, the longest "        return one(2);" of 22 characters.
    QCOMPARE(m_view->getWidget().getGraphSize(),
             QSize(22 * metrics.averageCharWidth(), 4 * metrics.height() + metrics.descent()));
    const QImage picture = m_view->getWidget().renderImage();
    QCOMPARE(picture.size(), m_view->getWidget().getGraphSize());
    // The closing brace is in the last line, with its descender.
    int lowest = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (qGray(picture.pixel(x, y)) < 128)
                lowest = y;
    QVERIFY(lowest > 4 * metrics.height());
    QByteArray svg;
    QBuffer buffer(&svg);
    QVERIFY(m_view->getWidget().renderSvg(buffer));
    QVERIFY(svg.contains(">return "));
}

void SourceViewTest::thePictureHasItsMarks() {
    m_view->show(find({QString(), 10}));
    const QImage picture = m_view->getWidget().renderImage();
    const QFontMetrics metrics(QFont("Monospace", 10));
    QCOMPARE(picture.pixel(2, 2 * metrics.height() + metrics.descent() + 2), qRgb(200, 250, 200));
    QCOMPARE(picture.pixel(2, metrics.height() + metrics.descent() + 2), qRgb(255, 255, 255));
}

// What is left out while a part is drawn must not be missed.
void SourceViewTest::onScreenAsExported() {
    GUI::GraphWidgetBase& widget = m_view->getWidget();
    m_view->show(find({"one", {}}));
    // Glyphs may be smoothed differently: what counts is where they are.
    const QFontMetrics metrics(QFont("Monospace", 10));
    const QSize cell(metrics.averageCharWidth(), metrics.height());
    for (const QPoint& scrolled : {QPoint(0, 0), QPoint(3 * cell.width(), 2 * cell.height())}) {
        widget.resize(scrolled.isNull() ? QSize(600, 400) : QSize(8 * cell.width(), 3 * cell.height()));
        widget.grab();
        widget.horizontalScrollBar()->setValue(scrolled.x());
        widget.verticalScrollBar()->setValue(scrolled.y());
        QCOMPARE(QPoint(widget.horizontalScrollBar()->value(), widget.verticalScrollBar()->value()), scrolled);
        const QImage screen = widget.viewport()->grab().toImage();
        const QImage picture = widget.renderImage();
        for (int y = metrics.descent(); y + cell.height() <= screen.height(); y += cell.height())
            for (int x = 0; x + cell.width() <= screen.width(); x += cell.width())
                QCOMPARE(isInked(screen, QRect(QPoint(x, y), cell)), isInked(picture, QRect(QPoint(x, y) + scrolled, cell)));
    }
}

void SourceViewTest::placesAreNodes() {
    m_view->show(find({"two", {}}));
    const QFontMetrics metrics(QFont("Monospace", 10));
    const QPoint first(4, 2 * metrics.height() + metrics.descent() + 3);
    QCOMPARE(m_view->findAt(first).node, find({QString(), 10}).getNode());
    QCOMPARE(m_view->findAt(first).other, nullptr);
    QCOMPARE(m_view->findAt(QPoint(4, 5000)).node, nullptr);
}

// The first subroutine is far below what a selector shows without scrolling.
void SourceViewTest::placesBelowManyDeclarations() {
    QByteArray text;
    for (int i = 0; i < 200; ++i)
        text += "typedef int word" + QByteArray::number(i) + ";\n";
    m_program = Testing::readProgram({m_folder.write("b.c", text + "int last(void) { return 1; }\n")});
    m_view->show(find({}));
    const QStringList lines = linesOf(m_view->describe());
    const int declaration = lines.indexOf("    typedef int word7;");
    QVERIFY(declaration >= 0);
    const QFontMetrics metrics(QFont("Monospace", 10));
    m_view->getWidget().resize(400, 100 * metrics.height());
    const Tessel::TesselBase* node =
        m_view->findAt({4, declaration * metrics.height() + metrics.descent() + 3}).node;
    QVERIFY(node != nullptr);
    QCOMPARE(node->getSourceRange().beginLine, 8U);
}

void SourceViewTest::whatIsWorthAPicture() {
    const ViewKind kind = SourceView::kind();
    QVERIFY(!kind.isWorthExporting(find({})));
    QVERIFY(kind.isWorthExporting(find({"two", {}})));
    QVERIFY(!kind.isWorthExporting(find({QString(), 4})));
    for (const int lines : {1000, 1001}) {
        const QByteArray text = "int f(void) {" + QByteArray(lines - 1, '\n') + "return 1; }\n";
        const Testing::WrittenProgram written(text);
        QCOMPARE(kind.isWorthExporting(SubjectFinder(written.program).find({"f", {}}, {}).subject), lines == 1000);
    }
}

void SourceViewTest::clearedViewIsEmpty() {
    m_view->show(find({"one", {}}));
    m_view->clear();
    m_program = OpenedProgram();
    QVERIFY(!m_view->getWidget().isBuilded());
    QVERIFY(m_view->getWidget().renderImage().isNull());
    QVERIFY(m_view->describe()["lines"].toArray().isEmpty());
    QCOMPARE(m_view->findAt(QPoint(4, 4)).node, nullptr);
}

void SourceViewTest::summaries() {
    QCOMPARE(m_view->summarize(), QString());
    m_view->show(find({"two", {}}));
    QCOMPARE(m_view->summarize(), QString("4 lines, 1 subroutine"));
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::SourceViewTest)
#include "SourceViewTest.moc"
