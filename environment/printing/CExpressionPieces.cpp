// SPDX-License-Identifier: MIT
#include "environment/printing/CExpressionPieces.h"

#include "environment/printing/CDeclarator.h"
#include "environment/printing/COperators.h"
#include "environment/printing/ClearParentheses.h"
#include "environment/printing/OperandsInText.h"
#include "environment/tessel/AssignmentExpression.h"
#include "environment/tessel/BinaryExpression.h"
#include "environment/tessel/CastExpression.h"
#include "environment/tessel/CompoundLiteralExpression.h"
#include "environment/tessel/ConditionalExpression.h"
#include "environment/tessel/DesignatedInitializerExpression.h"
#include "environment/tessel/EnumeratorDeclaration.h"
#include "environment/tessel/EnumeratorReference.h"
#include "environment/tessel/FieldDeclaration.h"
#include "environment/tessel/GenericSelectionExpression.h"
#include "environment/tessel/IfStatement.h"
#include "environment/tessel/InitializerListExpression.h"
#include "environment/tessel/LabelAddressExpression.h"
#include "environment/tessel/LiteralExpression.h"
#include "environment/tessel/LoopStatement.h"
#include "environment/tessel/MemberExpression.h"
#include "environment/tessel/OpaqueExpression.h"
#include "environment/tessel/SectionExpression.h"
#include "environment/tessel/StatementBase.h"
#include "environment/tessel/StatementExpression.h"
#include "environment/tessel/SubroutineCallExpression.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/SubroutineReference.h"
#include "environment/tessel/SubscriptExpression.h"
#include "environment/tessel/SwitchStatement.h"
#include "environment/tessel/TypeQueryExpression.h"
#include "environment/tessel/UnaryExpression.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/VariableReference.h"
#include "environment/tessel/VariadicArgumentExpression.h"

#include <string>

