// SPDX-License-Identifier: MIT
#include "environment/printing/OutToC.h"

#include "environment/tessel/CastExpression.h"
#include "environment/tessel/CompoundLiteralExpression.h"
#include "environment/tessel/DesignatedInitializerExpression.h"
#include "environment/tessel/EnumeratorReference.h"
#include "environment/tessel/GenericSelectionExpression.h"
#include "environment/tessel/InitializerListExpression.h"
#include "environment/tessel/LabelAddressExpression.h"
#include "environment/tessel/SectionExpression.h"
#include "environment/tessel/TypeQueryExpression.h"
#include "environment/tessel/VariadicArgumentExpression.h"
#include "tests/environment/printing/ExpressionPrintingTest.h"

using namespace Kova;
using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

class OutToCTest : public ExpressionPrintingTest<Backends::OutToC> {
protected:
    ExpressionPtr cast(ExpressionPtr operand) { return std::make_unique<CastExpression>(intType, std::move(operand)); }
    static ExpressionPtr sizeOf(ExpressionPtr operand) {
        return std::make_unique<TypeQueryExpression>(TypeQueryExpression::Query::SizeOf, std::move(operand));
    }
    ExpressionPtr sizeOfInt() {
        return std::make_unique<TypeQueryExpression>(TypeQueryExpression::Query::SizeOf, intType);
    }
    ExpressionPtr sum() { return binary(a(), B::Add, b()); }
    ExpressionPtr comma() { return binary(a(), B::Comma, b()); }
};

TEST_F(OutToCTest, WritesEveryBinaryOperatorWithBlanks) {
    expectBinary({{B::Multiply, "a * b"},
                  {B::Divide, "a / b"},
                  {B::Remainder, "a % b"},
                  {B::Add, "a + b"},
                  {B::Subtract, "a - b"},
                  {B::ShiftLeft, "a << b"},
                  {B::ShiftRight, "a >> b"},
                  {B::Less, "a < b"},
                  {B::Greater, "a > b"},
                  {B::LessEqual, "a <= b"},
                  {B::GreaterEqual, "a >= b"},
                  {B::Equal, "a == b"},
                  {B::NotEqual, "a != b"},
                  {B::BitwiseAnd, "a & b"},
                  {B::BitwiseXor, "a ^ b"},
                  {B::BitwiseOr, "a | b"},
                  {B::LogicalAnd, "a && b"},
                  {B::LogicalOr, "a || b"},
                  {B::Comma, "a, b"}});
}

TEST_F(OutToCTest, WritesEveryUnaryOperator) {
    expectUnary({{U::Plus, "+a"},
                 {U::Minus, "-a"},
                 {U::LogicalNot, "!a"},
                 {U::BitwiseNot, "~a"},
                 {U::Dereference, "*a"},
                 {U::AddressOf, "&a"},
                 {U::PreIncrement, "++a"},
                 {U::PreDecrement, "--a"},
                 {U::PostIncrement, "a++"},
                 {U::PostDecrement, "a--"},
                 {U::RealPart, "__real__ a"},
                 {U::ImaginaryPart, "__imag__ a"},
                 {U::Extension, "__extension__ a"}});
}

TEST_F(OutToCTest, KeepsSignsApart) {
    EXPECT_EQ(print(unary(U::Minus, unary(U::Minus, a()))), "- -a");
    EXPECT_EQ(print(unary(U::Plus, unary(U::Plus, a()))), "+ +a");
    EXPECT_EQ(print(unary(U::Minus, unary(U::PreDecrement, a()))), "- --a");
    EXPECT_EQ(print(unary(U::Plus, unary(U::PreIncrement, a()))), "+ ++a");
    EXPECT_EQ(print(unary(U::Minus, unary(U::Plus, a()))), "-+a");
    EXPECT_EQ(print(unary(U::AddressOf, unary(U::AddressOf, a()))), "& &a");
    EXPECT_EQ(print(unary(U::Minus, literal("-1"))), "- -1");
    EXPECT_EQ(print(binary(a(), B::Subtract, unary(U::Minus, b()))), "a - -b");
    EXPECT_EQ(print(binary(a(), B::Subtract, literal("-1"))), "a - -1");
    EXPECT_EQ(print(subscript(literal("-1"), a())), "(-1)[a]");
}

