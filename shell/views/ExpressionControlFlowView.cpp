// SPDX-License-Identifier: MIT
#include "shell/views/ExpressionControlFlowView.h"

#include "environment/analyses/controlflow/ControlFlowGraphExpr.h"
#include "environment/analyses/controlflow/ControlFlowGraphExprBuilder.h"
#include "environment/printing/OutToC.h"
#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/StatementBase.h"
#include "environment/tessel/service/Preorder.h"
#include "shell/program/Counted.h"
#include "shell/views/ControlTransferName.h"
#include "shell/views/GenericGraphDescription.h"
#include "shell/views/GraphvizNotice.h"
#include "shell/views/SubjectBlock.h"
#include "visualization/controlflow/ControlFlowGraphExprWidget.h"

#include <QJsonArray>

#include <algorithm>
#include <cstdlib>
#include <unordered_map>

namespace Kova::Shell {

namespace {

using BasicBlock = ::ControlFlowGraphExpr::BasicBlock;
using GUI::ControlFlowGraphExpr::ControlFlowGraphExprWidget;
using Tessel::ExpressionBase;
using Tessel::TesselBase;

constexpr auto consoleTag = "CFGraphExprVisual";

bool takesStatements(const Subject& subject) {
    return statementOf(subject) != nullptr;
}

std::unique_ptr<::ControlFlowGraphExpr> graphOf(Tessel::StatementBase& statement) {
    auto graph = std::make_unique<::ControlFlowGraphExpr>();
    ControlFlowGraphExprBuilder(true).build(statement, *graph);
    return graph;
}

/// Entry and exit evaluate nothing and are not counted.
std::size_t countBlocks(const ::ControlFlowGraphExpr& graph) {
    const std::size_t all = graph.getBasicBlocks().size();
    return all < 2 ? 0 : all - 2;
}

/// One for each edge of a picture.
std::vector<ControlTransfer> transfersOf(const ::ControlFlowGraphExpr& graph) {
    std::vector<ControlTransfer> transfers;
    for (const BasicBlock* block : graph.getBasicBlocks())
        transfers.insert(transfers.end(), block->getTransfers().begin(), block->getTransfers().end());
    return transfers;
}

/// How many rows the arrows pass when the blocks stand in rows as `dot` ranks them: what its time grows with, by the
/// third power.
std::size_t countRowsPassed(const ::ControlFlowGraphExpr& graph) {
    const std::vector<BasicBlock*>& blocks = graph.getBasicBlocks();
    std::unordered_map<const BasicBlock*, std::size_t> numbers; // looked up, never walked
    for (const BasicBlock* block : blocks)
        numbers.emplace(block, numbers.size());
    std::vector<std::ptrdiff_t> rows(blocks.size());
    for (std::size_t from = 0; from < blocks.size(); ++from)
        for (const BasicBlock* successor : blocks[from]->getSuccessors())
            if (const std::size_t to = numbers.at(successor); to > from)
                rows[to] = std::max(rows[to], rows[from] + 1);
    std::size_t passed = 0;
    for (std::size_t from = 0; from < blocks.size(); ++from)
        for (const BasicBlock* successor : blocks[from]->getSuccessors()) {
            const std::ptrdiff_t span = std::abs(rows[numbers.at(successor)] - rows[from]);
            passed += span > 1 ? static_cast<std::size_t>(span - 1) : 0;
        }
    return passed;
}

/// Why to ask before `dot` places the blocks; empty when it does not take long.
QString warningOf(const ::ControlFlowGraphExpr& graph) {
    const std::size_t count = countBlocks(graph);
    const bool hasLongArrows = countRowsPassed(graph) > ExpressionControlFlowView::mostRowsUnasked;
    if (count <= ExpressionControlFlowView::mostBlocksUnasked && !hasLongArrows)
        return {};
    return QString("The graph has %1 blocks%2: Graphviz may take long to place them.")
        .arg(count)
        .arg(hasLongArrows ? " and long arrows" : "");
}

/// Subroutines in which control has a choice, or goes round, as far as they are laid out without asking.
bool isWorthExporting(const Subject& subject) {
    if (subject.getKind() != Subject::Kind::Subroutine)
        return false;
    const auto graph = graphOf(*statementOf(subject));
    const std::vector<BasicBlock*>& blocks = graph->getBasicBlocks();
    if (!warningOf(*graph).isEmpty())
        return false;
    return std::any_of(blocks.begin(), blocks.end(), [](const BasicBlock* block) {
        const std::vector<ControlTransfer>& transfers = block->getTransfers();
        return transfers.size() > 1 || std::count(transfers.begin(), transfers.end(), ControlTransfer::Back) > 0;
    });
}

QString textOf(const ExpressionBase& expression) {
    return QString::fromStdString(Backends::OutToC::expressionToString(expression));
}

QString kindOf(const BasicBlock& block, const ::ControlFlowGraphExpr& graph) {
    if (&block == graph.getEntry())
        return "entry";
    return &block == graph.getExit() ? "exit" : "block";
}

TesselBase* firstOf(const BasicBlock& block) {
    return block.getExpressions().empty() ? nullptr : const_cast<ExpressionBase*>(block.getExpressions().front());
}

TesselBase* lastOf(const BasicBlock& block) {
    return block.getExpressions().empty() ? nullptr : const_cast<ExpressionBase*>(block.getExpressions().back());
}

/// @param share how far down the block's box, from 0 to 1.
TesselBase* expressionAt(const BasicBlock& block, double share) {
    std::vector<const ExpressionBase*> lines;
    for (const ExpressionBase* expression : block.getExpressions())
        lines.insert(lines.end(), static_cast<std::size_t>(textOf(*expression).count('\n')) + 1, expression);
    if (lines.empty())
        return nullptr;
    const auto last = static_cast<double>(lines.size()) - 1.0;
    const double line = std::clamp(share * static_cast<double>(lines.size()), 0.0, last);
    return const_cast<ExpressionBase*>(lines[static_cast<std::size_t>(line)]);
}

/// Positions of blocks by the expressions that they evaluate. Looked up, never walked.
using BlockNumbers = std::unordered_map<const TesselBase*, std::size_t>;

BlockNumbers numberBlocks(const std::vector<BasicBlock*>& blocks) {
    BlockNumbers numbers;
    for (std::size_t number = 0; number < blocks.size(); ++number)
        for (const ExpressionBase* expression : blocks[number]->getExpressions())
            numbers.emplace(expression, number);
    return numbers;
}

/// The block of the node or of what is around it in its statement; else the block of the first expression inside the
/// node, or inside its statement. Past the last position for none.
std::size_t findBlock(const BlockNumbers& numbers, const TesselBase& node) {
    const TesselBase* around = &node;
    for (; around != nullptr; around = around->getParent()) {
        if (const auto found = numbers.find(around); found != numbers.end())
            return found->second;
        if (dynamic_cast<const Tessel::StatementBase*>(around) != nullptr)
            break;
    }
    for (const TesselBase* root : {&node, around}) {
        if (root == nullptr)
            continue;
        for (const TesselBase& inner : Tessel::Service::Preorder(const_cast<TesselBase&>(*root)))
            if (const auto found = numbers.find(&inner); found != numbers.end())
                return found->second;
    }
    return static_cast<std::size_t>(-1);
}

} // namespace

ViewKind ExpressionControlFlowView::kind() {
    ViewKind kind;
    kind.name = "expression-control-flow";
    kind.title = "Control Flow of Expressions";
    kind.preference = {Subject::Kind::Subroutine, Subject::Kind::Statement, Subject::Kind::Subroutine};
    kind.takes = &takesStatements;
    kind.isWorthExporting = &isWorthExporting;
    kind.create = []() -> std::unique_ptr<View> { return std::make_unique<ExpressionControlFlowView>(); };
    return kind;
}

ExpressionControlFlowView::ExpressionControlFlowView()
    : m_widget(std::make_unique<ControlFlowGraphExprWidget>(nullptr)) {}

ExpressionControlFlowView::~ExpressionControlFlowView() = default;

GUI::GraphWidgetBase& ExpressionControlFlowView::getWidget() const {
    return *m_widget;
}

bool ExpressionControlFlowView::chooseGraphviz() const {
    if (!hasGraphviz())
        return false;
    const QString warning = warningOf(*m_graph);
    return warning.isEmpty() || mayTakeLong(consoleTag, warning);
}

void ExpressionControlFlowView::show(const Subject& subject) {
    m_widget->onNewStatement(nullptr);
    m_graph.reset();
    Tessel::StatementBase* statement = statementOf(subject);
    if (statement == nullptr)
        return;
    m_graph = graphOf(*statement);
    m_widget->setUsesGraphviz(chooseGraphviz());
    m_widget->showGraph(*m_graph);
    const std::vector<ControlTransfer> transfers = transfersOf(*m_graph);
    for (std::size_t edge = 0; edge < transfers.size(); ++edge)
        m_widget->getEdges().at(edge)->setToolTip(nameOf(transfers[edge]));
    if (!hasGraphviz() || m_widget->hasGraphvizFailed())
        tellWithoutGraphviz(consoleTag);
}

void ExpressionControlFlowView::clear() {
    show(Subject());
}

Picked ExpressionControlFlowView::findAt(const QPoint& position) const {
    const QPoint place = m_widget->screenToGraph(position);
    const auto blockOfNode = [this](const GUI::GenericGraph::NodeBase* node) -> const BasicBlock& {
        const auto& nodes = m_widget->getNodes();
        const auto number = std::find(nodes.begin(), nodes.end(), node) - nodes.begin();
        return *m_graph->getBasicBlocks().at(static_cast<std::size_t>(number));
    };
    // Arrows win over boxes, as they do for the mouse.
    if (const GUI::GenericGraph::EdgeBase* edge = m_widget->findEdgeNear(place)) {
        TesselBase* from = lastOf(blockOfNode(edge->getSource()));
        TesselBase* to = firstOf(blockOfNode(edge->getTarget()));
        return from != nullptr ? Picked{from, to} : Picked{to, nullptr};
    }
    const GUI::GenericGraph::NodeBase* node = m_widget->findNodeByPosition(place);
    if (node == nullptr)
        return {};
    const QRect box = node->getRect();
    return {expressionAt(blockOfNode(node), double(place.y() - box.top()) / box.height()), nullptr};
}

void ExpressionControlFlowView::selectNode(const TesselBase& node) {
    if (m_graph == nullptr)
        return;
    const std::size_t number = findBlock(numberBlocks(m_graph->getBasicBlocks()), node);
    if (number >= m_widget->getNodes().size())
        return;
    GUI::GenericGraph::NodeBase* shown = m_widget->getNodes()[number];
    m_widget->highlightNode(shown);
    m_widget->scrollToNode(*shown);
}

QJsonObject ExpressionControlFlowView::describe() const {
    if (m_graph == nullptr)
        return {{"nodes", QJsonArray()}, {"edges", QJsonArray()}};
    return describeGenericGraph(
        *m_widget,
        [this](const GUI::GenericGraph::NodeBase&, QJsonObject& description) {
            const BasicBlock* block = m_graph->getBasicBlocks().at(static_cast<std::size_t>(description["id"].toInt()));
            QJsonArray expressions;
            for (const ExpressionBase* expression : block->getExpressions())
                expressions.append(textOf(*expression));
            description["kind"] = kindOf(*block, *m_graph);
            description["expressions"] = expressions;
            description["reachable"] = block->isReachable();
        },
        [](const GUI::GenericGraph::EdgeBase& edge, QJsonObject& description) {
            description["kind"] = edge.getToolTip();
        });
}

QString ExpressionControlFlowView::summarize() const {
    if (m_graph == nullptr)
        return {};
    const std::vector<BasicBlock*>& blocks = m_graph->getBasicBlocks();
    const auto unreachable = std::count_if(blocks.begin(), blocks.end(), [](const BasicBlock* block) {
        return !block->isReachable() && !block->getExpressions().empty();
    });
    const QString all =
        counted(countBlocks(*m_graph), "block") + ", " + counted(transfersOf(*m_graph).size(), "transfer");
    return unreachable == 0 ? all : all + QString(", %1 unreachable").arg(unreachable);
}

} // namespace Kova::Shell
