// SPDX-License-Identifier: MIT
#include "tests/frontends/c/Reading.h"
#include "tests/frontends/c/TreeText.h"

#include <gtest/gtest.h>

// What Clang held when it was given up is lost on purpose: this program alone must not be searched for leaks.
extern "C" const char* __lsan_default_options();
extern "C" const char* __lsan_default_options() {
    return "detect_leaks=0";
}

namespace Kova::Frontends {

using namespace Test;

TEST(GivingUpTest, afterAnOverflowTheProgramGoesOn) {
    ReadFiles files;
    ASSERT_EQ(files.read("a.c", "int a(void) { return 1; }"), CFrontend::Result::Complete);

    std::string minus = "int b; int c = ";
    for (int i = 0; i < 1000000; ++i)
        minus += "- ";
    EXPECT_EQ(files.read("b.c", minus + "b;"), CFrontend::Result::Unreadable);
    EXPECT_EQ(files.messages(),
              "b.c: error: the reader of C gave up on this file: it is nested too deeply or made Clang fail\n");

    EXPECT_EQ(files.read("c.c", "int a(void); int c(void) { return a(); }"), CFrontend::Result::Complete);
    ASSERT_EQ(files.program.getChildCount(), 2u);
    EXPECT_EQ(treeText(*files.program.getTranslationUnit(0)->getChild(0)), "function a fn()->int\n"
                                                                           "block\n"
                                                                           "  return 1\n");
}

} // namespace Kova::Frontends
