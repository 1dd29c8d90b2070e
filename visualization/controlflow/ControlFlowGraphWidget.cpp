// SPDX-License-Identifier: MIT
#include "visualization/controlflow/ControlFlowGraphWidget.h"

#include "environment/analyses/controlflow/ControlFlowGraph.h"
#include "environment/tessel/BlockStatement.h"
#include "visualization/controlflow/GraphFactory.h"
#include "visualization/textgraph/EdgeBase.h"
#include "visualization/textgraph/GraphNodeBase.h"
#include "visualization/textgraph/WordLayout.h"

namespace Kova::GUI::ControlFlowGraph {

using Tessel::StatementBase;
using TextGraph::NodeBase;

namespace {

/// As far right as the statements of the block.
constexpr int externalColumn = 4;

} // namespace

ControlFlowGraphWidget::ControlFlowGraphWidget(QWidget* parent) : TextGraphWidgetBase(parent) {
    createMenu();
}

void ControlFlowGraphWidget::clear() {
    m_statements.clear();
    m_externalNode = nullptr;
    m_transfers.clear();
    TextGraphWidgetBase::clear();
}

bool ControlFlowGraphWidget::filterEdge(const TextGraph::EdgeBase* /*edge*/) {
    return true;
}

void ControlFlowGraphWidget::onNewBlock(Tessel::BlockStatement* block, bool showExternal) {
    clear();
    if (block != nullptr)
        onNewGraph(::ControlFlowGraph(*block), *block, showExternal);
    else
        viewport()->update();
}

void ControlFlowGraphWidget::onNewGraph(const ::ControlFlowGraph& graph, Tessel::BlockStatement& block,
                                        bool showExternal) {
    clear();
    TextGraph::ProgramLines text;
    TextGraph::buildStmtProgramText(text, block);
    buildGraph(graph, text, showExternal);
    setBuilded();
    updateScrollBars();
    updateMap();
    viewport()->update();
}

void ControlFlowGraphWidget::buildGraph(const ::ControlFlowGraph& graph, const TextGraph::ProgramLines& text,
                                        bool showExternal) {
    GraphFactory factory(showExternal);
    for (const StatementBase* statement : graph.getStatements())
        factory.registerStmt(statement);
    convertTextToNodes(text, factory);
    convertCFGToEdges(graph, factory);
    reorder(true, 2);
}

void ControlFlowGraphWidget::convertTextToNodes(const TextGraph::ProgramLines& text, GraphFactory& factory) {
    TextGraph::WordLayout layout(getFont(), lines());
    layout.addStatements(text,
                         [this, &factory](const QPoint& pos, const QString& word, const Tessel::TesselBase* object) {
                             NodeBase* node = factory.createNode(pos, word, object);
                             if (const auto* statement = dynamic_cast<const StatementBase*>(object))
                                 m_statements.insert(node, statement);
                             return node;
                         });
    if (std::unique_ptr<NodeBase> external = factory.takeExternalNode()) {
        m_externalNode = external.get();
        layout.addLine(*external.release(), externalColumn);
    }
    setGraphSize(layout.getSize());
}

void ControlFlowGraphWidget::convertCFGToEdges(const ::ControlFlowGraph& graph, const GraphFactory& factory) {
    for (const StatementBase* from : graph.getStatements()) {
        const std::vector<const StatementBase*>& successors = graph.getSuccessors(from);
        const std::vector<ControlTransfer>& kinds = graph.getTransfers(from);
        for (std::size_t i = 0; i < successors.size(); ++i) {
            std::unique_ptr<TextGraph::EdgeBase> edge = factory.createEdge(from, successors[i]);
            if (!edge)
                continue;
            edges().add(edge.release());
            m_transfers.push_back({from, successors[i], kinds[i]});
        }
    }
    moveCloseLinesApart();
}

const StatementBase* ControlFlowGraphWidget::findStatement(const NodeBase* node) const {
    return m_statements.value(node, nullptr);
}

ControlFlowGraphWidget::Transfer ControlFlowGraphWidget::getTransfer(int edge) const {
    const auto index = static_cast<std::size_t>(edge);
    return edge >= 0 && index < m_transfers.size() ? m_transfers[index] : Transfer();
}

} // namespace Kova::GUI::ControlFlowGraph
