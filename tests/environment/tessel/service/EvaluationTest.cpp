// SPDX-License-Identifier: MIT
#include "environment/tessel/service/Evaluation.h"

#include "environment/tessel/DesignatedInitializerExpression.h"
#include "environment/tessel/GenericSelectionExpression.h"
#include "environment/tessel/TypeQueryExpression.h"
#include "environment/tessel/types/ArrayType.h"
#include "environment/tessel/types/BasicType.h"
#include "tests/environment/support/Build.h"

#include <gtest/gtest.h>

namespace Kova::Tests {

namespace {

using namespace Tessel;
using Service::isEvaluated;
using Query = TypeQueryExpression::Query;

TEST(EvaluationTest, PartsAreEvaluated) {
    VariableDeclaration a("a", nullptr);
    const auto root = block(statement(assign(use(a), call(use(a), literal("1")))));
    EXPECT_TRUE(isEvaluated(*root));
    EXPECT_TRUE(isEvaluated(*root->getStatement(0)));
    EXPECT_TRUE(isEvaluated(*root->getStatement(0)->getChild(0)));
    EXPECT_TRUE(isEvaluated(*root->getStatement(0)->getChild(0)->getChild(1)));
}

TEST(EvaluationTest, OfQueriesOnlyTheSizesOfVariableArrays) {
    const BasicType element("int", BasicType::Category::SignedInteger, 32, Type::NoQualifier);
    const auto length = literal("n");
    ArrayDimension dimension;
    dimension.kind = ArrayDimension::Extent::Variable;
    dimension.upperBound = length.get();
    const ArrayType row(&element, {dimension}, Type::NoQualifier);
    for (const Type* type : std::vector<const Type*>{nullptr, &element, &row}) {
        VariableDeclaration a("a", type);
        for (const Query query : {Query::SizeOf, Query::AlignOf}) {
            ExpressionPtr operand = use(a);
            operand->setType(type);
            const TypeQueryExpression ofValue(query, std::move(operand));
            EXPECT_EQ(isEvaluated(*ofValue.getOperand()), type == &row && query == Query::SizeOf);
            TypeQueryExpression ofType(query, type);
            ofType.appendBound(literal("1"));
            EXPECT_EQ(isEvaluated(*ofType.getChild(1)), query == Query::SizeOf);
        }
    }
}

TEST(EvaluationTest, OfSelectionsTheChosenValue) {
    GenericSelectionExpression selection(literal("0"), 1);
    for (int i = 0; i < 3; ++i)
        selection.appendAssociation(nullptr, literal("1"));
    EXPECT_FALSE(isEvaluated(*selection.getControl()));
    EXPECT_FALSE(isEvaluated(*selection.getAssociationValue(0)));
    EXPECT_TRUE(isEvaluated(*selection.getAssociationValue(1)));
    EXPECT_FALSE(isEvaluated(*selection.getAssociationValue(2)));
}

TEST(EvaluationTest, OfDesignatedInitializersTheValue) {
    DesignatedInitializerExpression initializer(literal("1"));
    initializer.appendIndex(literal("2"));
    initializer.appendField("f");
    initializer.appendIndexRange(literal("3"), literal("4"));
    EXPECT_TRUE(isEvaluated(*initializer.getValue()));
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_FALSE(isEvaluated(*initializer.getIndex(i)));
}

} // namespace

} // namespace Kova::Tests