TEST_F(OutToCTest, NeverOpensAComment) {
    EXPECT_EQ(print(binary(a(), B::Divide, unary(U::Dereference, b()))), "a / *b");
}

TEST_F(OutToCTest, ParenthesizesByPrecedence) {
    EXPECT_EQ(print(binary(sum(), B::Multiply, c())), "(a + b) * c");
    EXPECT_EQ(print(binary(c(), B::Add, binary(a(), B::Multiply, b()))), "c + a * b");
    EXPECT_EQ(print(binary(binary(a(), B::Less, b()), B::ShiftLeft, c())), "(a < b) << c");
    EXPECT_EQ(print(binary(sum(), B::ShiftLeft, c())), "a + b << c");
    EXPECT_EQ(print(binary(binary(a(), B::Equal, b()), B::BitwiseAnd, c())), "a == b & c");
    EXPECT_EQ(print(binary(a(), B::Equal, binary(b(), B::BitwiseAnd, c()))), "a == (b & c)");
    EXPECT_EQ(print(binary(a(), B::Equal, binary(b(), B::Less, c()))), "a == b < c");
    EXPECT_EQ(print(unary(U::LogicalNot, binary(a(), B::Equal, b()))), "!(a == b)");
}

TEST_F(OutToCTest, MixesConjunctionAndDisjunction) {
    EXPECT_EQ(print(binary(binary(a(), B::LogicalAnd, b()), B::LogicalOr, c())), "a && b || c");
    EXPECT_EQ(print(binary(a(), B::LogicalAnd, binary(b(), B::LogicalOr, c()))), "a && (b || c)");
}

TEST_F(OutToCTest, KeepsTheGroupingOfEqualOperators) {
    EXPECT_EQ(print(binary(binary(a(), B::Subtract, b()), B::Subtract, c())), "a - b - c");
    EXPECT_EQ(print(binary(a(), B::Subtract, binary(b(), B::Subtract, c()))), "a - (b - c)");
    EXPECT_EQ(print(binary(a(), B::Add, binary(b(), B::Subtract, c()))), "a + (b - c)");
    EXPECT_EQ(print(binary(a(), B::Comma, binary(b(), B::Comma, c()))), "a, (b, c)");
}

TEST_F(OutToCTest, Assigns) {
    EXPECT_EQ(print(assign(a(), assign(b(), c()))), "a = b = c");
    EXPECT_EQ(print(assign(assign(a(), b()), c())), "(a = b) = c");
    EXPECT_EQ(print(assign(unary(U::Dereference, a()), comma())), "*a = (a, b)");
    EXPECT_EQ(print(assign(a(), conditional(a(), b(), c()))), "a = a ? b : c");
    EXPECT_EQ(print(assign(conditional(a(), b(), c()), a())), "(a ? b : c) = a");
    EXPECT_EQ(print(std::make_unique<AssignmentExpression>(a(), b(), B::ShiftLeft)), "a <<= b");
    EXPECT_EQ(print(std::make_unique<AssignmentExpression>(a(), b(), B::Add)), "a += b");
    EXPECT_EQ(print(binary(assign(a(), b()), B::NotEqual, c())), "(a = b) != c");
}

