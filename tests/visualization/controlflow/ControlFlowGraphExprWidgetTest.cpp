// SPDX-License-Identifier: MIT
#include "visualization/controlflow/ControlFlowGraphExprWidget.h"

#include "environment/analyses/controlflow/ControlFlowGraphExpr.h"
#include "environment/analyses/controlflow/ControlFlowGraphExprBuilder.h"
#include "environment/tessel/GotoStatement.h"
#include "environment/tessel/LabelStatement.h"
#include "environment/tessel/NullStatement.h"
#include "environment/tessel/ReturnStatement.h"
#include "tests/visualization/controlflow/FlowSample.h"
#include "tests/visualization/depgraph/BracketingTranslator.h"
#include "tests/visualization/graphcore/FakeDot.h"
#include "tests/visualization/graphcore/ObservedWidget.h"
#include "visualization/controlflow/Node.h"
#include "visualization/controlflow/RowLayout.h"

#include <QAction>
#include <QApplication>
#include <QFontMetrics>
#include <QMetaMethod>
#include <QStandardPaths>
#include <QTemporaryDir>

using namespace Kova::GUI::ControlFlowGraphExpr;
using namespace Kova::Tessel;
using namespace Kova::Tests;
using Kova::GUI::GenericGraph::EdgeBase;
using Kova::GUI::GenericGraph::NodeBase;

namespace {

using BasicBlock = ::ControlFlowGraphExpr::BasicBlock;

/// A widget that lets tests look inside.
class TestedWidget : public ObservedWidget<ControlFlowGraphExprWidget> {
public:
    using ControlFlowGraphExprWidget::contextMenu;
    using ControlFlowGraphExprWidget::edgePolygons;
    using ControlFlowGraphExprWidget::hoveredEdge;
    using ControlFlowGraphExprWidget::hoveredNode;
    using ControlFlowGraphExprWidget::labelFont;

    [[nodiscard]] NodeBase& node(int index) const { return *getNodes().at(static_cast<std::size_t>(index)); }
    [[nodiscard]] const EdgeBase& edge(int index) const { return *getEdges().at(static_cast<std::size_t>(index)); }
    [[nodiscard]] QStringList texts() const {
        QStringList texts;
        for (const NodeBase* shown : getNodes())
            texts.append(shown->getText());
        return texts;
    }
    /// All edges by the numbers of the nodes that they join, as "source>target".
    [[nodiscard]] QStringList arrows() const {
        const auto numberOf = [this](const NodeBase* wanted) {
            return std::find(getNodes().begin(), getNodes().end(), wanted) - getNodes().begin();
        };
        QStringList arrows;
        for (const EdgeBase* shown : getEdges())
            arrows.append(QString("%1>%2").arg(numberOf(shown->getSource())).arg(numberOf(shown->getTarget())));
        return arrows;
    }
    [[nodiscard]] std::vector<QPoint> centers() const {
        std::vector<QPoint> centers;
        for (const NodeBase* shown : getNodes())
            centers.push_back(shown->getCenter());
        return centers;
    }
};

QString plainLine(int node, double x, double y) {
    return QString("node N%1 %2 %3 1 1 a solid box black lightgrey\n").arg(node).arg(x).arg(y);
}

} // namespace

class ControlFlowGraphExprWidgetTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { removeDotFiles(); }

    void newWidgetIsEmpty();
    void neitherSlotsNorSignals();
    void statementsWithoutExpressions();
    void labelsAreTranslated();
    void oneExpressionIsOneLine();
    void expressionsAreLines();
    void blocksAndEdgesAreInOrder();
    void operatorsAreSplit();
    void edgesToTheSameBlockAreLoops();
    void unreachableBlocksAreGrey();
    void theGraphStaysTheCallers();
    void nothingGivenEmptiesTheView();
    void emptyGraphs();

    void boxesFitTheirLabels();
    void dotPlacesTheBoxes();
    void loopsStayInThePicture();
    void dotReadsWhatStandsInTheBoxes();
    void withoutDotBoxesAreInRows();
    void failuresAreForgotten();
    void dotNeedNotBeAsked();
    void theViewIsFitted();
    void exportsStayDisabled();
    void buildsRepaint();
    void edgesAreFound();
    void boxesCanBeDragged();
    void pictures();
    void thousandLevels();
    void tenThousandStatements();

