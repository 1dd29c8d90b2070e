// SPDX-License-Identifier: MIT
#include "environment/printing/OutToC.h"
#include "environment/tessel/CastExpression.h"
#include "environment/tessel/CompoundLiteralExpression.h"
#include "environment/tessel/InitializerListExpression.h"
#include "environment/tessel/TypeQueryExpression.h"
#include "tests/environment/printing/CExpressionReader.h"
#include "tests/environment/printing/Names.h"

#include <gtest/gtest.h>

#include <random>

using namespace Kova;
using namespace Kova::Tessel;
using namespace Kova::Tests;
using B = BinaryOperator;
using U = UnaryOperator;

namespace {

/// An expression together with the structure that reading it has to give.
struct Sample {
    ExpressionPtr tree;
    std::string structure;
};

/// Makes expressions of all kinds whose printed form the reader knows. They need not make sense beyond the grammar.
class Generator : private Names {
public:
    explicit Generator(unsigned seed) : m_random(seed) {}

    Sample make(int depth) {
        if (depth == 0)
            return leaf();
        switch (pick(12)) {
        case 0:
            return leaf();
        case 1:
        case 2:
            return prefixed(depth);
        case 3:
            return postfixed(depth);
        case 4:
            return assigned(depth);
        case 5:
            return chosen(depth);
        case 6:
            return called(depth);
        case 7:
            return converted(depth);
        default:
            return joined(depth);
        }
    }

private:
    unsigned pick(unsigned count) { return static_cast<unsigned>(m_random() % count); }
    Sample below(int depth) { return make(static_cast<int>(pick(static_cast<unsigned>(depth)))); }

    Sample leaf() {
        switch (pick(6)) {
        case 0:
            return {literal("7"), "7"};
        case 1:
            return {literal("-7"), "(u- 7)"};
        case 2:
            return {std::make_unique<TypeQueryExpression>(TypeQueryExpression::Query::SizeOf, intType), "(sizeof int)"};
        case 3:
            return {b(), "b"};
        default:
            return {a(), "a"};
        }
    }

    Sample prefixed(int depth) {
        static const std::vector<std::pair<U, std::string>> operators = {{U::Plus, "u+"},
                                                                         {U::Minus, "u-"},
                                                                         {U::LogicalNot, "u!"},
                                                                         {U::BitwiseNot, "u~"},
                                                                         {U::Dereference, "u*"},
                                                                         {U::AddressOf, "u&"},
                                                                         {U::PreIncrement, "pre++"},
                                                                         {U::PreDecrement, "pre--"},
                                                                         {U::RealPart, "u__real__"},
                                                                         {U::ImaginaryPart, "u__imag__"}};
        const auto& [operation, name] = operators[pick(static_cast<unsigned>(operators.size()))];
        Sample operand = below(depth);
        return {unary(operation, std::move(operand.tree)), "(" + name + " " + operand.structure + ")"};
    }

    Sample postfixed(int depth) {
        Sample base = below(depth);
        switch (pick(5)) {
        case 0:
            return {unary(U::PostIncrement, std::move(base.tree)), "(post++ " + base.structure + ")"};
        case 1:
            return {unary(U::PostDecrement, std::move(base.tree)), "(post-- " + base.structure + ")"};
        case 2:
            return {dot(std::move(base.tree)), "(. " + base.structure + " x)"};
        case 3:
            return {arrow(std::move(base.tree)), "(-> " + base.structure + " x)"};
        default: {
            Sample index = below(depth);
            return {subscript(std::move(base.tree), std::move(index.tree)),
                    "([] " + base.structure + " " + index.structure + ")"};
        }
        }
    }

    Sample joined(int depth) {
        static const std::vector<std::pair<B, std::string>> operators = {
            {B::Multiply, "*"},    {B::Divide, "/"},     {B::Remainder, "%"},     {B::Add, "+"},
            {B::Subtract, "-"},    {B::ShiftLeft, "<<"}, {B::ShiftRight, ">>"},   {B::Less, "<"},
            {B::Greater, ">"},     {B::LessEqual, "<="}, {B::GreaterEqual, ">="}, {B::Equal, "=="},
            {B::NotEqual, "!="},   {B::BitwiseAnd, "&"}, {B::BitwiseXor, "^"},    {B::BitwiseOr, "|"},
            {B::LogicalAnd, "&&"}, {B::LogicalOr, "||"}, {B::Comma, ","}};
        const auto& [operation, name] = operators[pick(static_cast<unsigned>(operators.size()))];
        Sample left = below(depth);
        Sample right = below(depth);
        return {binary(std::move(left.tree), operation, std::move(right.tree)),
                "(" + name + " " + left.structure + " " + right.structure + ")"};
    }

