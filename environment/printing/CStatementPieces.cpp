// SPDX-License-Identifier: MIT
#include "environment/printing/CStatementPieces.h"

#include "environment/tessel/AssignmentExpression.h"
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

#include <typeinfo>

namespace Kova::Backends {

using namespace Tessel;

namespace {

bool isLabel(const StatementBase& statement) {
    // Asked of every statement, and quicker than casts; both classes are final.
    return typeid(statement) == typeid(CaseStatement) || typeid(statement) == typeid(LabelStatement);
}

/// The first statement from a number on that is no directive; null when there is none.
const StatementBase* nextUndirected(const BlockStatement& block, std::size_t index) {
    const StatementBase* statement = block.getStatement(index);
    const auto* opaque = dynamic_cast<const OpaqueStatement*>(statement);
    for (; opaque != nullptr && opaque->isDirective(); opaque = dynamic_cast<const OpaqueStatement*>(statement))
        statement = block.getStatement(++index);
    return statement;
}

} // namespace

void CStatementPieces::condition(const ExpressionBase* condition) {
    const bool isAssigned = isClear() && dynamic_cast<const AssignmentExpression*>(condition) != nullptr;
    child(condition, isAssigned ? Precedence::Primary : Precedence::Comma);
}

void CStatementPieces::body(BlockStatement* block) {
    if (block == nullptr)
        text(";");
    else
        out().lineBreak(*block);
    child(block);
}

void CStatementPieces::label(const BlockStatement& block, std::size_t index) {
    StatementBase& label = *block.getStatement(index);
    out().unindent();
    out().lineBreak(label);
    child(&label);
    out().indent();
    // Before C23 a label marks a statement, not a declaration, a directive or the end of a block.
    const StatementBase* next = nextUndirected(block, index + 1);
    if (next == nullptr || dynamic_cast<const DeclarationStatement*>(next) != nullptr) {
        out().lineBreak(label);
        out().text(";", label);
    }
}

void CStatementPieces::visit(BlockStatement& node) {
    text("{");
    out().indent();
    for (std::size_t i = 0; i < node.getChildCount(); ++i) {
        StatementBase* statement = node.getStatement(i);
        if (statement == nullptr || getFilter().hides(*statement))
            continue;
        if (isLabel(*statement)) {
            label(node, i);
            continue;
        }
        out().lineBreak(*statement);
        child(statement);
    }
    out().unindent();
    out().lineBreak(node);
    text("}");
}

void CStatementPieces::visit(ExpressionStatement& node) {
    child(node.getExpression());
    text(";");
}

void CStatementPieces::visit(DeclarationStatement& node) {
    const auto* loop = dynamic_cast<const ForStatement*>(node.getParent());
    const bool isHeader = loop != nullptr && loop->getInitialization() == &node;
    const auto groups = groupDeclarations(node, isHeader ? DeclarationPlace::LoopHeader : DeclarationPlace::Statement,
                                          isHeader ? DeclarationFilter() : getFilter());
    for (std::size_t i = 0; i < groups.size(); ++i) {
        if (i != 0 && !isHeader)
            out().lineBreak(node);
        group(groups[i], node);
    }
    if (groups.empty())
        text(";");
}

/// An else block that holds just another if continues the chain: the word stands for the block, which has no braces.
void CStatementPieces::visit(IfStatement& node) {
    text("if (");
    condition(node.getCondition());
    text(")");
    body(node.getThenBlock());
    BlockStatement* elseBlock = node.getElseBlock();
    if (elseBlock == nullptr)
        return;
    if (IfStatement* next = node.getElseIf()) {
        out().lineBreak(*next);
        out().text("else ", *elseBlock);
        child(next);
        return;
    }
    out().lineBreak(node);
    text("else");
    body(elseBlock);
}

void CStatementPieces::visit(SwitchStatement& node) {
    text("switch (");
    child(node.getSelector());
    text(")");
    body(node.getBody());
}

void CStatementPieces::visit(CaseStatement& node) {
    text(node.isDefault() ? "default" : "case ");
    child(node.getValue(), Precedence::Conditional);
    if (node.getLastValue() != nullptr)
        text(" ... ");
    child(node.getLastValue(), Precedence::Conditional);
    text(":");
}

void CStatementPieces::visit(LabelStatement& node) {
    name(node.getName());
    text(":");
    if (!node.getAttributes().empty())
        text(' ' + node.getAttributes());
}

void CStatementPieces::visit(GotoStatement& node) {
    text(node.getAddress() != nullptr ? "goto *" : "goto ");
    name(node.getLabelName());
    child(node.getAddress());
    text(";");
}

void CStatementPieces::visit(BreakStatement& /*node*/) {
    text("break;");
}

void CStatementPieces::visit(ContinueStatement& /*node*/) {
    text("continue;");
}

void CStatementPieces::visit(ReturnStatement& node) {
    text(node.getValue() != nullptr ? "return " : "return");
    child(node.getValue());
    text(";");
}

void CStatementPieces::visit(NullStatement& /*node*/) {
    text(";");
}

void CStatementPieces::visit(OpaqueStatement& node) {
    sourceText(node.getText(), node.getOperandPlaces());
}

void CStatementPieces::visit(ForStatement& node) {
    text("for (");
    if (node.getInitialization() != nullptr)
        child(node.getInitialization());
    else
        text(";");
    text(node.getCondition() != nullptr ? " " : "");
    condition(node.getCondition());
    text(node.getIncrement() != nullptr ? "; " : ";");
    child(node.getIncrement());
    text(")");
    body(node.getBody());
}

void CStatementPieces::visit(WhileStatement& node) {
    text("while (");
    condition(node.getCondition());
    text(")");
    body(node.getBody());
}

void CStatementPieces::visit(DoWhileStatement& node) {
    text("do");
    body(node.getBody());
    out().lineBreak(node);
    text("while (");
    condition(node.getCondition());
    text(");");
}

} // namespace Kova::Backends
