// SPDX-License-Identifier: MIT
#include "shell/views/LamportDependencesView.h"

#include "environment/analyses/lamport/LamportGraph.h"
#include "environment/tessel/ExpressionBase.h"
#include "shell/program/Counted.h"
#include "shell/views/DependenceTable.h"
#include "shell/views/SubjectBlock.h"
#include "shell/views/TextGraphDescription.h"
#include "visualization/depgraph/DepGraphWidget.h"
#include "visualization/depgraph/LamportEdge.h"
#include "visualization/textgraph/EdgeBase.h"

#include <algorithm>

namespace Kova::Shell {

namespace {

using GUI::DepGraph::DepGraphWidget;

bool takesBlocks(const Subject& subject) {
    return blockOf(subject) != nullptr;
}

} // namespace

ViewKind LamportDependencesView::kind() {
    ViewKind kind;
    kind.name = "lamport-dependences";
    kind.title = "Dependences (Lamport)";
    kind.preference = {Subject::Kind::Subroutine, Subject::Kind::Block};
    kind.takes = &takesBlocks;
    kind.isWorthExporting = &isBlockWithLoops;
    kind.create = []() -> std::unique_ptr<View> { return std::make_unique<LamportDependencesView>(); };
    return kind;
}

LamportDependencesView::LamportDependencesView()
    : m_widget(std::make_unique<DepGraphWidget>()),
      m_table(std::make_unique<DependenceTable>([widget = m_widget.get()](int number) {
          return number < widget->getEdges().size() && widget->getEdges().at(number)->isVisible();
      })) {
    connectTable();
}

LamportDependencesView::~LamportDependencesView() {
    m_widget->setHoverListener({});
}

void LamportDependencesView::connectTable() {
    QObject::connect(&m_widget->getFilter(), &GUI::DepGraph::EdgeFilter::filterChanged, m_table.get(),
                     &DependenceTable::filterAgain);
    QObject::connect(m_table.get(), &DependenceTable::recordPicked, m_widget.get(), [this](int number) {
        m_widget->selectEdge(number);
        m_widget->scrollToEdge(number);
        tellPicked(endsOf(number));
    });
    // A row stays selected when the mouse leaves its arrow: the eye shall find it in the table.
    m_widget->setHoverListener([this](int edge) {
        if (edge >= 0)
            m_table->selectRecord(edge);
    });
}

GUI::GraphWidgetBase& LamportDependencesView::getWidget() const {
    return *m_widget;
}

QWidget* LamportDependencesView::getPanel() const {
    return m_table.get();
}

QList<QAction*> LamportDependencesView::getActions() const {
    return m_widget->getFilter().getActions();
}

void LamportDependencesView::show(const Subject& subject) {
    m_table->setRecords({});
    m_ends.clear();
    Tessel::BlockStatement* block = blockOf(subject);
    if (block == nullptr) {
        m_widget->onNewBlock(nullptr);
        return;
    }
    ::DepGraph::LamportGraph graph;
    graph.Build(*block, ::DepGraph::BP_DEFAULT, true);
    graph.Refine(::DepGraph::RM_EXACT);
    if (graph.getLeftOut() == ::DepGraph::LamportGraph::LeftOut::Everything) {
        m_widget->onNewBlock(nullptr);
        return;
    }
    m_widget->onNewGraph(&graph, block);
    m_widget->makeRoomAbove();
    // The widget has an edge for each arrow, in the same order.
    std::vector<DependenceRecord> records;
    for (const ::DepGraph::LampArrow* arrow : graph.getArrows()) {
        const auto* edge = m_widget->getEdges().at(static_cast<int>(records.size()));
        records.push_back(recordOf(*arrow, edge->cast_to<GUI::DepGraph::LamportEdge>().getTags()));
        m_ends.push_back({const_cast<Tessel::ExpressionBase*>(arrow->getSource()),
                          const_cast<Tessel::ExpressionBase*>(arrow->getTarget())});
    }
    m_table->setRecords(std::move(records));
}

void LamportDependencesView::clear() {
    m_widget->onNewBlock(nullptr);
    m_table->setRecords({});
    m_ends.clear();
}

Picked LamportDependencesView::endsOf(int edge) const {
    return edge >= 0 && edge < static_cast<int>(m_ends.size()) ? m_ends[static_cast<std::size_t>(edge)] : Picked();
}

// The mouse has highlighted the arrow by the time it is pressed.
Picked LamportDependencesView::findAt(const QPoint& /*position*/) const {
    return endsOf(m_widget->getSelectedEdge());
}

// The first arrow shown that begins or ends at the node.
void LamportDependencesView::selectNode(const Tessel::TesselBase& node) {
    for (int edge = 0; edge < static_cast<int>(m_ends.size()); ++edge) {
        const Picked ends = endsOf(edge);
        if ((ends.node != &node && ends.other != &node) || !m_widget->getEdges().at(edge)->isVisible())
            continue;
        m_widget->selectEdge(edge);
        m_widget->scrollToEdge(edge);
        m_table->selectRecord(edge);
        return;
    }
}

QJsonObject LamportDependencesView::describe() const {
    return describeTextGraph(
        *m_widget, [](const GUI::TextGraph::NodeBase&, QJsonObject&) {},
        [this](const GUI::TextGraph::EdgeBase& edge, int index, QJsonObject& description) {
            m_table->getRecords().at(static_cast<std::size_t>(index)).describe(description);
            description["hint"] = edge.getHint();
        });
}

QString LamportDependencesView::summarize() const {
    if (!m_widget->isBuilded())
        return {};
    const std::vector<DependenceRecord>& records = m_table->getRecords();
    const auto assumed =
        std::count_if(records.begin(), records.end(), [](const DependenceRecord& record) { return !record.proven; });
    const QString all = counted(records.size(), "dependence");
    return assumed == 0 ? all : QString("%1, %2 of them assumed").arg(all).arg(assumed);
}

} // namespace Kova::Shell
