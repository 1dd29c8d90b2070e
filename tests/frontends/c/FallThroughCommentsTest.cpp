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

} // namespace Kova::Frontends
