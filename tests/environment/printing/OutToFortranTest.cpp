// SPDX-License-Identifier: MIT
#include "environment/printing/OutToFortran.h"

#include "environment/tessel/CastExpression.h"
#include "environment/tessel/InitializerListExpression.h"
#include "environment/tessel/SectionExpression.h"
#include "tests/environment/printing/ExpressionPrintingTest.h"

using namespace Kova;
using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

class OutToFortranTest : public ExpressionPrintingTest<Backends::OutToFortran> {
protected:
    static ExpressionPtr section(ExpressionPtr lower, ExpressionPtr upper, ExpressionPtr stride) {
        return std::make_unique<SectionExpression>(std::move(lower), std::move(upper), std::move(stride));
    }
};

TEST_F(OutToFortranTest, WritesEveryBinaryOperator) {
    expectBinary({{B::Multiply, "a * b"},
                  {B::Divide, "a / b"},
                  {B::Remainder, "MOD(a, b)"},
                  {B::Add, "a + b"},
                  {B::Subtract, "a - b"},
                  {B::ShiftLeft, "SHIFTL(a, b)"},
                  {B::ShiftRight, "SHIFTA(a, b)"},
                  {B::Less, "a < b"},
                  {B::Greater, "a > b"},
                  {B::LessEqual, "a <= b"},
                  {B::GreaterEqual, "a >= b"},
                  {B::Equal, "a == b"},
                  {B::NotEqual, "a /= b"},
                  {B::BitwiseAnd, "IAND(a, b)"},
                  {B::BitwiseXor, "IEOR(a, b)"},
                  {B::BitwiseOr, "IOR(a, b)"},
                  {B::LogicalAnd, "a .AND. b"},
                  {B::LogicalOr, "a .OR. b"},
                  {B::Power, "a ** b"},
                  {B::Concatenate, "a // b"},
                  {B::Equivalent, "a .EQV. b"},
                  {B::NotEquivalent, "a .NEQV. b"}});
}

TEST_F(OutToFortranTest, WritesUnaryOperators) {
    EXPECT_EQ(print(unary(U::Plus, a())), "+a");
    EXPECT_EQ(print(unary(U::Minus, a())), "-a");
    EXPECT_EQ(print(unary(U::LogicalNot, a())), ".NOT. a");
    EXPECT_EQ(print(unary(U::BitwiseNot, binary(a(), B::Add, b()))), "NOT(a + b)");
}

TEST_F(OutToFortranTest, TreatsASignAsATerm) {
    EXPECT_EQ(print(unary(U::Minus, binary(a(), B::Multiply, b()))), "-a * b");
    EXPECT_EQ(print(binary(unary(U::Minus, a()), B::Multiply, b())), "(-a) * b");
    EXPECT_EQ(print(binary(a(), B::Multiply, unary(U::Minus, b()))), "a * (-b)");
    EXPECT_EQ(print(unary(U::Minus, binary(a(), B::Power, b()))), "-a ** b");
    EXPECT_EQ(print(binary(unary(U::Minus, a()), B::Power, b())), "(-a) ** b");
    EXPECT_EQ(print(binary(a(), B::Power, unary(U::Minus, b()))), "a ** (-b)");
    EXPECT_EQ(print(binary(unary(U::Minus, a()), B::Add, b())), "-a + b");
    EXPECT_EQ(print(binary(a(), B::Add, unary(U::Minus, b()))), "a + (-b)");
    EXPECT_EQ(print(unary(U::Minus, binary(a(), B::Add, b()))), "-(a + b)");
    EXPECT_EQ(print(unary(U::Minus, unary(U::Minus, a()))), "-(-a)");
    EXPECT_EQ(print(binary(literal("-1"), B::Multiply, a())), "(-1) * a");
    EXPECT_EQ(print(binary(a(), B::Less, unary(U::Minus, b()))), "a < -b");
}

