// SPDX-License-Identifier: MIT
// Which calls of a procedure's text are made when it runs.
#include "environment/analyses/callgraph/CallGraph.h"
#include "environment/tessel/CastExpression.h"
#include "environment/tessel/DesignatedInitializerExpression.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/GenericSelectionExpression.h"
#include "environment/tessel/IfStatement.h"
#include "environment/tessel/InitializerListExpression.h"
#include "environment/tessel/OpaqueStatement.h"
#include "environment/tessel/RecordDeclaration.h"
#include "environment/tessel/ReturnStatement.h"
#include "environment/tessel/StatementExpression.h"
#include "environment/tessel/SwitchStatement.h"
#include "environment/tessel/TypeQueryExpression.h"
#include "environment/tessel/TypedefDeclaration.h"
#include "environment/tessel/WhileStatement.h"
#include "tests/environment/analyses/callgraph/CallGraphText.h"
#include "tests/environment/support/Build.h"

#include <gtest/gtest.h>

using namespace Kova::Tessel;
using namespace Kova::Tests;
using Query = TypeQueryExpression::Query;

namespace {

class CallGraphEvaluationTest : public testing::Test {
protected:
    /// The calls that main makes, as text.
    std::string calls() { return textOf(CallGraph(&main)); }
    void append(StatementPtr node) { main.getBody()->append(std::move(node)); }
    const Type* variableLength(const ExpressionBase& length) {
        ArrayDimension dimension;
        dimension.kind = ArrayDimension::Extent::Variable;
        dimension.upperBound = &length;
        return program.getTypes().array(intType, {dimension});
    }