private:
    void show(StatementBase& statement) { m_widget->onNewStatement(&statement); }
    StatementPtr set() { return FlowSample::set(m_a, m_b); }

    VariableDeclaration m_a{"a", nullptr};
    VariableDeclaration m_b{"b", nullptr};
    std::unique_ptr<TestedWidget> m_widget;
};

void ControlFlowGraphExprWidgetTest::init() {
    removeDotFiles();
    m_widget = std::make_unique<TestedWidget>();
    m_widget->resize(600, 500);
}

void ControlFlowGraphExprWidgetTest::newWidgetIsEmpty() {
    QVERIFY(!m_widget->isBuilded());
    QCOMPARE(m_widget->labelFont(), QFont("Arial", 12));
    QVERIFY(m_widget->hasMouseTracking());
    QVERIFY(m_widget->viewport()->hasMouseTracking());
    QVERIFY(m_widget->hasMouseScroll());
    QVERIFY(m_widget->contextMenu().isEmpty());
    QVERIFY(m_widget->usesGraphviz());
    QVERIFY(!m_widget->hasGraphvizFailed());
    QWidget parent;
    const ControlFlowGraphExprWidget child(&parent);
    QCOMPARE(child.parentWidget(), &parent);
}

void ControlFlowGraphExprWidgetTest::neitherSlotsNorSignals() {
    const QMetaObject& meta = ControlFlowGraphExprWidget::staticMetaObject;
    QCOMPARE(meta.className(), "Kova::GUI::ControlFlowGraphExpr::ControlFlowGraphExprWidget");
    QCOMPARE(meta.methodCount(), meta.methodOffset());
}

void ControlFlowGraphExprWidgetTest::statementsWithoutExpressions() {
    NullStatement alone;
    const auto empty = block();
    const auto leaving = block(make<ReturnStatement>(nullptr));
    for (StatementBase* statement : {static_cast<StatementBase*>(&alone), static_cast<StatementBase*>(empty.get()),
                                     static_cast<StatementBase*>(leaving.get())}) {
        show(*statement);
        QVERIFY(m_widget->isBuilded());
        QCOMPARE(m_widget->texts(), QStringList({"Entry", "Exit"}));
        QCOMPARE(m_widget->arrows(), QStringList("0>1"));
        for (int i = 0; i < 2; ++i)
            QVERIFY(dynamic_cast<Node*>(&m_widget->node(i)) != nullptr);
        QVERIFY(m_widget->node(0).getCenter().y() + 50 <= m_widget->node(1).getCenter().y());
        QCOMPARE(m_widget->node(0).getCenter().x(), m_widget->node(1).getCenter().x());
        QVERIFY(m_widget->edge(0).getShapeKind() == EdgeBase::Straight);
        QVERIFY(m_widget->edge(0).getText().isEmpty());
    }
}

void ControlFlowGraphExprWidgetTest::labelsAreTranslated() {
    const BracketingTranslator translator("Kova::GUI::ControlFlowGraphExpr::ControlFlowGraphExprWidget");
    show(*block(statement(opaque("Entry"))));
    QCOMPARE(m_widget->texts(), QStringList({"<Entry>", "Entry", "<Exit>"}));
}

void ControlFlowGraphExprWidgetTest::oneExpressionIsOneLine() {
    show(*block(set()));
    QCOMPARE(m_widget->texts(), QStringList({"Entry", "a = b", "Exit"}));
    QCOMPARE(m_widget->node(1).getHeight(), QFontMetrics(m_widget->labelFont()).height() + 10);
    QCOMPARE(m_widget->arrows(), QStringList({"0>1", "1>2"}));
}

void ControlFlowGraphExprWidgetTest::expressionsAreLines() {
    show(*block(set(), statement(use(m_a)), set(), make<ReturnStatement>(use(m_b))));
    QCOMPARE(m_widget->texts(), QStringList({"Entry", "a = b\na\na = b\nb", "Exit"}));
}

void ControlFlowGraphExprWidgetTest::blocksAndEdgesAreInOrder() {
    const FlowSample sample;
    show(*sample.block);
    QCOMPARE(m_widget->texts(), QStringList({"Entry", "a = b\na", "b = a", "a = b", "b", "a = b", "Exit"}));
    QCOMPARE(m_widget->arrows(), QStringList({"0>1", "1>2", "1>3", "2>4", "3>4", "4>5", "4>6", "5>4"}));
    // Straight, although two of them are in each other's way.
    for (const EdgeBase* edge : m_widget->getEdges())
        QVERIFY(edge->getShapeKind() == EdgeBase::Straight);
}

