// SPDX-License-Identifier: MIT
#include "environment/printing/OutToC.h"
#include "environment/tessel/CastExpression.h"
#include "environment/tessel/CompoundLiteralExpression.h"
#include "environment/tessel/InitializerListExpression.h"
#include "environment/tessel/TypeQueryExpression.h"
#include "tests/environment/printing/CExpressionReader.h"
#include "tests/environment/printing/ExpressionSamples.h"

using namespace Kova;
using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

/// Makes expressions of all kinds whose printed form the reader knows.
class CSamples final : public SampleMaker {
public:
    explicit CSamples(unsigned seed) : SampleMaker(seed) {}

private:
    Sample makeInner(int depth) override {
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

    Sample leaf() override {
        const unsigned number = pick(6);
        if (number == 5)
            return {std::make_unique<TypeQueryExpression>(TypeQueryExpression::Query::SizeOf, intType), "(sizeof int)"};
        return leafOf(number);
    }

    Sample prefixed(int depth) {
        static const Table<U> operators = {{U::Plus, "u+"},
                                           {U::Minus, "u-"},
                                           {U::LogicalNot, "u!"},
                                           {U::BitwiseNot, "u~"},
                                           {U::Dereference, "u*"},
                                           {U::AddressOf, "u&"},
                                           {U::PreIncrement, "pre++"},
                                           {U::PreDecrement, "pre--"},
                                           {U::RealPart, "u__real__"},
                                           {U::ImaginaryPart, "u__imag__"}};
        return prefixedBy(operators, depth);
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
        static const Table<B> operators = {
            {B::Multiply, "*"},    {B::Divide, "/"},     {B::Remainder, "%"},     {B::Add, "+"},
            {B::Subtract, "-"},    {B::ShiftLeft, "<<"}, {B::ShiftRight, ">>"},   {B::Less, "<"},
            {B::Greater, ">"},     {B::LessEqual, "<="}, {B::GreaterEqual, ">="}, {B::Equal, "=="},
            {B::NotEqual, "!="},   {B::BitwiseAnd, "&"}, {B::BitwiseXor, "^"},    {B::BitwiseOr, "|"},
            {B::LogicalAnd, "&&"}, {B::LogicalOr, "||"}, {B::Comma, ","}};
        return joinedBy(operators, depth);
    }

    Sample assigned(int depth) {
        static const Table<std::optional<B>> operators = {
            {std::nullopt, "="},  {B::Add, "+="},        {B::Subtract, "-="},   {B::Multiply, "*="},
            {B::Divide, "/="},    {B::Remainder, "%="},  {B::BitwiseAnd, "&="}, {B::BitwiseXor, "^="},
            {B::BitwiseOr, "|="}, {B::ShiftLeft, "<<="}, {B::ShiftRight, ">>="}};
        const auto& [operation, name] = pick(operators);
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
};

TEST(OutToCRoundTripTest, TheReaderKnowsTheGrammar) {
    expectToReadAs<CExpressionReader>({{"a + b * 7", "(+ a (* b 7))"},
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
                                       {"(a", ""}});
}

TEST(OutToCRoundTripTest, PrintsWhatReadsBackWithoutAParenthesisTooMany) {
    CSamples samples(20240711);
    expectToReadBack<Backends::OutToC, CExpressionReader>(samples);
}

} // namespace
