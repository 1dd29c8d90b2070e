// SPDX-License-Identifier: MIT
#include "visualization/controlflow/ControlFlowGraphExprWidget.h"

#include "environment/analyses/controlflow/ControlFlowGraphExpr.h"
#include "environment/analyses/controlflow/ControlFlowGraphExprBuilder.h"
#include "environment/printing/OutToC.h"
#include "visualization/controlflow/Node.h"
#include "visualization/controlflow/RowLayout.h"
#include "visualization/controlflow/StandInLayout.h"

#include <QHash>
#include <QtMath>

#include <algorithm>

namespace Kova::GUI::ControlFlowGraphExpr {

namespace {

using BasicBlock = ::ControlFlowGraphExpr::BasicBlock;

constexpr QRgb unreachableColor = 0xff808080;

/// Between the upper border of the picture and a loop, in graph units.
constexpr qreal loopGap = 5.0;

QString textOf(const BasicBlock& block) {
    std::string text;
    for (const Tessel::ExpressionBase* expression : block.getExpressions())
        text += Backends::OutToC::expressionToString(*expression) + '\n';
    if (!text.empty())
        text.pop_back();
    return QString::fromStdString(text);
}

} // namespace

ControlFlowGraphExprWidget::ControlFlowGraphExprWidget(QWidget* parent) : GenericGraphWidgetBase(parent) {
    setLabelFont(QFont(QStringLiteral("Arial"), 12));
    setMouseTracking(true);
    setMouseScroll(true);
}

void ControlFlowGraphExprWidget::clear() {
    m_graphvizFailed = false;
    GenericGraphWidgetBase::clear();
}

void ControlFlowGraphExprWidget::onNewStatement(Tessel::StatementBase* stmt) {
    clear();
    if (stmt == nullptr) {
        viewport()->update();
        return;
    }
    ::ControlFlowGraphExpr graph;
    ControlFlowGraphExprBuilder(true).build(*stmt, graph);
    showGraph(graph);
}

void ControlFlowGraphExprWidget::showGraph(const ::ControlFlowGraphExpr& graph) {
    clear();
    addItems(graph);
    updateNodeSizes();
    layOut();
    if (nodes().empty())
        setGraphSize(0, 0);
    else
        fitSizeToBoxes();
    fitGraphToViewport();
    updateScrollBars();
    updateMap();
    viewport()->update();
}

void ControlFlowGraphExprWidget::addItems(const ::ControlFlowGraphExpr& graph) {
    QHash<const BasicBlock*, Node*> nodeOf;
    for (const BasicBlock* block : graph.getBasicBlocks()) {
        const bool isEntry = block == graph.getEntry();
        const bool isExit = block == graph.getExit();
        auto* node = new Node(isEntry ? tr("Entry") : isExit ? tr("Exit") : textOf(*block));
        if (!block->isReachable())
            node->setTextColor(unreachableColor);
        nodeOf.insert(block, node);
        nodes().push_back(node);
    }
    for (const BasicBlock* block : graph.getBasicBlocks()) {
        Node* source = nodeOf.value(block);
        for (const BasicBlock* successor : block->getSuccessors()) {
            Node* target = nodeOf.value(successor);
            auto* edge = new GenericGraph::EdgeBase(source, target);
            if (source == target)
                edge->setShapeKind(GenericGraph::EdgeBase::Loop);
            edges().push_back(edge);
        }
    }
}

void ControlFlowGraphExprWidget::layOut() {
    // Stays where dot does nothing.
    RowLayout().layOut(nodes());
    if (!m_usesGraphviz || nodes().empty())
        return;
    StandInLayout graphviz;
    graphviz.layOut(nodes());
    m_graphvizFailed = !graphviz.hasSucceeded();
    keepLoopsInside();
}

void ControlFlowGraphExprWidget::keepLoopsInside() {
    qreal top = 0.0;
    for (const GenericGraph::EdgeBase* edge : edges())
        if (edge->getShapeKind() == GenericGraph::EdgeBase::Loop)
            top = std::min(top, edge->getShape().boundingRect().top() - loopGap);
    if (top < 0.0)
        for (GenericGraph::NodeBase* node : nodes())
            node->moveTo(node->getCenter().x(), node->getCenter().y() - qFloor(top));
}

} // namespace Kova::GUI::ControlFlowGraphExpr
