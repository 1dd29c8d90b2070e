// SPDX-License-Identifier: MIT
#include "environment/printing/CStatementPieces.h"

#include "environment/printing/OutToC.h"
#include "environment/tessel/BreakStatement.h"
#include "environment/tessel/CaseStatement.h"
#include "environment/tessel/ContinueStatement.h"
#include "environment/tessel/DeclarationStatement.h"
#include "environment/tessel/DoWhileStatement.h"
#include "environment/tessel/EnumDeclaration.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/GotoStatement.h"
#include "environment/tessel/IfStatement.h"
#include "environment/tessel/LabelStatement.h"
#include "environment/tessel/NullStatement.h"
#include "environment/tessel/OpaqueDeclaration.h"
#include "environment/tessel/OpaqueStatement.h"
#include "environment/tessel/RecordDeclaration.h"
#include "environment/tessel/ReturnStatement.h"
#include "environment/tessel/StatementExpression.h"
#include "environment/tessel/SwitchStatement.h"
#include "environment/tessel/TypedefDeclaration.h"
#include "environment/tessel/WhileStatement.h"
#include "tests/environment/printing/Names.h"

#include <gtest/gtest.h>

using namespace Kova;
using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

/// Statements are looked at where expressions hold them.
class CStatementPiecesTest : public testing::Test, protected Names {
protected:
    template <class... Statements>
    static std::string print(Statements... statements) {
        const StatementExpression expression(block(std::move(statements)...));
        return Backends::OutToC::expressionToString(expression);
    }
};

TEST_F(CStatementPiecesTest, WritesStatementExpressions) {
    EXPECT_EQ(print(), "({ })");
    EXPECT_EQ(print(statement(a())), "({ a; })");
    EXPECT_EQ(print(statement(assign(a(), b())), statement(a())), "({ a = b; a; })");
    EXPECT_EQ(print(block(statement(a())), block()), "({ { a; } { } })");
}

TEST_F(CStatementPiecesTest, WritesSimpleStatements) {
    EXPECT_EQ(print(make<NullStatement>(), make<BreakStatement>(), make<ContinueStatement>()),
              "({ ; break; continue; })");
    EXPECT_EQ(print(make<ReturnStatement>(nullptr), make<ReturnStatement>(binary(a(), BinaryOperator::Comma, b()))),
              "({ return; return a, b; })");
    EXPECT_EQ(print(make<GotoStatement>("end"), make<GotoStatement>(binary(a(), BinaryOperator::Add, b()))),
              "({ goto end; goto *a + b; })");
    EXPECT_EQ(print(make<OpaqueStatement>("asm (\"nop\"\n     : : );")), "({ asm (\"nop\" : : ); })");
    EXPECT_EQ(print(statement(nullptr)), "({ ; })");
}

TEST_F(CStatementPiecesTest, WritesBranches) {
    EXPECT_EQ(print(make<IfStatement>(a(), block(statement(b())), nullptr)), "({ if (a) { b; } })");
    EXPECT_EQ(print(make<IfStatement>(a(), block(), block(statement(c())))), "({ if (a) { } else { c; } })");
    StatementPtr inner = make<IfStatement>(b(), block(), block());
    EXPECT_EQ(print(make<IfStatement>(a(), block(), block(std::move(inner)))),
              "({ if (a) { } else if (b) { } else { } })");
    inner = make<IfStatement>(b(), block(), nullptr);
    EXPECT_EQ(print(make<IfStatement>(a(), block(), block(std::move(inner), statement(c())))),
              "({ if (a) { } else { if (b) { } c; } })");
    EXPECT_EQ(print(make<IfStatement>(nullptr, nullptr, nullptr)), "({ if (); })");
}

TEST_F(CStatementPiecesTest, WritesSwitches) {
    auto body = block(make<CaseStatement>(literal("1"), nullptr), make<CaseStatement>(literal("2"), literal("5")),
                      statement(a()), make<CaseStatement>(nullptr, nullptr), make<BreakStatement>());
    EXPECT_EQ(print(make<SwitchStatement>(a(), std::move(body))),
              "({ switch (a) { case 1: case 2 ... 5: a; default: break; } })");
}

TEST_F(CStatementPiecesTest, GivesALabelAStatementToMark) {
    EXPECT_EQ(print(make<LabelStatement>("again"), statement(a())), "({ again: a; })");
    EXPECT_EQ(print(make<LabelStatement>("end")), "({ end: ; })");
    EXPECT_EQ(print(make<LabelStatement>("here"), declareHere(variable("i", intType))), "({ here: ; int i; })");
    auto rare = make<LabelStatement>("rare");
    rare->setAttributes("__attribute__((cold))");
    EXPECT_EQ(print(std::move(rare), statement(a())), "({ rare: __attribute__((cold)) a; })");
}

TEST_F(CStatementPiecesTest, WritesLoops) {
    EXPECT_EQ(print(make<WhileStatement>(a(), block(statement(b())))), "({ while (a) { b; } })");
    EXPECT_EQ(print(make<DoWhileStatement>(block(statement(b())), a())), "({ do { b; } while (a); })");
    EXPECT_EQ(print(make<ForStatement>(nullptr, nullptr, nullptr, block())), "({ for (;;) { } })");
    EXPECT_EQ(print(make<ForStatement>(statement(assign(a(), b())), binary(a(), BinaryOperator::Less, c()),
                                       unary(UnaryOperator::PostIncrement, a()), block(statement(b())))),
              "({ for (a = b; a < c; a++) { b; } })");
    EXPECT_EQ(print(make<ForStatement>(
                  declareHere(variable("i", intType, literal("0")), variable("p", types.pointer(intType), a())),
                  nullptr, a(), block())),
              "({ for (int i = 0, *p = a;; a) { } })");
}

