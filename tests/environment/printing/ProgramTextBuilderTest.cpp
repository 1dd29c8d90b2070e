// SPDX-License-Identifier: MIT
#include "environment/printing/ProgramTextBuilder.h"

#include "environment/tessel/service/Preorder.h"
#include "tests/environment/printing/Names.h"
#include "tests/environment/printing/PrintedLines.h"
#include "tests/environment/support/EveryNode.h"

#include <gtest/gtest.h>

#include <typeinfo>

using namespace Kova;
using namespace Kova::Tessel;
using namespace Kova::Tests;
using Lines = std::vector<std::string>;

namespace {

class ProgramTextBuilderTest : public testing::Test, protected Names {
protected:
    ExpressionPtr isLess() { return binary(a(), B::Less, b()); }
    StatementPtr set(ExpressionPtr target) { return statement(assign(std::move(target), literal("1"))); }
};

TEST_F(ProgramTextBuilderTest, OpensEveryLineThatStatementsNeed) {
    auto loop = make<ForStatement>(statement(assign(a(), literal("0"))), isLess(),
                                   unary(UnaryOperator::PostIncrement, a()), block(set(c())));
    auto branch = make<IfStatement>(isLess(), block(set(a())), block(set(b()), set(c())));
    auto last = make<DoWhileStatement>(block(set(b())), isLess());
    ForStatement& forNode = *loop;
    IfStatement& ifNode = *branch;
    DoWhileStatement& doNode = *last;
    const auto root = block(std::move(loop), std::move(branch), std::move(last));
    PrintedLines out;
    out.print(*root);
    EXPECT_EQ(out.getTexts(), (Lines{"{",
                                     "    for (a = 0; a < b; a++)",
                                     "    {",
                                     "        c = 1;",
                                     "    }",
                                     "    if (a < b)",
                                     "    {",
                                     "        a = 1;",
                                     "    }",
                                     "    else",
                                     "    {",
                                     "        b = 1;",
                                     "        c = 1;",
                                     "    }",
                                     "    do",
                                     "    {",
                                     "        b = 1;",
                                     "    }",
                                     "    while (a < b);",
                                     "}"}));
    EXPECT_EQ(out.linesOf(*root), (Lines{"{", "}"}));
    EXPECT_EQ(out.linesOf(forNode), (Lines{"    for (a = 0; a < b; a++)"}));
    EXPECT_EQ(out.linesOf(*forNode.getBody()), (Lines{"    {", "    }"}));
    EXPECT_EQ(out.linesOf(*forNode.getBody()->getStatement(0)), (Lines{"        c = 1;"}));
    EXPECT_EQ(out.linesOf(ifNode), (Lines{"    if (a < b)", "    else"}));
    EXPECT_EQ(out.linesOf(*ifNode.getElseBlock()), (Lines{"    {", "    }"}));
    EXPECT_EQ(out.linesOf(doNode), (Lines{"    do", "    while (a < b);"}));
    EXPECT_EQ(out.linesOf(*doNode.getBody()), (Lines{"    {", "    }"}));
    EXPECT_TRUE(out.isWellFormed);
}

TEST_F(ProgramTextBuilderTest, OpensEachConditionOfAChainForItsOwnBranch) {
    auto second = make<IfStatement>(b(), block(set(b())), block(set(c())));
    IfStatement& inner = *second;
    const auto root = make<IfStatement>(a(), block(set(a())), block(std::move(second)));
    PrintedLines out;
    out.print(*root);
    EXPECT_EQ(out.getTexts(), (Lines{"if (a)", "{", "    a = 1;", "}", "else if (b)", "{", "    b = 1;", "}", "else",
                                     "{", "    c = 1;", "}"}));
    EXPECT_EQ(out.linesOf(*root), (Lines{"if (a)"}));
    EXPECT_EQ(out.linesOf(inner), (Lines{"else if (b)", "else"}));
    EXPECT_EQ(out.partsOf[root->getElseBlock()], (Lines{"else "}));
}

TEST_F(ProgramTextBuilderTest, PrintsAnElseBlockThatHoldsMoreThanABranchInBraces) {
    const auto root =
        make<IfStatement>(a(), block(), block(make<IfStatement>(b(), block(), nullptr), make<NullStatement>()));
    EXPECT_EQ(printed(*root), (Lines{"if (a)", "{", "}", "else", "{", "    if (b)", "    {", "    }", "    ;", "}"}));
}

TEST_F(ProgramTextBuilderTest, PrintsAnEmptyBlockAsItsBraces) {
    const auto root = block();
    PrintedLines out;
    out.print(*root);
    EXPECT_EQ(out.linesOf(*root), (Lines{"{", "}"}));
    EXPECT_EQ(out.lines.size(), 2U);
}

TEST_F(ProgramTextBuilderTest, WritesIndentationAloneAndForTheOpener) {
    const auto root = block(statement(assign(a(), b())));
    StatementBase& inner = *root->getStatement(0);
    PrintedLines out;
    Shared::ProgramTextBuilder builder(out, {});
    builder.increaseIndent();
    root->accept(builder);
    ASSERT_EQ(out.getTexts(), (Lines{"    {", "        a = b;", "    }"}));
    ASSERT_EQ(out.lines[1].parts.size(), 5U);
    EXPECT_EQ(out.lines[1].parts[0].text, "        ");
    EXPECT_EQ(out.lines[1].parts[0].node, &inner);
    EXPECT_EQ(out.lines[1].parts[1].text, "a");
    EXPECT_EQ(out.lines[1].parts[4].text, ";");
    EXPECT_EQ(out.lines[1].parts[4].node, &inner);
    EXPECT_EQ(out.lines[0].parts[0].text, "    ");
    EXPECT_EQ(out.lines[0].parts[0].node, root.get());
}

TEST_F(ProgramTextBuilderTest, PutsLabelsOneLevelOut) {
    auto body = block(make<CaseStatement>(literal("1"), nullptr), set(a()), make<BreakStatement>(),
                      make<CaseStatement>(nullptr, nullptr), set(b()));
    const auto root =
        block(make<LabelStatement>("again"), make<SwitchStatement>(a(), std::move(body)), make<GotoStatement>("again"));
    EXPECT_EQ(printed(*root),
              (Lines{"{", "again:", "    switch (a)", "    {", "    case 1:", "        a = 1;", "        break;",
                     "    default:", "        b = 1;", "    }", "    goto again;", "}"}));
}

TEST_F(ProgramTextBuilderTest, GivesALabelAStatementToMark) {
    auto here = make<LabelStatement>("here");
    LabelStatement& label = *here;
    const auto root = block(std::move(here), declareHere(intVariable("i")), make<LabelStatement>("end"));
    PrintedLines out;
    out.print(*root);
    EXPECT_EQ(out.getTexts(), (Lines{"{", "here:", "    ;", "    int i;", "end:", "    ;", "}"}));
    EXPECT_EQ(out.linesOf(label), (Lines{"here:", "    ;"}));
}

TEST_F(ProgramTextBuilderTest, PrintsAStatementExpressionOverLines) {
    const auto root =
        block(statement(assign(a(), make<StatementExpression>(block(set(b()), statement(b()))))), set(c()));
    EXPECT_EQ(printed(*root),
              (Lines{"{", "    a = (", "    {", "        b = 1;", "        b;", "    });", "    c = 1;", "}"}));
}

TEST_F(ProgramTextBuilderTest, PrintsAnyRoot) {
    EXPECT_EQ(printed(*isLess()), (Lines{"a < b"}));
    EXPECT_EQ(printed(*set(a())), (Lines{"a = 1;"}));
    EXPECT_EQ(printed(*make<LabelStatement>("end")), (Lines{"end:"}));
    EXPECT_EQ(printed(*make<FieldDeclaration>("x", intType)), (Lines{"int x;"}));
    EXPECT_EQ(printed(*make<TypedefDeclaration>("word", types.pointer(intType))), (Lines{"typedef int *word;"}));
    EXPECT_EQ(printed(*make<OpaqueDeclaration>("_Static_assert(1, \"\");")), (Lines{"_Static_assert(1, \"\");"}));
    EXPECT_EQ(printed(*make<EnumeratorDeclaration>("RED", 0, literal("7"))), (Lines{"RED = 7"}));
    VariableDeclaration parameter("n", intType);
    EXPECT_EQ(printed(parameter), (Lines{"int n;"}));
    parameter.setParameter(true);
    EXPECT_EQ(printed(parameter), (Lines{"int n"}));
    SubroutineDeclaration subroutine("f", types.function(intType, {}));
    EXPECT_EQ(printed(subroutine), (Lines{"int f(void);"}));
    subroutine.setBody(block(make<ReturnStatement>(literal("0"))));
    EXPECT_EQ(printed(subroutine), (Lines{"int f(void)", "{", "    return 0;", "}"}));
}

TEST_F(ProgramTextBuilderTest, PrintsAStatementCutOutOfItsProgram) {
    const auto owner = block(set(a()));
    const StatementPtr cut = owner->take(0);
    EXPECT_EQ(printed(*cut), (Lines{"a = 1;"}));
}

TEST_F(ProgramTextBuilderTest, PrintsFilesUnderTheirNames) {
    ProgramUnit program;
    TranslationUnit& first = addUnit(program, "a.c");
    first.appendSystemInclude("<stdio.h>");
    first.appendSystemInclude("\"my \\ own.h\"");
    define(first, "f");
    addUnit(program, "odd*/\n.c");
    EXPECT_EQ(printed(first), (Lines{"#include <stdio.h>", "#include \"my \\ own.h\"", "", "f", "{", "}"}));
    EXPECT_EQ(printed(program), (Lines{"/* a.c */", "#include <stdio.h>", "#include \"my \\ own.h\"", "", "f", "{", "}",
                                       "", "/* odd*??.c */", ""}));
}

TEST_F(ProgramTextBuilderTest, SetsLongDeclarationsApart) {
    ProgramUnit program;
    TranslationUnit& unit = addUnit(program, "a.c");
    unit.append(make<VariableDeclaration>("i", intType));
    unit.append(make<VariableDeclaration>("c", charType));
    unit.append(make<SubroutineDeclaration>("f", types.function(intType, {})));
    unit.append(make<SubroutineDeclaration>("g", types.function(intType, {})));
    unit.append(record("r"));
    define(unit, "h");
    EXPECT_EQ(printed(unit), (Lines{"int i;", "char c;", "", "int f(void);", "int g(void);", "", "struct r", "{",
                                    "    int x;", "};", "", "h", "{", "}"}));
}

TEST_F(ProgramTextBuilderTest, LeavesEmptyLinesEmptyWhateverTheIndent) {
    ProgramUnit program;
    TranslationUnit& unit = addUnit(program, "a.c");
    define(unit, "f");
    define(unit, "g");
    PrintedLines out;
    Shared::ProgramTextBuilder builder(out, {});
    builder.increaseIndent();
    unit.accept(builder);
    EXPECT_EQ(out.getTexts(), (Lines{"    f", "    {", "    }", "", "    g", "    {", "    }"}));
}

TEST_F(ProgramTextBuilderTest, PrintsFortranExpressionsInFortranUnits) {
    ProgramUnit program;
    TranslationUnit& unit = addUnit(program, "a.f90", LANG_FORTRAN);
    auto module = make<ModuleDeclaration>("m");
    SubroutineDeclaration& f = define(*module, "f");
    perform(f, assign(a(), subscript(b(), c(), literal("2"))));
    unit.append(std::move(module));
    EXPECT_EQ(printed(program),
              (Lines{"! a.f90", "MODULE m", "    f", "    {", "        a = b(c, 2);", "    }", "END MODULE m"}));
}

TEST_F(ProgramTextBuilderTest, PrintsEveryKindOfNodeAlone) {
    EveryNode every;
    for (const auto& node : every.nodes) {
        PrintedLines out;
        out.print(*node);
        EXPECT_NE(out.partsOf.count(node.get()), 0U) << typeid(*node).name();
        EXPECT_TRUE(out.isWellFormed) << typeid(*node).name();
        EXPECT_GE(out.lines.size(), 1U);
    }
}

} // namespace
