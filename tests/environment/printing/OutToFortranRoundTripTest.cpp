// SPDX-License-Identifier: MIT
#include "environment/printing/OutToFortran.h"
#include "environment/tessel/InitializerListExpression.h"
#include "environment/tessel/SectionExpression.h"
#include "tests/environment/printing/FortranExpressionReader.h"
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

class Generator : private Names {
public:
    explicit Generator(unsigned seed) : m_random(seed) {}

    Sample make(int depth) {
        if (depth == 0)
            return leaf();
        switch (pick(8)) {
        case 0:
            return named(depth);
        case 1:
            return signedOrNegated(depth);
        case 2:
            return function(depth);
        default:
            return joined(depth);
        }
    }

private:
    unsigned pick(unsigned count) { return static_cast<unsigned>(m_random() % count); }
    Sample below(int depth) { return make(static_cast<int>(pick(static_cast<unsigned>(depth)))); }

    Sample leaf() {
        switch (pick(5)) {
        case 0:
            return {literal("7"), "7"};
        case 1:
            return {literal("-7"), "(u- 7)"};
        case 2:
            return {b(), "b"};
        default:
            return {a(), "a"};
        }
    }

    Sample signedOrNegated(int depth) {
        static const std::vector<std::pair<U, std::string>> operators = {
            {U::Plus, "u+"}, {U::Minus, "u-"}, {U::LogicalNot, ".NOT."}};
        const auto& [operation, name] = operators[pick(3)];
        Sample operand = below(depth);
        return {unary(operation, std::move(operand.tree)), "(" + name + " " + operand.structure + ")"};
    }

    Sample joined(int depth) {
        static const std::vector<std::pair<B, std::string>> operators = {{B::Multiply, "*"},
                                                                         {B::Divide, "/"},
                                                                         {B::Add, "+"},
                                                                         {B::Subtract, "-"},
                                                                         {B::Less, "<"},
                                                                         {B::Greater, ">"},
                                                                         {B::LessEqual, "<="},
                                                                         {B::GreaterEqual, ">="},
                                                                         {B::Equal, "=="},
                                                                         {B::NotEqual, "/="},
                                                                         {B::LogicalAnd, ".AND."},
                                                                         {B::LogicalOr, ".OR."},
                                                                         {B::Power, "**"},
                                                                         {B::Concatenate, "//"},
                                                                         {B::Equivalent, ".EQV."},
                                                                         {B::NotEquivalent, ".NEQV."}};
        const auto& [operation, name] = operators[pick(static_cast<unsigned>(operators.size()))];
        Sample left = below(depth);
        Sample right = below(depth);
        return {binary(std::move(left.tree), operation, std::move(right.tree)),
                "(" + name + " " + left.structure + " " + right.structure + ")"};
    }

    /// What a name can begin: components, elements, sections, calls.
    Sample named(int depth) {
        Sample base{a(), "a"};
        for (unsigned i = pick(3); i > 0; --i) {
            if (pick(2) == 0) {
                base = {dot(std::move(base.tree)), "(% " + base.structure + " x)"};
                continue;
            }
            Sample first = index(depth);
            Sample second = index(depth);
            base = {subscript(std::move(base.tree), std::move(first.tree), std::move(second.tree)),
                    "(of " + base.structure + " " + first.structure + " " + second.structure + ")"};
        }
        return base;
    }

    Sample index(int depth) {
        if (pick(3) != 0)
            return below(depth);
        Sample lower = optional(depth);
        Sample upper = optional(depth);
        Sample stride = optional(depth);
        return {
            std::make_unique<SectionExpression>(std::move(lower.tree), std::move(upper.tree), std::move(stride.tree)),
            "(: " + lower.structure + " " + upper.structure + " " + stride.structure + ")"};
    }
    Sample optional(int depth) { return pick(2) == 0 ? Sample{nullptr, "-"} : below(depth); }

    Sample function(int depth) {
        static const std::vector<std::pair<B, std::string>> operators = {
            {B::Remainder, "MOD"}, {B::BitwiseAnd, "IAND"}, {B::BitwiseOr, "IOR"}, {B::BitwiseXor, "IEOR"}};
        Sample left = below(depth);
        Sample right = below(depth);
        const std::string both = " " + left.structure + " " + right.structure + ")";
        switch (pick(3)) {
        case 0: {
            const auto& [operation, name] = operators[pick(4)];
            return {binary(std::move(left.tree), operation, std::move(right.tree)), "(of " + name + both};
        }
        case 1: {
            auto list = std::make_unique<InitializerListExpression>();
            list->append(std::move(left.tree));
            list->append(std::move(right.tree));
            return {std::move(list), "(list" + both};
        }
        default:
            return {call(f(), std::move(left.tree), std::move(right.tree)), "(of f" + both};
        }
    }

    std::mt19937 m_random;
};

TEST(OutToFortranRoundTripTest, TheReaderKnowsTheGrammar) {
    const std::vector<std::pair<std::string, std::string>> expected = {
        {"-a * b", "(u- (* a b))"},
        {"-a + b", "(+ (u- a) b)"},
        {"a + -b", ""},
        {"a ** -b", ""},
        {"-a ** b", "(u- (** a b))"},
        {"a ** b ** 7", "(** a (** b 7))"},
        {"a < b < 7", ""},
        {"a < -b", "(< a (u- b))"},
        {".NOT. a == b .AND. .NOT. b", "(.AND. (.NOT. (== a b)) (.NOT. b))"},
        {".NOT. .NOT. a", ""},
        {"a // b // a", "(// (// a b) a)"},
        {"a .OR. b .EQV. a", "(.EQV. (.OR. a b) a)"},
        {"a%x(1:, ::2, 3)", "(of (% a x) (: 1 - -) (: - - 2) 3)"},
        {"[a, b]", "(list a b)"},
        {"(a + b)(1)", ""}};
    for (const auto& [text, structure] : expected)
        EXPECT_EQ(FortranExpressionReader::read(text), structure) << text;
}

TEST(OutToFortranRoundTripTest, PrintsWhatReadsBackWithoutAParenthesisTooMany) {
    Generator generator(20240712);
    std::size_t parentheses = 0;
    for (int i = 0; i < 20000; ++i) {
        const Sample sample = generator.make(1 + i % 6);
        const std::string text = Backends::OutToFortran::expressionToString(*sample.tree);
        ASSERT_EQ(FortranExpressionReader::read(text), sample.structure) << text;
        for (const auto& [open, close] : parenthesesOf(text)) {
            std::string without = text;
            without[open] = without[close] = ' ';
            ASSERT_NE(FortranExpressionReader::read(without), sample.structure) << text << "\n" << without;
            ++parentheses;
        }
    }
    // Enough of them to have tried every kind of operand in every place.
    EXPECT_GT(parentheses, 20000U);
}

} // namespace
