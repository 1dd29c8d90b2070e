// SPDX-License-Identifier: MIT
#include "environment/tessel/ExpressionBase.h"
#include "tests/dependences/ReadGraph.h"
#include "tests/environment/support/HeardLines.h"

#include <gtest/gtest.h>

using namespace Kova;
using namespace Kova::Tests;
using DepGraph::LamportGraph;

namespace {

std::string repeat(const std::string& statement, int count) {
    std::string text = "double f(double x, double y) {\n";
    for (int i = 0; i < count; ++i)
        text += statement + "\n";
    return text + "return y;\n}\n";
}

TEST(ManyDependences, AreAllThereUpToTheLimit) {
    const HeardLines heard;
    // 775 reads of x make 775 * 774 / 2 pairs.
    ReadGraph one(repeat("x;", 775), DepGraph::RM_EXACT, true);
    EXPECT_EQ(one.getGraph().getArrows().size(), 775u * 774u / 2);
    EXPECT_EQ(one.getGraph().getLeftOut(), LamportGraph::LeftOut::Nothing);
    EXPECT_EQ(heard.lines, std::vector<std::string>());
}

TEST(ManyDependences, OfInputAreLeftOutFirst) {
    const HeardLines heard;
    ReadGraph graph(repeat("y = x;", 775), DepGraph::RM_EXACT, true);
    // The writes of y make 299,925 output dependences and 775 flows to the return: still too many.
    EXPECT_EQ(graph.getGraph().getLeftOut(), LamportGraph::LeftOut::Everything);
    ReadGraph fewer(repeat("y = x + x;", 700), DepGraph::RM_EXACT, true);
    EXPECT_EQ(fewer.getGraph().getLeftOut(), LamportGraph::LeftOut::Input);
    EXPECT_EQ(fewer.getGraph().getArrows().size(), 700u * 699u / 2 + 700u);
    for (const DepGraph::LampArrow* arrow : fewer.getGraph().getArrows())
        ASSERT_NE(arrow->getType(), DepGraph::DT_INPUT);
    ASSERT_EQ(heard.lines.size(), 2u);
    EXPECT_EQ(heard.lines[1],
              "LamportGraph 2 The block has more than 300000 dependences: input dependences are left out.");
}

TEST(ManyDependences, AreRatherNotShownThanInPart) {
    const HeardLines heard;
    ReadGraph graph(repeat("x = x + 1;", 600), DepGraph::RM_EXACT, true);
    EXPECT_EQ(graph.getGraph().getArrows().size(), 0u);
    EXPECT_EQ(graph.getGraph().getLeftOut(), LamportGraph::LeftOut::Everything);
    EXPECT_EQ(heard.lines,
              std::vector<std::string>{
                  "LamportGraph 2 The block has more than 300000 dependences: none is shown. Choose a smaller block."});
    // The next graph starts anew.
    graph.getGraph().Build(graph.getBody(), DepGraph::BP_DEFAULT, true);
    graph.getGraph().Clear();
    EXPECT_EQ(graph.getGraph().getLeftOut(), LamportGraph::LeftOut::Nothing);
}

TEST(ManyDependences, OfThousandsOfStatementsAreFound) {
    // Each statement of three thousand reads its neighbour's element.
    std::string text = "double a[4000];\nvoid f(void) {\n";
    for (int i = 0; i < 3000; ++i)
        text += "a[" + std::to_string(i + 1) + "] = a[" + std::to_string(i) + "] + 1;\n";
    ReadGraph graph(text + "}\n", DepGraph::RM_EXACT, true);
    EXPECT_EQ(graph.getGraph().getArrows().size(), 2999u);
    for (const DepGraph::LampArrow* arrow : graph.getGraph().getArrows()) {
        ASSERT_EQ(arrow->getType(), DepGraph::DT_FLOW);
        ASSERT_TRUE(arrow->isProven());
        ASSERT_EQ(arrow->getTarget()->getSourceRange().beginLine, arrow->getSource()->getSourceRange().beginLine + 1);
    }
}

} // namespace
