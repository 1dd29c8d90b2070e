// SPDX-License-Identifier: MIT
#include "environment/printing/COperators.h"

namespace Kova::Backends {

using Tessel::BinaryOperator;
using Tessel::UnaryOperator;

BinaryForm cFormOf(BinaryOperator operation) {
    switch (operation) {
    case BinaryOperator::Multiply:
        return {" * ", Precedence::Multiplicative};
    case BinaryOperator::Divide:
        return {" / ", Precedence::Multiplicative};
    case BinaryOperator::Remainder:
        return {" % ", Precedence::Multiplicative};
    case BinaryOperator::Add:
        return {" + ", Precedence::Additive};
    case BinaryOperator::Subtract:
        return {" - ", Precedence::Additive};
    case BinaryOperator::ShiftLeft:
        return {" << ", Precedence::Shift};
    case BinaryOperator::ShiftRight:
        return {" >> ", Precedence::Shift};
    case BinaryOperator::Less:
        return {" < ", Precedence::Relational};
    case BinaryOperator::Greater:
        return {" > ", Precedence::Relational};
    case BinaryOperator::LessEqual:
        return {" <= ", Precedence::Relational};
    case BinaryOperator::GreaterEqual:
        return {" >= ", Precedence::Relational};
    case BinaryOperator::Equal:
    case BinaryOperator::Equivalent:
        return {" == ", Precedence::Equality};
    case BinaryOperator::NotEqual:
    case BinaryOperator::NotEquivalent:
        return {" != ", Precedence::Equality};
    case BinaryOperator::BitwiseAnd:
        return {" & ", Precedence::BitwiseAnd};
    case BinaryOperator::BitwiseXor:
        return {" ^ ", Precedence::BitwiseXor};
    case BinaryOperator::BitwiseOr:
        return {" | ", Precedence::BitwiseOr};
    case BinaryOperator::LogicalAnd:
        return {" && ", Precedence::LogicalAnd};
    case BinaryOperator::LogicalOr:
        return {" || ", Precedence::LogicalOr};
    case BinaryOperator::Power:
        return {"pow", Precedence::Postfix, BinaryForm::Shape::Call};
    case BinaryOperator::Concatenate:
        return {"concat", Precedence::Postfix, BinaryForm::Shape::Call};
    case BinaryOperator::Comma:
        break;
    }
    return {", ", Precedence::Comma};
}

UnaryForm cFormOf(UnaryOperator operation) {
    using Shape = UnaryForm::Shape;
    switch (operation) {
    case UnaryOperator::Plus:
        return {"+", Precedence::Unary, Precedence::Cast};
    case UnaryOperator::Minus:
        return {"-", Precedence::Unary, Precedence::Cast};
    case UnaryOperator::LogicalNot:
        return {"!", Precedence::Unary, Precedence::Cast};
    case UnaryOperator::BitwiseNot:
        return {"~", Precedence::Unary, Precedence::Cast};
    case UnaryOperator::Dereference:
        return {"*", Precedence::Unary, Precedence::Cast};
    case UnaryOperator::AddressOf:
        return {"&", Precedence::Unary, Precedence::Cast};
    case UnaryOperator::PreIncrement:
        return {"++", Precedence::Unary, Precedence::Unary};
    case UnaryOperator::PreDecrement:
        return {"--", Precedence::Unary, Precedence::Unary};
    case UnaryOperator::PostIncrement:
        return {"++", Precedence::Postfix, Precedence::Postfix, Shape::Postfix};
    case UnaryOperator::PostDecrement:
        return {"--", Precedence::Postfix, Precedence::Postfix, Shape::Postfix};
    case UnaryOperator::RealPart:
        return {"__real__ ", Precedence::Unary, Precedence::Cast};
    case UnaryOperator::ImaginaryPart:
        return {"__imag__ ", Precedence::Unary, Precedence::Cast};
    case UnaryOperator::Extension:
        break;
    }
    // __extension__ takes a whole cast expression like the others, although it changes nothing but warnings.
    return {"__extension__ ", Precedence::Unary, Precedence::Cast};
}

} // namespace Kova::Backends