    Sample assigned(int depth) {
        static const std::vector<std::pair<std::optional<B>, std::string>> operators = {
            {std::nullopt, "="},  {B::Add, "+="},        {B::Subtract, "-="},   {B::Multiply, "*="},
            {B::Divide, "/="},    {B::Remainder, "%="},  {B::BitwiseAnd, "&="}, {B::BitwiseXor, "^="},
            {B::BitwiseOr, "|="}, {B::ShiftLeft, "<<="}, {B::ShiftRight, ">>="}};
        const auto& [operation, name] = operators[pick(static_cast<unsigned>(operators.size()))];
        Sample target = below(depth);
        Sample value = below(depth);
        return {std::make_unique<AssignmentExpression>(std::move(target.tree), std::move(value.tree), operation),
                "(" + name + " " + target.structure + " " + value.structure + ")"};
    }

    Sample chosen(int depth) {
        Sample condition = below(depth);
        Sample first = pick(4) == 0 ? Sample{nullptr, "-"} : below(depth);
        Sample second = below(depth);
        return {conditional(std::move(condition.tree), std::move(first.tree), std::move(second.tree)),
                "(? " + condition.structure + " " + first.structure + " " + second.structure + ")"};
    }

    Sample called(int depth) {
        Sample callee = below(depth);
        auto tree = std::make_unique<SubroutineCallExpression>(std::move(callee.tree));
        std::string structure = "(call " + callee.structure;
        for (unsigned i = pick(4); i > 0; --i) {
            Sample argument = below(depth);
            tree->appendArgument(std::move(argument.tree));
            structure += " " + argument.structure;
        }
        return {std::move(tree), structure + ")"};
    }

    Sample converted(int depth) {
        Sample operand = below(depth);
        switch (pick(3)) {
        case 0:
            return {std::make_unique<CastExpression>(intType, std::move(operand.tree)),
                    "(cast " + operand.structure + ")"};
        case 1:
            return {std::make_unique<TypeQueryExpression>(TypeQueryExpression::Query::SizeOf, std::move(operand.tree)),
                    "(sizeof " + operand.structure + ")"};
        default: {
            auto list = std::make_unique<InitializerListExpression>();
            list->append(std::move(operand.tree));
            return {std::make_unique<CompoundLiteralExpression>(intType, std::move(list)),
                    "(compound int " + operand.structure + ")"};
        }
        }
    }

    std::mt19937 m_random;
};

TEST(OutToCRoundTripTest, TheReaderKnowsTheGrammar) {
    const std::vector<std::pair<std::string, std::string>> expected = {
        {"a + b * 7", "(+ a (* b 7))"},
        {"a - b - 7", "(- (- a b) 7)"},
        {"a = b = 7", "(= a (= b 7))"},
        {"a ? b, a : b ? 7 : a", "(? a (, b a) (? b 7 a))"},
        {"a ? b : a = 7", ""},
        {"-a = b", "(= (u- a) b)"},
        {"(int) a = b", ""},
        {"sizeof (int) * a", "(* (sizeof int) a)"},
        {"sizeof (int) { a }", "(sizeof (compound int a))"},
        {"(int) -a[b]", "(cast (u- ([] a b)))"},
        {"++(int) a", ""},
        {"--a", "(pre-- a)"},
        {"- -a", "(u- (u- a))"},
        {"a /*b", ""},
        {"*a++", "(u* (post++ a))"},
        {"(a, b)(a, (a, b))", "(call (, a b) a (, a b))"},
        {"a b", ""},
        {"(a", ""}};
    for (const auto& [text, structure] : expected)
        EXPECT_EQ(CExpressionReader::read(text), structure) << text;
}

TEST(OutToCRoundTripTest, PrintsWhatReadsBackWithoutAParenthesisTooMany) {
    Generator generator(20240711);
    std::size_t parentheses = 0;
    for (int i = 0; i < 20000; ++i) {
        const Sample sample = generator.make(1 + i % 6);
        const std::string text = Backends::OutToC::expressionToString(*sample.tree);
        ASSERT_EQ(CExpressionReader::read(text), sample.structure) << text;
        for (const auto& [open, close] : parenthesesOf(text)) {
            std::string without = text;
            without[open] = without[close] = ' ';
            ASSERT_NE(CExpressionReader::read(without), sample.structure) << text << "\n" << without;
            ++parentheses;
        }
    }
    // Enough of them to have tried every kind of operand in every place.
    EXPECT_GT(parentheses, 20000U);
}

} // namespace
