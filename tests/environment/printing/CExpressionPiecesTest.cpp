// SPDX-License-Identifier: MIT
#include "environment/printing/CExpressionPieces.h"

#include "environment/printing/OneLine.h"
#include "environment/tessel/CastExpression.h"
#include "environment/tessel/CompoundLiteralExpression.h"
#include "environment/tessel/DesignatedInitializerExpression.h"
#include "environment/tessel/GenericSelectionExpression.h"
#include "environment/tessel/InitializerListExpression.h"
#include "environment/tessel/LabelAddressExpression.h"
#include "environment/tessel/StatementExpression.h"
#include "environment/tessel/TypeQueryExpression.h"
#include "environment/tessel/VariadicArgumentExpression.h"
#include "tests/environment/printing/Names.h"
#include "tests/environment/printing/PrintedLines.h"

#include <gtest/gtest.h>

#include <functional>

using namespace Kova;
using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

/// What the grammar of C (6.5) calls an expression, loosest first: each is one of the next too.
enum class Grammar {
    Expression,
    Assignment,
    Conditional,
    LogicalOr,
    LogicalAnd,
    InclusiveOr,
    ExclusiveOr,
    And,
    Equality,
    Relational,
    Shift,
    Additive,
    Multiplicative,
    Cast,
    Unary,
    Postfix,
    Primary
};

/// An expression of some form, what it is and how it is written.
struct Form {
    std::function<ExpressionPtr()> make;
    Grammar is;
    std::string text;
};

/// Where an operand can stand, what the grammar asks for there and how it is written around the operand.
struct Room {
    std::function<ExpressionPtr(ExpressionPtr)> around;
    Grammar asks;
    std::string left;
    std::string right;
};

class CExpressionPiecesTest : public testing::Test, protected Names {
protected:
    static std::string print(const ExpressionPtr& expression) {
        Backends::CExpressionPieces language;
        return Backends::printOnOneLine(*expression, language);
    }
    static ExpressionPtr sizeOf(ExpressionPtr operand) {
        return make<TypeQueryExpression>(TypeQueryExpression::Query::SizeOf, std::move(operand));
    }
    template <class... Values>
    static std::unique_ptr<InitializerListExpression> list(Values... values) {
        auto node = make<InitializerListExpression>();
        (node->append(std::move(values)), ...);
        return node;
    }
    static std::unique_ptr<InitializerListExpression> ones(int count) {
        auto node = make<InitializerListExpression>();
        for (int i = 0; i < count; ++i)
            node->append(literal("1"));
        return node;
    }

    /// Signs that meet stand apart, even where C would read them rightly: `a-- ->x`.
    static std::string joined(const std::string& left, const std::string& right) {
        const bool meet = !left.empty() && !right.empty() && left.back() == right.front();
        return left + (meet && (right.front() == '-' || right.front() == '+') ? " " : "") + right;
    }

    std::vector<Form> forms();
    std::vector<Room> rooms();

private:
    void addBinary(std::vector<Form>& all);
    void addBinaryRooms(std::vector<Room>& all);

    struct Operator {
        B operation;
        Grammar grammar;
        std::string text;
    };
    /// The right operand of each is of the next tighter kind, the left one may be of its own (6.5.5 to 6.5.17).
    const std::vector<Operator> m_operators = {
        {B::Multiply, Grammar::Multiplicative, "*"},  {B::Divide, Grammar::Multiplicative, "/"},
        {B::Remainder, Grammar::Multiplicative, "%"}, {B::Add, Grammar::Additive, "+"},
        {B::Subtract, Grammar::Additive, "-"},        {B::ShiftLeft, Grammar::Shift, "<<"},
        {B::ShiftRight, Grammar::Shift, ">>"},        {B::Less, Grammar::Relational, "<"},
        {B::Greater, Grammar::Relational, ">"},       {B::LessEqual, Grammar::Relational, "<="},
        {B::GreaterEqual, Grammar::Relational, ">="}, {B::Equal, Grammar::Equality, "=="},
        {B::NotEqual, Grammar::Equality, "!="},       {B::BitwiseAnd, Grammar::And, "&"},
        {B::BitwiseXor, Grammar::ExclusiveOr, "^"},   {B::BitwiseOr, Grammar::InclusiveOr, "|"},
        {B::LogicalAnd, Grammar::LogicalAnd, "&&"},   {B::LogicalOr, Grammar::LogicalOr, "||"}};
};

void CExpressionPiecesTest::addBinary(std::vector<Form>& all) {
    for (const Operator& each : m_operators)
        all.push_back(
            {[this, each] { return binary(a(), each.operation, b()); }, each.grammar, "a " + each.text + " b"});
    all.push_back({[this] { return binary(a(), B::Comma, b()); }, Grammar::Expression, "a, b"});
}

