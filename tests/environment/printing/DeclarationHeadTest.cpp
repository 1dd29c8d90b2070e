// SPDX-License-Identifier: MIT
#include "environment/printing/DeclarationHead.h"

#include "environment/tessel/ModuleDeclaration.h"
#include "environment/tessel/OpaqueDeclaration.h"
#include "environment/tessel/TypedefDeclaration.h"
#include "tests/environment/printing/Names.h"

#include <gtest/gtest.h>

using namespace Kova;
using namespace Kova::Backends;
using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

class DeclarationHeadTest : public testing::Test, protected Names {
protected:
    DeclarationHeadTest() {
        // Every declaration has one, so that what differs is the class of the declaration.
        for (DeclarationBase* declaration : std::vector<DeclarationBase*>{
                 &variableV, &field, &alias, &subroutine, &structure, &enumeration, &enumerator, &opaqueText, &module})
            declaration->setAttributes("__attribute__((x))");
    }
    std::string before(const std::string& attributes) {
        variableV.setAttributes(attributes);
        return DeclarationHead::wordsBefore(variableV);
    }
    std::string behind(const std::string& attributes) {
        variableV.setAttributes(attributes);
        return DeclarationHead::wordsBehind(variableV);
    }

    VariableDeclaration variableV{"v", intType};
    FieldDeclaration field{"m", intType};
    TypedefDeclaration alias{"t", intType};
    SubroutineDeclaration subroutine{"f", types.function(intType, {})};
    RecordDeclaration structure{"s", RecordDeclaration::Kind::Struct};
    EnumDeclaration enumeration{"e"};
    EnumeratorDeclaration enumerator{"E", 0, nullptr};
    OpaqueDeclaration opaqueText{"_Static_assert(1, \"\");"};
    ModuleDeclaration module{"m"};
};

TEST_F(DeclarationHeadTest, KnowsTheTypeOfDeclarators) {
    EXPECT_EQ(DeclarationHead::typeOf(variableV), intType);
    EXPECT_EQ(DeclarationHead::typeOf(field), intType);
    EXPECT_EQ(DeclarationHead::typeOf(alias), intType);
    for (const DeclarationBase* other :
         std::vector<DeclarationBase*>{&subroutine, &structure, &enumeration, &enumerator, &opaqueText, &module})
        EXPECT_EQ(DeclarationHead::typeOf(*other), nullptr);
}

TEST_F(DeclarationHeadTest, PutsAttributesBeforeStorage) {
    EXPECT_EQ(DeclarationHead::wordsBefore(variableV), "__attribute__((x)) ");
    EXPECT_EQ(DeclarationHead::wordsBefore(field), "__attribute__((x)) ");
    EXPECT_EQ(DeclarationHead::wordsBefore(alias), "__attribute__((x)) typedef ");
    variableV.setStorageClass(StorageClass::StaticThreadLocal);
    EXPECT_EQ(DeclarationHead::wordsBefore(variableV), "__attribute__((x)) static _Thread_local ");
    EXPECT_EQ(before(""), "static _Thread_local ");
    EXPECT_EQ(before("  "), "static _Thread_local ");
}

TEST_F(DeclarationHeadTest, PutsAttributesOfOldStyleParametersBehind) {
    SubroutineDeclaration old("f", types.function(intType, {}, FunctionType::Parameters::Unspecified));
    auto owned = variable("p", intType);
    VariableDeclaration& parameter = *owned;
    parameter.setParameter(true);
    parameter.setStorageClass(StorageClass::Register);
    parameter.setAttributes("__attribute__((x))");
    old.appendParameter(std::move(owned));
    EXPECT_EQ(DeclarationHead::wordsBefore(parameter), "__attribute__((x)) register ");
    EXPECT_EQ(DeclarationHead::wordsBehind(parameter), "");
    old.setBody(block());
    EXPECT_EQ(DeclarationHead::wordsBefore(parameter), "register ");
    EXPECT_EQ(DeclarationHead::wordsBehind(parameter), " __attribute__((x))");
}

TEST_F(DeclarationHeadTest, SaysWhatASubroutineIs) {
    subroutine.setInline(true);
    subroutine.setNoReturn(true);
    subroutine.setStorageClass(StorageClass::Extern);
    EXPECT_EQ(DeclarationHead::wordsBefore(subroutine), "__attribute__((x)) extern inline _Noreturn ");
    // Said once is enough.
    subroutine.setAttributes("__attribute__((noreturn))");
    EXPECT_EQ(DeclarationHead::wordsBefore(subroutine), "__attribute__((noreturn)) extern inline ");
}

