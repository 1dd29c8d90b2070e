// SPDX-License-Identifier: MIT
#include "environment/core/Exception.h"
#include "environment/tessel/IfStatement.h"
#include "environment/tessel/StatementExpression.h"
#include "environment/tessel/WhileStatement.h"
#include "tests/environment/support/Build.h"
#include "tests/environment/support/HeardLines.h"
#include "visualization/controlflow/GraphFactory.h"
#include "visualization/textgraph/EdgeBase.h"
#include "visualization/textgraph/GraphNodeBase.h"

#include <QtTest>

using namespace Kova::Tessel;
using namespace Kova::Tests;
using Kova::StateError;
using Kova::GUI::ControlFlowGraph::GraphFactory;
using Kova::GUI::TextGraph::EdgeBase;
using Kova::GUI::TextGraph::GraphNodeBase;
using Kova::GUI::TextGraph::NodeBase;

namespace {

/// A factory with the lines made by it, one below the other.
class Page {
public:
    explicit Page(bool showExternal = false) : factory(showExternal) {
        if (showExternal)
            place(m_nodes.emplace_back(factory.takeExternalNode()).get());
    }

    /// Registers the statement and gives it so many lines.
    void add(const StatementBase* statement, int lines) {
        factory.registerStmt(statement);
        for (int i = 0; i < lines; ++i)
            addLine(statement);
    }
    NodeBase* addLine(const StatementBase* statement) {
        const QString text = QString::number(m_nodes.size());
        NodeBase* node = m_nodes.emplace_back(factory.createNode(QPoint(), text, statement)).get();
        place(node);
        m_lines.push_back({statement, node});
        return node;
    }

    /// Which lines, from 0, of the two statements the edge joins, as "source>target"; "-" without an edge.
    [[nodiscard]] QString edge(const StatementBase* from, const StatementBase* to) const {
        const std::unique_ptr<EdgeBase> edge = factory.createEdge(from, to);
        return edge ? name(edge->getFrom()) + '>' + name(edge->getTo()) : QString("-");
    }

    GraphFactory factory;

private:
    struct Line {
        const StatementBase* statement;
        const NodeBase* node;
    };

    void place(NodeBase* node) {
        const int line = static_cast<int>(m_nodes.size());
        node->setPos(QPoint(0, 20 * line));
        node->setRect(QRect(0, -12, 10, 12));
    }
    [[nodiscard]] QString name(const NodeBase* node) const {
        if (node == factory.getExternalNode())
            return "EXTERNAL";
        const auto found =
            std::find_if(m_lines.begin(), m_lines.end(), [node](const Line& line) { return line.node == node; });
        const auto before = std::count_if(m_lines.begin(), found,
                                          [found](const Line& line) { return line.statement == found->statement; });
        return QString::number(before);
    }

    std::vector<std::unique_ptr<NodeBase>> m_nodes;
    std::vector<Line> m_lines;
};

QString messageOf(const Page& page, const StatementBase* from, const StatementBase* to) {
    try {
        (void)page.edge(from, to);
    } catch (const StateError& error) {
        return error.what();
    }
    return {};
}

const std::vector<std::string> silence;

} // namespace

class ControlFlowFactoryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void linesOfRegisteredStatementsAreNodes();
    void registeringAgainKeepsTheLines();
    void theExternalNode();
    void edgesAreBlueAndShown();

    void sourcesOfPlainStatements();
    void sourcesOfBlocks();
    void sourcesOfBranches();
    void blocksWithoutTheirFirstStatement();
    void targetsOfPlainStatements();
    void targetsOfBlocks();
    void statementsInExpressionsAreOutsideOfTheBlock();
    void targetsOfBranches();

    void unknownEndsWithoutTheExternalNode();
    void unknownEndsWithTheExternalNode();
    void missingLinesAreTold();

private:
    VariableDeclaration m_variable{"a", nullptr};
    /// { a; if (a) { a; } else { } while (a) { a; } }
    std::unique_ptr<BlockStatement> m_root;
    const StatementBase* m_first = nullptr;
    const IfStatement* m_branch = nullptr;
    const WhileStatement* m_loop = nullptr;
    const BlockStatement* m_body = nullptr;
    const StatementBase* m_inner = nullptr;
};

void ControlFlowFactoryTest::init() {
    auto branch = make<IfStatement>(use(m_variable), block(statement(use(m_variable))), block());
    auto loop = make<WhileStatement>(use(m_variable), block(statement(use(m_variable))));
    m_branch = branch.get();
    m_loop = loop.get();
    m_body = loop->getBody();
    m_inner = m_body->getStatement(0);
    m_root = block(statement(use(m_variable)), std::move(branch), std::move(loop));
    m_first = m_root->getStatement(0);
}

