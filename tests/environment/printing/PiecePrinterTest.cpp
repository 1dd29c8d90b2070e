// SPDX-License-Identifier: MIT
#include "environment/printing/PiecePrinter.h"

#include "environment/printing/CStatementPieces.h"
#include "environment/printing/FortranPieces.h"
#include "environment/printing/OutToC.h"
#include "environment/printing/OutToFortran.h"
#include "environment/printing/PieceSink.h"
#include "environment/tessel/CastExpression.h"
#include "environment/tessel/IfStatement.h"
#include "environment/tessel/StatementExpression.h"
#include "environment/tessel/service/Preorder.h"
#include "tests/environment/printing/Names.h"

#include <gtest/gtest.h>

#include <map>

using namespace Kova;
using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

class Recorder final : public Backends::PieceSink {
public:
    void write(const char* text, TesselBase& node) override {
        m_lines.back() += "[" + std::string(text) + "]";
        m_piecesOf[&node].push_back(text);
    }
    void breakLine(TesselBase& node) override {
        m_lines.emplace_back(static_cast<std::size_t>(m_depth), '>');
        m_openers.push_back(&node);
    }
    void skipLine(TesselBase& node) override {
        m_lines.emplace_back();
        m_openers.push_back(&node);
    }
    void changeIndent(int levels) override { m_depth += levels; }

    std::vector<std::string> m_lines{""};
    std::vector<TesselBase*> m_openers;
    std::map<const TesselBase*, std::vector<std::string>> m_piecesOf;
    int m_depth = 0;
};

class PiecePrinterTest : public testing::Test, protected Names {
protected:
    Recorder& print(const TesselBase& node) {
        Backends::PiecePrinter(m_language, m_recorder).print(node);
        return m_recorder;
    }

    Recorder m_recorder;

private:
    Backends::CStatementPieces m_language;
};

TEST_F(PiecePrinterTest, GivesEachNameAPieceOfItsOwn) {
    const ExpressionPtr root =
        assign(subscript(a(), b()), binary(unary(U::Minus, c()), B::Multiply, binary(a(), B::Add, call(f(), b()))));
    EXPECT_EQ(print(*root).m_lines, std::vector<std::string>{"[a][[][b][]][ = ][-][c][ * ][(][a][ + ][f][(][b][)][)]"});
}

TEST_F(PiecePrinterTest, GivesEveryNodeAPiece) {
    auto cast = std::make_unique<CastExpression>(types.pointer(intType), a());
    auto branch = std::make_unique<IfStatement>(a(), block(statement(dot(b()))), block(statement(c())));
    auto statements = std::make_unique<StatementExpression>(block(std::move(branch), statement(std::move(cast))));
    const ExpressionPtr root = conditional(arrow(a()), std::move(statements), assign(b(), subscript(a(), c())));
    print(*root);
    std::size_t nodes = 0;
    for (const TesselBase& node : Service::Preorder(*root)) {
        ++nodes;
        EXPECT_NE(m_recorder.m_piecesOf.count(&node), 0U) << typeid(node).name();
        if (dynamic_cast<const VariableReference*>(&node) != nullptr) {
            EXPECT_EQ(m_recorder.m_piecesOf[&node].size(), 1U);
        }
    }
    EXPECT_EQ(nodes, 22U);
    EXPECT_EQ(m_recorder.m_piecesOf.size(), nodes);
}

TEST_F(PiecePrinterTest, OpensALineForEachStatement) {
    auto branch = std::make_unique<IfStatement>(a(), block(statement(b())), nullptr);
    IfStatement& condition = *branch;
    const StatementExpression root(block(std::move(branch), statement(c())));
    EXPECT_EQ(print(root).m_lines, (std::vector<std::string>{"[(]", "[{]", ">[if (][a][)]", ">[{]", ">>[b][;]", ">[}]",
                                                             ">[c][;]", "[}][)]"}));
    BlockStatement& outer = *root.getBlock();
    BlockStatement& then = *condition.getThenBlock();
    EXPECT_EQ(m_recorder.m_openers, (std::vector<TesselBase*>{&outer, &condition, &then, then.getStatement(0), &then,
                                                              outer.getStatement(1), &outer}));
    EXPECT_EQ(m_recorder.m_depth, 0);
}

TEST_F(PiecePrinterTest, SeparatesPiecesThatWouldMerge) {
    const ExpressionPtr root = unary(U::Minus, unary(U::PreDecrement, a()));
    EXPECT_EQ(print(*root).m_lines, std::vector<std::string>{"[-][ ][--][a]"});
}

TEST_F(PiecePrinterTest, PrintsAnyDepth) {
    constexpr int depth = 100000;
    ExpressionPtr right = a();
    ExpressionPtr left = a();
    ExpressionPtr prefix = a();
    ExpressionPtr calls = a();
    ExpressionPtr blocks = a();
    for (int i = 0; i < depth; ++i) {
        right = binary(b(), B::Subtract, std::move(right));
        left = binary(std::move(left), B::Subtract, b());
        prefix = unary(U::LogicalNot, std::move(prefix));
        calls = call(f(), std::move(calls));
        blocks = std::make_unique<StatementExpression>(block(statement(std::move(blocks))));
    }
    const auto repeat = [](const std::string& text, int times) {
        std::string all;
        for (int i = 0; i < times; ++i)
            all += text;
        return all;
    };
    const auto print = [](const ExpressionPtr& root) { return Backends::OutToC::expressionToString(*root); };
    EXPECT_EQ(print(right), repeat("b - (", depth - 1) + "b - a" + repeat(")", depth - 1));
    EXPECT_EQ(print(left), "a" + repeat(" - b", depth));
    EXPECT_EQ(print(prefix), repeat("!", depth) + "a");
    EXPECT_EQ(print(calls), repeat("f(", depth) + "a" + repeat(")", depth));
    EXPECT_EQ(print(blocks), repeat("({ ", depth) + "a" + repeat("; })", depth));
    EXPECT_EQ(Backends::OutToFortran::expressionToString(*calls), repeat("f(", depth) + "a" + repeat(")", depth));
}

} // namespace
