// SPDX-License-Identifier: MIT
#include "shell/views/CallGraphView.h"

#include "environment/analyses/callgraph/CallGraph.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/SourceFile.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "shell/program/Counted.h"
#include "shell/views/GenericGraphDescription.h"
#include "visualization/callgraph/CallGraphWidget.h"
#include "visualization/callgraph/Node.h"

namespace Kova::Shell {

namespace {

using GUI::CallGraph::CallGraphWidget;

bool takesAll(const Subject& subject) {
    return subject.getKind() != Subject::Kind::None;
}

/// The program, and every subroutine that calls one of the program's: a lone box says nothing.
bool isWorthExporting(const Subject& subject) {
    if (subject.getKind() == Subject::Kind::Program)
        return true;
    if (subject.getKind() != Subject::Kind::Subroutine)
        return false;
    const ::CallGraph graph(subject.getSubroutine());
    if (graph.getGraph().size() != 1)
        return graph.getGraph().size() > 1;
    const ::CallGraph::Node& node = *graph.getGraph().begin()->second;
    return node.getCalls().count(node.getSubProc()) > 0;
}

void addPlace(const GUI::GenericGraph::NodeBase& node, QJsonObject& description) {
    const auto* procedure = static_cast<const GUI::CallGraph::Node&>(node).getProcedure();
    const Tessel::SourceRange range = procedure != nullptr ? procedure->getSourceRange() : Tessel::SourceRange();
    description["file"] = range.file != nullptr ? QString::fromStdString(range.file->getPath()) : QString();
    description["line"] = static_cast<int>(range.beginLine);
}

} // namespace

ViewKind CallGraphView::kind() {
    ViewKind kind;
    kind.name = "call-graph";
    kind.title = "Call Graph";
    kind.preference = {Subject::Kind::Program, Subject::Kind::Statement};
    kind.takes = &takesAll;
    kind.isWorthExporting = &isWorthExporting;
    kind.create = []() -> std::unique_ptr<View> { return std::make_unique<CallGraphView>(); };
    return kind;
}

CallGraphView::CallGraphView() : m_widget(std::make_unique<CallGraphWidget>(nullptr)) {}

CallGraphView::~CallGraphView() = default;

GUI::GraphWidgetBase& CallGraphView::getWidget() const {
    return *m_widget;
}

void CallGraphView::show(const Subject& subject) {
    if (Tessel::ProgramUnit* program = subject.getProgram())
        m_widget->onNewProgram(*program);
    else if (Tessel::StatementBase* statement = subject.getStatement())
        m_widget->onNewStatement(*statement);
    else if (Tessel::SubroutineDeclaration* subroutine = subject.getSubroutine())
        m_widget->onNewSubroutine(*subroutine);
}

void CallGraphView::clear() {
    m_widget->clearGraph();
}

Picked CallGraphView::findAt(const QPoint& position) const {
    const auto* node =
        static_cast<const GUI::CallGraph::Node*>(m_widget->findNodeByPosition(m_widget->screenToGraph(position)));
    return {node != nullptr ? node->getProcedure() : nullptr, nullptr};
}

// A procedure is shown for all that is in it.
void CallGraphView::selectNode(const Tessel::TesselBase& node) {
    for (const Tessel::TesselBase* around = &node; around != nullptr; around = around->getParent()) {
        for (GUI::GenericGraph::NodeBase* shown : m_widget->getNodes()) {
            if (static_cast<const GUI::CallGraph::Node*>(shown)->getProcedure() != around)
                continue;
            m_widget->highlightNode(shown);
            m_widget->scrollToNode(*shown);
            return;
        }
    }
}

QJsonObject CallGraphView::describe() const {
    return describeGenericGraph(*m_widget, &addPlace, [](const GUI::GenericGraph::EdgeBase&, QJsonObject& description) {
        description["kind"] = "call";
    });
}

QString CallGraphView::summarize() const {
    if (!m_widget->isBuilded())
        return {};
    return counted(m_widget->getNodes().size(), "procedure") + ", " + counted(m_widget->getEdges().size(), "call");
}

} // namespace Kova::Shell
