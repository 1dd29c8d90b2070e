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

TEST_F(CUnitPiecesTest, TakesBackWhatSystemHeadersDefine) {
    unit.appendSystemUndefinition("linux");
    EXPECT_EQ(printed(unit), (Lines{"#undef linux"}));
    unit.appendSystemInclude("<stdio.h>");
    unit.append(intVariable("linux"));
    EXPECT_EQ(printed(unit), (Lines{"#include <stdio.h>", "#undef linux", "", "int linux;"}));
    EXPECT_EQ(printed(unit, {false, false, false, true}), (Lines{"int linux;"}));
}

TEST_F(CUnitPiecesTest, WritesPackedStructuresBetweenPragmas) {
    auto packed = record("s");
    packed->setPacking(2);
    unit.append(std::move(packed));
    unit.append(intVariable("v"));
    auto unnamed = record("");
    unnamed->setPacking(1);
    const Type* type = types.declared(*unnamed);
    unit.append(std::move(unnamed));
    unit.append(variable("u", type));
    EXPECT_EQ(printed(unit),
              (Lines{"#pragma pack(push, 2)", "struct s", "{", "    int x;", "};", "#pragma pack(pop)", "", "int v;",
                     "", "#pragma pack(push, 1)", "struct", "{", "    int x;", "} u;", "#pragma pack(pop)"}));
}

TEST_F(CUnitPiecesTest, PacksInsideOnlyWhatIsPackedOtherwise) {
    for (const unsigned inside : {0U, 1U, 4U}) {
        auto inner = record("");
        inner->setPacking(inside);
        auto outer = emptyRecord("s");
        outer->setPacking(4);
        const Type* type = types.declared(*inner);
        outer->append(std::move(inner));
        outer->append(make<FieldDeclaration>("in", type));
        TranslationUnit& file = addUnit(program, "b.c");
        file.append(std::move(outer));
        Lines lines{"#pragma pack(push, 4)", "struct s", "{"};
        if (inside != 4)
            lines.push_back(inside == 0 ? "    #pragma pack(push, 16)" : "    #pragma pack(push, 1)");
        lines.insert(lines.end(), {"    struct", "    {", "        int x;", "    } in;"});
        if (inside != 4)
            lines.push_back("    #pragma pack(pop)");
        lines.insert(lines.end(), {"};", "#pragma pack(pop)"});
        EXPECT_EQ(printed(file), lines);
    }
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
