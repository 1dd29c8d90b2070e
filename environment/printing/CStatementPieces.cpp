// SPDX-License-Identifier: MIT
#include "environment/printing/CStatementPieces.h"

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

namespace Kova::Backends {

using namespace Tessel;

void CStatementPieces::body(BlockStatement* block) {
    text(block != nullptr ? " " : ";");
    child(block);
}

void CStatementPieces::labelEnd(const StatementBase& label) {
    text(":");
    const auto* block = dynamic_cast<const BlockStatement*>(label.getParent());
    if (block == nullptr)
        return;
    // Before C23 a label marks a statement, not a declaration or the end of a block.
    const StatementBase* next = block->getStatement(label.getIndexInParent() + 1);
    if (next == nullptr || dynamic_cast<const DeclarationStatement*>(next) != nullptr)
        text(";");
}

void CStatementPieces::visit(BlockStatement& node) {
    if (node.isEmpty()) {
        text("{}");
        return;
    }
    text("{");
    out().indent();
    for (std::size_t i = 0; i < node.getChildCount(); ++i) {
        if (StatementBase* statement = node.getStatement(i)) {
            out().lineBreak(*statement);
            child(statement);
        }
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
    declarations(node, Sharing::Always);
}

/// An else block that holds just another if continues the chain.
void CStatementPieces::visit(IfStatement& node) {
    text("if (");
    child(node.getCondition());
    text(")");
    body(node.getThenBlock());
    BlockStatement* elseBlock = node.getElseBlock();
    if (elseBlock == nullptr)
        return;
    out().text(" else ", *elseBlock);
    auto* inner = dynamic_cast<IfStatement*>(elseBlock->getStatement(0));
    if (inner != nullptr && elseBlock->getChildCount() == 1)
        child(inner);
    else
        child(elseBlock);
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
    labelEnd(node);
}

void CStatementPieces::visit(LabelStatement& node) {
    text(node.getName());
    labelEnd(node);
}

void CStatementPieces::visit(GotoStatement& node) {
    text(node.getAddress() != nullptr ? "goto *" : "goto ");
    text(node.getLabelName());
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
    text(toOneLine(node.getText(), textStyle()));
}

void CStatementPieces::visit(ForStatement& node) {
    text("for (");
    if (node.getInitialization() != nullptr)
        child(node.getInitialization());
    else
        text(";");
    text(node.getCondition() != nullptr ? " " : "");
    child(node.getCondition());
    text(node.getIncrement() != nullptr ? "; " : ";");
    child(node.getIncrement());
    text(")");
    body(node.getBody());
}

void CStatementPieces::visit(WhileStatement& node) {
    text("while (");
    child(node.getCondition());
    text(")");
    body(node.getBody());
}

void CStatementPieces::visit(DoWhileStatement& node) {
    text("do");
    body(node.getBody());
    text(" while (");
    child(node.getCondition());
    text(");");
}

} // namespace Kova::Backends
