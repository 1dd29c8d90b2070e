// SPDX-License-Identifier: MIT
// Which node each piece of a program's text is for.
#include "environment/printing/ProgramTextBuilder.h"
#include "environment/tessel/service/Preorder.h"
#include "tests/environment/printing/Names.h"
#include "tests/environment/printing/PrintedLines.h"
#include "tests/environment/printing/WholeLanguage.h"

#include <gtest/gtest.h>

#include <set>
#include <typeindex>
#include <typeinfo>

using namespace Kova;
using namespace Kova::Tessel;
using namespace Kova::Tests;
using Lines = std::vector<std::string>;

namespace {

TEST(ProgramTextPiecesTest, GivesEveryNodeAPiece) {
    WholeLanguage language;
    PrintedLines out;
    out.print(language.program);
    EXPECT_TRUE(out.isWellFormed);
    std::set<std::type_index> seen;
    for (const TesselBase& node : Service::Preorder(language.program)) {
        seen.insert(typeid(node));
        EXPECT_NE(out.partsOf.count(&node), 0U) << typeid(node).name();
    }
    for (const auto& node : EveryNode().nodes)
        EXPECT_EQ(seen.count(typeid(*node)), 1U) << "not in the program: " << typeid(*node).name();
}

/// All but the one that source text mentions only to the front end, here `b`.
TEST(ProgramTextPiecesTest, GivesEveryOccurrenceOneWordOfItsOwn) {
    WholeLanguage language;
    PrintedLines out;
    out.print(language.program);
    std::size_t occurrences = 0;
    for (const TesselBase& node : Service::Preorder(language.program)) {
        const auto* occurrence = dynamic_cast<const VariableReference*>(&node);
        if (occurrence == nullptr)
            continue;
        ++occurrences;
        const bool isUnwritten = dynamic_cast<const OpaqueExpression*>(node.getParent()) != nullptr;
        const std::string word = isUnwritten ? "" : occurrence->getVariable().getName();
        EXPECT_EQ(out.partsOf[&node], (Lines{word}));
    }
    EXPECT_GT(occurrences, 30U);
}

TEST(ProgramTextPiecesTest, CutsSourceTextAtTheNamesInIt) {
    Names names;
    auto opaque = make<OpaqueExpression>("odd(s.a, \"a\", a + 1, ab, a)");
    opaque->appendOperand(names.a());
    opaque->appendOperand(names.a());
    PrintedLines out;
    out.print(*opaque);
    ASSERT_EQ(out.lines.size(), 1U);
    Lines parts;
    for (const auto& part : out.lines[0].parts)
        parts.push_back(part.text);
    EXPECT_EQ(parts, (Lines{"", "odd(s.a, \"a\", ", "a", " + 1, ab, ", "a", ")"}));
    EXPECT_EQ(out.lines[0].parts[2].node, opaque->getChild(0));
    EXPECT_EQ(out.lines[0].parts[4].node, opaque->getChild(1));
}

TEST(ProgramTextPiecesTest, PutsAStatementsPieceOnEachOfItsLines) {
    WholeLanguage language;
    PrintedLines out;
    out.print(*language.program.getTranslationUnit(0)->getDeclaration(0));
    for (const auto& line : out.lines) {
        bool hasStatement = dynamic_cast<const StatementBase*>(line.opener) != nullptr;
        for (const auto& part : line.parts)
            hasStatement = hasStatement || dynamic_cast<const StatementBase*>(part.node) != nullptr;
        const bool isOfDeclaration = dynamic_cast<const DeclarationBase*>(line.opener) != nullptr;
        EXPECT_TRUE(hasStatement || isOfDeclaration);
    }
}

TEST(ProgramTextPiecesTest, ContinuesLongInitializersForTheirStatement) {
    Names names;
    auto list = make<InitializerListExpression>();
    for (int i = 0; i < 17; ++i)
        list->append(literal("1"));
    const auto statement = declareHere(names.variable("v", names.arrayOf(names.intType, 17), std::move(list)));
    PrintedLines out;
    out.print(*statement);
    EXPECT_EQ(out.linesOf(*statement),
              (Lines{"int v[17] = {", "    1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1,", "    1", "};"}));
}

TEST(ProgramTextPiecesTest, KeepsHeadersOnOneLine) {
    Names names;
    const auto values = [] {
        auto list = make<InitializerListExpression>();
        for (int i = 0; i < 17; ++i)
            list->append(literal("1"));
        return list;
    };
    const auto compound = [&] { return make<CompoundLiteralExpression>(names.arrayOf(names.intType, 17), values()); };
    std::string row = "(int[17]) { 1";
    for (int i = 1; i < 17; ++i)
        row += ", 1";
    row += " }";
    EXPECT_EQ(printed(*make<IfStatement>(compound(), block(), block())),
              (Lines{"if (" + row + ")", "{", "}", "else", "{", "}"}));
    EXPECT_EQ(printed(*make<SwitchStatement>(compound(), block())), (Lines{"switch (" + row + ")", "{", "}"}));
    EXPECT_EQ(printed(*make<WhileStatement>(compound(), block())), (Lines{"while (" + row + ")", "{", "}"}));
    EXPECT_EQ(printed(*make<DoWhileStatement>(block(), compound())), (Lines{"do", "{", "}", "while (" + row + ");"}));
    EXPECT_EQ(printed(*make<ForStatement>(nullptr, compound(), nullptr, block())),
              (Lines{"for (; " + row + ";)", "{", "}"}));
    EXPECT_EQ(printed(*statement(compound())).size(), 4U);
}

} // namespace
