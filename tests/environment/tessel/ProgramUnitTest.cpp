// SPDX-License-Identifier: MIT
#include "environment/tessel/ProgramUnit.h"

#include "tests/environment/support/Build.h"

#include <gtest/gtest.h>

using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

TEST(ProgramUnitTest, HoldsUnitsInTheOrderRead) {
    ProgramUnit program;
    auto& b = addUnit(program, "b.c");
    auto& a = addUnit(program, "a.f90", LANG_FORTRAN);
    EXPECT_EQ(program.getChildCount(), 2U);
    EXPECT_EQ(program.getTranslationUnit(0), &b);
    EXPECT_EQ(program.getTranslationUnit(1), &a);
    EXPECT_EQ(program.getTranslationUnit(2), nullptr);
    EXPECT_EQ(a.getParent(), &program);
    EXPECT_EQ(b.getPath(), "b.c");
    EXPECT_EQ(b.getSourceLanguage(), LANG_C);
    EXPECT_EQ(a.getSourceLanguage(), LANG_FORTRAN);
    EXPECT_EQ(static_cast<int>(LANG_C), 0);
}

TEST(ProgramUnitTest, MakesOneSourceFileOfAPath) {
    ProgramUnit program;
    const SourceFile* a = program.obtainSourceFile("a.c");
    const SourceFile* b = program.obtainSourceFile("b.c");
    EXPECT_NE(a, b);
    for (int i = 0; i < 100; ++i)
        (void)program.obtainSourceFile(std::to_string(i));
    EXPECT_EQ(program.obtainSourceFile("a.c"), a);
    EXPECT_EQ(a->getPath(), "a.c");
}

TEST(ProgramUnitTest, KeepsDiagnosticsInOrder) {
    ProgramUnit program;
    EXPECT_TRUE(program.getDiagnostics().empty());
    program.appendDiagnostic({Diagnostic::Level::Error, "a.c", 1, 1, "first"});
    program.appendDiagnostic({Diagnostic::Level::Note, "a.c", 1, 1, "second"});
    ASSERT_EQ(program.getDiagnostics().size(), 2U);
    EXPECT_EQ(program.getDiagnostics()[1].text, "second");
}

TEST(ProgramUnitTest, KeepsSystemDeclarationsApart) {
    ProgramUnit program;
    auto& unit = addUnit(program, "a.c");
    auto& main = define(unit, "main");
    auto external = std::make_unique<SubroutineDeclaration>("printf", nullptr);
    const SubroutineDeclaration& print = *external;
    EXPECT_FALSE(print.isExternal());
    unit.appendExternal(std::move(external));
    unit.appendSystemInclude("<stdio.h>");
    EXPECT_TRUE(print.isExternal());
    EXPECT_FALSE(main.isExternal());
    EXPECT_EQ(print.getParent(), &unit);
    EXPECT_EQ(unit.getChildCount(), 1U);
    EXPECT_EQ(unit.getDeclaration(0), &main);
    EXPECT_EQ(unit.getDeclaration(1), nullptr);
    ASSERT_EQ(unit.getExternalDeclarations().size(), 1U);
    EXPECT_EQ(unit.getExternalDeclarations()[0].get(), &print);
    EXPECT_EQ(unit.getSystemIncludes(), std::vector<std::string>{"<stdio.h>"});
}

} // namespace
