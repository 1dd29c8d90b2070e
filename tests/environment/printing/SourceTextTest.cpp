// SPDX-License-Identifier: MIT
#include "environment/printing/SourceText.h"

#include <gtest/gtest.h>

using namespace Kova::Backends;

namespace {

TEST(SourceTextTest, JoinsLines) {
    EXPECT_EQ(toOneLine("a + b", TextStyle::C), "a + b");
    EXPECT_EQ(toOneLine("a  +  b", TextStyle::C), "a  +  b");
    EXPECT_EQ(toOneLine("a +\n    b", TextStyle::C), "a + b");
    EXPECT_EQ(toOneLine("a\r\n+ b", TextStyle::C), "a + b");
    EXPECT_EQ(toOneLine("a\r+ b", TextStyle::C), "a + b");
    EXPECT_EQ(toOneLine("", TextStyle::C), "");
}

TEST(SourceTextTest, DropsCommentsOfC) {
    EXPECT_EQ(toOneLine("a /* one */ + b", TextStyle::C), "a + b");
    EXPECT_EQ(toOneLine("a // one\n+ b", TextStyle::C), "a + b");
    EXPECT_EQ(toOneLine("a/**/+b /* open", TextStyle::C), "a +b ");
    EXPECT_EQ(toOneLine("a / b", TextStyle::C), "a / b");
}

TEST(SourceTextTest, KeepsConstantsAsTheyAre) {
    EXPECT_EQ(toOneLine("f(\"/* \\\" */ // \", '\"')", TextStyle::C), "f(\"/* \\\" */ // \", '\"')");
    EXPECT_EQ(toOneLine("'!' // \"&\"", TextStyle::Fortran), "'!' // \"&\"");
    EXPECT_EQ(toOneLine("\"open \\", TextStyle::C), "\"open \\");
}

TEST(SourceTextTest, JoinsContinuedLinesOfFortran) {
    EXPECT_EQ(toOneLine("a + & ! first\n  & b", TextStyle::Fortran), "a + b");
    EXPECT_EQ(toOneLine("a // b", TextStyle::Fortran), "a // b");
}

TEST(SourceTextTest, SkipsConstants) {
    EXPECT_EQ(skipQuoted("x \"a\" y", 2), 5U);
    EXPECT_EQ(skipQuoted("'\"' y", 0), 3U);
    EXPECT_EQ(skipQuoted(R"("a\"b\\" y)", 0), 8U);
    EXPECT_EQ(skipQuoted("\"open", 0), 5U);
    EXPECT_EQ(skipQuoted("\"open\\", 0), 6U);
}

TEST(SourceTextTest, KnowsWhatWordsConsistOf) {
    for (const char c : {'a', 'Z', '0', '_', '$', '\xc3', '\xb6'})
        EXPECT_TRUE(isWordCharacter(c)) << c;
    for (const char c : {' ', '.', '(', '\'', '-', '\\', '\0'})
        EXPECT_FALSE(isWordCharacter(c)) << c;
}

TEST(SourceTextTest, TrustsOneWordWithAtMostOneGroup) {
    for (const char* text :
         {"x", "x1", "42", "(a + b)", "f()", "f (a, b)", "a[i + 1]", "[1, 2]", "f(\")\")", " x ", "größe"})
        EXPECT_EQ(precedenceOfText(text), Precedence::Primary) << text;
    for (const char* text : {"", "-x", "a + b", "f(a)(b)", "(int) x", "sizeof (x)", "__real__ (x)", "f(a", "a b", "1.5",
                             "f(a) + g(b)", "(a) + (b)"})
        EXPECT_EQ(precedenceOfText(text), Precedence::Assignment) << text;
}

TEST(SourceTextTest, SeesCommasOutsideBracketsOnly) {
    EXPECT_EQ(precedenceOfText("a, b"), Precedence::Comma);
    EXPECT_EQ(precedenceOfText("f(a, b) + g(c, d)"), Precedence::Assignment);
    EXPECT_EQ(precedenceOfText("a + \",\""), Precedence::Assignment);
}

} // namespace
