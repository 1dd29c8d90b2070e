// SPDX-License-Identifier: MIT
#include "visualization/depgraph/GraphFactory.h"

#include "tests/environment/analyses/lamport/ArrowSample.h"
#include "visualization/depgraph/LamportEdge.h"
#include "visualization/textgraph/GraphNodeBase.h"
#include "visualization/textgraph/NodeAlreadyExist.h"
#include "visualization/textgraph/NodeNotFound.h"

#include <QtTest>

using namespace DepGraph;
using namespace Kova;
using namespace Kova::Tests;
using Kova::GUI::DepGraph::GraphFactory;
using Kova::GUI::DepGraph::LamportEdge;
using Kova::GUI::TextGraph::NodeAlreadyExist;
using Kova::GUI::TextGraph::NodeBase;
using Kova::GUI::TextGraph::NodeNotFound;

class GraphFactoryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void edgesCarryWhatArrowsSay();
    void tagsAreInTheOrderOfTheModes();
    void oneArrowMakesAnyNumberOfEdges();
    void failures();

private:
    /// Registers and makes the nodes of both ends.
    void makeNodes(GraphFactory& factory) {
        const DependenceFacts& facts = m_sample.facts();
        for (const Tessel::ExpressionBase* end : {facts.source, facts.target}) {
            factory.registerExpr(end);
            const int line = static_cast<int>(m_made.size()) + 1;
            m_made.emplace_back(factory.createNode(QPoint(0, 20 * line), "a", end));
        }
    }
    [[nodiscard]] std::unique_ptr<LamportEdge> makeEdge(const GraphFactory& factory) {
        const LampArrow arrow(m_sample.facts());
        return factory.createEdge(arrow.getSource(), arrow.getTarget(), &arrow);
    }

    ArrowSample m_sample;
    std::vector<std::unique_ptr<NodeBase>> m_made;
};

void GraphFactoryTest::edgesCarryWhatArrowsSay() {
    for (const EN_DepType type : {DT_FLOW, DT_ANTI, DT_OUTPUT, DT_INPUT}) {
        GraphFactory factory;
        m_made.clear();
        makeNodes(factory);
        m_sample.kind(type).carriers({-1, 1, 3});
        const std::unique_ptr<LamportEdge> edge = makeEdge(factory);
        QCOMPARE(edge->getType(), type);
        QCOMPARE(edge->getFrom(), m_made.at(0).get());
        QCOMPARE(edge->getTo(), m_made.at(1).get());
        QCOMPARE(edge->getCarriers(), QList<int>({-1, 1, 3}));
    }
    GraphFactory factory;
    m_made.clear();
    makeNodes(factory);
    m_sample.carriers({});
    QVERIFY(makeEdge(factory)->getCarriers().isEmpty());
}

void GraphFactoryTest::tagsAreInTheOrderOfTheModes() {
    GraphFactory factory;
    m_made.clear();
    makeNodes(factory);
    m_sample.kind(DT_FLOW).loops({2}).carriers({1});
    const std::unique_ptr<LamportEdge> edge = makeEdge(factory);
    QCOMPARE(edge->getTags(),
             QStringList({QStringLiteral("Значение, записанное в a[i] в строке 5, читается как a[i - 2] в строке 7, "
                                         "через две итерации цикла по i."),
                          "flow dependence: a[i] (line 5) -> a[i - 2] (line 7); carried by loop 1 (i); distance vector "
                          "(2); proven",
                          QStringLiteral("потоковая зависимость: a[i] (строка 5) -> a[i - 2] (строка 7); переносится "
                                         "циклом 1 (i); вектор расстояний (2); доказана"),
                          "The value written to a[i] in line 5 is read as a[i - 2] in line 7, two iterations later of "
                          "the loop over i."}));
    QCOMPARE(edge->getHint(), edge->getTags().first());
}

void GraphFactoryTest::oneArrowMakesAnyNumberOfEdges() {
    GraphFactory factory;
    m_made.clear();
    makeNodes(factory);
    const std::unique_ptr<LamportEdge> first = makeEdge(factory);
    const std::unique_ptr<LamportEdge> second = makeEdge(factory);
    QVERIFY(first != second);
    QCOMPARE(first->getPort(GUI::TextGraph::EdgeSide::From), 1);
    QCOMPARE(second->getPort(GUI::TextGraph::EdgeSide::From), 2);
}

void GraphFactoryTest::failures() {
    GraphFactory factory;
    QVERIFY_EXCEPTION_THROWN((void)makeEdge(factory), NodeNotFound);
    factory.registerExpr(m_sample.facts().source);
    factory.registerExpr(m_sample.facts().target);
    QVERIFY_EXCEPTION_THROWN((void)makeEdge(factory), NodeNotFound);
    m_made.clear();
    makeNodes(factory);
    QVERIFY(makeEdge(factory) != nullptr);
    QVERIFY_EXCEPTION_THROWN((void)factory.createNode(QPoint(), "a", m_sample.facts().source), NodeAlreadyExist);
}

QTEST_GUILESS_MAIN(GraphFactoryTest)
#include "GraphFactoryTest.moc"