void ControlFlowGraphExprWidgetTest::operatorsAreSplit() {
    show(*block(statement(assign(use(m_a), binary(use(m_a), BinaryOperator::LogicalAnd, use(m_b))))));
    QCOMPARE(m_widget->texts(), QStringList({"Entry", "a", "b", "a = a && b", "Exit"}));
    QCOMPARE(m_widget->arrows(), QStringList({"0>1", "1>2", "1>3", "2>3", "3>4"}));
}

// while (a) ;
void ControlFlowGraphExprWidgetTest::edgesToTheSameBlockAreLoops() {
    show(*block(make<WhileStatement>(use(m_a), block())));
    QCOMPARE(m_widget->texts(), QStringList({"Entry", "a", "Exit"}));
    const QStringList arrows = m_widget->arrows();
    QCOMPARE(arrows.size(), 3);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(int{m_widget->edge(i).getShapeKind()},
                 int{arrows.at(i) == "1>1" ? EdgeBase::Loop : EdgeBase::Straight});
    const EdgeBase& loop = m_widget->edge(arrows.indexOf("1>1"));
    const QRect box = m_widget->node(1).getRect();
    QVERIFY(loop.getShape().boundingRect().top() < box.top());
    QVERIFY(QRectF(QPointF(0, 0), m_widget->getGraphSize()).contains(loop.getShape().boundingRect()));
}

// { L: goto L; a = b; }
void ControlFlowGraphExprWidgetTest::unreachableBlocksAreGrey() {
    auto label = make<LabelStatement>("L");
    auto jump = make<GotoStatement>("L");
    jump->setLabel(label.get());
    show(*block(std::move(label), std::move(jump), set()));
    QCOMPARE(m_widget->texts(), QStringList({"Entry", "a = b", "Exit"}));
    QCOMPARE(m_widget->node(0).getTextColor(), qRgb(0, 0, 0));
    QCOMPARE(m_widget->node(1).getTextColor(), qRgb(128, 128, 128));
    QCOMPARE(m_widget->node(2).getTextColor(), qRgb(128, 128, 128));
    show(*block(set()));
    for (int i = 0; i < 3; ++i)
        QCOMPARE(m_widget->node(i).getTextColor(), qRgb(0, 0, 0));
}

void ControlFlowGraphExprWidgetTest::theGraphStaysTheCallers() {
    const FlowSample sample;
    ::ControlFlowGraphExpr graph;
    ControlFlowGraphExprBuilder(true).build(*sample.block, graph);
    for (int round = 0; round < 2; ++round) {
        m_widget->showGraph(graph);
        QCOMPARE(m_widget->getNodes().size(), graph.getBasicBlocks().size());
        QCOMPARE(m_widget->texts().at(1), QString("a = b\na"));
    }
    // Of the operators, what the graph has.
    const auto split = block(statement(binary(use(m_a), BinaryOperator::LogicalOr, use(m_b))));
    ControlFlowGraphExprBuilder(false).build(*split, graph);
    m_widget->showGraph(graph);
    QCOMPARE(m_widget->texts(), QStringList({"Entry", "a || b", "Exit"}));
}

void ControlFlowGraphExprWidgetTest::nothingGivenEmptiesTheView() {
    show(*block(set()));
    m_widget->onNewStatement(nullptr);
    QVERIFY(!m_widget->isBuilded());
    QVERIFY(m_widget->getNodes().empty());
    QVERIFY(m_widget->getEdges().empty());
    QCOMPARE(m_widget->getGraphSize(), QSize(0, 0));
    m_widget->onNewStatement(nullptr);
    QVERIFY(!m_widget->isBuilded());
}

void ControlFlowGraphExprWidgetTest::emptyGraphs() {
    const FakeDot dot("");
    m_widget->showGraph(::ControlFlowGraphExpr());
    QVERIFY(!m_widget->isBuilded());
    QCOMPARE(m_widget->getGraphSize(), QSize(0, 0));
    QVERIFY(!m_widget->hasGraphvizFailed());
    QVERIFY(dot.arguments().isEmpty());
}

