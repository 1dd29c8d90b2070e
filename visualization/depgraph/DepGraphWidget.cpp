// SPDX-License-Identifier: MIT
#include "visualization/depgraph/DepGraphWidget.h"

#include "environment/analyses/lamport/LamportGraph.h"
#include "environment/tessel/BlockStatement.h"
#include "visualization/depgraph/GraphFactory.h"
#include "visualization/depgraph/LamportEdge.h"
#include "visualization/textgraph/GraphNodeBase.h"
#include "visualization/textgraph/WordLayout.h"

#include <QActionGroup>

namespace Kova::GUI::DepGraph {

using namespace ::DepGraph;
using TextGraph::EdgeBase;

namespace {

/// For the loop that is drawn at the left of a node.
constexpr int loopRoom = 30;

} // namespace

DepGraphWidget::DepGraphWidget(QWidget* parent) : TextGraphWidgetBase(parent) {
    createActions();
    createMenu();
}

void DepGraphWidget::createActions() {
    m_hintFormGroup = new QActionGroup(this);
    for (const QString& text :
         {tr("Popular Russian"), tr("Developer English"), tr("Developer Russian"), tr("Popular English")}) {
        QAction* action = m_hintFormGroup->addAction(text);
        action->setCheckable(true);
        m_hintForms.append(action);
    }
    m_hintForms.first()->setChecked(true);
    connect(m_hintFormGroup, &QActionGroup::triggered, this, &DepGraphWidget::hintsFormChanged);
    connect(&m_filter, &EdgeFilter::filterChanged, this, &DepGraphWidget::edgeFilterChanged);
}

void DepGraphWidget::createMenu() {
    menu().addActions(m_filter.getActions());
    menu().addSection(tr("Hints Form"));
    menu().addActions(m_hintForms);
    menu().addSeparator();
    TextGraphWidgetBase::createMenu();
}

bool DepGraphWidget::filterEdge(const EdgeBase* edge) {
    return m_filter.filterEdge(&edge->cast_to<LamportEdge>());
}

void DepGraphWidget::onNewBlock(Tessel::BlockStatement* block) {
    onNewBlockEx(block, true, RM_EXACT);
}

void DepGraphWidget::onNewBlockEx(Tessel::BlockStatement* block, bool flag, EN_RefineMethod method) {
    if (block == nullptr) {
        clearView();
        return;
    }
    LamportGraph graph;
    graph.Build(*block, BP_DEFAULT, flag);
    graph.Refine(method);
    visualize(graph, *block);
    graph.Clear();
}

void DepGraphWidget::onNewGraph(LamportGraph* graph, Tessel::BlockStatement* block) {
    if (graph != nullptr && block != nullptr)
        visualize(*graph, *block);
    else
        clearView();
}

void DepGraphWidget::clearView() {
    clear();
    viewport()->update();
}

void DepGraphWidget::visualize(const LamportGraph& graph, Tessel::BlockStatement& block) {
    clear();
    TextGraph::ProgramLines text;
    TextGraph::buildExprProgramText(text, block);
    buildGraph(graph, text);
    setBuilded();
    // New edges show their first tag.
    m_hintForms.first()->setChecked(true);
    updateEdgesVisibility();
    updateScrollBars();
    updateMap();
    viewport()->update();
}

void DepGraphWidget::buildGraph(const LamportGraph& graph, const TextGraph::ProgramLines& text) {
    GraphFactory factory;
    for (const LampArrow* arrow : graph.getArrows()) {
        factory.registerExpr(arrow->getSource());
        factory.registerExpr(arrow->getTarget());
    }
    convertTextToNodes(text, factory);
    convertLamportToEdges(graph, factory);
    m_filter.setGraph(edges());
    reorder(true, 2);
}

void DepGraphWidget::convertTextToNodes(const TextGraph::ProgramLines& text, GraphFactory& factory) {
    TextGraph::WordLayout layout(getFont(), lines());
    layout.addWords(text, [&factory](const QPoint& pos, const QString& word, const Tessel::TesselBase* object) {
        return factory.createNode(pos, word, object);
    });
    setGraphSize(layout.getSize());
}

void DepGraphWidget::convertLamportToEdges(const LamportGraph& graph, const GraphFactory& factory) {
    for (const LampArrow* arrow : graph.getArrows())
        edges().add(factory.createEdge(arrow->getSource(), arrow->getTarget(), arrow).release());
    moveCloseLinesApart();
    for (const EdgeBase* edge : edges()) {
        const bool isInput = edge->cast_to<LamportEdge>().getType() == DT_INPUT;
        if (isInput && edge->getFrom() == edge->getTo())
            sprainLine(getNodeCoords(edge->getFrom()), loopRoom);
    }
}

void DepGraphWidget::edgeFilterChanged() {
    updateEdgesVisibility();
    updateMap();
    viewport()->update();
}

void DepGraphWidget::hintsFormChanged(QAction* action) {
    updateEdgesHints(m_hintForms.indexOf(action));
    viewport()->update();
}

void DepGraphWidget::updateEdgesHints(int index) {
    for (EdgeBase* edge : edges())
        edge->cast_to<LamportEdge>().setCurrentTag(index);
}

} // namespace Kova::GUI::DepGraph