TEST_F(CStatementPiecesTest, SharesSpecifiers) {
    EXPECT_EQ(print(declareHere(variable("i", intType), variable("j", arrayOf(intType, 3)))), "({ int i, j[3]; })");
    EXPECT_EQ(print(declareHere(variable("i", intType), variable("c", charType, literal("'x'")))),
              "({ int i; char c = 'x'; })");
    auto first = variable("i", intType);
    first->setStorageClass(StorageClass::Static);
    auto second = variable("j", intType, binary(a(), BinaryOperator::Comma, b()));
    EXPECT_EQ(print(declareHere(std::move(first), std::move(second))), "({ static int i; int j = (a, b); })");
}

TEST_F(CStatementPiecesTest, WritesStorageAndAttributes) {
    const std::vector<std::pair<StorageClass, std::string>> expected = {
        {StorageClass::None, "int i"},
        {StorageClass::Static, "static int i"},
        {StorageClass::Extern, "extern int i"},
        {StorageClass::Register, "register int i"},
        {StorageClass::Auto, "auto int i"},
        {StorageClass::ThreadLocal, "_Thread_local int i"},
        {StorageClass::StaticThreadLocal, "static _Thread_local int i"},
        {StorageClass::ExternThreadLocal, "extern _Thread_local int i"}};
    for (const auto& [storage, text] : expected) {
        auto declaration = variable("i", intType);
        declaration->setStorageClass(storage);
        EXPECT_EQ(print(declareHere(std::move(declaration))), "({ " + text + "; })");
    }
    auto declaration = variable("i", intType);
    declaration->setAttributes("_Alignas(16)");
    EXPECT_EQ(print(declareHere(std::move(declaration))), "({ _Alignas(16) int i; })");
}

TEST_F(CStatementPiecesTest, WritesTypeDeclarations) {
    EXPECT_EQ(print(declareHere(make<RecordDeclaration>("node", RecordDeclaration::Kind::Struct))),
              "({ struct node; })");
    auto node = emptyRecord("node", RecordDeclaration::Kind::Union);
    node->append(make<FieldDeclaration>("x", intType));
    node->append(make<FieldDeclaration>("y", intType));
    const Type* type = types.declared(*node);
    EXPECT_EQ(print(declareHere(std::move(node), variable("n", type))),
              "({ union node { int x; int y; }; union node n; })");
    EXPECT_EQ(print(declareHere(make<TypedefDeclaration>("word", types.pointer(charType)))),
              "({ typedef char *word; })");
    EXPECT_EQ(print(declareHere(make<OpaqueDeclaration>("_Static_assert(1, \"\");"))),
              "({ _Static_assert(1, \"\"); })");
}

TEST_F(CStatementPiecesTest, DefinesATypeWithoutANameOnce) {
    auto outer = emptyRecord("");
    auto inner = emptyRecord("", RecordDeclaration::Kind::Union);
    inner->append(make<FieldDeclaration>("u", intType));
    const Type* innerType = types.declared(*inner);
    outer->append(std::move(inner));
    outer->append(make<FieldDeclaration>("p", innerType));
    outer->append(make<FieldDeclaration>("q", innerType));
    const Type* type = types.declared(*outer);
    EXPECT_EQ(print(declareHere(std::move(outer), variable("a", type), variable("b", types.pointer(type)))),
              "({ struct { union { int u; } p, q; } a, *b; })");
}

TEST_F(CStatementPiecesTest, WritesEnumerations) {
    auto color = emptyEnum("color");
    color->append(make<EnumeratorDeclaration>("RED", 0, nullptr));
    color->append(make<EnumeratorDeclaration>("BLUE", 1, binary(a(), BinaryOperator::Comma, b())));
    EXPECT_EQ(print(declareHere(std::move(color))), "({ enum color { RED, BLUE = (a, b) }; })");
}

TEST_F(CStatementPiecesTest, WritesSubroutines) {
    const auto* type = types.function(types.pointer(types.function(intType, {charType})), {intType, charType});
    auto prototype = make<SubroutineDeclaration>("f", type);
    EXPECT_EQ(print(declareHere(std::move(prototype))), "({ int (*f(int, char))(char); })");
    auto nested = make<SubroutineDeclaration>("f", type);
    nested->appendParameter(variable("n", intType));
    nested->appendParameter(variable("c", charType));
    nested->setBody(block(make<ReturnStatement>(nullptr)));
    nested->setStorageClass(StorageClass::Static);
    nested->setInline(true);
    EXPECT_EQ(print(declareHere(std::move(nested))), "({ static inline int (*f(int n, char c))(char) { return; } })");
    auto variadic =
        make<SubroutineDeclaration>("die", types.function(intType, {charType}, FunctionType::Parameters::Variadic));
    variadic->appendParameter(variable("c", charType));
    variadic->setNoReturn(true);
    EXPECT_EQ(print(declareHere(std::move(variadic))), "({ _Noreturn int die(char c, ...); })");
}

} // namespace
