// SPDX-License-Identifier: MIT
#include "environment/tessel/ExpressionStatement.h"
#include "environment/tessel/SubroutineCallExpression.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/VariableReference.h"
#include "environment/tessel/service/Preorder.h"
#include "tests/frontends/c/Reading.h"
#include "tests/frontends/c/TreeText.h"

#include <gtest/gtest.h>

namespace Kova::Frontends {

using namespace Test;

namespace {

/// The subroutine that the unit's n-th call means.
const Tessel::SubroutineDeclaration* called(const Reading& reading, int number = 0) {
    for (const Tessel::TesselBase& node : Tessel::Service::Preorder(reading.unit()))
        if (const auto* call = dynamic_cast<const Tessel::SubroutineCallExpression*>(&node);
            call != nullptr && number-- == 0)
            return call->getSubroutine();
    return nullptr;
}

std::string externals(const Reading& reading) {
    std::string text;
    for (const Tessel::DeclarationPtr& declaration : reading.unit().getExternalDeclarations())
        text += declaration->getName() + ' ';
    return text;
}

} // namespace

TEST(DeclarationTableTest, aCallMeansTheImplementationWhereverItStands) {
    const Reading reading("int g(int); int f(void) { return g(1); } int g(int a) { return a; }");
    ASSERT_NE(called(reading), nullptr);
    EXPECT_EQ(called(reading), reading.unit().getChild(2));
    EXPECT_TRUE(called(reading)->hasImplementation());
}

TEST(DeclarationTableTest, withoutAnImplementationACallMeansTheFirstPrototype) {
    const Reading reading("int g(int); int g(int a); int f(void) { return g(1); } int g(int b);");
    EXPECT_EQ(called(reading), reading.unit().getChild(0));
    EXPECT_FALSE(called(reading)->isExternal());
}

TEST(DeclarationTableTest, aVariableMeansItsDefinition) {
    const Reading reading("extern int v; int f(void) { extern int v; return v; } int v = 3; extern int v;");
    int references = 0;
    for (const Tessel::TesselBase& node : Tessel::Service::Preorder(*reading.unit().getChild(1))) {
        if (const auto* reference = dynamic_cast<const Tessel::VariableReference*>(&node)) {
            EXPECT_EQ(&reference->getVariable(), reading.unit().getChild(2));
            ++references;
        }
    }
    EXPECT_EQ(references, 1);
}

TEST(DeclarationTableTest, systemHeadersAreKeptBesideTheProgramAsFarAsItUsesThem) {
    const Reading reading("#include <stdlib.h>\n#include <string.h>\nint f(const char* s) { exit(strlen(s)); }\n");
    EXPECT_EQ(reading.unit().getChildCount(), 1u);
    EXPECT_EQ(externals(reading), "exit strlen ");
    ASSERT_NE(called(reading), nullptr);
    EXPECT_TRUE(called(reading)->isExternal());
    EXPECT_TRUE(called(reading)->isNoReturn());
    EXPECT_EQ(called(reading)->getParent(), &reading.unit());
}

TEST(DeclarationTableTest, theUsersHeadersArePartOfTheProgram) {
    const Reading reading(
        "#include <lib.h>\n#include \"own.h\"\nint main(void) { return own; }\n",
        Headers{{"inc/lib.h", "struct point { int x; };\nint area(struct point p);\n"}, {"own.h", "extern int own;\n"}},
        {{"inc"}, {}, ""});
    ASSERT_EQ(reading.result, CFrontend::Result::Complete);
    std::string names;
    for (std::size_t i = 0; i < reading.unit().getChildCount(); ++i)
        names += reading.unit().getDeclaration(i)->getName() + ' ';
    EXPECT_EQ(names, "point area own main ");
    EXPECT_TRUE(reading.unit().getExternalDeclarations().empty());
    EXPECT_EQ(toString(reading.unit().getChild(0)->getSourceRange()), reading.folder.pathOf("inc/lib.h") + ":1:1");
}

TEST(DeclarationTableTest, functionsDeclaredByTheirFirstCall) {
    const Reading reading("f() { own(1); printf(\"x\"); }", {{}, {}, "gnu89"});
    EXPECT_EQ(reading.result, CFrontend::Result::Complete);
    EXPECT_EQ(reading.tree(), "function own fn(?)->int\n"
                              "function f fn(?)->int\n"
                              "block\n"
                              "  (call @own 1)\n"
                              "  (call @printf \"x\")\n");
    EXPECT_FALSE(called(reading, 0)->isExternal());
    EXPECT_TRUE(called(reading, 1)->isExternal());
}

TEST(DeclarationTableTest, builtinFunctionsAreExternal) {
    const Reading reading("int f(int a) { return __builtin_expect(a, 0); }");
    EXPECT_EQ(externals(reading), "__builtin_expect ");
    EXPECT_EQ(reading.unit().getChildCount(), 1u);
}

TEST(DeclarationTableTest, ownFunctionsOfALibrarysNameAreTheUsers) {
    const Reading reading("#include <stdlib.h>\nint abs(int a) { return a; } int f(void) { return abs(-1); }\n");
    EXPECT_EQ(called(reading), reading.unit().getChild(0));
    EXPECT_FALSE(called(reading)->isExternal());
}

TEST(DeclarationTableTest, typesDeclaredInOddPlacesStandBeforeTheirUse) {
    EXPECT_EQ(Reading("int f(void) { return sizeof(struct odd { int a; }); }").tree(),
              "struct odd\n"
              "  field a int\n"
              "function f fn()->int\n"
              "block\n"
              "  return (sizeof <struct odd>)\n");
}

TEST(DeclarationTableTest, typesInsideAnInitializerStandBeforeTheVariable) {
    EXPECT_EQ(Reading("unsigned v = sizeof(struct s { int a; }), w = sizeof(enum e { E });\nstruct s x;\nint y = E;\n")
                  .tree(),
              "struct s\n  field a int\nvariable v unsigned int = (sizeof <struct s>)\nenum e\n  enumerator E 0\n"
              "variable w unsigned int = (sizeof <enum e>)\nvariable x struct s\nvariable y int = #E\n");
    EXPECT_EQ(Reading("#define SIZE sizeof(union { int i; })\nunsigned long v = SIZE;\n").tree(),
              "union \n  field i int\nvariable v unsigned long = (sizeof <union <unnamed>>)\n");
}

TEST(DeclarationTableTest, structuresThatNameEachOther) {
    EXPECT_EQ(
        Reading("struct a { struct b* b; }; struct b { struct a* a; }; int f(struct a* p) { return p->b->a == p; }")
            .tree(),
        "struct a\n"
        "  struct b (mention)\n"
        "  field b ptr(struct b)\n"
        "struct b\n"
        "  field a ptr(struct a)\n"
        "function f fn(ptr(struct a))->int\n"
        "  parameter p ptr(struct a)\n"
        "block\n"
        "  return (== (-> (-> p b) a) p)\n");
}

TEST(DeclarationTableTest, membersAndConstantsOfSystemTypes) {
    const Reading reading(
        "#include <time.h>\n#include <ctype.h>\nint f(struct tm* t) { return t->tm_year + _ISdigit; }\n");
    EXPECT_EQ(reading.result, CFrontend::Result::Complete);
    EXPECT_EQ(reading.body(), "return (+ (-> t tm_year) #_ISdigit)\n");
    EXPECT_EQ(reading.unit().getChildCount(), 1u);
}

} // namespace Kova::Frontends
