// SPDX-License-Identifier: MIT
// The parts of the declaration nodes and where they stand among the children.
#include "environment/tessel/DeclarationBase.h"
#include "tests/environment/support/EveryNode.h"

#include <gtest/gtest.h>

using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

TEST(DeclarationsTest, HaveNamesAndAttributes) {
    VariableDeclaration variable("x", nullptr);
    EXPECT_EQ(variable.getName(), "x");
    EXPECT_EQ(variable.getAttributes(), "");
    EXPECT_FALSE(variable.isExternal());
    variable.setName("y");
    variable.setAttributes("_Alignas(8)");
    EXPECT_EQ(variable.getName(), "y");
    EXPECT_EQ(variable.getAttributes(), "_Alignas(8)");
}

TEST(DeclarationsTest, VariablesKeepTheirInitializerBeforeTheirBounds) {
    TypeTable types;
    const Type* type = types.basic("int", BasicType::Category::SignedInteger, 32);
    VariableDeclaration variable("x", nullptr);
    EXPECT_EQ(variable.getInitializer(), nullptr);
    variable.appendBound(literal("3"));
    ExpressionPtr value = literal("1");
    const ExpressionBase* raw = value.get();
    variable.setInitializer(std::move(value));
    variable.setType(type);
    variable.setParameter(true);
    variable.setStorageClass(StorageClass::Register);
    EXPECT_EQ(variable.getInitializer(), raw);
    EXPECT_EQ(variable.getChild(0), raw);
    EXPECT_EQ(variable.getChildCount(), 2U);
    EXPECT_EQ(variable.getType(), type);
    EXPECT_TRUE(variable.isParameter());
    EXPECT_EQ(variable.getStorageClass(), StorageClass::Register);
}

TEST(DeclarationsTest, SubroutinesKeepTheirParametersBeforeTheirBody) {
    SubroutineDeclaration subroutine("f", nullptr, SubroutineDeclaration::Kind::Subroutine);
    EXPECT_FALSE(subroutine.hasImplementation());
    EXPECT_EQ(subroutine.getBody(), nullptr);
    EXPECT_EQ(subroutine.getParameterCount(), 0U);
    EXPECT_EQ(subroutine.getParameter(0), nullptr);
    subroutine.setBody(block());
    BlockStatement* const body = subroutine.getBody();
    for (const char* name : {"a", "b"})
        subroutine.appendParameter(std::make_unique<VariableDeclaration>(name, nullptr));
    EXPECT_TRUE(subroutine.hasImplementation());
    EXPECT_EQ(subroutine.getBody(), body);
    EXPECT_EQ(subroutine.getChild(2), body);
    EXPECT_EQ(subroutine.getParameterCount(), 2U);
    EXPECT_EQ(subroutine.getParameter(0)->getName(), "a");
    EXPECT_EQ(subroutine.getParameter(1)->getName(), "b");
    EXPECT_EQ(subroutine.getParameter(2), nullptr);
    EXPECT_EQ(subroutine.getKind(), SubroutineDeclaration::Kind::Subroutine);
    subroutine.setBody(nullptr);
    EXPECT_FALSE(subroutine.hasImplementation());
    EXPECT_EQ(subroutine.getParameterCount(), 2U);
}

TEST(DeclarationsTest, SubroutinesAreSeenFromOtherFilesUnlessStatic) {
    SubroutineDeclaration subroutine("f", nullptr);
    EXPECT_TRUE(subroutine.hasExternalLinkage());
    EXPECT_FALSE(subroutine.isInline());
    EXPECT_FALSE(subroutine.isNoReturn());
    subroutine.setStorageClass(StorageClass::Extern);
    EXPECT_TRUE(subroutine.hasExternalLinkage());
    subroutine.setStorageClass(StorageClass::Static);
    subroutine.setInline(true);
    subroutine.setNoReturn(true);
    EXPECT_FALSE(subroutine.hasExternalLinkage());
    EXPECT_TRUE(subroutine.isInline());
    EXPECT_TRUE(subroutine.isNoReturn());
}

TEST(DeclarationsTest, TypesHoldTheirMembers) {
    RecordDeclaration record("r", RecordDeclaration::Kind::Union);
    EXPECT_FALSE(record.isComplete());
    record.setComplete(true);
    record.append(std::make_unique<FieldDeclaration>("bits", nullptr, literal("3")));
    const auto& field = static_cast<FieldDeclaration&>(*record.getChild(0));
    EXPECT_TRUE(record.isComplete());
    EXPECT_EQ(record.getKind(), RecordDeclaration::Kind::Union);
    EXPECT_EQ(field.getBitWidth(), field.getChild(0));
    EXPECT_EQ(FieldDeclaration("x", nullptr).getBitWidth(), nullptr);
    EnumDeclaration color("color");
    color.append(std::make_unique<EnumeratorDeclaration>("RED", -1, literal("-1")));
    const auto& red = static_cast<EnumeratorDeclaration&>(*color.getChild(0));
    EXPECT_FALSE(color.isComplete());
    EXPECT_EQ(red.getValue(), -1);
    EXPECT_EQ(red.getExpression(), red.getChild(0));
    TypedefDeclaration alias("word", nullptr);
    alias.appendBound(literal("2"));
    EXPECT_EQ(alias.getType(), nullptr);
    EXPECT_EQ(alias.getChildCount(), 1U);
    ModuleDeclaration module("m");
    module.append(std::make_unique<OpaqueDeclaration>("x;"));
    EXPECT_EQ(static_cast<OpaqueDeclaration&>(*module.getChild(0)).getText(), "x;");
    EXPECT_EQ(module.getChild(0)->getParent(), &module);
}

} // namespace
