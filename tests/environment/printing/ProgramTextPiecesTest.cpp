// SPDX-License-Identifier: MIT
// Which node each piece of a program's text is for.
#include "environment/printing/ProgramTextBuilder.h"
#include "environment/tessel/service/Preorder.h"
#include "tests/environment/printing/Names.h"
#include "tests/environment/printing/PrintedLines.h"
#include "tests/environment/support/EveryNode.h"

#include <gtest/gtest.h>

#include <set>
#include <typeindex>
#include <typeinfo>

using namespace Kova;
using namespace Kova::Tessel;
using namespace Kova::Tests;
using Lines = std::vector<std::string>;

namespace {

/// A program with every kind of node that can stand below another.
struct WholeLanguage : Names {
    ProgramUnit program;
    EveryNode every;

    ExpressionPtr unnamedMembers() {
        ExpressionPtr inner = member(a(), MemberExpression::Access::Direct, unnamedField);
        inner = member(std::move(inner), MemberExpression::Access::Direct, unnamedField);
        inner = member(std::move(inner), MemberExpression::Access::Direct, unnamedField);
        return dot(std::move(inner));
    }

    ExpressionPtr values() {
        auto list = make<InitializerListExpression>();
        auto designated = make<DesignatedInitializerExpression>(a());
        designated->appendField("x");
        designated->appendIndex(b());
        designated->appendIndexRange(c(), literal("9"));
        list->append(std::move(designated));
        for (int i = 0; i < 20; ++i)
            list->append(literal("1"));
        return list;
    }

    std::vector<ExpressionPtr> expressions() {
        std::vector<ExpressionPtr> all;
        all.push_back(assign(subscript(a(), b()), conditional(a(), f(), c())));
        all.push_back(unnamedMembers());
        all.push_back(make<CastExpression>(types.pointer(intType), unary(UnaryOperator::Minus, a())));
        all.push_back(make<TypeQueryExpression>(TypeQueryExpression::Query::SizeOf, dot(b())));
        all.push_back(make<TypeQueryExpression>(TypeQueryExpression::Query::AlignOf, intType));
        all.push_back(make<CompoundLiteralExpression>(intType, values()));
        auto generic = make<GenericSelectionExpression>(a(), 0U);
        generic->appendAssociation(intType, b());
        generic->appendAssociation(nullptr, c());
        all.push_back(std::move(generic));
        all.push_back(make<StatementExpression>(block(statement(a()))));
        all.push_back(make<VariadicArgumentExpression>(a(), intType));
        all.push_back(make<LabelAddressExpression>("l"));
        auto opaque = make<OpaqueExpression>("odd(a + RED, \"a\", f)");
        opaque->appendOperand(binary(a(), B::Add, make<EnumeratorReference>(enumeratorRed)));
        opaque->appendOperand(f());
        opaque->appendOperand(b());
        all.push_back(std::move(opaque));
        all.push_back(make<SectionExpression>(a(), nullptr, b()));
        all.push_back(call(f(), binary(a(), B::Comma, b())));
        return all;
    }

    std::unique_ptr<DeclarationStatement> declarations() {
        auto outer = emptyRecord("s");
        auto inner = emptyRecord("", RecordDeclaration::Kind::Union);
        const Type* innerType = types.declared(*inner);
        outer->append(std::move(inner));
        outer->append(make<FieldDeclaration>("", innerType));
        outer->append(make<FieldDeclaration>("bits", intType, literal("3")));
        auto color = emptyEnum("color");
        color->append(make<EnumeratorDeclaration>("RED", 0, literal("0")));
        auto length = a();
        const Type* type = arrayOf(intType, *length);
        auto array = make<VariableDeclaration>("v", type);
        array->appendBound(std::move(length));
        return declareHere(std::move(outer), std::move(color), make<TypedefDeclaration>("word", intType),
                           make<OpaqueDeclaration>("_Static_assert(1, \"\");"), std::move(array),
                           intVariable("w", values()));
    }

    std::unique_ptr<BlockStatement> statements() {
        auto body = block(declarations());
        for (ExpressionPtr& expression : expressions())
            body->append(statement(std::move(expression)));
        body->append(make<IfStatement>(a(), block(make<NullStatement>()),
                                       block(make<IfStatement>(b(), block(), block(statement(c()))))));
        body->append(
            make<SwitchStatement>(a(), block(make<CaseStatement>(literal("1"), literal("2")), make<BreakStatement>())));
        body->append(make<LabelStatement>("l"));
        body->append(make<GotoStatement>("l"));
        body->append(make<GotoStatement>(a()));
        auto asmStatement = make<OpaqueStatement>("asm (\"nop\"\n : \"=r\" (a));");
        asmStatement->appendOperand(a());
        body->append(std::move(asmStatement));
        body->append(
            make<ForStatement>(declareHere(intVariable("i", a())), b(), c(), block(make<ContinueStatement>())));
        body->append(make<WhileStatement>(a(), block()));
        body->append(make<DoWhileStatement>(block(), a()));
        body->append(make<ReturnStatement>(a()));
        return body;
    }

    WholeLanguage() {
        TranslationUnit& unit = addUnit(program, "a.c");
        const auto* type = types.function(intType, {intType}, FunctionType::Parameters::Variadic);
        auto subroutine = make<SubroutineDeclaration>("s", type);
        subroutine->appendParameter(make<VariableDeclaration>("n", intType));
        subroutine->setBody(statements());
        auto module = make<ModuleDeclaration>("m");
        module->append(make<VariableDeclaration>("g", intType));
        unit.append(std::move(subroutine));
        unit.append(std::move(module));
    }
};

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
    for (const auto& node : language.every.nodes)
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

} // namespace
