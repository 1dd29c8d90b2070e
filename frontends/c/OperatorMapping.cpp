// SPDX-License-Identifier: MIT
#include "frontends/c/OperatorMapping_p.h"

namespace Kova::Frontends {

using Tessel::BinaryOperator;
using Tessel::UnaryOperator;

std::optional<UnaryOperator> mapOperator(clang::UnaryOperatorKind kind) {
    switch (kind) {
    case clang::UO_PostInc:
        return UnaryOperator::PostIncrement;
    case clang::UO_PostDec:
        return UnaryOperator::PostDecrement;
    case clang::UO_PreInc:
        return UnaryOperator::PreIncrement;
    case clang::UO_PreDec:
        return UnaryOperator::PreDecrement;
    case clang::UO_AddrOf:
        return UnaryOperator::AddressOf;
    case clang::UO_Deref:
        return UnaryOperator::Dereference;
    case clang::UO_Plus:
        return UnaryOperator::Plus;
    case clang::UO_Minus:
        return UnaryOperator::Minus;
    case clang::UO_Not:
        return UnaryOperator::BitwiseNot;
    case clang::UO_LNot:
        return UnaryOperator::LogicalNot;
    case clang::UO_Real:
        return UnaryOperator::RealPart;
    case clang::UO_Imag:
        return UnaryOperator::ImaginaryPart;
    case clang::UO_Extension:
        return UnaryOperator::Extension;
    case clang::UO_Coawait:
        break;
    }
    return std::nullopt;
}

// One line per operator of the language: longer than a function should be, but a table all the same.
std::optional<BinaryOperator> mapOperator(clang::BinaryOperatorKind kind) {
    switch (kind) {
    case clang::BO_Mul:
        return BinaryOperator::Multiply;
    case clang::BO_Div:
        return BinaryOperator::Divide;
    case clang::BO_Rem:
        return BinaryOperator::Remainder;
    case clang::BO_Add:
        return BinaryOperator::Add;
    case clang::BO_Sub:
        return BinaryOperator::Subtract;
    case clang::BO_Shl:
        return BinaryOperator::ShiftLeft;
    case clang::BO_Shr:
        return BinaryOperator::ShiftRight;
    case clang::BO_LT:
        return BinaryOperator::Less;
    case clang::BO_GT:
        return BinaryOperator::Greater;
    case clang::BO_LE:
        return BinaryOperator::LessEqual;
    case clang::BO_GE:
        return BinaryOperator::GreaterEqual;
    case clang::BO_EQ:
        return BinaryOperator::Equal;
    case clang::BO_NE:
        return BinaryOperator::NotEqual;
    case clang::BO_And:
        return BinaryOperator::BitwiseAnd;
    case clang::BO_Xor:
        return BinaryOperator::BitwiseXor;
    case clang::BO_Or:
        return BinaryOperator::BitwiseOr;
    case clang::BO_LAnd:
        return BinaryOperator::LogicalAnd;
    case clang::BO_LOr:
        return BinaryOperator::LogicalOr;
    case clang::BO_Comma:
        return BinaryOperator::Comma;
    default:
        return std::nullopt;
    }
}

} // namespace Kova::Frontends