void ControlFlowGraphExprWidgetTest::boxesFitTheirLabels() {
    const QFontMetrics metrics(QFont("Arial", 12));
    show(*block(set(), statement(call(use(m_a), literal("12345"), use(m_b)))));
    for (const NodeBase* node : m_widget->getNodes())
        QCOMPARE(QSize(node->getWidth(), node->getHeight()), metrics.size(0, node->getText()) + QSize(10, 10));
    QVERIFY(m_widget->node(1).getHeight() > m_widget->node(0).getHeight());
}

// The picture is five inches high.
void ControlFlowGraphExprWidgetTest::dotPlacesTheBoxes() {
    const FakeDot dot(
        ("graph 1 3 5\n" + plainLine(0, 1.29, 4.5) + plainLine(1, 2.5, 3) + plainLine(2, 0.75, 0.25) + "stop\n")
            .toUtf8());
    show(*block(set()));
    QVERIFY(!m_widget->hasGraphvizFailed());
    QCOMPARE(m_widget->centers(), (std::vector<QPoint>{{129, 50}, {250, 200}, {75, 475}}));
    const NodeBase& right = m_widget->node(1);
    const NodeBase& low = m_widget->node(2);
    QCOMPARE(m_widget->getGraphSize(),
             QSize(right.getX() + right.getWidth() - 1 + 50, low.getY() + low.getHeight() - 1 + 50));
    QCOMPARE(m_widget->edge(0).getStart(), m_widget->node(0).cutEdge(m_widget->node(0).getCenter(), right.getCenter()));
}

// { return; while (a) ; }, which dot draws with the loop's box in the first row, 25 below the border. The loop rises
// higher.
void ControlFlowGraphExprWidgetTest::loopsStayInThePicture() {
    const FakeDot dot(
        ("graph 1 3 5\n" + plainLine(0, 1, 4.75) + plainLine(1, 2.5, 4.75) + plainLine(2, 0.75, 0.25) + "stop\n")
            .toUtf8());
    show(*block(make<ReturnStatement>(nullptr), make<WhileStatement>(use(m_a), block())));
    QCOMPARE(m_widget->texts(), QStringList({"Entry", "a", "Exit"}));
    QCOMPARE(m_widget->arrows(), QStringList({"0>2", "1>1", "1>2"}));
    const QRectF loop = m_widget->edge(1).getShape().boundingRect();
    QVERIFY(loop.top() >= 5.0);
    QVERIFY(loop.top() < 6.0);
    // All have moved.
    const int moved = m_widget->node(1).getCenter().y() - 25;
    QCOMPARE(m_widget->centers(), (std::vector<QPoint>{{100, 25 + moved}, {250, 25 + moved}, {75, 475 + moved}}));
    QCOMPARE(m_widget->getGraphSize().height(), m_widget->node(2).getRect().bottom() + 50);
}

void ControlFlowGraphExprWidgetTest::dotReadsWhatStandsInTheBoxes() {
    QVERIFY2(!QStandardPaths::findExecutable("dot").isEmpty(), "install the package graphviz");
    const std::string text = "\"say \\\"hi\\\"\\n\"";
    const auto root = block(statement(opaque("puts(" + text + ")")), statement(opaque("raw(\"\nnode N2 9 9 1 1\n\")")),
                            make<WhileStatement>(opaque("'\\\\' != stop"), block(statement(opaque("node")))));
    show(*root);
    QVERIFY(!m_widget->hasGraphvizFailed());
    QVERIFY(m_widget->texts().at(1).startsWith("puts(\"say \\\"hi\\\"\\n\")\n"));
    QVERIFY(contentOf(dotFile).contains("puts('say /'hi/'/n')\n"));
    for (const EdgeBase* edge : m_widget->getEdges()) {
        const bool isBack = edge->getTarget() == &m_widget->node(2) && edge->getSource() == &m_widget->node(3);
        QCOMPARE(edge->getSource()->getCenter().y() < edge->getTarget()->getCenter().y(), !isBack);
    }
}

