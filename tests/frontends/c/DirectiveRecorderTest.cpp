// SPDX-License-Identifier: MIT
#include "tests/frontends/c/Reading.h"
#include "tests/frontends/c/TreeText.h"

#include <gtest/gtest.h>

namespace Kova::Frontends {

using namespace Test;

namespace {

std::string treeOf(const std::string& text) {
    return Reading(text).tree();
}

} // namespace

TEST(DirectiveRecorderTest, pragmasAreKeptAsTheyAreWritten) {
    EXPECT_EQ(treeOf("#pragma omp declare simd\n  #  pragma STDC FP_CONTRACT ON\n#pragma weak f\n#pragma\n"
                     "#pragma no one knows (this, \"one\")\n#ident \"$Id$\"\nint a;\n"),
              "opaque `#pragma omp declare simd`\n"
              "opaque `#pragma STDC FP_CONTRACT ON`\n"
              "opaque `#pragma weak f`\n"
              "opaque `#pragma`\n"
              "opaque `#pragma no one knows (this, \"one\")`\n"
              "opaque `#ident \"$Id$\"`\n"
              "variable a int\n");
}

TEST(DirectiveRecorderTest, operatorsAreLinesToo) {
    EXPECT_EQ(treeOf("#define PRAGMA(x) _Pragma(#x)\n#define PUSH _Pragma(\"GCC diagnostic push\")\n"
                     "_Pragma(\"GCC diagnostic ignored \\\"-Wall\\\"\") PUSH PRAGMA(omp declare simd) int f(void);\n"),
              "opaque `#pragma GCC diagnostic ignored \"-Wall\"`\n"
              "opaque `#pragma GCC diagnostic push`\n"
              "opaque `#pragma omp declare simd`\n"
              "function f fn()->int\n");
}

TEST(DirectiveRecorderTest, oneLineWithoutComments) {
    EXPECT_EQ(treeOf("#pragma omp /* one\n   two */ parallel\t for \\\n   private(a) // three\nint a;\n"
                     "#pragma omp  single \\\r\n nowait\r\nint b;\n#pragma message(\"// no /* comment\")\nint c;\n"),
              "opaque `#pragma omp parallel for private(a)`\n"
              "variable a int\n"
              "opaque `#pragma omp single nowait`\n"
              "variable b int\n"
              "opaque `#pragma message(\"// no /* comment\")`\n"
              "variable c int\n");
}

TEST(DirectiveRecorderTest, whatSpeaksOfTheSourceIsNotRepeated) {
    EXPECT_EQ(treeOf("#pragma once\n#pragma pack(1)\n#pragma pack ( )\n#pragma push_macro(\"a\")\n"
                     "#pragma pop_macro(\"a\")\n#pragma GCC poison b\nint a;\n#pragma packing\n"),
              "variable a int\nopaque `#pragma packing`\n");
    const Reading reading("#include \"own.h\"\n", Headers{{"own.h", "#pragma once\n#pragma GCC system_header\n"
                                                                    "#pragma omp declare simd\nint f(void);\n"}});
    ASSERT_EQ(reading.result, CFrontend::Result::Complete);
    EXPECT_EQ(reading.unit().getChildCount(), 2u);
}

TEST(DirectiveRecorderTest, skippedTextAndSystemHeadersHaveNone) {
    // The header deprecates some of its names by pragmas.
    EXPECT_EQ(treeOf("#if 0\n#pragma skipped\n#endif\n#include <stdatomic.h>\nint a;\n"), "variable a int\n");
}

TEST(DirectiveRecorderTest, headersOfTheUserHaveTheirs) {
    const Reading reading("#include <own.h>\nint a = SIZE;\n",
                          Headers{{"own/own.h", "#pragma of a header\n#define SIZE _Pragma(\"of a macro\") 4\n"}},
                          {{"own"}, {}, ""});
    ASSERT_EQ(reading.result, CFrontend::Result::Complete);
    EXPECT_EQ(treeText(reading.unit()), "unit\n"
                                        "  opaque `#pragma of a header`\n"
                                        "  opaque `#pragma of a macro`\n"
                                        "  variable a int = 4\n");
}

TEST(DirectiveRecorderTest, whatClangAloneIsToldIsNotRepeated) {
    EXPECT_EQ(treeOf("#pragma clang diagnostic push\n#pragma clang diagnostic ignored \"-Wdocumentation\"\n"
                     "#pragma clang diagnostic ignored \"-Wunused-function\"\n"
                     "#pragma clang diagnostic pop\nint a;\n"),
              "opaque `#pragma GCC diagnostic push`\n"
              "opaque `#pragma GCC diagnostic ignored \"-Wunused-function\"`\n"
              "opaque `#pragma GCC diagnostic pop`\n"
              "variable a int\n");
}

} // namespace Kova::Frontends
