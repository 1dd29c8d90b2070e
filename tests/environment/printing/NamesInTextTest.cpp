// SPDX-License-Identifier: MIT
#include "environment/printing/NamesInText.h"

#include "environment/tessel/EnumeratorReference.h"
#include "environment/tessel/service/Preorder.h"
#include "tests/environment/printing/Names.h"

#include <gtest/gtest.h>

#include <map>

using namespace Kova;
using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

class NamesInTextTest : public testing::Test, protected Names {
protected:
    /// The text with what is printed for the expressions below its node in braces, each with the expression's number:
    /// `{1:a} + {2:b}`. They count from 1, parents before children.
    template <class... Operands>
    static std::string split(const std::string& text, Operands... operands) {
        OpaqueExpression root(text);
        (root.appendOperand(std::move(operands)), ...);
        std::map<const TesselBase*, int> numbers;
        for (const TesselBase& node : Service::Preorder(root))
            numbers.emplace(&node, static_cast<int>(numbers.size()));
        const Backends::PieceList pieces = Backends::splitAtNames(text, root);
        std::string shown;
        for (const Backends::Piece& piece : pieces.getPieces()) {
            const std::string part(piece.text, piece.length);
            shown += piece.node == &root ? part : "{" + std::to_string(numbers.at(piece.node)) + ":" + part + "}";
        }
        return shown;
    }
};

TEST_F(NamesInTextTest, AreWordsOfTheirOwn) {
    EXPECT_EQ(split("odd(a, b)", a(), b()), "odd({1:a}, {2:b})");
    EXPECT_EQ(split("a", a()), "{1:a}");
    EXPECT_EQ(split("f(RED)", f(), make<EnumeratorReference>(enumeratorRed)), "{1:f}({2:RED})");
    EXPECT_EQ(split("a + b", b(), a()), "{2:a} + {1:b}");
    EXPECT_EQ(split("odd()"), "odd()");
    EXPECT_EQ(split(""), "");
}

TEST_F(NamesInTextTest, AreTakenInOrder) {
    EXPECT_EQ(split("a + a", a(), a()), "{1:a} + {2:a}");
    EXPECT_EQ(split("a + a", a()), "{1:a} + a");
    EXPECT_EQ(split("a", a(), a()), "{2:}{1:a}");
}

TEST_F(NamesInTextTest, StandForNamesOnly) {
    EXPECT_EQ(split("a + b", binary(a(), B::Add, b())), "{1:}{2:a} + {3:b}");
    EXPECT_EQ(split("7", literal("7")), "{1:}7");
    EXPECT_EQ(split("MACRO", a()), "{1:}MACRO");
    VariableDeclaration unnamed("", intType);
    EXPECT_EQ(split("odd(a)", use(unnamed)), "{1:}odd(a)");
}

TEST_F(NamesInTextTest, AreWholeWords) {
    EXPECT_EQ(split("ab a1 _a a_ a$ 0xa 1.5a a", a()), "ab a1 _a a_ a$ 0xa 1.5a {1:a}");
    VariableDeclaration size("größe", intType);
    EXPECT_EQ(split("größe2(größe)", use(size)), "größe2({1:größe})");
    VariableDeclaration cut("gr", intType);
    EXPECT_EQ(split("größe", use(cut)), "{1:}größe");
}

TEST_F(NamesInTextTest, AreNoPartsOfConstants) {
    EXPECT_EQ(split("odd(\"a\", 'a', a)", a()), "odd(\"a\", 'a', {1:a})");
    EXPECT_EQ(split("\"\\\"a\" '\\'' a", a()), "\"\\\"a\" '\\'' {1:a}");
    EXPECT_EQ(split("\"a", a()), "{1:}\"a");
    VariableDeclaration wide("L", intType);
    EXPECT_EQ(split("L\"L\" L'L' L", use(wide)), "L\"L\" L'L' {1:L}");
}

TEST_F(NamesInTextTest, AreNoMembers) {
    EXPECT_EQ(split("s.a + p->a + a", a()), "s.a + p->a + {1:a}");
    EXPECT_EQ(split("s . a + p -> a + a", a()), "s . a + p -> a + {1:a}");
    EXPECT_EQ(split("b > a - a", a()), "b > {1:a} - a");
    EXPECT_EQ(split("[0 ...a]", a()), "[0 ...{1:a}]");
    EXPECT_EQ(split("[0 ... a]", a()), "[0 ... {1:a}]");
}

} // namespace
