// SPDX-License-Identifier: MIT
#include "environment/printing/COperators.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace Kova::Backends;
using B = Kova::Tessel::BinaryOperator;
using U = Kova::Tessel::UnaryOperator;

namespace {

using Level = std::vector<std::pair<B, std::string>>;

/// The operators of C between the comma and the casts, loosest first, in the order of the standard's grammar (6.5.5 to
/// 6.5.14).
const std::vector<Level> levels = {
    {{B::LogicalOr, " || "}},
    {{B::LogicalAnd, " && "}},
    {{B::BitwiseOr, " | "}},
    {{B::BitwiseXor, " ^ "}},
    {{B::BitwiseAnd, " & "}},
    {{B::Equal, " == "}, {B::NotEqual, " != "}},
    {{B::Less, " < "}, {B::Greater, " > "}, {B::LessEqual, " <= "}, {B::GreaterEqual, " >= "}},
    {{B::ShiftLeft, " << "}, {B::ShiftRight, " >> "}},
    {{B::Add, " + "}, {B::Subtract, " - "}},
    {{B::Multiply, " * "}, {B::Divide, " / "}, {B::Remainder, " % "}}};

TEST(COperatorsTest, WritesBinaryOperatorsBetweenBlanks) {
    for (const Level& level : levels) {
        for (const auto& [operation, symbol] : level) {
            EXPECT_EQ(cFormOf(operation).symbol, symbol);
            EXPECT_EQ(cFormOf(operation).shape, BinaryForm::Shape::LeftAssociative) << symbol;
        }
    }
}

TEST(COperatorsTest, OrdersBinaryOperatorsAsTheGrammarDoes) {
    Precedence looser = Precedence::Conditional;
    for (const Level& level : levels) {
        const Precedence own = cFormOf(level.front().first).precedence;
        EXPECT_GT(own, looser) << level.front().second;
        for (const auto& [operation, symbol] : level)
            EXPECT_EQ(cFormOf(operation).precedence, own) << symbol;
        looser = own;
    }
    EXPECT_LT(looser, Precedence::Cast);
}

TEST(COperatorsTest, SeparatesByTheLoosestOperator) {
    const BinaryForm comma = cFormOf(B::Comma);
    EXPECT_STREQ(comma.symbol, ", ");
    EXPECT_EQ(comma.precedence, Precedence::Comma);
    EXPECT_EQ(comma.shape, BinaryForm::Shape::LeftAssociative);
    // Then follow assignments and choices, tighter ones and, tightest of all, what the grammar derives last.
    const std::vector<Precedence> order = {Precedence::Comma,  Precedence::Assignment, Precedence::Conditional,
                                           Precedence::Cast,   Precedence::Unary,      Precedence::Postfix,
                                           Precedence::Primary};
    for (std::size_t i = 1; i < order.size(); ++i)
        EXPECT_LT(order[i - 1], order[i]);
}

TEST(COperatorsTest, WritesUnaryOperatorsNextToTheirOperands) {
    const std::vector<std::pair<U, std::string>> prefixes = {{U::Plus, "+"},
                                                             {U::Minus, "-"},
                                                             {U::LogicalNot, "!"},
                                                             {U::BitwiseNot, "~"},
                                                             {U::Dereference, "*"},
                                                             {U::AddressOf, "&"},
                                                             {U::RealPart, "__real__ "},
                                                             {U::ImaginaryPart, "__imag__ "},
                                                             {U::Extension, "__extension__ "}};
    // 6.5.3: a unary operator stands before a cast expression.
    for (const auto& [operation, symbol] : prefixes) {
        const UnaryForm form = cFormOf(operation);
        EXPECT_EQ(form.symbol, symbol);
        EXPECT_EQ(form.shape, UnaryForm::Shape::Prefix) << symbol;
        EXPECT_EQ(form.precedence, Precedence::Unary) << symbol;
        EXPECT_EQ(form.operand, Precedence::Cast) << symbol;
    }
}

TEST(COperatorsTest, WritesStepsBeforeUnaryAndBehindPostfixExpressions) {
    for (const auto& [operation, symbol] : {std::pair(U::PreIncrement, "++"), std::pair(U::PreDecrement, "--")}) {
        const UnaryForm form = cFormOf(operation);
        EXPECT_STREQ(form.symbol, symbol);
        EXPECT_EQ(form.shape, UnaryForm::Shape::Prefix) << symbol;
        EXPECT_EQ(form.precedence, Precedence::Unary) << symbol;
        EXPECT_EQ(form.operand, Precedence::Unary) << symbol;
    }
    for (const auto& [operation, symbol] : {std::pair(U::PostIncrement, "++"), std::pair(U::PostDecrement, "--")}) {
        const UnaryForm form = cFormOf(operation);
        EXPECT_STREQ(form.symbol, symbol);
        EXPECT_EQ(form.shape, UnaryForm::Shape::Postfix) << symbol;
        EXPECT_EQ(form.precedence, Precedence::Postfix) << symbol;
        EXPECT_EQ(form.operand, Precedence::Postfix) << symbol;
    }
}

TEST(COperatorsTest, WritesWhatOnlyFortranHasInWordsOfC) {
    for (const auto& [operation, name] : {std::pair(B::Power, "pow"), std::pair(B::Concatenate, "concat")}) {
        const BinaryForm form = cFormOf(operation);
        EXPECT_STREQ(form.symbol, name);
        EXPECT_EQ(form.shape, BinaryForm::Shape::Call) << name;
        EXPECT_EQ(form.precedence, Precedence::Postfix) << name;
    }
    EXPECT_STREQ(cFormOf(B::Equivalent).symbol, " == ");
    EXPECT_EQ(cFormOf(B::Equivalent).precedence, cFormOf(B::Equal).precedence);
    EXPECT_STREQ(cFormOf(B::NotEquivalent).symbol, " != ");
    EXPECT_EQ(cFormOf(B::NotEquivalent).precedence, cFormOf(B::NotEqual).precedence);
}

} // namespace
