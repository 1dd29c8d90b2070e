// SPDX-License-Identifier: MIT
// Odd trees, odd names, sinks that fail, sizes that no stack holds.
#include "environment/printing/ProgramTextBuilder.h"
#include "environment/tessel/service/Preorder.h"
#include "tests/environment/printing/Names.h"
#include "tests/environment/printing/PrintedLines.h"
#include "tests/environment/support/EveryNode.h"

#include <gtest/gtest.h>

using namespace Kova;
using namespace Kova::Tessel;
using namespace Kova::Tests;
using Lines = std::vector<std::string>;

namespace {

class ProgramTextBadInputTest : public testing::Test, protected Names {};

TEST_F(ProgramTextBadInputTest, PassesOnWhatTheSinkThrowsAndGoesOnAfterwards) {
    const auto root = block(block(statement(assign(a(), b()))), statement(a()));
    PrintedLines out;
    Shared::ProgramTextBuilder builder(out, {});
    std::size_t failures = 0;
    for (std::size_t limit = 0;; ++limit) {
        out.lines.clear();
        out.throwAfter = limit;
        try {
            root->accept(builder);
            break;
        } catch (const std::runtime_error&) {
            ++failures;
        }
        out.lines.clear();
        out.throwAfter = 1000;
        root->accept(builder);
        ASSERT_EQ(out.getTexts(), (Lines{"{", "    {", "        a = b;", "    }", "    a;", "}"})) << limit;
    }
    // Two pieces for each of the four braces, five for the assignment's line, three for the other.
    EXPECT_EQ(failures, 16U);
}

TEST_F(ProgramTextBadInputTest, PrintsWhatIsThereOfTreesWithGaps) {
    const auto root = block(statement(nullptr), nullptr, std::make_unique<IfStatement>(nullptr, nullptr, nullptr),
                            std::make_unique<ForStatement>(nullptr, nullptr, nullptr, nullptr),
                            std::make_unique<DoWhileStatement>(nullptr, nullptr),
                            std::make_unique<DeclarationStatement>(), statement(assign(nullptr, a())));
    EXPECT_EQ(printed(*root), (Lines{"{", "    ;", "    if ();", "    for (;;);", "    do;", "    while ();", "    ;",
                                     "     = a;", "}"}));
}

TEST_F(ProgramTextBadInputTest, KeepsNamesAndConstantsAsTheyAre) {
    VariableDeclaration variable("größe_π", intType);
    const std::string escapes = R"("\a\b\f\n\r\t\v\\\'\"\?\0\x7f\u00e9 ??/ // /* é")";
    const auto root = block(statement(assign(use(variable), literal(escapes, LiteralExpression::Kind::String))),
                            statement(literal(R"('\'')", LiteralExpression::Kind::Character)));
    EXPECT_EQ(printed(*root), (Lines{"{", "    größe_π = " + escapes + ";", R"(    '\'';)", "}"}));
}

TEST_F(ProgramTextBadInputTest, PutsSourceTextOfSeveralLinesOnOne) {
    const auto root = block(std::make_unique<OpaqueStatement>("asm volatile (\"nop\\n\"\n\t\"nop\" // why\n\t: : );"),
                            statement(literal("\"a\"\n    \"b\"", LiteralExpression::Kind::String)));
    PrintedLines out;
    out.print(*root);
    EXPECT_TRUE(out.isWellFormed);
    EXPECT_EQ(out.getTexts(), (Lines{"{", "    asm volatile (\"nop\\n\" \"nop\" : : );", "    \"a\" \"b\";", "}"}));
}

TEST_F(ProgramTextBadInputTest, PrintsManyStatements) {
    constexpr std::size_t count = 100000;
    const auto root = block();
    for (std::size_t i = 0; i < count; ++i)
        root->append(statement(assign(a(), b())));
    const Lines lines = printed(*root);
    ASSERT_EQ(lines.size(), count + 2);
    EXPECT_EQ(lines[count], "    a = b;");
    EXPECT_EQ(lines.back(), "}");
}

TEST_F(ProgramTextBadInputTest, PrintsDeepExpressions) {
    constexpr std::size_t depth = 100000;
    ExpressionPtr right = a();
    for (std::size_t i = 0; i < depth; ++i)
        right = binary(b(), BinaryOperator::Subtract, std::move(right));
    const Lines lines = printed(*statement(std::move(right)));
    ASSERT_EQ(lines.size(), 1U);
    // Each level but the innermost is `b - (` and `)`; that one is `b - a`, and a semicolon ends the line.
    EXPECT_EQ(lines[0].size(), 6 * (depth - 1) + 5 + 1);
}

TEST_F(ProgramTextBadInputTest, PrintsDeepStatements) {
    constexpr std::size_t depth = 2000;
    StatementPtr root = statement(a());
    for (std::size_t i = 0; i < depth; ++i)
        root = block(std::move(root));
    const Lines lines = printed(*root);
    ASSERT_EQ(lines.size(), 2 * depth + 1);
    EXPECT_EQ(lines[depth], std::string(4 * depth, ' ') + "a;");
    EXPECT_EQ(lines[depth + 1], std::string(4 * (depth - 1), ' ') + "}");
}

TEST_F(ProgramTextBadInputTest, PrintsLongChains) {
    constexpr std::size_t length = 50000;
    std::unique_ptr<IfStatement> root = std::make_unique<IfStatement>(a(), block(), nullptr);
    for (std::size_t i = 0; i < length; ++i) {
        auto rest = block(std::move(root));
        root = std::make_unique<IfStatement>(a(), block(), std::move(rest));
    }
    const Lines lines = printed(*root);
    ASSERT_EQ(lines.size(), 3 * (length + 1));
    EXPECT_EQ(lines[0], "if (a)");
    EXPECT_EQ(lines[3 * length], "else if (a)");
}

} // namespace
