// SPDX-License-Identifier: MIT
#pragma once

#include "tests/environment/printing/Names.h"
#include "tests/environment/support/EveryNode.h"

namespace Kova::Tests {

/// A program with every kind of node that can stand below another.
class WholeLanguage : protected Names {
public:
    Tessel::ProgramUnit program;

    explicit WholeLanguage(Tessel::SourceLanguage language = Tessel::LANG_C) {
        Tessel::TranslationUnit& unit = addUnit(program, "a.c", language);
        const auto* type = types.function(intType, {intType}, Tessel::FunctionType::Parameters::Variadic);
        auto subroutine = make<Tessel::SubroutineDeclaration>("s", type);
        subroutine->appendParameter(make<Tessel::VariableDeclaration>("n", intType));
        subroutine->setBody(statements());
        auto module = make<Tessel::ModuleDeclaration>("m");
        module->append(make<Tessel::VariableDeclaration>("g", intType));
        unit.append(std::move(subroutine));
        unit.append(std::move(module));
    }

private:
    Tessel::ExpressionPtr unnamedMembers() {
        Tessel::ExpressionPtr inner = member(a(), Tessel::MemberExpression::Access::Direct, unnamedField);
        inner = member(std::move(inner), Tessel::MemberExpression::Access::Direct, unnamedField);
        inner = member(std::move(inner), Tessel::MemberExpression::Access::Direct, unnamedField);
        return dot(std::move(inner));
    }

    Tessel::ExpressionPtr values() {
        auto list = make<Tessel::InitializerListExpression>();
        auto designated = make<Tessel::DesignatedInitializerExpression>(a());
        designated->appendField("x");
        designated->appendIndex(b());
        designated->appendIndexRange(c(), literal("9"));
        list->append(std::move(designated));
        for (int i = 0; i < 20; ++i)
            list->append(literal("1"));
        return list;
    }

    std::vector<Tessel::ExpressionPtr> expressions() {
        std::vector<Tessel::ExpressionPtr> all;
        all.push_back(assign(subscript(a(), b()), conditional(a(), f(), c())));
        all.push_back(unnamedMembers());
        all.push_back(make<Tessel::CastExpression>(types.pointer(intType), unary(Tessel::UnaryOperator::Minus, a())));
        all.push_back(make<Tessel::TypeQueryExpression>(Tessel::TypeQueryExpression::Query::SizeOf, dot(b())));
        all.push_back(make<Tessel::TypeQueryExpression>(Tessel::TypeQueryExpression::Query::AlignOf, intType));
        all.push_back(make<Tessel::CompoundLiteralExpression>(intType, values()));
        auto generic = make<Tessel::GenericSelectionExpression>(a(), 0U);
        generic->appendAssociation(intType, b());
        generic->appendAssociation(nullptr, c());
        all.push_back(std::move(generic));
        all.push_back(make<Tessel::StatementExpression>(block(statement(a()))));
        all.push_back(make<Tessel::VariadicArgumentExpression>(a(), intType));
        all.push_back(make<Tessel::LabelAddressExpression>("l"));
        auto opaque = make<Tessel::OpaqueExpression>("odd(a + RED, \"a\", f)");
        opaque->appendOperand(binary(a(), B::Add, make<Tessel::EnumeratorReference>(enumeratorRed)));
        opaque->appendOperand(f());
        opaque->appendOperand(b());
        all.push_back(std::move(opaque));
        all.push_back(make<Tessel::SectionExpression>(a(), nullptr, b()));
        all.push_back(call(f(), binary(a(), B::Comma, b())));
        return all;
    }

    std::unique_ptr<Tessel::DeclarationStatement> declarations() {
        auto outer = emptyRecord("s");
        auto inner = emptyRecord("", Tessel::RecordDeclaration::Kind::Union);
        const Tessel::Type* innerType = types.declared(*inner);
        outer->append(std::move(inner));
        outer->append(make<Tessel::FieldDeclaration>("", innerType));
        outer->append(make<Tessel::FieldDeclaration>("bits", intType, literal("3")));
        auto color = emptyEnum("color");
        color->append(make<Tessel::EnumeratorDeclaration>("RED", 0, literal("0")));
        auto length = a();
        const Tessel::Type* type = arrayOf(intType, *length);
        auto array = make<Tessel::VariableDeclaration>("v", type);
        array->appendBound(std::move(length));
        return declareHere(std::move(outer), std::move(color), make<Tessel::TypedefDeclaration>("word", intType),
                           make<Tessel::OpaqueDeclaration>("_Static_assert(1, \"\");"), std::move(array),
                           intVariable("w", values()));
    }

    std::unique_ptr<Tessel::BlockStatement> statements() {
        auto body = block(declarations());
        for (Tessel::ExpressionPtr& expression : expressions())
            body->append(statement(std::move(expression)));
        body->append(make<Tessel::IfStatement>(a(), block(make<Tessel::NullStatement>()),
                                               block(make<Tessel::IfStatement>(b(), block(), block(statement(c()))))));
        body->append(make<Tessel::SwitchStatement>(
            a(), block(make<Tessel::CaseStatement>(literal("1"), literal("2")), make<Tessel::BreakStatement>())));
        body->append(make<Tessel::LabelStatement>("l"));
        body->append(make<Tessel::GotoStatement>("l"));
        body->append(make<Tessel::GotoStatement>(a()));
        auto asmStatement = make<Tessel::OpaqueStatement>("asm (\"nop\"\n : \"=r\" (a));");
        asmStatement->appendOperand(a());
        body->append(std::move(asmStatement));
        body->append(make<Tessel::ForStatement>(declareHere(intVariable("i", a())), b(), c(),
                                                block(make<Tessel::ContinueStatement>())));
        body->append(make<Tessel::WhileStatement>(a(), block()));
        body->append(make<Tessel::DoWhileStatement>(block(), a()));
        body->append(make<Tessel::ReturnStatement>(a()));
        return body;
    }
};

} // namespace Kova::Tests
