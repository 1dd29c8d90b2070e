// SPDX-License-Identifier: MIT
#include "environment/tessel/types/TypeTable.h"

#include "environment/tessel/RecordDeclaration.h"
#include "tests/environment/support/Build.h"

#include <gtest/gtest.h>

using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

class TypeTableTest : public testing::Test {
protected:
    static ArrayDimension constant(std::uint64_t extent, std::int64_t lower = 0) {
        ArrayDimension dimension;
        dimension.kind = ArrayDimension::Extent::Constant;
        dimension.extent = extent;
        dimension.lower = lower;
        return dimension;
    }
    static ArrayDimension variable(const ExpressionBase& bound) {
        ArrayDimension dimension;
        dimension.kind = ArrayDimension::Extent::Variable;
        dimension.upperBound = &bound;
        return dimension;
    }

    TypeTable types;
    const BasicType* intType = types.basic("int", BasicType::Category::SignedInteger, 32);
};

TEST_F(TypeTableTest, MakesBasicTypesOnce) {
    EXPECT_EQ(types.basic("int", BasicType::Category::SignedInteger, 32), intType);
    EXPECT_NE(types.basic("int", BasicType::Category::SignedInteger, 16), intType);
    EXPECT_NE(types.basic("int", BasicType::Category::UnsignedInteger, 32), intType);
    EXPECT_NE(types.basic("int", BasicType::Category::SignedInteger, 32, Type::Const), intType);
    EXPECT_NE(types.basic("long", BasicType::Category::SignedInteger, 32), intType);
    EXPECT_EQ(intType->getName(), "int");
    EXPECT_EQ(intType->getBits(), 32U);
    EXPECT_EQ(intType->getCategory(), BasicType::Category::SignedInteger);
    EXPECT_EQ(intType->getKind(), Type::Kind::Basic);
    EXPECT_FALSE(intType->isConst());
}

TEST_F(TypeTableTest, MakesPointersOnce) {
    const PointerType* pointer = types.pointer(intType);
    EXPECT_EQ(types.pointer(intType), pointer);
    EXPECT_EQ(pointer->getPointee(), intType);
    const PointerType* constant = types.pointer(intType, Type::Const | Type::Restrict);
    EXPECT_NE(constant, pointer);
    EXPECT_TRUE(constant->isConst());
    EXPECT_EQ(constant->getQualifiers(), Type::Const | Type::Restrict);
    EXPECT_NE(types.pointer(pointer), pointer);
    EXPECT_EQ(types.pointer(nullptr)->getPointee(), nullptr);
}

TEST_F(TypeTableTest, TellsArraysApartByTheirDimensions) {
    const ExpressionPtr one = literal("n");
    const ExpressionPtr two = literal("n");
    const std::vector<const ArrayType*> all = {types.array(intType, {constant(3)}),
                                               types.array(intType, {constant(4)}),
                                               types.array(intType, {constant(3, 1)}),
                                               types.array(intType, {constant(3), constant(4)}),
                                               types.array(intType, {constant(4), constant(3)}),
                                               types.array(intType, {ArrayDimension()}),
                                               types.array(intType, {variable(*one)}),
                                               types.array(intType, {variable(*two)}),
                                               types.array(types.pointer(intType), {constant(3)}),
                                               types.array(intType, {constant(3)}, Type::Const)};
    for (std::size_t i = 0; i < all.size(); ++i)
        for (std::size_t k = 0; k < i; ++k)
            EXPECT_NE(all[i], all[k]) << i << " " << k;
    EXPECT_EQ(types.array(intType, {constant(3)}), all[0]);
    EXPECT_EQ(types.array(intType, {variable(*one)}), all[6]);
    EXPECT_EQ(all[3]->getDimensions(), (std::vector<ArrayDimension>{constant(3), constant(4)}));
    EXPECT_EQ(all[3]->getElement(), intType);
}

TEST_F(TypeTableTest, TellsFunctionsApart) {
    using Parameters = FunctionType::Parameters;
    const FunctionType* function = types.function(intType, {intType, intType});
    EXPECT_EQ(types.function(intType, {intType, intType}), function);
    EXPECT_NE(types.function(intType, {intType}), function);
    EXPECT_NE(types.function(nullptr, {intType, intType}), function);
    EXPECT_NE(types.function(intType, {intType, intType}, Parameters::Variadic), function);
    EXPECT_NE(types.function(intType, {}, Parameters::Unspecified), types.function(intType, {}));
    EXPECT_EQ(function->getParameters(), (std::vector<const Type*>{intType, intType}));
    EXPECT_EQ(function->getParametersKind(), Parameters::Fixed);
    EXPECT_EQ(function->getResult(), intType);
}

TEST_F(TypeTableTest, TellsDeclaredAndOpaqueTypesApart) {
    const RecordDeclaration one("node", RecordDeclaration::Kind::Struct);
    const RecordDeclaration two("node", RecordDeclaration::Kind::Struct);
    EXPECT_EQ(types.declared(one), types.declared(one));
    EXPECT_NE(types.declared(one), types.declared(two));
    EXPECT_NE(types.declared(one, Type::Volatile), types.declared(one));
    EXPECT_EQ(&types.declared(two)->getDeclaration(), &two);
    EXPECT_EQ(types.opaque("v4si"), types.opaque("v4si"));
    EXPECT_NE(types.opaque("v4si"), types.opaque("v8si"));
    EXPECT_EQ(types.opaque("v4si")->getText(), "v4si");
    EXPECT_EQ(types.opaque("v4si")->getKind(), Type::Kind::Opaque);
}

TEST_F(TypeTableTest, KeepsTypesWhereTheyAre) {
    std::vector<const Type*> made;
    for (unsigned i = 0; i < 5000; ++i)
        made.push_back(types.basic("t" + std::to_string(i), BasicType::Category::Floating, i));
    for (unsigned i = 0; i < 5000; ++i)
        EXPECT_EQ(types.basic("t" + std::to_string(i), BasicType::Category::Floating, i), made[i]);
}

} // namespace
