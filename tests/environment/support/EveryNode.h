// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/BreakStatement.h"
#include "environment/tessel/CaseStatement.h"
#include "environment/tessel/CastExpression.h"
#include "environment/tessel/CompoundLiteralExpression.h"
#include "environment/tessel/ContinueStatement.h"
#include "environment/tessel/DeclarationStatement.h"
#include "environment/tessel/DesignatedInitializerExpression.h"
#include "environment/tessel/DoWhileStatement.h"
#include "environment/tessel/EnumDeclaration.h"
#include "environment/tessel/EnumeratorReference.h"
#include "environment/tessel/FieldDeclaration.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/GenericSelectionExpression.h"
#include "environment/tessel/GotoStatement.h"
#include "environment/tessel/IfStatement.h"
#include "environment/tessel/InitializerListExpression.h"
#include "environment/tessel/LabelAddressExpression.h"
#include "environment/tessel/LabelStatement.h"
#include "environment/tessel/ModuleDeclaration.h"
#include "environment/tessel/NullStatement.h"
#include "environment/tessel/OpaqueDeclaration.h"
#include "environment/tessel/OpaqueStatement.h"
#include "environment/tessel/RecordDeclaration.h"
#include "environment/tessel/ReturnStatement.h"
#include "environment/tessel/SectionExpression.h"
#include "environment/tessel/StatementExpression.h"
#include "environment/tessel/SwitchStatement.h"
#include "environment/tessel/TypeQueryExpression.h"
#include "environment/tessel/TypedefDeclaration.h"
#include "environment/tessel/VariadicArgumentExpression.h"
#include "environment/tessel/WhileStatement.h"
#include "tests/environment/support/Build.h"

#include <vector>

namespace Kova::Tests {

/// One node of each class, all with as little below them as they can have.
struct EveryNode {
    Tessel::VariableDeclaration variable{"v", nullptr};
    Tessel::SubroutineDeclaration subroutine{"s", nullptr};
    Tessel::EnumeratorDeclaration enumerator{"E", 0, nullptr};
    Tessel::FieldDeclaration field{"f", nullptr};
    std::vector<std::unique_ptr<Tessel::TesselBase>> nodes;

    EveryNode() {
        using namespace Tessel;
        add<ProgramUnit>();
        add<TranslationUnit>("a.c", LANG_C);
        add<SubroutineDeclaration>("s", nullptr);
        add<VariableDeclaration>("v", nullptr);
        add<FieldDeclaration>("f", nullptr);
        add<EnumeratorDeclaration>("E", 0, nullptr);
        add<ModuleDeclaration>("m");
        add<OpaqueDeclaration>(";");
        add<RecordDeclaration>("r", RecordDeclaration::Kind::Struct);
        add<EnumDeclaration>("e");
        add<TypedefDeclaration>("t", nullptr);
        addStatements();
        addExpressions();
    }

private:
    template <class T, class... Arguments>
    void add(Arguments&&... arguments) {
        nodes.push_back(std::make_unique<T>(std::forward<Arguments>(arguments)...));
    }

    void addStatements() {
        using namespace Tessel;
        add<BlockStatement>();
        add<ExpressionStatement>(nullptr);
        add<DeclarationStatement>();
        add<IfStatement>(nullptr, nullptr, nullptr);
        add<SwitchStatement>(nullptr, nullptr);
        add<CaseStatement>(nullptr, nullptr);
        add<LabelStatement>("l");
        add<GotoStatement>("l");
        add<BreakStatement>();
        add<ContinueStatement>();
        add<ReturnStatement>(nullptr);
        add<NullStatement>();
        add<OpaqueStatement>(";");
        add<ForStatement>(nullptr, nullptr, nullptr, nullptr);
        add<WhileStatement>(nullptr, nullptr);
        add<DoWhileStatement>(nullptr, nullptr);
    }

    void addExpressions() {
        using namespace Tessel;
        add<VariableReference>(variable);
        add<SubroutineReference>(subroutine);
        add<EnumeratorReference>(enumerator);
        add<LiteralExpression>(LiteralExpression::Kind::Integer, "1");
        add<UnaryExpression>(UnaryOperator::Minus, nullptr);
        add<BinaryExpression>(BinaryOperator::Add, nullptr, nullptr);
        add<AssignmentExpression>(nullptr, nullptr);
        add<ConditionalExpression>(nullptr, nullptr, nullptr);
        add<CastExpression>(nullptr, nullptr);
        add<SubscriptExpression>(nullptr, nullptr);
        add<SectionExpression>(nullptr, nullptr, nullptr);
        add<MemberExpression>(nullptr, MemberExpression::Access::Direct, field);
        add<SubroutineCallExpression>(nullptr);
        add<TypeQueryExpression>(TypeQueryExpression::Query::SizeOf, static_cast<const Type*>(nullptr));
        add<InitializerListExpression>();
        add<DesignatedInitializerExpression>(nullptr);
        add<CompoundLiteralExpression>(nullptr, nullptr);
        add<GenericSelectionExpression>(nullptr, 0U);
        add<StatementExpression>(nullptr);
        add<VariadicArgumentExpression>(nullptr, nullptr);
        add<LabelAddressExpression>("l");
        add<OpaqueExpression>("x");
    }
};

} // namespace Kova::Tests
