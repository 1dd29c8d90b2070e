// SPDX-License-Identifier: MIT
#include "environment/tessel/LiteralExpression.h"
#include "frontends/c/UnitContext_p.h"

#include <clang/AST/Expr.h>
#include <clang/AST/ExprCXX.h>

namespace Kova::Frontends {

using Tessel::LiteralExpression;
using Kind = Tessel::LiteralExpression::Kind;

namespace {

std::string adjacentStrings(const SourcePlaces& text, const clang::StringLiteral& literal) {
    std::string result;
    for (unsigned i = 0; i < literal.getNumConcatenated(); ++i) {
        if (i != 0)
            result += ' ';
        result += text.spellingAt(literal.getStrTokenLoc(i));
    }
    return result;
}

std::unique_ptr<LiteralExpression> makeCounted(const SourcePlaces& text, Kind kind, const clang::Expr& literal,
                                               std::int64_t value) {
    auto result = std::make_unique<LiteralExpression>(kind, text.spellingAt(literal.getExprLoc()));
    result->setIntegerValue(value);
    return result;
}

} // namespace

Tessel::ExpressionPtr buildLiteral(UnitContext& context, const clang::Expr& expression) {
    const SourcePlaces& text = context.text;
    if (const auto* integer = llvm::dyn_cast<clang::IntegerLiteral>(&expression)) {
        // A literal has no sign: what needs the 64th bit does not fit.
        if (integer->getValue().getActiveBits() < 64)
            return makeCounted(text, Kind::Integer, expression,
                               static_cast<std::int64_t>(integer->getValue().getZExtValue()));
        return std::make_unique<LiteralExpression>(Kind::Integer, text.spellingAt(expression.getExprLoc()));
    }
    if (const auto* character = llvm::dyn_cast<clang::CharacterLiteral>(&expression))
        return makeCounted(text, Kind::Character, expression, static_cast<std::int32_t>(character->getValue()));
    if (const auto* logical = llvm::dyn_cast<clang::CXXBoolLiteralExpr>(&expression))
        return makeCounted(text, Kind::Logical, expression, logical->getValue() ? 1 : 0);
    if (const auto* string = llvm::dyn_cast<clang::StringLiteral>(&expression))
        return std::make_unique<LiteralExpression>(Kind::String, adjacentStrings(text, *string));
    // `__func__` and its like are strings that only the name can write.
    if (llvm::isa<clang::PredefinedExpr>(expression))
        return std::make_unique<LiteralExpression>(Kind::String, text.spellingAt(expression.getExprLoc()));
    // An imaginary constant is one token, whose suffix makes it imaginary.
    if (llvm::isa<clang::FloatingLiteral, clang::FixedPointLiteral, clang::ImaginaryLiteral>(expression))
        return std::make_unique<LiteralExpression>(Kind::Floating, text.spellingAt(expression.getExprLoc()));
    return nullptr;
}

} // namespace Kova::Frontends
