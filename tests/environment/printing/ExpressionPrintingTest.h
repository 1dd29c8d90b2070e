// SPDX-License-Identifier: MIT
#pragma once

#include "tests/environment/printing/Names.h"

#include <gtest/gtest.h>

namespace Kova::Tests {

/// What the tests of the expression printers have in common. @tparam Printer such as Backends::OutToC.
template <class Printer>
class ExpressionPrintingTest : public testing::Test, protected Names {
protected:
    static std::string print(const Tessel::ExpressionPtr& expression) {
        return Printer::expressionToString(*expression);
    }
    /// Expects `a` and `b` under each operator to print as the text beside it.
    void expectBinary(const std::vector<std::pair<B, std::string>>& expected) {
        for (const auto& [operation, text] : expected)
            EXPECT_EQ(print(binary(a(), operation, b())), text);
    }
    /// Expects `a` under each operator to print as the text beside it.
    void expectUnary(const std::vector<std::pair<U, std::string>>& expected) {
        for (const auto& [operation, text] : expected)
            EXPECT_EQ(print(unary(operation, a())), text);
    }
};

} // namespace Kova::Tests