TEST_F(OutToCTest, Chooses) {
    EXPECT_EQ(print(conditional(a(), b(), c())), "a ? b : c");
    EXPECT_EQ(print(conditional(a(), nullptr, c())), "a ?: c");
    EXPECT_EQ(print(conditional(a(), b(), conditional(b(), a(), c()))), "a ? b : b ? a : c");
    EXPECT_EQ(print(conditional(conditional(b(), a(), c()), a(), b())), "(b ? a : c) ? a : b");
    EXPECT_EQ(print(conditional(a(), conditional(b(), a(), c()), c())), "a ? b ? a : c : c");
    EXPECT_EQ(print(conditional(a(), comma(), c())), "a ? a, b : c");
    EXPECT_EQ(print(conditional(a(), b(), comma())), "a ? b : (a, b)");
    EXPECT_EQ(print(conditional(a(), assign(a(), b()), assign(b(), c()))), "a ? a = b : (b = c)");
    EXPECT_EQ(print(conditional(assign(a(), b()), a(), b())), "(a = b) ? a : b");
}

TEST_F(OutToCTest, CallsSubscriptsAndSelects) {
    EXPECT_EQ(print(call(f())), "f()");
    EXPECT_EQ(print(call(f(), a(), b())), "f(a, b)");
    EXPECT_EQ(print(call(f(), comma(), assign(a(), b()))), "f((a, b), a = b)");
    EXPECT_EQ(print(call(unary(U::Dereference, f()), a())), "(*f)(a)");
    EXPECT_EQ(print(call(conditional(a(), f(), f()), a())), "(a ? f : f)(a)");
    EXPECT_EQ(print(subscript(a(), comma())), "a[a, b]");
    EXPECT_EQ(print(subscript(subscript(a(), b()), c())), "a[b][c]");
    EXPECT_EQ(print(subscript(unary(U::Dereference, a()), b())), "(*a)[b]");
    EXPECT_EQ(print(unary(U::Dereference, subscript(a(), b()))), "*a[b]");
    EXPECT_EQ(print(unary(U::AddressOf, subscript(a(), b()))), "&a[b]");
    EXPECT_EQ(print(subscript(comma(), c())), "(a, b)[c]");
    EXPECT_EQ(print(dot(a())), "a.x");
    EXPECT_EQ(print(arrow(a())), "a->x");
    EXPECT_EQ(print(dot(unary(U::Dereference, a()))), "(*a).x");
    EXPECT_EQ(print(unary(U::Dereference, arrow(a()))), "*a->x");
    EXPECT_EQ(print(unary(U::Dereference, unary(U::PostIncrement, a()))), "*a++");
    EXPECT_EQ(print(unary(U::PostIncrement, unary(U::Dereference, a()))), "(*a)++");
    EXPECT_EQ(print(arrow(cast(a()))), "((int) a)->x");
}

TEST_F(OutToCTest, ReachesThroughMembersWithoutNames) {
    const auto unnamed = [this](ExpressionPtr base, MemberExpression::Access access) {
        return member(std::move(base), access, unnamedField);
    };
    EXPECT_EQ(print(dot(unnamed(a(), MemberExpression::Access::Direct))), "a.x");
    EXPECT_EQ(print(dot(unnamed(a(), MemberExpression::Access::ThroughPointer))), "a->x");
    EXPECT_EQ(
        print(dot(unnamed(unnamed(a(), MemberExpression::Access::ThroughPointer), MemberExpression::Access::Direct))),
        "a->x");
}

TEST_F(OutToCTest, Casts) {
    EXPECT_EQ(print(cast(a())), "(int) a");
    EXPECT_EQ(print(cast(cast(a()))), "(int) (int) a");
    EXPECT_EQ(print(cast(unary(U::Minus, a()))), "(int) -a");
    EXPECT_EQ(print(unary(U::Minus, cast(a()))), "-(int) a");
    EXPECT_EQ(print(unary(U::PreIncrement, cast(a()))), "++((int) a)");
    EXPECT_EQ(print(cast(sum())), "(int) (a + b)");
    EXPECT_EQ(print(binary(cast(a()), B::Multiply, b())), "(int) a * b");
    EXPECT_EQ(print(subscript(cast(a()), b())), "((int) a)[b]");
    EXPECT_EQ(print(cast(subscript(a(), b()))), "(int) a[b]");
}