std::vector<Form> CExpressionPiecesTest::forms() {
    std::vector<Form> all = {
        {[this] { return a(); }, Grammar::Primary, "a"},
        {[] { return literal("1"); }, Grammar::Primary, "1"},
        {[this] { return make<GenericSelectionExpression>(a(), 0); }, Grammar::Primary, "_Generic(a)"},
        {[] { return make<StatementExpression>(nullptr); }, Grammar::Primary, "()"},
        {[this] { return subscript(a(), b()); }, Grammar::Postfix, "a[b]"},
        {[this] { return call(f(), a()); }, Grammar::Postfix, "f(a)"},
        {[this] { return dot(a()); }, Grammar::Postfix, "a.x"},
        {[this] { return arrow(a()); }, Grammar::Postfix, "a->x"},
        {[this] { return unary(U::PostIncrement, a()); }, Grammar::Postfix, "a++"},
        {[this] { return unary(U::PostDecrement, a()); }, Grammar::Postfix, "a--"},
        {[this] { return make<CompoundLiteralExpression>(intType, list(a())); }, Grammar::Postfix, "(int) { a }"},
        {[this] { return make<VariadicArgumentExpression>(a(), intType); }, Grammar::Postfix, "va_arg(a, int)"},
        {[this] { return unary(U::LogicalNot, a()); }, Grammar::Unary, "!a"},
        {[this] { return unary(U::BitwiseNot, a()); }, Grammar::Unary, "~a"},
        {[this] { return unary(U::RealPart, a()); }, Grammar::Unary, "__real__ a"},
        {[this] { return unary(U::Extension, a()); }, Grammar::Unary, "__extension__ a"},
        {[this] { return sizeOf(a()); }, Grammar::Unary, "sizeof a"},
        {[] { return make<LabelAddressExpression>("l"); }, Grammar::Unary, "&&l"},
        {[this] { return make<CastExpression>(intType, a()); }, Grammar::Cast, "(int) a"},
        {[this] { return conditional(a(), b(), c()); }, Grammar::Conditional, "a ? b : c"},
        {[this] { return conditional(a(), nullptr, c()); }, Grammar::Conditional, "a ?: c"},
        {[this] { return assign(a(), b()); }, Grammar::Assignment, "a = b"},
        {[this] { return make<AssignmentExpression>(a(), b(), B::BitwiseXor); }, Grammar::Assignment, "a ^= b"}};
    addBinary(all);
    return all;
}

void CExpressionPiecesTest::addBinaryRooms(std::vector<Room>& all) {
    for (const Operator& each : m_operators) {
        const auto tighter = static_cast<Grammar>(static_cast<int>(each.grammar) + 1);
        all.push_back({[this, each](ExpressionPtr operand) { return binary(std::move(operand), each.operation, c()); },
                       each.grammar, "", " " + each.text + " c"});
        all.push_back({[this, each](ExpressionPtr operand) { return binary(c(), each.operation, std::move(operand)); },
                       tighter, "c " + each.text + " ", ""});
    }
    all.push_back({[this](ExpressionPtr operand) { return binary(std::move(operand), B::Comma, c()); },
                   Grammar::Expression, "", ", c"});
    all.push_back({[this](ExpressionPtr operand) { return binary(c(), B::Comma, std::move(operand)); },
                   Grammar::Assignment, "c, ", ""});
}

std::vector<Room> CExpressionPiecesTest::rooms() {
    using E = ExpressionPtr;
    std::vector<Room> all = {
        {[this](E e) { return subscript(std::move(e), c()); }, Grammar::Postfix, "", "[c]"},
        {[this](E e) { return subscript(c(), std::move(e)); }, Grammar::Expression, "c[", "]"},
        {[](E e) { return call(std::move(e)); }, Grammar::Postfix, "", "()"},
        {[this](E e) { return call(f(), std::move(e), c()); }, Grammar::Assignment, "f(", ", c)"},
        {[this](E e) { return dot(std::move(e)); }, Grammar::Postfix, "", ".x"},
        {[this](E e) { return arrow(std::move(e)); }, Grammar::Postfix, "", "->x"},
        {[](E e) { return unary(U::PostIncrement, std::move(e)); }, Grammar::Postfix, "", "++"},
        {[](E e) { return unary(U::PreDecrement, std::move(e)); }, Grammar::Unary, "--", ""},
        {[](E e) { return unary(U::LogicalNot, std::move(e)); }, Grammar::Cast, "!", ""},
        {[](E e) { return unary(U::Dereference, std::move(e)); }, Grammar::Cast, "*", ""},
        {[](E e) { return unary(U::ImaginaryPart, std::move(e)); }, Grammar::Cast, "__imag__ ", ""},
        {[](E e) { return sizeOf(std::move(e)); }, Grammar::Unary, "sizeof ", ""},
        {[this](E e) { return make<CastExpression>(intType, std::move(e)); }, Grammar::Cast, "(int) ", ""},
        {[this](E e) { return conditional(std::move(e), b(), c()); }, Grammar::LogicalOr, "", " ? b : c"},
        {[this](E e) { return conditional(a(), std::move(e), c()); }, Grammar::Expression, "a ? ", " : c"},
        {[this](E e) { return conditional(a(), b(), std::move(e)); }, Grammar::Conditional, "a ? b : ", ""},
        {[this](E e) { return assign(std::move(e), c()); }, Grammar::Unary, "", " = c"},
        {[this](E e) { return assign(c(), std::move(e)); }, Grammar::Assignment, "c = ", ""},
        {[](E e) { return list(std::move(e), literal("1")); }, Grammar::Assignment, "{ ", ", 1 }"},
        {[this](E e) { return make<VariadicArgumentExpression>(std::move(e), intType); }, Grammar::Assignment,
         "va_arg(", ", int)"},
        {[](E e) { return make<GenericSelectionExpression>(std::move(e), 0); }, Grammar::Assignment, "_Generic(", ")"},
        {[](E e) { return make<DesignatedInitializerExpression>(std::move(e)); }, Grammar::Assignment, " = ", ""},
        {[](E e) {
             auto designated = make<DesignatedInitializerExpression>(literal("1"));
             designated->appendIndex(std::move(e));
             return designated;
         },
         Grammar::Conditional, "[", "] = 1"}};
    addBinaryRooms(all);
    return all;
}