namespace Kova::Backends {

using namespace Tessel;

namespace {

/// A compound assignment is C's even where a Fortran program holds one.
std::string compoundForm(BinaryOperator operation) {
    std::string form = cFormOf(operation).symbol;
    if (!form.empty() && form.back() == ' ')
        form.pop_back();
    return form + "= ";
}

const InitializerListExpression* asList(const TesselBase* value) {
    if (const auto* designated = dynamic_cast<const DesignatedInitializerExpression*>(value))
        value = designated->getValue();
    return dynamic_cast<const InitializerListExpression*>(value);
}

/// How many values of a long list stand on a line: one that is a list itself, or a row of plain ones. 0 for a list
/// that is short enough for the line that it is on.
std::size_t valuesALine(const InitializerListExpression& list) {
    constexpr std::size_t mostLists = 2;
    constexpr std::size_t row = 16;
    std::size_t lists = 0;
    for (std::size_t i = 0; i < list.getChildCount() && lists <= mostLists; ++i)
        lists += asList(list.getChild(i)) != nullptr ? 1U : 0U;
    if (lists > mostLists)
        return 1;
    return list.getChildCount() > row ? row : 0;
}

/// The statement or declaration that an expression belongs to, which opens the lines that it goes on; the outermost
/// node where there is none.
TesselBase& openerFor(TesselBase& expression) {
    TesselBase* node = &expression;
    while (node->getParent() != nullptr && dynamic_cast<const ExpressionBase*>(node) != nullptr)
        node = node->getParent();
    // Among statements the statement says more than its declaration.
    auto* statement = dynamic_cast<StatementBase*>(node->getParent());
    return statement != nullptr && dynamic_cast<const DeclarationBase*>(node) != nullptr ? *statement : *node;
}

/// The header of a branch or loop is one line, from which views find where control comes and goes.
bool isHeader(const TesselBase& opener) {
    return dynamic_cast<const IfStatement*>(&opener) != nullptr ||
           dynamic_cast<const LoopStatement*>(&opener) != nullptr ||
           dynamic_cast<const SwitchStatement*>(&opener) != nullptr;
}

} // namespace

Precedence CExpressionPieces::expand(TesselBase& node, PieceList& out) {
    m_out = &out;
    m_node = &node;
    m_precedence = Precedence::Primary;
    node.accept(*this);
    return m_precedence;
}

void CExpressionPieces::expandType(const Type& type, TesselBase& owner, PieceList& out) {
    out.append(CDeclarator::declarationPieces(&type, {}, owner));
}

BinaryForm CExpressionPieces::formOf(BinaryOperator operation) const {
    return cFormOf(operation);
}

UnaryForm CExpressionPieces::formOf(UnaryOperator operation) const {
    return cFormOf(operation);
}

void CExpressionPieces::arguments(std::size_t firstChild) {
    for (std::size_t i = firstChild; i < m_node->getChildCount(); ++i) {
        if (i != firstChild)
            text(", ");
        child(m_node->getChild(i), Precedence::Assignment);
    }
}

void CExpressionPieces::operand(BinaryOperator operation, const ExpressionBase* operand, Precedence context) {
    child(operand, isClear() && isClearerInParentheses(operation, operand) ? Precedence::Primary : context);
}

void CExpressionPieces::sourceText(const std::string& text,
                                   const std::vector<std::optional<TextPlace>>& operandPlaces) {
    m_out->append(splitAtOperands(text, textStyle(), *m_node, operandPlaces));
}

void CExpressionPieces::visit(VariableReference& node) {
    name(node.getVariable().getName());
}

void CExpressionPieces::visit(SubroutineReference& node) {
    name(node.getSubroutine().getName());
}

void CExpressionPieces::visit(EnumeratorReference& node) {
    name(node.getEnumerator().getName());
}

void CExpressionPieces::visit(LiteralExpression& node) {
    const std::string& literal = node.getText();
    if (!literal.empty() && (literal.front() == '-' || literal.front() == '+'))
        setPrecedence(signedNumber());
    if (literal.find('\n') == std::string::npos)
        name(literal);
    else
        text(toOneLine(literal, textStyle()));
}

void CExpressionPieces::visit(UnaryExpression& node) {
    const UnaryForm form = formOf(node.getOperator());
    setPrecedence(form.precedence);
    if (form.shape != UnaryForm::Shape::Postfix)
        text(form.symbol);
    if (form.shape == UnaryForm::Shape::Call)
        text("(");
    child(node.getOperand(), form.operand);
    if (form.shape == UnaryForm::Shape::Call)
        text(")");
    if (form.shape == UnaryForm::Shape::Postfix)
        text(form.symbol);
}

void CExpressionPieces::visit(BinaryExpression& node) {
    using Shape = BinaryForm::Shape;
    const BinaryForm form = formOf(node.getOperator());
    setPrecedence(form.precedence);
    if (form.shape == Shape::Call) {
        text(form.symbol);
        text("(");
        arguments(0);
        text(")");
        return;
    }
    const Precedence same = form.precedence;
    operand(node.getOperator(), node.getLeft(), form.shape == Shape::LeftAssociative ? same : tighter(same));
    text(form.symbol);
    if (isClear() && isAssignedValue(node))
        child(node.getRight(), Precedence::Primary);
    else
        operand(node.getOperator(), node.getRight(), form.shape == Shape::RightAssociative ? same : tighter(same));
}

void CExpressionPieces::visit(AssignmentExpression& node) {
    setPrecedence(Precedence::Assignment);
    child(node.getTarget(), Precedence::Unary);
    if (node.isCompound())
        text(compoundForm(*node.getOperator()));
    else
        text(" = ");
    child(node.getValue(), Precedence::Assignment);
}

void CExpressionPieces::visit(ConditionalExpression& node) {
    setPrecedence(Precedence::Conditional);
    child(node.getCondition(), tighter(Precedence::Conditional));
    if (node.getFirst() != nullptr) {
        const bool isAssigned = isClear() && dynamic_cast<const AssignmentExpression*>(node.getFirst()) != nullptr;
        text(" ? ");
        child(node.getFirst(), isAssigned ? Precedence::Primary : Precedence::Comma);
        text(" : ");
    } else {
        text(" ?: ");
    }
    child(node.getSecond(), Precedence::Conditional);
}

void CExpressionPieces::visit(CastExpression& node) {
    setPrecedence(Precedence::Cast);
    text("(");
    type(node.getType());
    text(") ");
    child(node.getOperand(), Precedence::Cast);
}

/// Several indices, as Fortran has them, are written as C writes those of an array of arrays.
void CExpressionPieces::visit(SubscriptExpression& node) {
    setPrecedence(Precedence::Postfix);
    child(node.getBase(), Precedence::Postfix);
    for (std::size_t i = 0; i < node.getIndexCount(); ++i) {
        text("[");
        child(node.getIndex(i));
        text("]");
    }
}

/// Only Fortran has sections; there is one way to write them.
void CExpressionPieces::visit(SectionExpression& node) {
    setPrecedence(Precedence::Conditional);
    const Precedence part = tighter(Precedence::Conditional);
    child(node.getLower(), part);
    text(":");
    child(node.getUpper(), part);
    if (node.getStride() != nullptr)
        text(":");
    child(node.getStride(), part);
}

/// The members of a member without a name are written as its owner's: that member prints the `.` or `->` and the
/// member inside it the name.
void CExpressionPieces::visit(MemberExpression& node) {
    setPrecedence(Precedence::Postfix);
    const auto* outer = dynamic_cast<const MemberExpression*>(node.getBase());
    const bool isInsideUnnamed = outer != nullptr && outer->getField().getName().empty();
    child(node.getBase(), Precedence::Postfix);
    if (!isInsideUnnamed)
        text(node.getAccess() == MemberExpression::Access::ThroughPointer ? "->" : ".");
    else if (node.getField().getName().empty())
        out().nothing(node);
    name(node.getField().getName());
}

void CExpressionPieces::visit(SubroutineCallExpression& node) {
    setPrecedence(Precedence::Postfix);
    const auto* callee = dynamic_cast<const SubroutineReference*>(node.getCallee());
    const bool isNamedAsMacro = callee != nullptr && callee->getSubroutine().isNamedAsMacro();
    text(isNamedAsMacro ? "(" : "");
    child(node.getCallee(), Precedence::Postfix);
    text(isNamedAsMacro ? ")(" : "(");
    arguments(1);
    text(")");
}

void CExpressionPieces::visit(TypeQueryExpression& node) {
    setPrecedence(Precedence::Unary);
    // The standard has the alignment of types only.
    const char* alignment = node.getQueriedType() != nullptr ? "_Alignof " : "__alignof__ ";
    text(node.getQuery() == TypeQueryExpression::Query::SizeOf ? "sizeof " : alignment);
    if (node.getQueriedType() != nullptr) {
        text("(");
        type(node.getQueriedType());
        text(")");
    }
    child(node.getOperand(), Precedence::Unary);
}

void CExpressionPieces::valuesInRows(InitializerListExpression& node, TesselBase& opener, std::size_t row) {
    text("{");
    out().indent();
    for (std::size_t i = 0; i < node.getChildCount(); ++i) {
        if (i % row == 0)
            out().lineBreak(opener);
        child(node.getChild(i), Precedence::Assignment);
        const bool isLast = i + 1 == node.getChildCount();
        text(isLast ? "" : (i + 1) % row == 0 ? "," : ", ");
    }
    out().unindent();
    out().lineBreak(opener);
    text("}");
}

void CExpressionPieces::visit(InitializerListExpression& node) {
    if (const std::size_t row = valuesALine(node); row != 0) {
        TesselBase& opener = openerFor(node);
        if (!isHeader(opener)) {
            valuesInRows(node, opener, row);
            return;
        }
    }
    const bool isEmpty = node.getChildCount() == 0;
    text(isEmpty ? "{}" : "{ ");
    arguments(0);
    text(isEmpty ? "" : " }");
}

void CExpressionPieces::visit(DesignatedInitializerExpression& node) {
    using Kind = DesignatedInitializerExpression::Designator::Kind;
    setPrecedence(Precedence::Assignment);
    std::size_t index = 0;
    for (const auto& designator : node.getDesignators()) {
        if (designator.kind == Kind::Field) {
            text("." + designator.field);
            continue;
        }
        text("[");
        child(node.getIndex(index++), Precedence::Conditional);
        if (designator.kind == Kind::IndexRange) {
            text(" ... ");
            child(node.getIndex(index++), Precedence::Conditional);
        }
        text("]");
    }
    text(" = ");
    child(node.getValue(), Precedence::Assignment);
}

void CExpressionPieces::visit(CompoundLiteralExpression& node) {
    setPrecedence(Precedence::Postfix);
    text("(");
    if (node.isLengthLeftOut())
        out().append(CDeclarator::declarationPieces(node.getType(), {}, node, {{}, true}));
    else
        type(node.getType());
    text(") ");
    child(node.getInitializer());
}

void CExpressionPieces::visit(GenericSelectionExpression& node) {
    text("_Generic(");
    child(node.getControl(), Precedence::Assignment);
    for (std::size_t i = 0; i < node.getAssociationCount(); ++i) {
        text(", ");
        if (node.getAssociationType(i) != nullptr)
            type(node.getAssociationType(i));
        else
            text("default");
        text(": ");
        child(node.getAssociationValue(i), Precedence::Assignment);
    }
    text(")");
}

void CExpressionPieces::visit(StatementExpression& node) {
    text("(");
    if (node.getBlock() != nullptr)
        out().lineBreak(*node.getBlock());
    child(node.getBlock());
    text(")");
}

void CExpressionPieces::visit(VariadicArgumentExpression& node) {
    setPrecedence(Precedence::Postfix);
    text(node.isBuiltin() ? "__builtin_va_arg(" : "va_arg(");
    child(node.getList(), Precedence::Assignment);
    text(", ");
    type(node.getType());
    text(")");
}

void CExpressionPieces::visit(LabelAddressExpression& node) {
    setPrecedence(Precedence::Unary);
    text("&&" + node.getLabelName());
}

void CExpressionPieces::visit(OpaqueExpression& node) {
    setPrecedence(precedenceOfText(node.getText()));
    sourceText(node.getText(), node.getOperandPlaces());
}

} // namespace Kova::Backends
