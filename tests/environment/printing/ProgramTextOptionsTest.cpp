// SPDX-License-Identifier: MIT
// What the options of the program text builder hide.
#include "environment/printing/ProgramTextBuilder.h"
#include "tests/environment/printing/Names.h"
#include "tests/environment/printing/PrintedLines.h"
#include "tests/environment/support/EveryNode.h"

#include <gtest/gtest.h>

using namespace Kova;
using namespace Kova::Tessel;
using namespace Kova::Tests;
using Lines = std::vector<std::string>;
using Options = Shared::ProgramTextBuilder::Options;

namespace {

class ProgramTextOptionsTest : public testing::Test, protected Names {
protected:
    ProgramTextOptionsTest() : m_unit(addUnit(m_program, "a.c")) {}

    ProgramUnit m_program;
    TranslationUnit& m_unit;
};

TEST_F(ProgramTextOptionsTest, HideNothingByDefault) {
    const Options options;
    EXPECT_FALSE(options.hidePrototypes);
    EXPECT_FALSE(options.hideVariables);
    EXPECT_FALSE(options.hideTypedefs);
    EXPECT_FALSE(options.hideExternalDeclarations);
}

TEST_F(ProgramTextOptionsTest, AreEqualWhenAllFourAre) {
    for (bool Options::*flag : {&Options::hidePrototypes, &Options::hideVariables, &Options::hideTypedefs,
                                &Options::hideExternalDeclarations}) {
        Options changed;
        changed.*flag = true;
        EXPECT_FALSE(changed == Options());
        EXPECT_TRUE(changed != Options());
        EXPECT_TRUE(changed == changed);
    }
    EXPECT_TRUE(Options() == Options());
}

TEST_F(ProgramTextOptionsTest, HideEachKindAtFileLevel) {
    m_unit.appendSystemInclude("<stdio.h>");
    m_unit.append(make<SubroutineDeclaration>("f", types.function(intType, {})));
    m_unit.append(make<TypedefDeclaration>("word", intType));
    m_unit.append(record("s"));
    m_unit.append(intVariable("g"));
    auto elsewhere = intVariable("e");
    elsewhere->setStorageClass(StorageClass::Extern);
    m_unit.append(std::move(elsewhere));
    define(m_unit, "h");
    const Lines include = {"#include <stdio.h>", ""};
    const Lines prototype = {"int f(void);", ""};
    const Lines alias = {"typedef int word;", ""};
    const Lines structure = {"struct s", "{", "    int x;", "};", ""};
    const Lines variables = {"int g;", "extern int e;", ""};
    const Lines body = {"h", "{", "}"};
    const auto joined = [](const std::vector<Lines>& parts) {
        Lines all;
        for (const Lines& part : parts)
            all.insert(all.end(), part.begin(), part.end());
        return all;
    };
    EXPECT_EQ(printed(m_unit), joined({include, prototype, alias, structure, variables, body}));
    EXPECT_EQ(printed(m_unit, {true, false, false, false}), joined({include, alias, structure, variables, body}));
    EXPECT_EQ(printed(m_unit, {false, true, false, false}), joined({include, prototype, alias, structure, body}));
    EXPECT_EQ(printed(m_unit, {false, false, true, false}), joined({include, prototype, variables, body}));
    EXPECT_EQ(printed(m_unit, {false, false, false, true}),
              joined({prototype, alias, structure, {"int g;", ""}, body}));
    EXPECT_EQ(printed(m_unit, {true, true, true, true}), body);
}

TEST_F(ProgramTextOptionsTest, HideLocalVariablesButNoAction) {
    auto vla = call(f(), a());
    const Type* vlaType = arrayOf(intType, *vla);
    auto array = make<VariableDeclaration>("v", vlaType);
    array->appendBound(std::move(vla));
    const auto root =
        block(declareHere(intVariable("i"), intVariable("j", literal("0"))), declareHere(intVariable("k", a())),
              declareHere(intVariable("m"), intVariable("n", call(f(), a()))), declareHere(std::move(array)),
              declareHere(intVariable("p", unary(UnaryOperator::PostIncrement, a()))), statement(assign(a(), b())));
    EXPECT_EQ(printed(*root, {false, true, false, false}),
              (Lines{"{", "    int n = f(a);", "    int v[f(a)];", "    int p = a++;", "    a = b;", "}"}));
    EXPECT_EQ(printed(*root), (Lines{"{", "    int i, j = 0;", "    int k = a;", "    int m, n = f(a);",
                                     "    int v[f(a)];", "    int p = a++;", "    a = b;", "}"}));
}

TEST_F(ProgramTextOptionsTest, KeepParametersFieldsAndLoopCounters) {
    auto subroutine = make<SubroutineDeclaration>("f", types.function(intType, {intType}));
    subroutine->appendParameter(intVariable("n"));
    subroutine->setBody(block(make<ForStatement>(declareHere(intVariable("i", literal("0"))), a(), b(), block())));
    m_unit.append(std::move(subroutine));
    auto outer = record("s");
    outer->append(record("inner"));
    EXPECT_EQ(printed(m_unit, {true, true, true, true}),
              (Lines{"int f(int n)", "{", "    for (int i = 0; a; b)", "    {", "    }", "}"}));
    EXPECT_EQ(printed(*outer, {true, true, true, true}),
              (Lines{"struct s", "{", "    int x;", "    struct inner", "    {", "        int x;", "    };", "};"}));
}

TEST_F(ProgramTextOptionsTest, KeepWhatIsAskedFor) {
    const Options all = {true, true, true, true};
    EXPECT_EQ(printed(*intVariable("i"), all), (Lines{"int i;"}));
    EXPECT_EQ(printed(*declareHere(intVariable("i")), all), (Lines{"int i;"}));
    EXPECT_EQ(printed(*make<TypedefDeclaration>("word", intType), all), (Lines{"typedef int word;"}));
    SubroutineDeclaration prototype("f", types.function(intType, {}));
    EXPECT_EQ(printed(prototype, all), (Lines{"int f(void);"}));
}

TEST_F(ProgramTextOptionsTest, HideTypesAndVariablesThatAreDeclaredTogether) {
    auto unnamed = record("");
    const Type* unnamedType = types.declared(*unnamed);
    m_unit.append(std::move(unnamed));
    m_unit.append(make<VariableDeclaration>("u", unnamedType));
    auto constants = emptyEnum("");
    constants->append(make<EnumeratorDeclaration>("ONE", 1, nullptr));
    const Type* constantType = types.declared(*constants);
    m_unit.append(std::move(constants));
    m_unit.append(make<VariableDeclaration>("e", constantType));
    define(m_unit, "h");
    // The shape of `u` is said nowhere else; the constants can be used without `e`.
    EXPECT_EQ(printed(m_unit, {false, false, true, false}),
              (Lines{"struct", "{", "    int x;", "} u;", "", "enum", "{", "    ONE", "} e;", "", "h", "{", "}"}));
    EXPECT_EQ(printed(m_unit, {false, true, false, false}), (Lines{"enum", "{", "    ONE", "};", "", "h", "{", "}"}));
}

TEST_F(ProgramTextOptionsTest, HidePrototypesAmongStatements) {
    const auto root = block(declareHere(make<SubroutineDeclaration>("f", types.function(intType, {}))));
    EXPECT_EQ(printed(*root, {true, false, false, false}), (Lines{"{", "}"}));
    EXPECT_EQ(printed(*root), (Lines{"{", "    int f(void);", "}"}));
}

} // namespace