TEST_F(OutToCTest, AsksForSizes) {
    EXPECT_EQ(print(sizeOf(a())), "sizeof a");
    EXPECT_EQ(print(sizeOf(sum())), "sizeof (a + b)");
    EXPECT_EQ(print(sizeOf(unary(U::Dereference, a()))), "sizeof *a");
    EXPECT_EQ(print(sizeOf(cast(a()))), "sizeof ((int) a)");
    EXPECT_EQ(print(sizeOf(sizeOf(a()))), "sizeof sizeof a");
    EXPECT_EQ(print(sizeOf(subscript(unary(U::Dereference, a()), b()))), "sizeof (*a)[b]");
    EXPECT_EQ(print(subscript(sizeOf(a()), b())), "(sizeof a)[b]");
    EXPECT_EQ(print(sizeOfInt()), "sizeof (int)");
    EXPECT_EQ(print(binary(sizeOfInt(), B::Multiply, a())), "sizeof (int) * a");
    EXPECT_EQ(print(sizeOf(cast(unary(U::Dereference, a())))), "sizeof ((int) *a)");
    EXPECT_EQ(print(unary(U::Minus, sizeOfInt())), "-sizeof (int)");
    EXPECT_EQ(print(std::make_unique<TypeQueryExpression>(TypeQueryExpression::Query::AlignOf, intType)),
              "_Alignof (int)");
    EXPECT_EQ(print(std::make_unique<TypeQueryExpression>(TypeQueryExpression::Query::AlignOf, a())), "__alignof__ a");
}

TEST_F(OutToCTest, Initializes) {
    auto list = std::make_unique<InitializerListExpression>();
    EXPECT_EQ(print(ExpressionPtr(std::make_unique<InitializerListExpression>())), "{}");
    list->append(literal("1"));
    list->append(comma());
    auto inner = std::make_unique<InitializerListExpression>();
    inner->append(assign(a(), b()));
    list->append(std::move(inner));
    auto designated = std::make_unique<DesignatedInitializerExpression>(comma());
    designated->appendField("x");
    designated->appendIndex(literal("2"));
    designated->appendIndexRange(literal("3"), binary(a(), B::Add, literal("4")));
    designated->appendField("y");
    list->append(std::move(designated));
    EXPECT_EQ(print(std::move(list)), "{ 1, (a, b), { a = b }, .x[2][3 ... a + 4].y = (a, b) }");
}

TEST_F(OutToCTest, LeavesOutTheLengthOfACompoundLiteral) {
    auto list = std::make_unique<InitializerListExpression>();
    list->append(a());
    auto literal = std::make_unique<CompoundLiteralExpression>(arrayOf(arrayOf(intType, 2), 1), std::move(list));
    literal->setLengthLeftOut(true);
    EXPECT_EQ(print(std::move(literal)), "(int[][2]) { a }");
}

TEST_F(OutToCTest, WritesCompoundLiteralsAsPostfixExpressions) {
    const auto compound = [this] {
        auto list = std::make_unique<InitializerListExpression>();
        list->append(literal("1"));
        return std::make_unique<CompoundLiteralExpression>(arrayOf(intType, 0), std::move(list));
    };
    EXPECT_EQ(print(compound()), "(int[]) { 1 }");
    EXPECT_EQ(print(subscript(compound(), a())), "(int[]) { 1 }[a]");
    EXPECT_EQ(print(unary(U::AddressOf, compound())), "&(int[]) { 1 }");
    EXPECT_EQ(print(sizeOf(compound())), "sizeof (int[]) { 1 }");
    EXPECT_EQ(print(cast(compound())), "(int) (int[]) { 1 }");
}

TEST_F(OutToCTest, SelectsGenerically) {
    auto selection = std::make_unique<GenericSelectionExpression>(comma(), 1);
    selection->appendAssociation(types.pointer(charType), assign(a(), b()));
    selection->appendAssociation(nullptr, comma());
    EXPECT_EQ(print(std::move(selection)), "_Generic((a, b), char *: a = b, default: (a, b))");
}

