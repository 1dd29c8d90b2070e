// SPDX-License-Identifier: MIT
// How lines of the preprocessor stand among what they speak of.
#include "environment/tessel/CaseStatement.h"
#include "environment/tessel/LabelStatement.h"
#include "environment/tessel/OpaqueDeclaration.h"
#include "environment/tessel/OpaqueStatement.h"
#include "tests/environment/printing/Names.h"
#include "tests/environment/printing/PrintedLines.h"

#include <gtest/gtest.h>

using namespace Kova;
using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

using Lines = std::vector<std::string>;

StatementPtr directive(const std::string& text) {
    return std::make_unique<OpaqueStatement>(text);
}

TEST(ProgramTextDirectivesTest, HaveLinesOfTheirOwnAtTheirLevel) {
    const auto root = block(directive("#pragma omp parallel"), block(directive("#pragma omp single")));
    PrintedLines out;
    out.print(*root);
    EXPECT_EQ(out.getTexts(),
              (Lines{"{", "    #pragma omp parallel", "    {", "        #pragma omp single", "    }", "}"}));
    EXPECT_EQ(out.linesOf(*root->getStatement(0)), (Lines{"    #pragma omp parallel"}));
}

TEST(ProgramTextDirectivesTest, AreNothingThatALabelCouldMark) {
    Names names;
    auto declaration = std::make_unique<DeclarationStatement>();
    declaration->append(names.variable("v", names.intType));
    const auto root =
        block(std::make_unique<LabelStatement>("l"), directive("#pragma a"), directive("#pragma b"),
              std::move(declaration), std::make_unique<LabelStatement>("m"), directive("#pragma c"),
              statement(names.a()), std::make_unique<CaseStatement>(nullptr, nullptr), directive("#pragma d"));
    EXPECT_EQ(printed(*root), (Lines{"{", "l:", "    ;", "    #pragma a", "    #pragma b", "    int v;",
                                     "m:", "    #pragma c", "    a;", "default:", "    ;", "    #pragma d", "}"}));
}

TEST(ProgramTextDirectivesTest, StandRightBeforeTheDeclarationTheySpeakOf) {
    Names names;
    ProgramUnit program;
    TranslationUnit& unit = addUnit(program, "a.c");
    unit.append(names.variable("a", names.intType));
    unit.append(std::make_unique<OpaqueDeclaration>("#pragma one"));
    unit.append(std::make_unique<OpaqueDeclaration>("#pragma two"));
    unit.append(names.variable("b", names.intType));
    unit.append(std::make_unique<OpaqueDeclaration>("_Static_assert(1, \"\");"));
    unit.append(std::make_unique<OpaqueDeclaration>("#pragma three"));
    auto subroutine = std::make_unique<SubroutineDeclaration>("f", names.types.function(names.intType, {}));
    subroutine->setBody(block());
    unit.append(std::move(subroutine));
    EXPECT_EQ(printed(unit), (Lines{"int a;", "", "#pragma one", "#pragma two", "int b;", "",
                                    "_Static_assert(1, \"\");", "", "#pragma three", "int f(void)", "{", "}"}));
}

} // namespace
