// SPDX-License-Identifier: MIT
#include "environment/printing/FortranPieces.h"

#include "environment/printing/COperators.h"
#include "environment/tessel/FieldDeclaration.h"
#include "environment/tessel/InitializerListExpression.h"
#include "environment/tessel/MemberExpression.h"
#include "environment/tessel/SubscriptExpression.h"

namespace Kova::Backends {

using namespace Tessel;

BinaryForm FortranPieces::formOf(BinaryOperator operation) const {
    using Shape = BinaryForm::Shape;
    switch (operation) {
    case BinaryOperator::Less:
    case BinaryOperator::Greater:
    case BinaryOperator::LessEqual:
    case BinaryOperator::GreaterEqual:
        return {cFormOf(operation).symbol, Precedence::Relational, Shape::NotAssociative};
    case BinaryOperator::Equal:
        return {" == ", Precedence::Relational, Shape::NotAssociative};
    case BinaryOperator::NotEqual:
        return {" /= ", Precedence::Relational, Shape::NotAssociative};
    case BinaryOperator::LogicalAnd:
        return {" .AND. ", Precedence::LogicalAnd};
    case BinaryOperator::LogicalOr:
        return {" .OR. ", Precedence::LogicalOr};
    case BinaryOperator::Equivalent:
        return {" .EQV. ", Precedence::Equivalent};
    case BinaryOperator::NotEquivalent:
        return {" .NEQV. ", Precedence::Equivalent};
    case BinaryOperator::Power:
        return {" ** ", Precedence::Power, Shape::RightAssociative};
    case BinaryOperator::Concatenate:
        return {" // ", Precedence::Concatenation};
    case BinaryOperator::Remainder:
        return {"MOD", Precedence::Postfix, Shape::Call};
    case BinaryOperator::ShiftLeft:
        return {"SHIFTL", Precedence::Postfix, Shape::Call};
    case BinaryOperator::ShiftRight:
        return {"SHIFTA", Precedence::Postfix, Shape::Call};
    case BinaryOperator::BitwiseAnd:
        return {"IAND", Precedence::Postfix, Shape::Call};
    case BinaryOperator::BitwiseXor:
        return {"IEOR", Precedence::Postfix, Shape::Call};
    case BinaryOperator::BitwiseOr:
        return {"IOR", Precedence::Postfix, Shape::Call};
    default:
        return cFormOf(operation);
    }
}

UnaryForm FortranPieces::formOf(UnaryOperator operation) const {
    switch (operation) {
    // A sign stands before the first of several terms only: it is as loose as they are and takes a whole product.
    case UnaryOperator::Plus:
        return {"+", Precedence::Additive, tighter(Precedence::Additive)};
    case UnaryOperator::Minus:
        return {"-", Precedence::Additive, tighter(Precedence::Additive)};
    case UnaryOperator::LogicalNot:
        return {".NOT. ", Precedence::Not, tighter(Precedence::Not)};
    case UnaryOperator::BitwiseNot:
        return {"NOT", Precedence::Postfix, Precedence::Assignment, UnaryForm::Shape::Call};
    default:
        return cFormOf(operation);
    }
}

void FortranPieces::visit(SubscriptExpression& node) {
    setPrecedence(Precedence::Postfix);
    child(node.getBase(), Precedence::Postfix);
    text("(");
    arguments(1);
    text(")");
}

void FortranPieces::visit(MemberExpression& node) {
    setPrecedence(Precedence::Postfix);
    child(node.getBase(), Precedence::Postfix);
    text("%");
    text(node.getField().getName());
}

void FortranPieces::visit(InitializerListExpression& /*node*/) {
    text("[");
    arguments(0);
    text("]");
}

} // namespace Kova::Backends
