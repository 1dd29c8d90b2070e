// SPDX-License-Identifier: MIT
#include "environment/printing/TextCollector.h"

#include "environment/printing/ProgramTextBuilder.h"
#include "tests/environment/printing/Names.h"

#include <gtest/gtest.h>

using namespace Kova;
using namespace Kova::Tests;

namespace {

class TextCollectorTest : public testing::Test, protected Names {
protected:
    Shared::TextCollector collector;
};

TEST_F(TextCollectorTest, StartsWithoutALine) {
    EXPECT_EQ(collector.getText(), "");
}

TEST_F(TextCollectorTest, EndsEveryLine) {
    const Tessel::ExpressionPtr node = a();
    collector.writeNewLine("", *node);
    EXPECT_EQ(collector.getText(), "\n");
    collector.writeNewLine("    x", *node);
    collector.write(" = ", *node);
    collector.write("", *node);
    collector.write("1;", *node);
    EXPECT_EQ(collector.getText(), "\n    x = 1;\n");
}

TEST_F(TextCollectorTest, KeepsTextBeforeTheFirstLine) {
    const Tessel::ExpressionPtr node = a();
    collector.write("x", *node);
    collector.writeNewLine("y", *node);
    EXPECT_EQ(collector.getText(), "x\ny\n");
}

TEST_F(TextCollectorTest, CollectsPrintingAfterPrinting) {
    Shared::ProgramTextBuilder builder(collector, {});
    const auto root = block(statement(assign(a(), b())));
    root->accept(builder);
    root->getStatement(0)->accept(builder);
    EXPECT_EQ(collector.getText(), "{\n    a = b;\n}\na = b;\n");
}

} // namespace
