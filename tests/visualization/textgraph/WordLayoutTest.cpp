// SPDX-License-Identifier: MIT
#include "visualization/textgraph/WordLayout.h"

#include "environment/tessel/BreakStatement.h"
#include "visualization/textgraph/NodeBase.h"

#include <QFont>
#include <QFontMetrics>
#include <QtTest>

#include <memory>
#include <stdexcept>

using namespace Kova::GUI::TextGraph;

namespace {

/// Lines with the nodes made for them.
class Page {
public:
    explicit Page(const QFont& font = QFont(QStringLiteral("Monospace"), 14)) : metrics(font), layout(font, lines) {}

    WordLayout::MakeNode make() {
        return [this](const QPoint& pos, const QString& text, const Kova::Tessel::TesselBase* object) {
            owned.push_back(std::make_unique<NodeBase>(pos, text));
            objects.push_back(object);
            return owned.back().get();
        };
    }
    [[nodiscard]] const NodeBase& node(int line, int index) const { return *lines.at(line).nodes.at(index); }
    [[nodiscard]] int charWidth() const { return metrics.averageCharWidth(); }
    [[nodiscard]] int lineHeight() const { return metrics.height() - 1; }
    /// The rectangle of a text whose last column is that of its last cell.
    [[nodiscard]] QRect rectOf(const QString& text) const {
        QRect rect = metrics.boundingRect(text);
        rect.setRight(rect.left() + charWidth() * text.size() - 1);
        return rect;
    }

    QFontMetrics metrics;
    QList<NodesLine> lines;
    std::vector<std::unique_ptr<NodeBase>> owned;
    std::vector<const Kova::Tessel::TesselBase*> objects;
    WordLayout layout;
};

std::list<BasicWord> words(std::initializer_list<const char*> texts) {
    std::list<BasicWord> line;
    for (const char* text : texts)
        line.push_back({text, nullptr});
    return line;
}

} // namespace

class WordLayoutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void noTextHasNoSize() {
        Page page;
        page.layout.addWords({}, page.make());
        page.layout.addStatements({}, page.make());
        QVERIFY(page.lines.isEmpty());
        QCOMPARE(page.layout.getSize(), QSize(0, 0));
    }

    void linesAreAFontHeightAndOneApart() {
        Page page;
        page.layout.addWords({words({"a"}), {}, words({"b"})}, page.make());
        QCOMPARE(page.lines.size(), 3);
        for (int line = 0; line < 3; ++line)
            QCOMPARE(page.lines.at(line).y, (line + 1) * (page.metrics.height() + 1));
        QCOMPARE(page.node(2, 0).getPos(), QPoint(0, 3 * (page.metrics.height() + 1)));
        QVERIFY(page.lines.at(1).nodes.isEmpty());
        QCOMPARE(page.layout.getSize().height(), 3 * (page.metrics.height() + 1) + page.lineHeight());
    }

    void wordsAreHalfACellApart() {
        Page page;
        page.layout.addWords({words({"a", "+=", "longer"})}, page.make());
        const int cell = page.charWidth();
        QVERIFY(cell > 2);
        QCOMPARE(page.lines.at(0).nodes.size(), 3);
        QCOMPARE(page.node(0, 0).getPos().x(), 0);
        QCOMPARE(page.node(0, 1).getPos().x(), cell + cell / 2);
        QCOMPARE(page.node(0, 2).getPos().x(), 3 * cell + cell / 2 * 2);
        QCOMPARE(page.node(0, 2).getText(), QStringLiteral("longer"));
        for (int i = 0; i < 3; ++i)
            QCOMPARE(page.node(0, i).getRect(), page.rectOf(page.node(0, i).getText()));
        QCOMPARE(page.node(0, 2).getRect().width(), 6 * cell);
        QCOMPARE(page.layout.getSize().width(),
                 3 * cell + cell / 2 * 2 + page.rectOf(QStringLiteral("longer")).right());
    }

    void blankWordsTakeTheirRealWidth() {
        Page page;
        page.layout.addWords({words({"    ", "a", " ", "b", "", "\t", "c"})}, page.make());
        const int indent = page.metrics.horizontalAdvance(QStringLiteral("    "));
        const int step = page.charWidth() + page.charWidth() / 2;
        // Not the same as cells, in a font whose advances are no whole numbers.
        QVERIFY(indent > 0);
        QCOMPARE(page.lines.at(0).nodes.size(), 3);
        QCOMPARE(page.node(0, 0).getPos().x(), indent);
        QCOMPARE(page.node(0, 1).getPos().x(), indent + step + page.metrics.horizontalAdvance(QStringLiteral(" ")));
        QCOMPARE(page.node(0, 2).getPos().x(),
                 page.node(0, 1).getPos().x() + step + page.metrics.horizontalAdvance(QStringLiteral("\t")));
    }

    void blanksInAWordStay() {
        Page page;
        page.layout.addWords({words({" = ", "a"})}, page.make());
        QCOMPARE(page.node(0, 0).getText(), QStringLiteral(" = "));
        QCOMPARE(page.node(0, 0).getRect(), page.rectOf(QStringLiteral(" = ")));
        QCOMPARE(page.node(0, 1).getPos().x(), 3 * page.charWidth() + page.charWidth() / 2);
    }

    void charactersCountNotBytes() {
        Page page;
        page.layout.addWords({words({"größe", "b"})}, page.make());
        QCOMPARE(page.node(0, 0).getText(), QString::fromUtf8("größe"));
        QCOMPARE(page.node(0, 1).getPos().x(), 5 * page.charWidth() + page.charWidth() / 2);
    }

    void objectsAreHandedOver() {
        const Kova::Tessel::BreakStatement object;
        Page page;
        page.layout.addWords({{{"x", nullptr}, {"y", &object}, {"  ", &object}}}, page.make());
        QCOMPARE(page.objects, (std::vector<const Kova::Tessel::TesselBase*>{nullptr, &object}));
        page.layout.addStatements({{{"  y", &object}}}, page.make());
        QCOMPARE(page.objects.back(), &object);
    }

    void statementsAreIndentedByWholeCells() {
        Page page;
        page.layout.addStatements({words({"{"}), words({"    a = b;"}), words({"}"})}, page.make());
        QCOMPARE(page.lines.size(), 3);
        QCOMPARE(page.node(0, 0).getPos().x(), 0);
        QCOMPARE(page.node(1, 0).getPos(), QPoint(4 * page.charWidth(), 2 * (page.metrics.height() + 1)));
        QCOMPARE(page.node(1, 0).getText(), QStringLiteral("a = b;"));
        QCOMPARE(page.node(1, 0).getRect(), page.rectOf(QStringLiteral("a = b;")));
        QCOMPARE(page.layout.getSize(), QSize(4 * page.charWidth() + page.rectOf(QStringLiteral("a = b;")).right(),
                                              3 * (page.metrics.height() + 1) + page.lineHeight()));
    }

    void onlyBlanksIndentStatements() {
        Page page;
        page.layout.addStatements({words({"  \t a;"}), words({"\t"})}, page.make());
        QCOMPARE(page.node(0, 0).getPos().x(), 2 * page.charWidth());
        QCOMPARE(page.node(0, 0).getText(), QStringLiteral("\t a;"));
        QCOMPARE(page.node(1, 0).getText(), QStringLiteral("\t"));
    }

    void blankStatementsHaveAnEmptyNode() {
        Page page;
        page.layout.addStatements({words({"   "}), words({""}), {}}, page.make());
        QCOMPARE(page.lines.size(), 3);
        QCOMPARE(page.node(0, 0).getPos().x(), 3 * page.charWidth());
        QVERIFY(page.node(0, 0).getText().isEmpty());
        QCOMPARE(page.node(0, 0).getRect().width(), 0);
        QCOMPARE(page.node(1, 0).getPos().x(), 0);
        QVERIFY(page.lines.at(2).nodes.isEmpty());
    }

    void oneMoreLineGoesBelow() {
        Page page;
        page.layout.addStatements({words({"{"}), words({"}"})}, page.make());
        NodeBase external(QPoint(), QStringLiteral("EXTERNAL"));
        page.layout.addLine(external, 4);
        QCOMPARE(page.lines.size(), 3);
        QCOMPARE(external.getPos(), QPoint(4 * page.charWidth(), 3 * (page.metrics.height() + 1)));
        QCOMPARE(external.getRect(), page.rectOf(QStringLiteral("EXTERNAL")));
        QCOMPARE(page.lines.at(2).nodes, QList<NodeBase*>{&external});
        QCOMPARE(page.layout.getSize(), QSize(4 * page.charWidth() + page.rectOf(QStringLiteral("EXTERNAL")).right(),
                                              3 * (page.metrics.height() + 1) + page.lineHeight()));
    }

    void theWidestLineDecides() {
        Page page;
        page.layout.addWords({words({"a"}), words({"a", "word"}), words({"b"})}, page.make());
        QCOMPARE(page.layout.getSize().width(),
                 page.charWidth() + page.charWidth() / 2 + page.rectOf(QStringLiteral("word")).right());
    }

    void otherFontsHaveOtherCells() {
        Page page(QFont(QStringLiteral("Monospace"), 10));
        page.layout.addWords({words({"    ", "ab", "c"})}, page.make());
        const int indent = page.metrics.horizontalAdvance(QStringLiteral("    "));
        QVERIFY(page.charWidth() < QFontMetrics(QFont(QStringLiteral("Monospace"), 14)).averageCharWidth());
        QCOMPARE(page.node(0, 0).getPos(), QPoint(indent, page.metrics.height() + 1));
        QCOMPARE(page.node(0, 1).getPos().x(), indent + 2 * page.charWidth() + page.charWidth() / 2);
    }

    /// Nodes made before an exception stay, for their owner to free them.
    void exceptionsLeaveWhatIsThere() {
        Page page;
        const auto make = page.make();
        const auto throwing = [&](const QPoint& pos, const QString& text, const Kova::Tessel::TesselBase* object) {
            if (text == QStringLiteral("c"))
                throw std::runtime_error("no node");
            return make(pos, text, object);
        };
        QVERIFY_EXCEPTION_THROWN(page.layout.addWords({words({"a"}), words({"b", "c", "d"})}, throwing),
                                 std::runtime_error);
        QCOMPARE(page.lines.size(), 2);
        QCOMPARE(page.lines.at(1).nodes.size(), 1);
        QCOMPARE(page.owned.size(), std::size_t{2});
    }
};

QTEST_MAIN(WordLayoutTest)
#include "WordLayoutTest.moc"