void ControlFlowFactoryTest::linesOfRegisteredStatementsAreNodes() {
    GraphFactory factory(false);
    factory.registerStmt(m_first);
    const std::unique_ptr<NodeBase> known(factory.createNode(QPoint(7, 8), "a;", m_first));
    QVERIFY(dynamic_cast<GraphNodeBase*>(known.get()) != nullptr);
    QCOMPARE(known->getPos(), QPoint(7, 8));
    QCOMPARE(known->getText(), QString("a;"));
    const StatementBase* none = nullptr;
    factory.registerStmt(none);
    for (const StatementBase* stranger : {m_inner, none}) {
        const std::unique_ptr<NodeBase> plain(factory.createNode(QPoint(1, 2), "b", stranger));
        QVERIFY(dynamic_cast<GraphNodeBase*>(plain.get()) == nullptr);
        QCOMPARE(plain->getPos(), QPoint(1, 2));
        QCOMPARE(plain->getText(), QString("b"));
    }
}

void ControlFlowFactoryTest::registeringAgainKeepsTheLines() {
    Page page;
    page.add(m_root.get(), 2);
    page.add(m_first, 1);
    page.factory.registerStmt(m_root.get());
    QCOMPARE(page.edge(m_root.get(), m_first), QString("0>0"));
}

void ControlFlowFactoryTest::theExternalNode() {
    GraphFactory without(false);
    QVERIFY(without.getExternalNode() == nullptr);
    QVERIFY(without.takeExternalNode() == nullptr);
    GraphFactory with(true);
    const GraphNodeBase* external = with.getExternalNode();
    QVERIFY(external != nullptr);
    QCOMPARE(external->getText(), QString("EXTERNAL"));
    const std::unique_ptr<GraphNodeBase> taken = with.takeExternalNode();
    QCOMPARE(taken.get(), external);
    // Edges lead there all the same.
    QCOMPARE(with.getExternalNode(), external);
    QVERIFY(with.takeExternalNode() == nullptr);
}

void ControlFlowFactoryTest::edgesAreBlueAndShown() {
    Page page;
    page.add(m_first, 1);
    page.add(m_branch, 1);
    const std::unique_ptr<EdgeBase> edge = page.factory.createEdge(m_first, m_branch);
    QCOMPARE(edge->getPen().color(), QColor(0, 0, 255));
    QCOMPARE(edge->getSelectedPen().color(), QColor(0, 0, 255));
    QVERIFY(edge->isVisible());
    QCOMPARE(edge->getShapeType(), int{EdgeBase::Straight});
    QVERIFY(edge->getHint().isEmpty());
    const std::unique_ptr<EdgeBase> another = page.factory.createEdge(m_first, m_branch);
    QVERIFY(another != edge);
    const std::unique_ptr<EdgeBase> loop = page.factory.createEdge(m_first, m_first);
    QCOMPARE(loop->getShapeType(), int{EdgeBase::Loop});
}

void ControlFlowFactoryTest::sourcesOfPlainStatements() {
    for (int lines = 1; lines <= 3; ++lines) {
        Page page;
        page.add(m_loop, lines);
        page.add(m_first, 1);
        QCOMPARE(page.edge(m_loop, m_first), QString("%1>0").arg(lines - 1));
    }
}

void ControlFlowFactoryTest::sourcesOfBlocks() {
    const QStringList toFirst = {"0>0", "0>0", "1>0"};
    const QStringList elsewhere = {"0>0", "1>0", "2>0"};
    for (int lines = 1; lines <= 3; ++lines) {
        Page page;
        page.add(m_root.get(), lines);
        page.add(m_branch->getElseBlock(), lines);
        page.add(m_first, 1);
        page.add(m_loop, 1);
        QCOMPARE(page.edge(m_root.get(), m_first), toFirst.at(lines - 1));
        QCOMPARE(page.edge(m_root.get(), m_loop), elsewhere.at(lines - 1));
        // An empty one.
        QCOMPARE(page.edge(m_branch->getElseBlock(), m_loop), elsewhere.at(lines - 1));
    }
}

void ControlFlowFactoryTest::sourcesOfBranches() {
    const QStringList expected = {"0>0", "0>0", "1>0"};
    for (int lines = 1; lines <= 3; ++lines) {
        Page page;
        page.add(m_branch, lines);
        page.add(m_loop, 1);
        QCOMPARE(page.edge(m_branch, m_loop), expected.at(lines - 1));
    }
}

void ControlFlowFactoryTest::blocksWithoutTheirFirstStatement() {
    const auto broken = block(StatementPtr(), statement(use(m_variable)));
    Page page;
    page.add(broken.get(), 2);
    page.add(m_first, 1);
    page.add(m_loop, 0);
    const QString message = "Unexpected dereferencing of null iterator.";
    QCOMPARE(messageOf(page, broken.get(), m_first), message);
    QCOMPARE(messageOf(page, broken.get(), m_loop), message);
    // The target comes first.
    QCOMPARE(page.edge(broken.get(), m_inner), QString("-"));
    QCOMPARE(page.edge(m_first, broken.get()), QString("0>0"));
    Page shortPage;
    shortPage.add(broken.get(), 1);
    shortPage.add(m_first, 1);
    QCOMPARE(shortPage.edge(broken.get(), m_first), QString("0>0"));
    Page externalPage(true);
    externalPage.add(broken.get(), 2);
    QCOMPARE(messageOf(externalPage, broken.get(), m_first), message);
}