TEST_F(OutToCTest, WritesTheRest) {
    EXPECT_EQ(print(std::make_unique<VariadicArgumentExpression>(a(), types.pointer(intType))), "va_arg(a, int *)");
    auto builtin = std::make_unique<VariadicArgumentExpression>(a(), intType);
    builtin->setBuiltin(true);
    EXPECT_EQ(print(std::move(builtin)), "__builtin_va_arg(a, int)");
    EXPECT_EQ(print(std::make_unique<LabelAddressExpression>("end")), "&&end");
    EXPECT_EQ(print(unary(U::Dereference, std::make_unique<LabelAddressExpression>("end"))), "*&&end");
    EXPECT_EQ(print(std::make_unique<EnumeratorReference>(enumeratorRed)), "RED");
    EXPECT_EQ(print(literal("\"a\"\n  \"b\"", LiteralExpression::Kind::String)), "\"a\" \"b\"");
    EXPECT_EQ(print(literal("1.5e-3f", LiteralExpression::Kind::Floating)), "1.5e-3f");
}

TEST_F(OutToCTest, ProtectsSourceTextThatMayHoldOperators) {
    EXPECT_EQ(print(opaque("a + b")), "a + b");
    EXPECT_EQ(print(unary(U::Minus, opaque("a + b"))), "-(a + b)");
    EXPECT_EQ(print(call(f(), opaque("a + b"), opaque("a, b"))), "f(a + b, (a, b))");
    EXPECT_EQ(print(binary(opaque("offsetof(struct s, x)"), B::Multiply, opaque("x"))), "offsetof(struct s, x) * x");
    EXPECT_EQ(print(subscript(opaque("(a + b)"), a())), "(a + b)[a]");
    EXPECT_EQ(print(subscript(opaque("(a)(b)"), a())), "((a)(b))[a]");
}

TEST_F(OutToCTest, WritesWhatOnlyFortranHasAsCalls) {
    EXPECT_EQ(print(binary(sum(), B::Power, b())), "pow(a + b, b)");
    EXPECT_EQ(print(binary(a(), B::Concatenate, comma())), "concat(a, (a, b))");
    EXPECT_EQ(print(binary(a(), B::Equivalent, b())), "a == b");
    EXPECT_EQ(print(binary(a(), B::NotEquivalent, b())), "a != b");
    EXPECT_EQ(print(subscript(a(), b(), c())), "a[b][c]");
    EXPECT_EQ(print(std::make_unique<SectionExpression>(a(), b(), nullptr)), "a:b");
}

TEST_F(OutToCTest, LeavesOutWhatIsMissing) {
    EXPECT_EQ(print(unary(U::Minus, nullptr)), "-");
    EXPECT_EQ(print(binary(nullptr, B::Add, nullptr)), " + ");
    EXPECT_EQ(print(assign(nullptr, nullptr)), " = ");
    EXPECT_EQ(print(conditional(nullptr, nullptr, nullptr)), " ?: ");
    EXPECT_EQ(print(call(ExpressionPtr())), "()");
    EXPECT_EQ(print(call(f(), ExpressionPtr(), a())), "f(, a)");
    EXPECT_EQ(print(subscript(nullptr, nullptr)), "[]");
    EXPECT_EQ(print(dot(nullptr)), ".x");
    EXPECT_EQ(print(ExpressionPtr(std::make_unique<CastExpression>(nullptr, nullptr))), "() ");
    EXPECT_EQ(print(sizeOf(nullptr)), "sizeof ");
    EXPECT_EQ(print(std::make_unique<CompoundLiteralExpression>(nullptr, nullptr)), "() ");
    EXPECT_EQ(print(std::make_unique<VariadicArgumentExpression>(nullptr, nullptr)), "va_arg(, )");
    EXPECT_EQ(print(std::make_unique<GenericSelectionExpression>(nullptr, 0)), "_Generic()");
    EXPECT_EQ(print(std::make_unique<DesignatedInitializerExpression>(nullptr)), " = ");
}

} // namespace
