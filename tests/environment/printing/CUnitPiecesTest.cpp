// SPDX-License-Identifier: MIT
#include "environment/printing/CUnitPieces.h"

#include "environment/tessel/ModuleDeclaration.h"
#include "environment/tessel/OpaqueDeclaration.h"
#include "environment/tessel/TypedefDeclaration.h"
#include "tests/environment/printing/Names.h"
#include "tests/environment/printing/PrintedLines.h"

#include <gtest/gtest.h>

using namespace Kova;
using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

using Lines = std::vector<std::string>;

class CUnitPiecesTest : public testing::Test, protected Names {
protected:
    std::unique_ptr<SubroutineDeclaration> prototype(const std::string& name) {
        return make<SubroutineDeclaration>(name, types.function(intType, {}));
    }

    ProgramUnit program;
    TranslationUnit& unit = addUnit(program, "a.c");
};

TEST_F(CUnitPiecesTest, WritesOneEmptyLineForAnEmptyFile) {
    EXPECT_EQ(printed(unit), (Lines{""}));
}

TEST_F(CUnitPiecesTest, WritesSystemHeadersUnderWhatIsChosenOfThem) {
    unit.appendSystemInclude("<stdio.h>");
    unit.appendSystemInclude("\"system/odd.h\"");
    unit.appendSystemChoice("_GNU_SOURCE 1");
    unit.appendSystemChoice("NDEBUG");
    PrintedLines out;
    out.print(unit);
    EXPECT_EQ(out.getTexts(),
              (Lines{"#define _GNU_SOURCE 1", "#define NDEBUG", "#include <stdio.h>", "#include \"system/odd.h\""}));
    EXPECT_EQ(out.linesOf(unit), out.getTexts());
    unit.append(intVariable("v"));
    EXPECT_EQ(printed(unit), (Lines{"#define _GNU_SOURCE 1", "#define NDEBUG", "#include <stdio.h>",
                                    "#include \"system/odd.h\"", "", "int v;"}));
    EXPECT_EQ(printed(unit, {false, false, false, true}), (Lines{"int v;"}));
}

TEST_F(CUnitPiecesTest, WritesSystemHeadersInFilesOfCOnly) {
    TranslationUnit& other = addUnit(program, "a.f90", LANG_FORTRAN);
    other.appendSystemInclude("<stdio.h>");
    other.appendSystemChoice("X");
    EXPECT_EQ(printed(other), (Lines{""}));
}

TEST_F(CUnitPiecesTest, WritesAParagraphForEachKind) {
    unit.append(intVariable("i"));
    unit.append(intVariable("j"));
    unit.append(prototype("f"));
    unit.append(prototype("g"));
    unit.append(make<TypedefDeclaration>("word", intType));
    unit.append(make<RecordDeclaration>("s", RecordDeclaration::Kind::Struct));
    unit.append(make<EnumDeclaration>("e"));
    unit.append(make<OpaqueDeclaration>("_Static_assert(1, \"\");"));
    unit.append(make<OpaqueDeclaration>("_Static_assert(2, \"\");"));
    unit.append(intVariable("k"));
    EXPECT_EQ(printed(unit),
              (Lines{"int i;", "int j;", "", "int f(void);", "int g(void);", "", "typedef int word;", "struct s;",
                     "enum e;", "", "_Static_assert(1, \"\");", "_Static_assert(2, \"\");", "", "int k;"}));
}

TEST_F(CUnitPiecesTest, SetsEachLongDeclarationApart) {
    unit.append(record("s"));
    unit.append(record("t"));
    auto color = emptyEnum("color");
    color->append(make<EnumeratorDeclaration>("RED", 0, nullptr));
    unit.append(std::move(color));
    auto unnamed = record("");
    const Type* type = types.declared(*unnamed);
    unit.append(std::move(unnamed));
    unit.append(variable("u", types.pointer(type)));
    unit.append(variable("v", type));
    unit.append(intVariable("i"));
    define(unit, "f");
    define(unit, "g");
    EXPECT_EQ(printed(unit), (Lines{"struct s",   "{", "    int x;", "};",       "",                //
                                    "struct t",   "{", "    int x;", "};",       "",                //
                                    "enum color", "{", "    RED",    "};",       "",                //
                                    "struct",     "{", "    int x;", "} *u, v;", "",  "int i;", "", //
                                    "f",          "{", "}",          "",         "g", "{",      "}"}));
}

TEST_F(CUnitPiecesTest, WritesAModuleAroundItsDeclarations) {
    auto module = make<ModuleDeclaration>("m");
    module->append(intVariable("i"));
    module->append(prototype("f"));
    unit.append(intVariable("before"));
    unit.append(std::move(module));
    unit.append(make<ModuleDeclaration>("empty"));
    EXPECT_EQ(printed(unit), (Lines{"int before;", "", "MODULE m", "    int i;", "", "    int f(void);", "END MODULE m",
                                    "MODULE empty", "END MODULE empty"}));
}

} // namespace
