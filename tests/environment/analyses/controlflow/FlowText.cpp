// SPDX-License-Identifier: MIT
#include "tests/environment/analyses/controlflow/FlowText.h"

#include "environment/printing/OutToC.h"
#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/BreakStatement.h"
#include "environment/tessel/CaseStatement.h"
#include "environment/tessel/ContinueStatement.h"
#include "environment/tessel/DeclarationStatement.h"
#include "environment/tessel/DoWhileStatement.h"
#include "environment/tessel/ExpressionStatement.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/GotoStatement.h"
#include "environment/tessel/IfStatement.h"
#include "environment/tessel/LabelStatement.h"
#include "environment/tessel/NullStatement.h"
#include "environment/tessel/OpaqueStatement.h"
#include "environment/tessel/ReturnStatement.h"
#include "environment/tessel/SwitchStatement.h"
#include "environment/tessel/WhileStatement.h"
#include "environment/tessel/service/Preorder.h"

#include <algorithm>

namespace Kova::Tests {

using namespace Tessel;

namespace {

/// Statements inside the expression are left out: `x = ({})`.
std::string textOf(const ExpressionBase* expression) {
    std::string text = expression != nullptr ? Backends::OutToC::expressionToString(*expression) : "";
    const std::size_t begin = text.find("({");
    const std::size_t end = text.rfind("})");
    if (begin < end && end != std::string::npos)
        text.replace(begin + 2, end - begin - 2, "");
    return text;
}

std::string nameOfBlock(const BlockStatement& block);

/// A name that others may have as well.
std::string nameOf(const StatementBase& statement) {
    if (const auto* simple = dynamic_cast<const ExpressionStatement*>(&statement))
        return textOf(simple->getExpression());
    if (const auto* branch = dynamic_cast<const IfStatement*>(&statement))
        return "if " + textOf(branch->getCondition());
    if (const auto* loop = dynamic_cast<const WhileStatement*>(&statement))
        return "while " + textOf(loop->getCondition());
    if (const auto* until = dynamic_cast<const DoWhileStatement*>(&statement))
        return "do " + textOf(until->getCondition());
    if (const auto* counted = dynamic_cast<const ForStatement*>(&statement))
        return "for " + textOf(counted->getCondition());
    if (const auto* choice = dynamic_cast<const SwitchStatement*>(&statement))
        return "switch " + textOf(choice->getSelector());
    if (const auto* value = dynamic_cast<const CaseStatement*>(&statement))
        return value->isDefault() ? "default" : "case " + textOf(value->getValue());
    if (const auto* label = dynamic_cast<const LabelStatement*>(&statement))
        return label->getName() + ":";
    if (const auto* jump = dynamic_cast<const GotoStatement*>(&statement))
        return "goto " + (jump->getAddress() != nullptr ? textOf(jump->getAddress()) : jump->getLabelName());
    if (const auto* leave = dynamic_cast<const ReturnStatement*>(&statement))
        return leave->getValue() != nullptr ? "return " + textOf(leave->getValue()) : "return";
    if (dynamic_cast<const BreakStatement*>(&statement) != nullptr)
        return "break";
    if (dynamic_cast<const ContinueStatement*>(&statement) != nullptr)
        return "continue";
    if (dynamic_cast<const NullStatement*>(&statement) != nullptr)
        return ";";
    if (const auto* declares = dynamic_cast<const DeclarationStatement*>(&statement))
        return declares->getChildCount() != 0 ? "declare " + declares->getDeclaration(0)->getName() : "declare";
    if (const auto* opaque = dynamic_cast<const OpaqueStatement*>(&statement))
        return opaque->getText();
    if (const auto* block = dynamic_cast<const BlockStatement*>(&statement))
        return nameOfBlock(*block);
    return "?";
}

std::string nameOfBlock(const BlockStatement& block) {
    const auto* around = dynamic_cast<const StatementBase*>(block.getParent());
    if (around == nullptr || dynamic_cast<const BlockStatement*>(around) != nullptr)
        return "{}";
    const auto* branch = dynamic_cast<const IfStatement*>(around);
    if (branch != nullptr && branch->getElseBlock() == &block)
        return "{else of " + textOf(branch->getCondition()) + "}";
    return "{" + nameOf(*around) + "}";
}

const char* signOf(ControlTransfer transfer) {
    switch (transfer) {
    case ControlTransfer::Next:
        return "";
    case ControlTransfer::True:
        return "+";
    case ControlTransfer::False:
        return "-";
    case ControlTransfer::Back:
        return "^";
    case ControlTransfer::Jump:
        return "@";
    }
    return "?";
}

} // namespace

StatementNames::StatementNames(const StatementBase& any) {
    std::map<std::string, int> seen;
    for (const TesselBase& node : Service::Preorder(*any.getRootBlock())) {
        const auto* statement = dynamic_cast<const StatementBase*>(&node);
        if (statement == nullptr)
            continue;
        std::string name = nameOf(*statement);
        if (const int number = ++seen[name]; number > 1)
            name += "#" + std::to_string(number);
        m_statements.emplace(name, statement);
        m_names.emplace(statement, std::move(name));
    }
}

const std::string& StatementNames::of(const StatementBase* statement) const {
    static const std::string end = "END";
    static const std::string unknown = "UNKNOWN";
    if (statement == nullptr)
        return end;
    const auto found = m_names.find(statement);
    return found != m_names.end() ? found->second : unknown;
}

const StatementBase* StatementNames::find(const std::string& name) const {
    const auto found = m_statements.find(name);
    return found != m_statements.end() ? found->second : nullptr;
}

namespace {

std::string successorsOf(const ControlFlowGraph& graph, const StatementBase* statement, const StatementNames& names) {
    const auto& successors = graph.getSuccessors(statement);
    const auto& transfers = graph.getTransfers(statement);
    if (successors.size() != transfers.size())
        return ": successors and transfers differ in number";
    std::string text = ":";
    for (std::size_t i = 0; i < successors.size(); ++i) {
        const auto& own = graph.getStatements();
        const bool isOutside =
            successors[i] != nullptr && std::find(own.begin(), own.end(), successors[i]) == own.end();
        const std::string& name = names.of(successors[i]);
        text += (i == 0 ? " " : ", ") + std::string(signOf(transfers[i])) + (isOutside ? "<" + name + ">" : name);
    }
    return text;
}

} // namespace

std::string successorsOf(const ControlFlowGraph& graph, const StatementBase* statement) {
    return successorsOf(graph, statement, StatementNames(*graph.getStatements().front()));
}

std::string textOf(const ControlFlowGraph& graph) {
    const StatementNames names(*graph.getStatements().front());
    std::string text;
    for (const StatementBase* statement : graph.getStatements())
        text += names.of(statement) + successorsOf(graph, statement, names) + "\n";
    return text;
}

std::string textOf(const ControlFlowGraphExpr& graph) {
    std::unordered_map<const ControlFlowGraphExpr::BasicBlock*, std::string> numbers;
    for (const ControlFlowGraphExpr::BasicBlock* block : graph.getBasicBlocks())
        numbers.emplace(block, std::to_string(numbers.size()));
    numbers[graph.getEntry()] = "entry";
    numbers[graph.getExit()] = "exit";
    std::string text;
    for (const ControlFlowGraphExpr::BasicBlock* block : graph.getBasicBlocks()) {
        text += numbers[block] + (block->isReachable() ? "" : "!");
        for (const ExpressionBase* expression : block->getExpressions())
            text += " [" + textOf(expression) + "]";
        const auto& successors = block->getSuccessors();
        const auto& transfers = block->getTransfers();
        if (successors.size() != transfers.size())
            return "successors and transfers differ in number";
        for (std::size_t i = 0; i < successors.size(); ++i) {
            const auto number = numbers.find(successors[i]);
            text += (i == 0 ? ": " : ", ") + std::string(signOf(transfers[i])) +
                    (number != numbers.end() ? number->second : "UNKNOWN");
        }
        text += "\n";
    }
    return text;
}

} // namespace Kova::Tests
