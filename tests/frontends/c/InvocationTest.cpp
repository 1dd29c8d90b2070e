// SPDX-License-Identifier: MIT
#include "frontends/c/Invocation_p.h"
#include "tests/frontends/c/Reading.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace Kova::Frontends {

using namespace Test;

namespace {

std::string check(std::vector<std::string> includes, std::vector<std::string> definitions, std::string standard) {
    return CFrontend({std::move(includes), std::move(definitions), std::move(standard)}).checkOptions();
}

} // namespace

TEST(InvocationTest, usableOptions) {
    EXPECT_EQ(check({}, {}, ""), "");
    EXPECT_EQ(check({"inc", "/no/such"}, {"A", "B=1", "_c9=", "F(x)=x+1", "G()"}, "c99"), "");
    for (const char* standard : {"c89", "gnu89", "iso9899:1999", "c11", "gnu17", "c2x", "c23"})
        EXPECT_EQ(check({}, {}, standard), "") << standard;
}

TEST(InvocationTest, unusableOptionsAreExplained) {
    EXPECT_EQ(check({}, {}, "c98"), "unknown C standard 'c98'; known are c89, c99, c11, c17, c23 and gnu89 to gnu23");
    EXPECT_EQ(check({}, {}, "c++17"), "'c++17' is no standard of C");
    EXPECT_EQ(check({""}, {}, ""), "an include directory has no name");
    for (const char* wrong : {"", "1A", "A B", "=1", "A-B=1", "F(x"})
        EXPECT_EQ(check({}, {wrong}, ""),
                  std::string("'") + wrong + "' is no macro definition: NAME or NAME=VALUE is expected");
}

TEST(InvocationTest, readingWithUnusableOptionsSaysSo) {
    const Reading reading("int a;", {{}, {}, "c98"});
    EXPECT_EQ(reading.result, CFrontend::Result::Unreadable);
    EXPECT_EQ(reading.program.getChildCount(), 0u);
    EXPECT_EQ(reading.messages(),
              "a.c: error: unknown C standard 'c98'; known are c89, c99, c11, c17, c23 and gnu89 to gnu23\n");
}

TEST(InvocationTest, definitionsReachTheProgram) {
    EXPECT_EQ(Reading("int a = A, b = B, c = C(1);", {{}, {"A", "B=0x7", "C(x)=x+2"}, ""}).tree(),
              "variable a int = 1\n"
              "variable b int = 0x7\n"
              "variable c int = (+ 1 2)\n");
}

TEST(InvocationTest, theFolderOfClangsOwnHeadersCanBeChosen) {
    const std::string found = findResourceDirectory();
    EXPECT_TRUE(std::filesystem::exists(found + "/include/stddef.h"));
    const SourceFolder folder;
    folder.write("include/stddef.h", "typedef long size_t;\n");
    setenv("KOVA_CLANG_RESOURCE_DIR", folder.pathOf("").c_str(), 1);
    EXPECT_EQ(findResourceDirectory(), folder.pathOf(""));
    setenv("KOVA_CLANG_RESOURCE_DIR", "/nowhere", 1);
    EXPECT_EQ(findResourceDirectory(), "");
    const Reading reading("#include <stddef.h>\nint a;\n");
    unsetenv("KOVA_CLANG_RESOURCE_DIR");
    EXPECT_EQ(reading.result, CFrontend::Result::Partial);
    EXPECT_EQ(reading.tree(), "variable a int\n");
    EXPECT_EQ(reading.messages(), "a.c: error: Clang's own headers (stddef.h, stdarg.h, ...) are missing: install them "
                                  "(libclang-common-19-dev) or set KOVA_CLANG_RESOURCE_DIR to their folder\n"
                                  "a.c:1:10: error: 'stddef.h' file not found\n");
}

} // namespace Kova::Frontends