TEST_F(DeclarationHeadTest, PutsTheAssemblersNameBehind) {
    EXPECT_EQ(before("asm(\"g\")"), "");
    EXPECT_EQ(behind("asm(\"g\")"), " asm(\"g\")");
    for (const char* name : {"asm(\"g\")", "asm (\"g\")", "__asm__(\"g\")", "__asm__ (\"g\" \"h\")"}) {
        const std::string one = "__attribute__((x)) " + std::string(name);
        EXPECT_EQ(before(one), "__attribute__((x)) ");
        EXPECT_EQ(behind(one), " " + std::string(name));
        const std::string other = std::string(name) + " __attribute__((x))";
        EXPECT_EQ(before(other), "__attribute__((x)) ");
        EXPECT_EQ(behind(other), " " + std::string(name));
        const std::string both = "__attribute__((x)) " + std::string(name) + " __attribute__((y))";
        EXPECT_EQ(before(both), "__attribute__((x)) __attribute__((y)) ");
        EXPECT_EQ(behind(both), " " + std::string(name));
    }
}

TEST_F(DeclarationHeadTest, LooksForTheAssemblersNameWhereItCanBe) {
    EXPECT_EQ(behind("asm(\"odd)name(\") __attribute__((x))"), " asm(\"odd)name(\")");
    EXPECT_EQ(before("asm(\"odd)name(\") __attribute__((x))"), "__attribute__((x)) ");
    EXPECT_EQ(behind("asm(\"quoted\\\")\")"), " asm(\"quoted\\\")\")");
    for (const char* none : {"__attribute__((annotate(\"an asm(\\\"g\\\")\")))", "__attribute__(( asm(\"g\") ))",
                             "noasm(\"g\")", "asm", ""})
        EXPECT_EQ(behind(none), "") << none;
    EXPECT_EQ(behind("asm(\"open"), " asm(\"open");
}

TEST_F(DeclarationHeadTest, IsSharedByDeclaratorsOfOneSpecifier) {
    const auto canShare = [this](const Type* a, const Type* b) {
        return DeclarationHead::canShare(VariableDeclaration("a", a), VariableDeclaration("b", b));
    };
    const Type* constInt = types.basic("int", BasicType::Category::SignedInteger, 32, Type::Const);
    EXPECT_TRUE(canShare(intType, types.pointer(types.pointer(intType, Type::Const))));
    EXPECT_TRUE(canShare(arrayOf(intType, 3), types.pointer(types.function(intType, {charType}))));
    EXPECT_TRUE(canShare(constInt, types.pointer(constInt)));
    EXPECT_FALSE(canShare(constInt, types.pointer(intType)));
    EXPECT_FALSE(canShare(intType, charType));
    EXPECT_FALSE(canShare(intType, nullptr));
}

TEST_F(DeclarationHeadTest, IsSharedWhenAllWordsBeforeAreEqual) {
    VariableDeclaration other("w", types.pointer(intType));
    EXPECT_FALSE(DeclarationHead::canShare(variableV, other));
    other.setAttributes("__attribute__((x)) asm(\"w\")");
    EXPECT_TRUE(DeclarationHead::canShare(variableV, other));
    other.setStorageClass(StorageClass::Static);
    EXPECT_FALSE(DeclarationHead::canShare(variableV, other));
    EXPECT_FALSE(DeclarationHead::canShare(variableV, alias));
    EXPECT_FALSE(DeclarationHead::canShare(variableV, subroutine));
    EXPECT_FALSE(DeclarationHead::canShare(structure, structure));
}

TEST_F(DeclarationHeadTest, EndsWithASemicolonUnlessSomethingElseEndsIt) {
    for (const DeclarationBase* declaration :
         std::vector<DeclarationBase*>{&variableV, &field, &alias, &subroutine, &structure, &enumeration})
        EXPECT_TRUE(DeclarationHead::endsWithSemicolon(*declaration));
    EXPECT_FALSE(DeclarationHead::endsWithSemicolon(opaqueText));
    EXPECT_FALSE(DeclarationHead::endsWithSemicolon(module));
    subroutine.setBody(block());
    EXPECT_FALSE(DeclarationHead::endsWithSemicolon(subroutine));
}

} // namespace