void ControlFlowGraphExprWidgetTest::withoutDotBoxesAreInRows() {
    const FlowSample sample;
    show(*block(set()));
    QVERIFY(!m_widget->hasGraphvizFailed());
    {
        const NoDot absence;
        show(*sample.block);
    }
    QVERIFY(m_widget->hasGraphvizFailed());
    // Each box is one row below the one from which it is reached first.
    QCOMPARE(m_widget->node(0).getCenter().y(), 50);
    QCOMPARE(m_widget->node(1).getCenter().y(), 200);
    QCOMPARE(m_widget->node(2).getCenter().y(), 350);
    QCOMPARE(m_widget->node(3).getCenter().y(), 350);
    QCOMPARE(m_widget->node(4).getCenter().y(), 500);
    QCOMPARE(m_widget->node(5).getCenter().y(), 650);
    QCOMPARE(m_widget->node(6).getCenter().y(), 650);
    const std::vector<QPoint> shown = m_widget->centers();
    RowLayout().layOut(m_widget->getNodes());
    QCOMPARE(m_widget->centers(), shown);
    QCOMPARE(m_widget->getGraphSize().height(), m_widget->node(6).getRect().bottom() + 50);
    // Neither is it what dot makes of another graph.
    const FakeDot failing(("graph 1 3 5\n" + plainLine(0, 9, 9) + "stop\n").toUtf8(), 1);
    show(*sample.block);
    QVERIFY(m_widget->hasGraphvizFailed());
    QCOMPARE(m_widget->centers(), shown);
}

void ControlFlowGraphExprWidgetTest::failuresAreForgotten() {
    {
        const NoDot absence;
        show(*block(set()));
        QVERIFY(m_widget->hasGraphvizFailed());
        m_widget->clear();
        QVERIFY(!m_widget->hasGraphvizFailed());
        show(*block(set()));
        m_widget->onNewStatement(nullptr);
        QVERIFY(!m_widget->hasGraphvizFailed());
        show(*block(set()));
    }
    show(*block(set()));
    QVERIFY(!m_widget->hasGraphvizFailed());
}

void ControlFlowGraphExprWidgetTest::dotNeedNotBeAsked() {
    const FakeDot dot(("graph 1 3 5\n" + plainLine(0, 9, 9) + "stop\n").toUtf8());
    m_widget->setUsesGraphviz(false);
    QVERIFY(!m_widget->usesGraphviz());
    show(*block(set()));
    QVERIFY(dot.arguments().isEmpty());
    QVERIFY(!QFile::exists(dotFile));
    QVERIFY(!m_widget->hasGraphvizFailed());
    QCOMPARE(m_widget->centers(), (std::vector<QPoint>{{50, 50}, {50, 200}, {50, 350}}));
    m_widget->setUsesGraphviz(true);
    show(*block(set()));
    QCOMPARE(m_widget->node(0).getCenter().x(), 900);
}

void ControlFlowGraphExprWidgetTest::theViewIsFitted() {
    const FlowSample sample;
    m_widget->resize(200, 150);
    m_widget->show();
    for (int round = 0; round < 2; ++round) {
        show(*sample.block);
        const double scale = m_widget->getScale();
        QVERIFY(scale < 1.0);
        QVERIFY(m_widget->getGraphSize().height() * scale <= m_widget->viewport()->height() + 1);
        QVERIFY(m_widget->getGraphSize().width() * scale <= m_widget->viewport()->width() + 1);
        m_widget->setScale(2.0);
    }
    m_widget->resize(2000, 2000);
    show(*sample.block);
    QCOMPARE(m_widget->getScale(), 1.0);
}

void ControlFlowGraphExprWidgetTest::exportsStayDisabled() {
    show(*block(set()));
    const QList<QAction*> actions = m_widget->findChildren<QAction*>();
    QVERIFY(actions.size() >= 2);
    for (const QAction* action : actions)
        QVERIFY(action->isSeparator() || action == m_widget->contextMenu().menuAction() || !action->isEnabled());
}

void ControlFlowGraphExprWidgetTest::buildsRepaint() {
    m_widget->resize(1600, 1200);
    m_widget->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_widget.get()));
    const auto statement = block(set());
    QVERIFY(m_widget->repaintsAfter([&] { show(*statement); }) > 0);
    QVERIFY(m_widget->repaintsAfter([&] { show(*statement); }) > 0);
    QVERIFY(m_widget->repaintsAfter([&] { m_widget->onNewStatement(nullptr); }) > 0);
    QVERIFY(m_widget->repaintsAfter([&] { m_widget->onNewStatement(nullptr); }) > 0);
    QCOMPARE(m_widget->repaintsAfter([] {}), 0);
}

