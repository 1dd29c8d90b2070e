// SPDX-License-Identifier: MIT
#include "visualization/callgraph/CallGraphWidget.h"

#include "environment/analyses/callgraph/CallGraph.h"
#include "environment/core/Console.h"
#include "environment/printing/OutToC.h"
#include "environment/printing/OutToFortran.h"
#include "environment/tessel/SubroutineCallExpression.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/TranslationUnit.h"
#include "visualization/callgraph/Edge.h"
#include "visualization/callgraph/Node.h"
#include "visualization/graphcore/ForceLayout.h"
#include "visualization/graphcore/RandomLayout.h"

#include <QAction>

#include <map>

namespace Kova::GUI::CallGraph {

namespace {

void logLine(Console::Level level, const char* text) {
    getOutputConsole("CallGraphVisual", true).log(level, text);
}

/// A call that is in no translation unit is printed as C.
std::string toText(const Tessel::SubroutineCallExpression& call) {
    const Tessel::TranslationUnit* unit = call.findTranslationUnit();
    if (unit == nullptr || unit->getSourceLanguage() == Tessel::LANG_C)
        return Backends::OutToC::expressionToString(call);
    return Backends::OutToFortran::expressionToString(call);
}

/// Finds the numbers of a graph's entries.
class EntryNumbers {
public:
    explicit EntryNumbers(const ::CallGraph& graph) {
        int number = 0;
        for (const auto& [name, node] : graph.getGraph()) {
            m_byProcedure.emplace(node->getSubProc(), number);
            m_byName.emplace(name, number);
            ++number;
        }
    }

    /// By the procedure itself first: a file-local one may have to share its name, and bear a longer one in the graph.
    /// Then by name, since a call may refer to another declaration than the entry does. Else the number of entries.
    [[nodiscard]] int find(const Tessel::SubroutineDeclaration& callee) const {
        if (const auto found = m_byProcedure.find(&callee); found != m_byProcedure.end())
            return found->second;
        const auto found = m_byName.find(callee.getName());
        return found != m_byName.end() ? found->second : static_cast<int>(m_byName.size());
    }

private:
    std::map<const Tessel::SubroutineDeclaration*, int> m_byProcedure;
    std::map<std::string, int> m_byName;
};

} // namespace

CallGraphWidget::CallGraphWidget(QWidget* parent)
    : GenericGraphWidgetBase(parent),
      m_hideOrphansAction(new QAction(tr("Hide orphans"), this)) {
    setAttribute(Qt::WA_MouseTracking);
    setMouseScroll(true);
    setMouseScrollButton(Qt::LeftButton);
    m_hideOrphansAction->setCheckable(true);
    connect(m_hideOrphansAction, &QAction::toggled, this, &CallGraphWidget::setHideOrphans);
    addActions({m_hideOrphansAction, m_saveImageAction, m_saveSvgAction});
}

void CallGraphWidget::onNewProgram(Tessel::ProgramUnit& program) {
    visualize(::CallGraph(&program));
}

void CallGraphWidget::onNewSubroutine(Tessel::SubroutineDeclaration& subroutine) {
    visualize(::CallGraph(&subroutine));
}

void CallGraphWidget::onNewStatement(Tessel::StatementBase& statement) {
    visualize(::CallGraph(&statement));
}

void CallGraphWidget::visualize(const ::CallGraph& graph) {
    clear();
    if (graph.getGraph().empty()) {
        logLine(Console::Warning, "Procedure Call graph was not created. Visualization interrupted.");
        return;
    }
    std::vector<std::string> names;
    std::vector<std::pair<int, int>> edges;
    std::vector<Tessel::SubroutineDeclaration*> declarations;
    std::vector<std::vector<std::string>> edgeCalls;
    callGraphToLists(graph, names, edges, declarations, edgeCalls);
    showLists(names, edges, declarations, edgeCalls);
}

void CallGraphWidget::callGraphToLists(const ::CallGraph& graph, std::vector<std::string>& names,
                                       std::vector<std::pair<int, int>>& edges,
                                       std::vector<Tessel::SubroutineDeclaration*>& declarations,
                                       std::vector<std::vector<std::string>>& edgeCalls) {
    for (const auto& [name, node] : graph.getGraph()) {
        names.push_back(name);
        declarations.push_back(node->getSubProc());
    }
    const EntryNumbers numbers(graph);
    int caller = 0;
    for (const auto& entry : graph.getGraph()) {
        for (const auto& [callee, calls] : entry.second->getCalls()) {
            edges.emplace_back(caller, numbers.find(*callee));
            std::vector<std::string> texts;
            for (const Tessel::SubroutineCallExpression* call : calls)
                texts.push_back(toText(*call));
            edgeCalls.push_back(std::move(texts));
        }
        ++caller;
    }
}

void CallGraphWidget::showLists(const std::vector<std::string>& names, const std::vector<std::pair<int, int>>& edges,
                                const std::vector<Tessel::SubroutineDeclaration*>& declarations,
                                const std::vector<std::vector<std::string>>& edgeCalls) {
    for (std::size_t i = 0; i < names.size(); ++i) {
        const QString name = QString::fromStdString(names[i]);
        // Without a declaration, too: the numbers in the edges count every name.
        nodes().push_back(declarations[i] ? new Node(name, *declarations[i]) : new Node(name));
    }
    updateNodeSizes();
    if (!createEdges(edges, edgeCalls)) {
        logLine(Console::Error, "Call graph is invalid. Visualization failed.");
        return;
    }
    hideOrphans(m_hideOrphans);
    layOut();
    fitSizeToBoxes();
    m_saveImageAction->setEnabled(true);
    m_saveSvgAction->setEnabled(true);
    fitGraphToViewport();
    updateScrollBars();
    updateMap();
    viewport()->update();
}

bool CallGraphWidget::createEdges(const std::vector<std::pair<int, int>>& edges,
                                  const std::vector<std::vector<std::string>>& edgeCalls) {
    const auto node = [this](int number) -> Node* {
        const auto index = static_cast<std::size_t>(number);
        return number >= 0 && index < nodes().size() ? static_cast<Node*>(nodes()[index]) : nullptr;
    };
    for (std::size_t i = 0; i < edges.size(); ++i) {
        Node* caller = node(edges[i].first);
        Node* callee = node(edges[i].second);
        if (!caller && !callee)
            return false;
        // A callee without an entry, as of a library, is simply not shown.
        if (caller && callee)
            this->edges().push_back(new Edge(caller, callee, edgeCalls[i]));
    }
    return true;
}

void CallGraphWidget::clearGraph() {
    clear();
    updateScrollBars();
    viewport()->update();
}

void CallGraphWidget::clear() {
    GenericGraphWidgetBase::clear();
    updateMap();
    viewport()->update();
}

void CallGraphWidget::setHideOrphans(bool hide) {
    if (hide == m_hideOrphans)
        return;
    // Stored before the action is set, which calls back.
    m_hideOrphans = hide;
    m_hideOrphansAction->setChecked(hide);
    hideOrphans(hide);
    layOut();
    viewport()->update();
}

void CallGraphWidget::hideOrphans(bool hide) {
    for (GenericGraph::NodeBase* node : nodes()) {
        if (node->getIncomingEdges().empty() && node->getOutgoingEdges().empty())
            node->setVisible(!hide);
    }
}

void CallGraphWidget::layOut() {
    GenericGraph::ForceLayout layout(new GenericGraph::RandomLayout);
    layout.layOut(nodes());
}

} // namespace Kova::GUI::CallGraph