void ControlFlowFactoryTest::targetsOfPlainStatements() {
    for (int lines = 1; lines <= 3; ++lines) {
        Page page;
        page.add(m_first, 1);
        page.add(m_loop, lines);
        QCOMPARE(page.edge(m_first, m_loop), QString("0>%1").arg(lines - 1));
    }
}

void ControlFlowFactoryTest::targetsOfBlocks() {
    Page page(true);
    page.add(m_root.get(), 3);
    page.add(m_body, 2);
    page.add(m_inner, 1);
    page.add(m_loop, 1);
    QCOMPARE(page.edge(m_inner, m_body), QString("0>1"));
    QCOMPARE(page.edge(m_inner, m_root.get()), QString("0>2"));
    QCOMPARE(page.edge(m_loop, m_body), QString("0>0"));
    QCOMPARE(page.edge(m_loop, m_root.get()), QString("0>2"));
    QCOMPARE(page.edge(nullptr, m_body), QString("EXTERNAL>0"));
    // A block is not inside of itself.
    QCOMPARE(page.edge(m_body, m_body), QString("1>0"));
    QCOMPARE(page.edge(m_root.get(), m_body), QString("2>0"));
    const auto stranger = statement(use(m_variable));
    QCOMPARE(page.edge(stranger.get(), m_root.get()), QString("EXTERNAL>0"));
    Page shortPage;
    shortPage.add(m_body, 1);
    shortPage.add(m_inner, 1);
    shortPage.add(m_loop, 1);
    QCOMPARE(shortPage.edge(m_inner, m_body), QString("0>0"));
    QCOMPARE(shortPage.edge(m_loop, m_body), QString("0>0"));
}

void ControlFlowFactoryTest::statementsInExpressionsAreOutsideOfTheBlock() {
    auto inExpression = block(statement(use(m_variable)));
    const BlockStatement* inner = inExpression.get();
    const auto outer = block(statement(make<StatementExpression>(std::move(inExpression))));
    Page page;
    page.add(outer.get(), 2);
    page.add(inner, 2);
    page.add(inner->getStatement(0), 1);
    QCOMPARE(page.edge(inner->getStatement(0), inner), QString("0>1"));
    QCOMPARE(page.edge(inner->getStatement(0), outer.get()), QString("0>0"));
}

void ControlFlowFactoryTest::targetsOfBranches() {
    const QStringList expected = {"0>0", "0>0", "0>1"};
    for (int lines = 1; lines <= 3; ++lines) {
        Page page;
        page.add(m_first, 1);
        page.add(m_branch, lines);
        QCOMPARE(page.edge(m_first, m_branch), expected.at(lines - 1));
    }
}

void ControlFlowFactoryTest::unknownEndsWithoutTheExternalNode() {
    const HeardLines heard;
    Page page;
    page.add(m_first, 1);
    QCOMPARE(page.edge(m_first, m_loop), QString("-"));
    QCOMPARE(page.edge(m_loop, m_first), QString("-"));
    QCOMPARE(page.edge(m_first, nullptr), QString("-"));
    QCOMPARE(page.edge(nullptr, m_first), QString("-"));
    QCOMPARE(page.edge(nullptr, nullptr), QString("-"));
    QCOMPARE(heard.lines, silence);
}

void ControlFlowFactoryTest::unknownEndsWithTheExternalNode() {
    const HeardLines heard;
    Page page(true);
    page.add(m_first, 1);
    QCOMPARE(page.edge(m_first, m_loop), QString("0>EXTERNAL"));
    QCOMPARE(page.edge(m_loop, m_first), QString("EXTERNAL>0"));
    QCOMPARE(page.edge(m_first, nullptr), QString("0>EXTERNAL"));
    QCOMPARE(page.edge(nullptr, nullptr), QString("EXTERNAL>EXTERNAL"));
    QCOMPARE(heard.lines, silence);
}

void ControlFlowFactoryTest::missingLinesAreTold() {
    HeardLines heard;
    for (const bool showExternal : {false, true}) {
        Page page(showExternal);
        page.add(m_first, 1);
        page.add(m_loop, 0);
        QCOMPARE(page.edge(m_first, m_loop), QString("-"));
        QCOMPARE(page.edge(m_loop, m_first), QString("-"));
        QCOMPARE(page.edge(m_loop, m_loop), QString("-"));
        const std::string line = "CFGraphVisual 4 Statement not found.";
        QCOMPARE(heard.lines, showExternal ? std::vector<std::string>(3, line) : silence);
    }
}

QTEST_GUILESS_MAIN(ControlFlowFactoryTest)
#include "ControlFlowFactoryTest.moc"