void ControlFlowGraphExprWidgetTest::edgesAreFound() {
    m_widget->resize(1600, 1200);
    m_widget->show();
    show(*block(make<WhileStatement>(use(m_a), block())));
    for (int i = 0; i < 3; ++i) {
        QVERIFY(!m_widget->edgePolygons().at(i).isEmpty());
        const QPoint point = m_widget->edge(i).getShape().pointAtPercent(0.3).toPoint();
        QVERIFY(m_widget->findEdgeByPosition(point) != nullptr);
    }
    m_widget->mouse(QEvent::MouseMove, QPoint(1500, 1100));
    m_widget->mouse(QEvent::MouseMove, m_widget->node(2).getCenter());
    QCOMPARE(m_widget->hoveredNode(), &m_widget->node(2));
    const int straight = m_widget->arrows().indexOf("1>2");
    m_widget->mouse(QEvent::MouseMove, (m_widget->edge(straight).getStart() + m_widget->edge(straight).getEnd()) / 2);
    QCOMPARE(m_widget->hoveredEdge(), &m_widget->edge(straight));
}

void ControlFlowGraphExprWidgetTest::boxesCanBeDragged() {
    m_widget->resize(1600, 1200);
    m_widget->show();
    show(*block(set()));
    const QPoint center = m_widget->node(2).getCenter();
    QVERIFY(m_widget->mouse(QEvent::MouseButtonPress, center, Qt::LeftButton, Qt::LeftButton));
    m_widget->mouse(QEvent::MouseMove, center + QPoint(300, 20), Qt::NoButton, Qt::LeftButton);
    m_widget->mouse(QEvent::MouseButtonRelease, center + QPoint(300, 20), Qt::LeftButton);
    QCOMPARE(m_widget->node(2).getCenter(), center + QPoint(300, 20));
    QVERIFY(m_widget->edge(1).getEnd().x() > center.x() + 200);
    // There is no menu.
    m_widget->mouse(QEvent::MouseButtonPress, QPoint(1500, 1100), Qt::RightButton, Qt::RightButton);
    m_widget->mouse(QEvent::MouseButtonRelease, QPoint(1500, 1100), Qt::RightButton);
    QVERIFY(QApplication::activePopupWidget() == nullptr);
}

void ControlFlowGraphExprWidgetTest::pictures() {
    QVERIFY(m_widget->renderImage().isNull());
    const FlowSample sample;
    show(*sample.block);
    const QTemporaryDir folder;
    const QString png = folder.filePath("flow.png");
    m_widget->save(png);
    const QImage image(png);
    QCOMPARE(image.size(), m_widget->getGraphSize());
    // Each box has its frame, and something in it.
    for (const NodeBase* node : m_widget->getNodes()) {
        const QRect box = node->getRect();
        QVERIFY(qGray(image.pixel(box.center().x(), box.top())) < 200);
        int ink = 0;
        for (int y = box.top() + 3; y < box.bottom() - 3; ++y) {
            for (int x = box.left() + 3; x < box.right() - 3; ++x)
                ink += qGray(image.pixel(x, y)) < 128 ? 1 : 0;
        }
        QVERIFY(ink > 5);
    }
}

// if (a) { if (a) { ... } }
void ControlFlowGraphExprWidgetTest::thousandLevels() {
    auto nest = block(set());
    for (int level = 0; level < 1000; ++level)
        nest = block(make<IfStatement>(use(m_a), std::move(nest), nullptr));
    m_widget->setUsesGraphviz(false);
    show(*nest);
    QCOMPARE(m_widget->getNodes().size(), std::size_t{1 + 1000 + 1 + 1});
    // The entry's, two of each condition, that of the innermost block.
    QCOMPARE(m_widget->getEdges().size(), std::size_t{1 + 2000 + 1});
    QCOMPARE(m_widget->texts().at(1001), QString("a = b"));
    QVERIFY(m_widget->node(1001).getCenter().y() >= 50 + 150 * 1001);
}

void ControlFlowGraphExprWidgetTest::tenThousandStatements() {
    const auto root = block();
    for (int i = 0; i < 10000; ++i)
        root->append(set());
    show(*root);
    QVERIFY(!m_widget->hasGraphvizFailed());
    QCOMPARE(m_widget->getNodes().size(), std::size_t{3});
    QCOMPARE(m_widget->texts().at(1).count('\n'), 9999);
    const QRect box = m_widget->node(1).getRect();
    QVERIFY(m_widget->node(0).getRect().bottom() < box.top());
    QVERIFY(box.bottom() < m_widget->node(2).getRect().top());
}

QTEST_MAIN(ControlFlowGraphExprWidgetTest)
#include "ControlFlowGraphExprWidgetTest.moc"
