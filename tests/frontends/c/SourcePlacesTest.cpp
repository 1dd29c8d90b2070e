// SPDX-License-Identifier: MIT
#include "environment/tessel/SourceFile.h"
#include "environment/tessel/service/Preorder.h"
#include "tests/frontends/c/Reading.h"
#include "tests/frontends/c/TreeText.h"

#include <gtest/gtest.h>

namespace Kova::Frontends {

using namespace Test;

namespace {

/// `begin-end` of the first node whose text, see treeText, starts so.
std::string rangeOf(const Reading& reading, const std::string& start) {
    for (const Tessel::TesselBase& node : Tessel::Service::Preorder(reading.unit())) {
        if (&node == &reading.unit() || treeText(node).rfind(start, 0) != 0)
            continue;
        const Tessel::SourceRange& range = node.getSourceRange();
        return std::to_string(range.beginLine) + ':' + std::to_string(range.beginColumn) + '-' +
               std::to_string(range.endLine) + ':' + std::to_string(range.endColumn);
    }
    return "no such node";
}

} // namespace

TEST(SourcePlacesTest, statementsAndExpressions) {
    const Reading reading("int f(int a)\n"
                          "{\n"
                          "    if (a > 1)\n"
                          "        a = a + 22;\n"
                          "    else if (a)\n"
                          "        return a;\n"
                          "    for (;;)\n"
                          "        while (a) { a--; }\n"
                          "    return (a + 1) * 2;\n"
                          "}\n");
    EXPECT_EQ(rangeOf(reading, "function f"), "1:1-10:1");
    EXPECT_EQ(rangeOf(reading, "parameter a"), "1:7-1:11");
    EXPECT_EQ(rangeOf(reading, "if (> a 1)"), "3:5-6:16");
    EXPECT_EQ(rangeOf(reading, "(> a 1)"), "3:9-3:13");
    EXPECT_EQ(rangeOf(reading, "(= a (+ a 22))"), "4:9-4:17");
    EXPECT_EQ(rangeOf(reading, "22"), "4:17-4:17");
    EXPECT_EQ(rangeOf(reading, "if a"), "5:10-6:16");
    EXPECT_EQ(rangeOf(reading, "for"), "7:5-8:26");
    EXPECT_EQ(rangeOf(reading, "while"), "8:9-8:26");
    EXPECT_EQ(rangeOf(reading, "(_-- a)"), "8:21-8:22");
    EXPECT_EQ(rangeOf(reading, "(* (+ a 1) 2)"), "9:12-9:22");
    EXPECT_EQ(rangeOf(reading, "(+ a 1)"), "9:13-9:17");
}

TEST(SourcePlacesTest, labelsStandWhereTheyAreWritten) {
    const Reading reading("int f(int a) {\n"
                          "  switch (a) {\n"
                          "  case 1: a = 2;\n"
                          "  default:;\n"
                          "  }\n"
                          "end:\n"
                          "  return a; }\n");
    EXPECT_EQ(rangeOf(reading, "case 1"), "3:3-3:9");
    EXPECT_EQ(rangeOf(reading, "(= a 2)"), "3:11-3:15");
    EXPECT_EQ(rangeOf(reading, "default"), "4:3-4:10");
    EXPECT_EQ(rangeOf(reading, "label end"), "6:1-6:1");
    EXPECT_EQ(rangeOf(reading, "return"), "7:3-7:10");
}

TEST(SourcePlacesTest, whatAMacroExpandsToStandsWhereItIsUsed) {
    const Reading reading("#define TWICE(x) ((x) + 7)\n"
                          "#define SWAP(a, b) b - a\n"
                          "#define LOOP for (;;) g();\n"
                          "void g(void);\n"
                          "int f(int a, int b) {\n"
                          "  LOOP\n"
                          "  a = TWICE(b * 3);\n"
                          "  return SWAP(a + 5, b); }\n");
    EXPECT_EQ(rangeOf(reading, "for"), "6:3-6:3");
    EXPECT_EQ(rangeOf(reading, "(call @g)"), "6:3-6:3");
    EXPECT_EQ(rangeOf(reading, "7"), "7:7-7:18");
    // An argument is written in the file itself.
    EXPECT_EQ(rangeOf(reading, "(* b 3)"), "7:13-7:17");
    // b comes first, though its argument stands last.
    EXPECT_EQ(rangeOf(reading, "(+ (- b a) 5)"), "8:10-8:23");
}

TEST(SourcePlacesTest, columnsCountBytes) {
    const Reading reading("int caf\xc3\xa9; int f(void) { return caf\xc3\xa9; }\n");
    EXPECT_EQ(reading.result, CFrontend::Result::Complete);
    EXPECT_EQ(rangeOf(reading, "variable caf\xc3\xa9"), "1:1-1:5");
    EXPECT_EQ(rangeOf(reading, "function f"), "1:12-1:40");
}

TEST(SourcePlacesTest, linesEndInAnyWay) {
    const Reading reading("int a;\r\nint f(void)\r\n{\r\n  return a \\\r\n + 1;\r\n}\r\n");
    EXPECT_EQ(reading.result, CFrontend::Result::Complete);
    EXPECT_EQ(rangeOf(reading, "(+ a 1)"), "4:10-5:4");
    EXPECT_EQ(rangeOf(reading, "function f"), "2:1-6:1");
}

TEST(SourcePlacesTest, everyNodeHasAPlaceInItsFile) {
    const Reading reading("enum e { x };\nstruct s { int a; };\nint f(struct s* p) { static int v[] = { [0] = x }; "
                          "switch (v[0]) { case x: p->a += sizeof(int); } return p ? (int){ 1 } : ({ f(p); }); }\n");
    ASSERT_EQ(reading.result, CFrontend::Result::Complete);
    for (const Tessel::TesselBase& node : Tessel::Service::Preorder(reading.unit())) {
        if (&node == &reading.unit())
            continue;
        EXPECT_TRUE(node.getSourceRange().isKnown()) << treeText(node);
        EXPECT_EQ(node.getSourceRange().file->getPath(), reading.path);
    }
}

TEST(SourcePlacesTest, membersBehindMacrosOfTheirName) {
    const std::string header = "struct inner { int handler; };\nstruct outer { struct inner in; };\n";
    EXPECT_EQ(bodyOf("o.handler = 1;", header + "#define handler in.handler\nstruct outer o;"),
              "(= (. o handler) 1)\n");
    EXPECT_EQ(bodyOf("o.other = 1;", header + "#define other in.handler\nstruct outer o;"),
              "(= (. (. o in) handler) 1)\n");
}

} // namespace Kova::Frontends