TEST_F(CExpressionPiecesTest, SetsTheParenthesesThatTheGrammarAsksFor) {
    std::size_t parenthesized = 0;
    for (const Room& room : rooms()) {
        for (const Form& form : forms()) {
            const bool isNeeded = form.is < room.asks;
            const std::string inner = isNeeded ? "(" + form.text + ")" : form.text;
            EXPECT_EQ(print(room.around(form.make())), joined(joined(room.left, inner), room.right));
            parenthesized += isNeeded ? 1 : 0;
        }
    }
    EXPECT_GT(parenthesized, 500U);
}

TEST_F(CExpressionPiecesTest, KeepsApartWhatWouldBeReadAsOne) {
    EXPECT_EQ(print(unary(U::AddressOf, make<LabelAddressExpression>("l"))), "& &&l");
    EXPECT_EQ(print(binary(a(), B::BitwiseAnd, unary(U::AddressOf, b()))), "a & &b");
    EXPECT_EQ(print(binary(a(), B::LogicalAnd, make<LabelAddressExpression>("l"))), "a && &&l");
    EXPECT_EQ(print(binary(unary(U::PostDecrement, a()), B::Subtract, unary(U::PreDecrement, b()))), "a-- - --b");
    EXPECT_EQ(print(subscript(a(), unary(U::Minus, literal("-1")))), "a[- -1]");
    EXPECT_EQ(print(make<CastExpression>(intType, unary(U::Minus, literal("-1")))), "(int) - -1");
}

TEST_F(CExpressionPiecesTest, WritesLongListsInRows) {
    using Lines = std::vector<std::string>;
    const std::string row = "    1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1";
    EXPECT_EQ(printed(*ones(16)), (Lines{"{ 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1 }"}));
    EXPECT_EQ(printed(*ones(17)), (Lines{"{", row + ",", "    1", "}"}));
    EXPECT_EQ(printed(*ones(32)), (Lines{"{", row + ",", row, "}"}));
}

TEST_F(CExpressionPiecesTest, WritesManyListsInAListOneALine) {
    using Lines = std::vector<std::string>;
    const auto field = [](ExpressionPtr value) {
        auto designated = make<DesignatedInitializerExpression>(std::move(value));
        designated->appendField("x");
        return designated;
    };
    EXPECT_EQ(printed(*list(ones(1), field(ones(1)), literal("2"))), (Lines{"{ { 1 }, .x = { 1 }, 2 }"}));
    EXPECT_EQ(printed(*list(ones(1), field(ones(1)), literal("2"), ones(0))),
              (Lines{"{", "    { 1 },", "    .x = { 1 },", "    2,", "    {}", "}"}));
    EXPECT_EQ(printed(*list(ones(1), ones(1), list(ones(2), ones(1), ones(1)))),
              (Lines{"{", "    { 1 },", "    { 1 },", "    {", "        { 1, 1 },", "        { 1 },", "        { 1 }",
                     "    }", "}"}));
}

TEST_F(CExpressionPiecesTest, OpensTheRowsOfAListForWhatItBelongsTo) {
    const auto lone = statement(assign(a(), ones(17)));
    PrintedLines out;
    out.print(*lone);
    EXPECT_EQ(out.linesOf(*lone).size(), 4U);
    VariableDeclaration declaration("v", intType, ones(17));
    out.lines.clear();
    out.print(declaration);
    EXPECT_EQ(out.linesOf(declaration).size(), 4U);
    const ExpressionPtr outermost = binary(a(), B::Comma, make<CompoundLiteralExpression>(intType, ones(17)));
    out.lines.clear();
    out.print(*outermost);
    EXPECT_EQ(out.linesOf(*outermost).size(), 4U);
}

} // namespace
