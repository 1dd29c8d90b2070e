// SPDX-License-Identifier: MIT
// How declarations that the source writes as one are printed as one.
#include "environment/printing/ProgramTextBuilder.h"
#include "environment/tessel/SourceFile.h"
#include "tests/environment/printing/Names.h"
#include "tests/environment/printing/PrintedLines.h"
#include "tests/environment/support/EveryNode.h"

#include <gtest/gtest.h>

using namespace Kova;
using namespace Kova::Tessel;
using namespace Kova::Tests;
using Lines = std::vector<std::string>;

namespace {

class ProgramTextDeclarationsTest : public testing::Test, protected Names {
protected:
    ProgramTextDeclarationsTest() : m_unit(addUnit(m_program, "a.c")) {}

    template <class T>
    std::unique_ptr<T> at(std::unique_ptr<T> node, std::uint32_t beginColumn, std::uint32_t endColumn) {
        node->setSourceRange({m_program.obtainSourceFile("a.c"), 1, beginColumn, 1, endColumn});
        return node;
    }

    ProgramUnit m_program;
    TranslationUnit& m_unit;
};

TEST_F(ProgramTextDeclarationsTest, ShareTheirSpecifierWhereTheSourceDoes) {
    m_unit.append(at(make<VariableDeclaration>("i", intType), 1, 5));
    m_unit.append(at(make<VariableDeclaration>("p", types.pointer(intType)), 1, 9));
    m_unit.append(at(make<VariableDeclaration>("j", intType), 12, 16));
    m_unit.append(make<VariableDeclaration>("k", intType));
    EXPECT_EQ(printed(m_unit), (Lines{"int i, *p;", "int j;", "int k;"}));
}

TEST_F(ProgramTextDeclarationsTest, DefineAStructureWhereTheSourceDoes) {
    auto inside = at(record("s"), 9, 20);
    const Type* type = types.declared(*inside);
    m_unit.append(std::move(inside));
    m_unit.append(at(make<TypedefDeclaration>("s_type", type), 1, 22));
    m_unit.append(at(make<TypedefDeclaration>("s_pointer", types.pointer(type)), 1, 30));
    m_unit.append(at(make<VariableDeclaration>("v", type), 40, 50));
    EXPECT_EQ(printed(m_unit),
              (Lines{"typedef struct s", "{", "    int x;", "} s_type, *s_pointer;", "", "struct s v;"}));
}

TEST_F(ProgramTextDeclarationsTest, MentionAStructureWhereTheSourceDoes) {
    auto definition = at(record("s"), 50, 60);
    const Type* type = types.declared(*definition);
    m_unit.append(at(make<RecordDeclaration>("s", RecordDeclaration::Kind::Struct), 9, 16));
    m_unit.append(at(make<TypedefDeclaration>("s_type", type), 1, 18));
    m_unit.append(std::move(definition));
    PrintedLines out;
    out.print(m_unit);
    EXPECT_EQ(out.getTexts(), (Lines{"typedef struct s s_type;", "", "struct s", "{", "    int x;", "};"}));
    EXPECT_EQ(out.partsOf[m_unit.getDeclaration(0)], (Lines{"struct s"}));
}

TEST_F(ProgramTextDeclarationsTest, DefineAMembersTypeWithTheMember) {
    auto outer = emptyRecord("outer");
    auto inner = record("inner");
    const Type* type = types.declared(*inner);
    outer->append(std::move(inner));
    outer->append(make<FieldDeclaration>("in", type));
    outer->append(make<FieldDeclaration>("again", type));
    EXPECT_EQ(printed(*outer), (Lines{"struct outer", "{", "    struct inner", "    {", "        int x;", "    } in;",
                                      "    struct inner again;", "};"}));
}

TEST_F(ProgramTextDeclarationsTest, DefineATypeInsideALoopHeader) {
    auto inner = record("s");
    const Type* type = types.declared(*inner);
    auto header = declareHere(std::move(inner), variable("v", type));
    const auto root = make<ForStatement>(std::move(header), nullptr, nullptr, block());
    EXPECT_EQ(printed(*root), (Lines{"for (struct s", "{", "    int x;", "} v;;)", "{", "}"}));
}

TEST_F(ProgramTextDeclarationsTest, PrintOldStyleDefinitionsAsSuch) {
    auto old = make<SubroutineDeclaration>("f", types.function(intType, {}, FunctionType::Parameters::Unspecified));
    old->appendParameter(make<VariableDeclaration>("c", charType));
    old->appendParameter(make<VariableDeclaration>("p", types.pointer(intType)));
    old->setBody(block());
    PrintedLines out;
    out.print(*old);
    EXPECT_EQ(out.getTexts(), (Lines{"int f(c, p)", "char c;", "int *p;", "{", "}"}));
    EXPECT_EQ(out.linesOf(*old->getParameter(1)), (Lines{"int *p;"}));
}

TEST_F(ProgramTextDeclarationsTest, NameTheParametersOfADefinitionWhoseTypeHasAName) {
    TypedefDeclaration alias("handler", types.function(intType, {charType}));
    SubroutineDeclaration subroutine("f", types.declared(alias));
    subroutine.appendParameter(make<VariableDeclaration>("c", charType));
    EXPECT_EQ(printed(subroutine), (Lines{"handler f;"}));
    subroutine.setBody(block());
    EXPECT_EQ(printed(subroutine), (Lines{"int f(char c)", "{", "}"}));
}

TEST_F(ProgramTextDeclarationsTest, PutTheAssemblersNameBehindTheDeclarator) {
    SubroutineDeclaration subroutine("f", types.function(intType, {}));
    subroutine.setAttributes("__attribute__((noinline)) asm(\"g\")");
    EXPECT_EQ(printed(subroutine), (Lines{"__attribute__((noinline)) int f(void) asm(\"g\");"}));
    VariableDeclaration variable("v", intType, literal("1"));
    variable.setAttributes("asm(\"w\")");
    EXPECT_EQ(printed(variable), (Lines{"int v asm(\"w\") = 1;"}));
}

TEST_F(ProgramTextDeclarationsTest, PrintListsInListsOneALine) {
    auto list = make<InitializerListExpression>();
    for (int i = 0; i < 3; ++i) {
        auto inner = make<InitializerListExpression>();
        inner->append(literal("1"));
        inner->append(literal("2"));
        list->append(std::move(inner));
    }
    VariableDeclaration variable("v", arrayOf(arrayOf(intType, 2), 3), std::move(list));
    EXPECT_EQ(printed(variable), (Lines{"int v[3][2] = {", "    { 1, 2 },", "    { 1, 2 },", "    { 1, 2 }", "};"}));
}

} // namespace
