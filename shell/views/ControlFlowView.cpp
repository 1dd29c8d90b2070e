// SPDX-License-Identifier: MIT
#include "shell/views/ControlFlowView.h"

#include "environment/analyses/controlflow/ControlFlowGraph.h"
#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/DoWhileStatement.h"
#include "environment/tessel/IfStatement.h"
#include "shell/program/Counted.h"
#include "shell/views/ControlTransferName.h"
#include "shell/views/SubjectBlock.h"
#include "shell/views/TextGraphDescription.h"
#include "visualization/controlflow/ControlFlowGraphWidget.h"
#include "visualization/textgraph/EdgeBase.h"
#include "visualization/textgraph/NodeBase.h"

#include <QAction>

#include <algorithm>

namespace Kova::Shell {

namespace {

using GUI::ControlFlowGraph::ControlFlowGraphWidget;
using Tessel::StatementBase;

bool takesBlocks(const Subject& subject) {
    return blockOf(subject) != nullptr;
}

/// Subroutines in which control has a choice, or goes round: of the others one sees a list of statements.
bool isWorthExporting(const Subject& subject) {
    if (subject.getKind() != Subject::Kind::Subroutine)
        return false;
    const ::ControlFlowGraph graph(*blockOf(subject));
    const auto& statements = graph.getStatements();
    return std::any_of(statements.begin(), statements.end(), [&](const StatementBase* statement) {
        const std::vector<ControlTransfer>& transfers = graph.getTransfers(statement);
        // A block leads to its first statement and to what follows it: that is no choice.
        const bool isBlock = dynamic_cast<const Tessel::BlockStatement*>(statement) != nullptr;
        return (!isBlock && transfers.size() > 1) ||
               std::count(transfers.begin(), transfers.end(), ControlTransfer::Back) > 0;
    });
}

/// Whether a line is the last one of what its statement is printed as.
bool isClosing(const StatementBase& statement, const QString& text) {
    if (dynamic_cast<const Tessel::BlockStatement*>(&statement) != nullptr)
        return text.startsWith('}');
    return dynamic_cast<const Tessel::DoWhileStatement*>(&statement) != nullptr && text.startsWith("while");
}

} // namespace

ViewKind ControlFlowView::kind() {
    ViewKind kind;
    kind.name = "control-flow";
    kind.title = "Control Flow";
    kind.preference = {Subject::Kind::Subroutine, Subject::Kind::Block, Subject::Kind::Subroutine};
    kind.takes = &takesBlocks;
    kind.isWorthExporting = &isWorthExporting;
    kind.create = []() -> std::unique_ptr<View> { return std::make_unique<ControlFlowView>(); };
    return kind;
}

ControlFlowView::ControlFlowView()
    : m_widget(std::make_unique<ControlFlowGraphWidget>()),
      m_showExternal(std::make_unique<QAction>("External")) {
    m_showExternal->setCheckable(true);
    m_showExternal->setChecked(true);
    m_showExternal->setToolTip("Show a line for everything outside of the block");
    // The scale is the user's.
    QObject::connect(m_showExternal.get(), &QAction::toggled, m_widget.get(), [this] {
        const double scale = m_widget->getScale();
        draw();
        m_widget->setScale(scale);
    });
}

ControlFlowView::~ControlFlowView() = default;

GUI::GraphWidgetBase& ControlFlowView::getWidget() const {
    return *m_widget;
}

QList<QAction*> ControlFlowView::getActions() const {
    return {m_showExternal.get()};
}

void ControlFlowView::show(const Subject& subject) {
    m_block = blockOf(subject);
    m_graph = m_block != nullptr ? std::make_unique<::ControlFlowGraph>(*m_block) : nullptr;
    draw();
}

void ControlFlowView::clear() {
    show(Subject());
}

void ControlFlowView::draw() {
    if (m_block == nullptr) {
        m_widget->onNewBlock(nullptr, false);
        return;
    }
    m_widget->onNewGraph(*m_graph, *m_block, m_showExternal->isChecked());
    m_widget->makeRoomAbove();
    for (int edge = 0; edge < m_widget->getEdges().size(); ++edge)
        m_widget->getEdges().at(edge)->setHint(nameOf(m_widget->getTransfer(edge).kind));
}

Picked ControlFlowView::findAt(const QPoint& position) const {
    const auto asPicked = [](const StatementBase* statement) { return const_cast<StatementBase*>(statement); };
    if (const int edge = m_widget->getSelectedEdge(); edge >= 0) {
        const auto transfer = m_widget->getTransfer(edge);
        return transfer.from != nullptr ? Picked{asPicked(transfer.from), asPicked(transfer.to)}
                                        : Picked{asPicked(transfer.to), nullptr};
    }
    const QPoint place = m_widget->getNodeByCurPos(m_widget->screenToGraph(position));
    if (place.x() < 0 || place.y() < 0)
        return {};
    return {asPicked(m_widget->findStatement(m_widget->getLines().at(place.x()).nodes.at(place.y()))), nullptr};
}

int ControlFlowView::findEdge(const StatementBase& statement) const {
    int entering = -1;
    for (int edge = 0; edge < m_widget->getEdges().size(); ++edge) {
        const auto transfer = m_widget->getTransfer(edge);
        if (transfer.from == &statement)
            return edge;
        if (transfer.to == &statement && entering < 0)
            entering = edge;
    }
    return entering;
}

void ControlFlowView::selectNode(const Tessel::TesselBase& node) {
    for (const Tessel::TesselBase* around = &node; around != nullptr; around = around->getParent()) {
        const auto* statement = dynamic_cast<const StatementBase*>(around);
        const int edge = statement != nullptr ? findEdge(*statement) : -1;
        if (edge < 0)
            continue;
        m_widget->selectEdge(edge);
        m_widget->scrollToEdge(edge);
        return;
    }
}

// Where an else stands is not kept.
int ControlFlowView::lineOf(const GUI::TextGraph::NodeBase& node) const {
    const StatementBase* statement = m_widget->findStatement(&node);
    if (statement == nullptr)
        return 0;
    if (dynamic_cast<const Tessel::IfStatement*>(statement) != nullptr && node.getText() == "else")
        return 0;
    const Tessel::SourceRange& range = statement->getSourceRange();
    return static_cast<int>(isClosing(*statement, node.getText()) ? range.endLine : range.beginLine);
}

QJsonObject ControlFlowView::describe() const {
    return describeTextGraph(
        *m_widget,
        [this](const GUI::TextGraph::NodeBase& node, QJsonObject& description) {
            description["line"] = lineOf(node);
            description["external"] = &node == m_widget->getExternalNode();
        },
        [this](const GUI::TextGraph::EdgeBase&, int index, QJsonObject& description) {
            description["kind"] = nameOf(m_widget->getTransfer(index).kind);
        });
}

QString ControlFlowView::summarize() const {
    if (!m_widget->isBuilded() || m_graph == nullptr)
        return {};
    std::size_t transfers = 0;
    for (const StatementBase* statement : m_graph->getStatements())
        transfers += m_graph->getTransfers(statement).size();
    return counted(m_graph->getStatements().size(), "statement") + ", " + counted(transfers, "transfer");
}

} // namespace Kova::Shell