TEST_F(OutToFortranTest, GroupsEqualOperators) {
    EXPECT_EQ(print(binary(a(), B::Power, binary(b(), B::Power, c()))), "a ** b ** c");
    EXPECT_EQ(print(binary(binary(a(), B::Power, b()), B::Power, c())), "(a ** b) ** c");
    EXPECT_EQ(print(binary(binary(a(), B::Concatenate, b()), B::Concatenate, c())), "a // b // c");
    EXPECT_EQ(print(binary(a(), B::Divide, binary(b(), B::Multiply, c()))), "a / (b * c)");
    EXPECT_EQ(print(binary(binary(a(), B::Less, b()), B::Equal, c())), "(a < b) == c");
    EXPECT_EQ(print(binary(a(), B::Equal, binary(b(), B::Less, c()))), "a == (b < c)");
}

TEST_F(OutToFortranTest, OrdersLogicalOperators) {
    EXPECT_EQ(print(unary(U::LogicalNot, binary(a(), B::Equal, b()))), ".NOT. a == b");
    EXPECT_EQ(print(unary(U::LogicalNot, binary(a(), B::LogicalAnd, b()))), ".NOT. (a .AND. b)");
    EXPECT_EQ(print(binary(unary(U::LogicalNot, a()), B::LogicalAnd, unary(U::LogicalNot, b()))),
              ".NOT. a .AND. .NOT. b");
    EXPECT_EQ(print(unary(U::LogicalNot, unary(U::LogicalNot, a()))), ".NOT. (.NOT. a)");
    EXPECT_EQ(print(binary(a(), B::LogicalAnd, binary(b(), B::LogicalOr, c()))), "a .AND. (b .OR. c)");
    EXPECT_EQ(print(binary(binary(a(), B::LogicalOr, b()), B::Equivalent, c())), "a .OR. b .EQV. c");
    EXPECT_EQ(print(binary(binary(a(), B::Equivalent, b()), B::LogicalOr, c())), "(a .EQV. b) .OR. c");
}

TEST_F(OutToFortranTest, WritesElementsSectionsAndComponents) {
    EXPECT_EQ(print(subscript(a(), b())), "a(b)");
    EXPECT_EQ(print(subscript(a(), b(), binary(c(), B::Add, literal("1")))), "a(b, c + 1)");
    EXPECT_EQ(print(subscript(a(), section(literal("1"), b(), literal("2")), section(nullptr, nullptr, nullptr))),
              "a(1:b:2, :)");
    EXPECT_EQ(print(subscript(a(), section(b(), nullptr, nullptr), section(nullptr, nullptr, c()))), "a(b:, ::c)");
    EXPECT_EQ(print(dot(subscript(dot(a()), b()))), "a%x(b)%x");
    EXPECT_EQ(print(call(f(), a(), binary(b(), B::Multiply, c()))), "f(a, b * c)");
    EXPECT_EQ(print(call(f())), "f()");
}

TEST_F(OutToFortranTest, WritesConstantsAsTheSourceDoes) {
    EXPECT_EQ(print(literal("1.0D0", LiteralExpression::Kind::Floating)), "1.0D0");
    EXPECT_EQ(print(literal(".TRUE.", LiteralExpression::Kind::Logical)), ".TRUE.");
    EXPECT_EQ(print(literal("'it''s'", LiteralExpression::Kind::String)), "'it''s'");
    auto list = std::make_unique<InitializerListExpression>();
    list->append(literal("1"));
    list->append(a());
    EXPECT_EQ(print(std::move(list)), "[1, a]");
}

TEST_F(OutToFortranTest, WritesWhatFortranHasNotAsC) {
    EXPECT_EQ(print(unary(U::PreIncrement, a())), "++a");
    EXPECT_EQ(print(unary(U::Dereference, subscript(a(), b()))), "*a(b)");
    EXPECT_EQ(print(assign(a(), binary(a(), B::Power, b()))), "a = a ** b");
    EXPECT_EQ(print(std::make_unique<AssignmentExpression>(a(), b(), B::Add)), "a += b");
    EXPECT_EQ(print(binary(conditional(a(), b(), c()), B::Add, a())), "(a ? b : c) + a");
    EXPECT_EQ(print(binary(std::make_unique<CastExpression>(intType, a()), B::Power, b())), "(int) a ** b");
}

TEST_F(OutToFortranTest, ProtectsSourceText) {
    EXPECT_EQ(print(binary(opaque("(/ 1, 2 /)"), B::Add, opaque("a .op. &\n  & b"))), "(/ 1, 2 /) + (a .op. b)");
}

} // namespace
