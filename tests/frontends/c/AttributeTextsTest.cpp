// SPDX-License-Identifier: MIT
#include "environment/tessel/LabelStatement.h"
#include "environment/tessel/service/Preorder.h"
#include "tests/frontends/c/Reading.h"

#include <gtest/gtest.h>

namespace Kova::Frontends {

using namespace Test;

namespace {

/// The tree of a text that has no error.
std::string treeOf(const std::string& text) {
    const Reading reading(text);
    return reading.result == CFrontend::Result::Complete ? reading.tree() : reading.messages();
}

/// Attributes in the text of a variable's declaration, with the blank before them.
std::string ofVariable(const std::string& attributes) {
    const std::string tree = treeOf("int a " + attributes + ";");
    const std::string head = "variable a int";
    return tree.rfind(head, 0) == 0 ? tree.substr(head.size()) : tree;
}

} // namespace

TEST(AttributeTextsTest, attributesAreAsTheyAreWritten) {
    EXPECT_EQ(ofVariable("__attribute__((unused))"), " __attribute__((unused))\n");
    EXPECT_EQ(ofVariable("__attribute__ ( ( __unused__ , aligned( sizeof(long)*2 ) ) )"),
              " __attribute__((__unused__, aligned( sizeof(long)*2 )))\n");
    EXPECT_EQ(ofVariable("__attribute((deprecated)) __attribute__((section(\"a\" \"b\")))"),
              " __attribute__((deprecated)) __attribute__((section(\"a\" \"b\")))\n");
    EXPECT_EQ(ofVariable("__attribute__(())"), "\n");
    EXPECT_EQ(ofVariable("__attribute__((,unused,))"), " __attribute__((unused))\n");
}

TEST(AttributeTextsTest, attributesThatClangDoesNotKnow) {
    EXPECT_EQ(treeOf("__attribute__((noinline, noclone, optimize(\"O3\", 2))) int f(void);\n"
                     "void g(const char*, ...) __attribute__((format(gnu_printf, 1, 2), access(none, 1)));\n"),
              "function f fn()->int __attribute__((noinline, noclone, optimize(\"O3\", 2)))\n"
              "function g fn(ptr(const char),...)->void __attribute__((format(gnu_printf, 1, 2), access(none, 1)))\n"
              "  parameter  ptr(const char)\n");
}

TEST(AttributeTextsTest, attributesThatClangPutsIntoTypes) {
    EXPECT_EQ(treeOf("int (*p)(void) __attribute__((noreturn)); int f(int) __attribute__((ms_abi));"),
              "variable p ptr(fn()->int) __attribute__((noreturn))\n"
              "function f fn(int)->int __attribute__((ms_abi))\n"
              "  parameter  int\n");
    // The type says it, and must not be made a vector again.
    EXPECT_EQ(treeOf("int v __attribute__((unused, __vector_size__(16)));"),
              "variable v `__attribute__((__vector_size__(4 * sizeof(int)))) int` __attribute__((unused))\n");
}

TEST(AttributeTextsTest, attributesBelongToWhatTheySpeakOf) {
    EXPECT_EQ(
        treeOf("struct __attribute__((packed)) s { int a, b __attribute__((aligned(8))); } __attribute__((unused)) "
               "v __attribute__((weak)), w;\n"
               "enum { one __attribute__((deprecated)), two } __attribute__((packed));\n"
               "typedef int t __attribute__((may_alias));\n"
               "int f(int a __attribute__((unused)), int b);\n"),
        "struct s __attribute__((packed)) __attribute__((unused))\n"
        "  field a int\n"
        "  field b int __attribute__((aligned(8)))\n"
        "variable v struct s __attribute__((weak))\n"
        "variable w struct s\n"
        "enum  __attribute__((packed))\n"
        "  enumerator one 0 __attribute__((deprecated))\n"
        "  enumerator two 1\n"
        "typedef t int __attribute__((may_alias))\n"
        "function f fn(int,int)->int\n"
        "  parameter a int __attribute__((unused))\n"
        "  parameter b int\n");
    EXPECT_EQ(treeOf("__attribute__((unused)) static int a, b; int c, __attribute__((weak)) d;"),
              "static variable a int __attribute__((unused))\n"
              "static variable b int __attribute__((unused))\n"
              "variable c int\n"
              "variable d int __attribute__((weak))\n");
}

TEST(AttributeTextsTest, aLaterDeclarationDoesNotRepeatThoseOfTheFirst) {
    EXPECT_EQ(treeOf("int f(void) __attribute__((const)); int f(void);"),
              "function f fn()->int __attribute__((const))\nfunction f fn()->int\n");
}

TEST(AttributeTextsTest, macrosAreReplaced) {
    EXPECT_EQ(
        treeOf("#define UNUSED __attribute__((unused))\n#define ALIGN(n) __attribute__((aligned(n)))\n#define N 8\n"
               "#define annotate other\nUNUSED int a ALIGN(N);\n"),
        "variable a int __attribute__((unused)) __attribute__((aligned(8)))\n");
}

TEST(AttributeTextsTest, otherWaysToWriteAttributes) {
    EXPECT_EQ(treeOf("_Alignas(16) int a; _Alignas(double) char b; [[deprecated]] int c; int d __asm__(\"e\");"),
              "variable a int _Alignas(16)\n"
              "variable b char _Alignas(double)\n"
              "variable c int [[deprecated(\"\")]]\n"
              "variable d int asm(\"e\")\n");
    EXPECT_EQ(ofVariable("__attribute__((annotate(\"own\")))"), " __attribute__((annotate(\"own\")))\n");
}

TEST(AttributeTextsTest, whatDirectivesSayIsNotSaidTwice) {
    EXPECT_EQ(
        treeOf("#pragma weak a\nint a;\n#pragma GCC visibility push(hidden)\nint b;\n#pragma GCC visibility pop\n"),
        "opaque `#pragma weak a`\n"
        "variable a int\n"
        "opaque `#pragma GCC visibility push(hidden)`\n"
        "variable b int\n"
        "opaque `#pragma GCC visibility pop`\n");
}

TEST(AttributeTextsTest, attributesOfStatements) {
    EXPECT_EQ(
        bodyOf("switch (x) { case 1: __attribute__((__fallthrough__)); case 2: g(); [[fallthrough]]; default: ; }",
               "int x; void g(void);"),
        "switch x\n"
        "  case 1\n"
        "  opaque `__attribute__((__fallthrough__));`\n"
        "  case 2\n"
        "  (call @g)\n"
        "  opaque `[[fallthrough]];`\n"
        "  default\n"
        "  null\n");
    EXPECT_EQ(Reading("int g(int); int f(int a) { if (a) __attribute__((musttail)) return g(a); return 0; }").body(),
              "if a\n"
              "  opaque `__attribute__((musttail))`\n"
              "  return (call @g a)\n"
              "return 0\n");
}

TEST(AttributeTextsTest, attributesOfLabels) {
    const Reading reading("void f(void) { l: __attribute__((unused, cold)); m: ; }");
    std::string labels;
    for (Tessel::TesselBase& node : Tessel::Service::Preorder(reading.unit()))
        if (const auto* label = dynamic_cast<const Tessel::LabelStatement*>(&node))
            labels += label->getName() + '|' + label->getAttributes() + '\n';
    EXPECT_EQ(labels, "l|__attribute__((unused, cold))\nm|\n");
}

TEST(AttributeTextsTest, nobodyHearsOfTheNumbers) {
    const Reading reading("int f(void) __attribute__((noinline)) { return sizeof(int __attribute__((aligned(8)))); }\n"
                          "struct s __attribute__((packed));\n");
    EXPECT_EQ(reading.result, CFrontend::Result::Complete);
    EXPECT_EQ(reading.messages().find("annotate"), std::string::npos) << reading.messages();
    EXPECT_NE(reading.messages().find("'noinline'"), std::string::npos);
}

} // namespace Kova::Frontends
