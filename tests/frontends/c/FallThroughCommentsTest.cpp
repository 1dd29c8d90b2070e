// SPDX-License-Identifier: MIT
#include "tests/frontends/c/Reading.h"

#include <gtest/gtest.h>

namespace Kova::Frontends {

using namespace Test;

namespace {

/// The body of a switch over x between `case 1:` and `case 2:`.
std::string between(const std::string& text) {
    return bodyOf("switch (x) { case 1: " + text + " case 2: x = 2; }", "int x;");
}

} // namespace

TEST(FallThroughCommentsTest, whatSaysSo) {
    const std::string said = between("x = 1; __attribute__((fallthrough));");
    const std::string unsaid = between("x = 1;");
    ASSERT_NE(said, unsaid);
    for (const char* comment :
         {"/* fall through */", "// FALLTHRU", "/*FALLTHROUGH*/", "/* Falls through. */", "/* fall-through */",
          "/* else fall through */", "/* Intentional fall through */", "/* intentionally falls thru! */",
          "/* lint -fallthrough */", "/*-fallthrough*/", "/* @fallthrough@ */", "/* FALL THROUGH - as x is done */",
          "/*\n * Fall through.\n */"})
        EXPECT_EQ(between(std::string("x = 1; ") + comment + "\n"), said) << comment;
    for (const char* comment :
         {"/* fall */", "/* through */", "/* do not fall through */", "/* fall through the floor */",
          "/* fallthroughs */", "/**/", "//", "/* */", "/* fall  through */"})
        EXPECT_EQ(between(std::string("x = 1; ") + comment + "\n"), unsaid) << comment;
}

TEST(FallThroughCommentsTest, theAttributeStandsInItsPlace) {
    const std::string with = between("x = 1; /* fall through */");
    EXPECT_EQ(with, between("x = 1; __attribute__((fallthrough));"));
    EXPECT_NE(with, between("x = 1;"));
    EXPECT_EQ(between("{ x = 1; } // FALLTHRU\n"), between("{ x = 1; } __attribute__((fallthrough));"));
    EXPECT_EQ(between("/* fall through */ x = 1;"), between("x = 1;"));
    EXPECT_EQ(between("x = 1; /* to the next */"), between("x = 1;"));
}

TEST(FallThroughCommentsTest, afterAJumpThereIsNothingToSay) {
    for (const char* jump : {"break;", "continue;", "return;", "goto end;"}) {
        const auto looped = [&](const std::string& comment) {
            return bodyOf("while (x) { switch (x) { case 1: " + (jump + comment) + " case 2: x = 2; } end:; }",
                          "int x;");
        };
        EXPECT_EQ(looped("/* fall through */"), looped("")) << jump;
    }
}

TEST(FallThroughCommentsTest, macrosOfTheNameSaySoWhateverTheyStandFor) {
    const auto with = [](const std::string& macro, const std::string& use) {
        return bodyOf("switch (x) { case 1: x = 1; " + use + " case 2: x = 2; }", "\n" + macro + "\nint x;");
    };
    const std::string said = between("x = 1; __attribute__((fallthrough));");
    const std::string unsaid = between("x = 1;");
    EXPECT_EQ(with("#define FALLTHROUGH ((void) 0)", "FALLTHROUGH;"), said);
    EXPECT_EQ(with("#define OWN_FALL_THRU_ (void) 0", "OWN_FALL_THRU_;"), said);
    EXPECT_EQ(with("#define fallthrough", "fallthrough;"), said);
    EXPECT_EQ(with("#define FALLTHROUGH", "FALLTHROUGH"), said);
    EXPECT_EQ(with("#define FALLTHROUGH() ((void) 0)", "FALLTHROUGH();"), said);
    EXPECT_EQ(with("#define FALLTHROUGH __attribute__((fallthrough))", "FALLTHROUGH;"), said);
    EXPECT_EQ(with("#define SILENT ((void) 0)", "SILENT;"), with("", "((void) 0);"));
    EXPECT_NE(with("#define SILENT ((void) 0)", "SILENT;"), said);
    EXPECT_NE(with("#define SILENT ((void) 0)", "SILENT;"), unsaid);
}

TEST(FallThroughCommentsTest, macrosThatDoMoreStayWhatTheyDo) {
    const std::string declarations = "\n#define FALLTHROUGH g()\n#define ZERO_FALLTHROUGH 0\nint x; int g(void);";
    EXPECT_EQ(bodyOf("switch (x) { case 1: FALLTHROUGH; case 2: x = ZERO_FALLTHROUGH; case 3: ; }", declarations),
              "switch x\n"
              "  case 1\n"
              "  (call @g)\n"
              "  case 2\n"
              "  (= x 0)\n"
              "  case 3\n"
              "  null\n");
    EXPECT_EQ(bodyOf("FALLTHROUGH;", "\n#define FALLTHROUGH ((void) 0)\n"), "(cast void 0)\n");
}

} // namespace Kova::Frontends