    ProgramUnit program;
    TranslationUnit& unit = addUnit(program, "a.c");
    SubroutineDeclaration& f = define(unit, "f");
    SubroutineDeclaration& g = define(unit, "g");
    SubroutineDeclaration& main = define(unit, "main");
    VariableDeclaration pointer{"pointer", nullptr};
    const Type* intType = program.getTypes().basic("int", BasicType::Category::SignedInteger, 32);
};

TEST_F(CallGraphEvaluationTest, FindsCallsInStatements) {
    append(std::make_unique<IfStatement>(call(f), block(statement(call(f))), block(statement(call(f)))));
    append(std::make_unique<WhileStatement>(call(f), block(statement(call(f)))));
    append(std::make_unique<ForStatement>(statement(call(f)), call(f), call(f), block(statement(call(f)))));
    append(std::make_unique<SwitchStatement>(call(f), block()));
    append(std::make_unique<ReturnStatement>(call(f)));
    auto assembly = std::make_unique<OpaqueStatement>("asm (\"\" : : \"r\" (f()));");
    assembly->appendOperand(call(f));
    append(std::move(assembly));
    EXPECT_EQ(calls(), "f:\nmain: f*12\n");
}

TEST_F(CallGraphEvaluationTest, FindsCallsInExpressions) {
    perform(main, conditional(call(f), binary(call(f), BinaryOperator::LogicalAnd, call(f)), nullptr));
    perform(main, assign(subscript(call(f), call(f)), call(f)));
    perform(main, std::make_unique<CastExpression>(intType, unary(UnaryOperator::Minus, call(f))));
    perform(main, std::make_unique<StatementExpression>(block(statement(call(f)), statement(call(f)))));
    auto text = std::make_unique<OpaqueExpression>("__builtin_choose_expr(1, f(), 0)");
    text->appendOperand(call(f));
    perform(main, std::move(text));
    EXPECT_EQ(calls(), "f:\nmain: f*10\n");
}

TEST_F(CallGraphEvaluationTest, FindsCallsInDeclarations) {
    auto list = std::make_unique<InitializerListExpression>();
    auto designated = std::make_unique<DesignatedInitializerExpression>(call(f));
    designated->appendIndex(call(g));
    list->append(std::move(designated));
    auto variable = std::make_unique<VariableDeclaration>("v", nullptr, std::move(list));
    variable->setStorageClass(StorageClass::Static);
    variable->appendBound(call(f));
    append(declareHere(std::move(variable)));
    auto alias = std::make_unique<TypedefDeclaration>("row", nullptr);
    alias->appendBound(call(f));
    append(declareHere(std::move(alias)));
    auto parameter = std::make_unique<VariableDeclaration>("p", nullptr);
    parameter->appendBound(call(f));
    main.appendParameter(std::move(parameter));
    EXPECT_EQ(calls(), "f:\nmain: f*4\n");
}

TEST_F(CallGraphEvaluationTest, SeesThroughWaysToWriteACall) {
    perform(main, call(unary(UnaryOperator::Dereference, use(f))));
    perform(main, call(unary(UnaryOperator::AddressOf, use(f))));
    perform(main, call(unary(UnaryOperator::Dereference, unary(UnaryOperator::Dereference, use(f)))));
    EXPECT_EQ(calls(), "f:\nmain: f*3\n");
}

TEST_F(CallGraphEvaluationTest, LeavesCallsThroughPointersOut) {
    perform(main, call(use(pointer), use(f)));
    perform(main, call(unary(UnaryOperator::Dereference, use(pointer))));
    perform(main, call(conditional(use(pointer), use(f), use(g))));
    perform(main, use(f));
    EXPECT_EQ(calls(), "main:\n");
}

TEST_F(CallGraphEvaluationTest, KnowsThatSizeofEvaluatesNothing) {
    perform(main, std::make_unique<TypeQueryExpression>(Query::SizeOf, call(f, call(f))));
    perform(main, std::make_unique<TypeQueryExpression>(Query::AlignOf, call(f)));
    perform(main, call(g, std::make_unique<TypeQueryExpression>(Query::SizeOf, call(f)), call(g)));
    EXPECT_EQ(calls(), "g:\nmain: g*2\n");
}

TEST_F(CallGraphEvaluationTest, KnowsThatSizeofEvaluatesVariableLengths) {
    ExpressionPtr length = call(f);
    auto ofType = std::make_unique<TypeQueryExpression>(Query::SizeOf, variableLength(*length));
    ofType->appendBound(std::move(length));
    perform(main, std::move(ofType));
    length = call(f);
    auto alignment = std::make_unique<TypeQueryExpression>(Query::AlignOf, variableLength(*length));
    alignment->appendBound(std::move(length));
    perform(main, std::move(alignment));
    EXPECT_EQ(calls(), "f:\nmain: f*1\n");
}

TEST_F(CallGraphEvaluationTest, KnowsThatSizeofEvaluatesAnOperandOfVariableLength) {
    const ExpressionPtr length = literal("3");
    ExpressionPtr operand = unary(UnaryOperator::Dereference, call(f));
    TypedefDeclaration row("row", variableLength(*length));
    operand->setType(program.getTypes().declared(row));
    perform(main, std::make_unique<TypeQueryExpression>(Query::SizeOf, std::move(operand)));
    EXPECT_EQ(calls(), "f:\nmain: f*1\n");
}

TEST_F(CallGraphEvaluationTest, KnowsWhichTypesAreOfVariableLength) {
    const ExpressionPtr length = literal("3");
    TypeTable& types = program.getTypes();
    ArrayDimension two;
    two.kind = ArrayDimension::Extent::Constant;
    two.extent = 2;
    const Type* variable = variableLength(*length);
    const TypedefDeclaration row("row", variable);
    const TypedefDeclaration rows("rows", types.array(types.declared(row), {two}));
    const TypedefDeclaration word("word", intType);
    const RecordDeclaration record("s", RecordDeclaration::Kind::Struct);
    const auto callsWithOperandOf = [&](const Type* type) {
        SubroutineDeclaration& user = define(unit, "user");
        ExpressionPtr operand = unary(UnaryOperator::Dereference, call(f));
        operand->setType(type);
        perform(user, std::make_unique<TypeQueryExpression>(Query::SizeOf, std::move(operand)));
        return CallGraph(&user).getGraph().count("f");
    };
    for (const Type* type : {variable, static_cast<const Type*>(types.array(variable, {two})),
                             static_cast<const Type*>(types.declared(rows))})
        EXPECT_EQ(callsWithOperandOf(type), 1U);
    // A pointer is as long as any other, whatever it points to.
    for (const Type* type :
         {static_cast<const Type*>(nullptr), intType, static_cast<const Type*>(types.pointer(variable)),
          static_cast<const Type*>(types.array(types.pointer(variable), {two})),
          static_cast<const Type*>(types.declared(word)), static_cast<const Type*>(types.declared(record))})
        EXPECT_EQ(callsWithOperandOf(type), 0U);
}

TEST_F(CallGraphEvaluationTest, TakesTheChosenValueOfAGenericSelection) {
    auto& h = define(unit, "h");
    auto selection = std::make_unique<GenericSelectionExpression>(call(f), 1);
    selection->appendAssociation(intType, call(g));
    auto inner = std::make_unique<GenericSelectionExpression>(call(f), 0);
    inner->appendAssociation(nullptr, call(h));
    selection->appendAssociation(nullptr, std::move(inner));
    selection->appendAssociation(intType, call(g));
    perform(main, std::move(selection));
    perform(main, call(h));
    EXPECT_EQ(calls(), "h:\nmain: h*2\n");
}

TEST_F(CallGraphEvaluationTest, CallsTheFunctionThatAGenericSelectionChooses) {
    auto selection = std::make_unique<GenericSelectionExpression>(literal("1"), 0);
    selection->appendAssociation(intType, use(f));
    selection->appendAssociation(nullptr, use(g));
    perform(main, call(std::move(selection), literal("1")));
    EXPECT_EQ(calls(), "f:\nmain: f*1\n");
}

TEST_F(CallGraphEvaluationTest, IgnoresWhatStandsOutsideProcedures) {
    unit.append(std::make_unique<VariableDeclaration>("table", nullptr, call(f)));
    EXPECT_EQ(textOf(CallGraph(&program)), "f:\ng:\nmain:\n");
}

TEST_F(CallGraphEvaluationTest, GivesInnerProceduresTheirOwnCalls) {
    auto inner = std::make_unique<SubroutineDeclaration>("inner", nullptr);
    inner->setBody(block(statement(call(f))));
    SubroutineDeclaration& nested = *inner;
    append(declareHere(std::move(inner)));
    append(declareHere(std::make_unique<SubroutineDeclaration>("prototype", nullptr)));
    perform(main, call(nested));
    EXPECT_EQ(calls(), "f:\ninner: f*1\nmain: inner*1\n");
}

} // namespace
