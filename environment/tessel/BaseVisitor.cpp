// SPDX-License-Identifier: MIT
#include "environment/tessel/BaseVisitor.h"

#include "environment/tessel/AssignmentExpression.h"
#include "environment/tessel/BinaryExpression.h"
#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/BreakStatement.h"
#include "environment/tessel/CaseStatement.h"
#include "environment/tessel/CastExpression.h"
#include "environment/tessel/CompoundLiteralExpression.h"
#include "environment/tessel/ConditionalExpression.h"
#include "environment/tessel/ContinueStatement.h"
#include "environment/tessel/DeclarationBase.h"
#include "environment/tessel/DeclarationStatement.h"
#include "environment/tessel/DesignatedInitializerExpression.h"
#include "environment/tessel/DoWhileStatement.h"
#include "environment/tessel/EnumDeclaration.h"
#include "environment/tessel/EnumeratorDeclaration.h"
#include "environment/tessel/EnumeratorReference.h"
#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/ExpressionStatement.h"
#include "environment/tessel/FieldDeclaration.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/GenericSelectionExpression.h"
#include "environment/tessel/GotoStatement.h"
#include "environment/tessel/IfStatement.h"
#include "environment/tessel/InitializerListExpression.h"
#include "environment/tessel/LabelAddressExpression.h"
#include "environment/tessel/LabelStatement.h"
#include "environment/tessel/LiteralExpression.h"
#include "environment/tessel/LoopStatement.h"
#include "environment/tessel/MemberExpression.h"
#include "environment/tessel/ModuleDeclaration.h"
#include "environment/tessel/NullStatement.h"
#include "environment/tessel/OpaqueDeclaration.h"
#include "environment/tessel/OpaqueExpression.h"
#include "environment/tessel/OpaqueStatement.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/RecordDeclaration.h"
#include "environment/tessel/ReturnStatement.h"
#include "environment/tessel/SectionExpression.h"
#include "environment/tessel/StatementBase.h"
#include "environment/tessel/StatementExpression.h"
#include "environment/tessel/SubroutineCallExpression.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/SubroutineReference.h"
#include "environment/tessel/SubscriptExpression.h"
#include "environment/tessel/SwitchStatement.h"
#include "environment/tessel/TranslationUnit.h"
#include "environment/tessel/TypeDeclaration.h"
#include "environment/tessel/TypeQueryExpression.h"
#include "environment/tessel/TypedefDeclaration.h"
#include "environment/tessel/UnaryExpression.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/VariableReference.h"
#include "environment/tessel/VariadicArgumentExpression.h"
#include "environment/tessel/WhileStatement.h"

namespace Kova::Tessel {

void BaseVisitor::visit(TesselBase& /*node*/) {}

void BaseVisitor::visit(ProgramUnit& node) {
    visit(static_cast<TesselBase&>(node));
}
void BaseVisitor::visit(TranslationUnit& node) {
    visit(static_cast<TesselBase&>(node));
}

void BaseVisitor::visit(DeclarationBase& node) {
    visit(static_cast<TesselBase&>(node));
}

void BaseVisitor::visit(SubroutineDeclaration& node) {
    visit(static_cast<DeclarationBase&>(node));
}
void BaseVisitor::visit(VariableDeclaration& node) {
    visit(static_cast<DeclarationBase&>(node));
}
void BaseVisitor::visit(FieldDeclaration& node) {
    visit(static_cast<DeclarationBase&>(node));
}
void BaseVisitor::visit(EnumeratorDeclaration& node) {
    visit(static_cast<DeclarationBase&>(node));
}
void BaseVisitor::visit(ModuleDeclaration& node) {
    visit(static_cast<DeclarationBase&>(node));
}
void BaseVisitor::visit(OpaqueDeclaration& node) {
    visit(static_cast<DeclarationBase&>(node));
}
void BaseVisitor::visit(TypeDeclaration& node) {
    visit(static_cast<DeclarationBase&>(node));
}

void BaseVisitor::visit(RecordDeclaration& node) {
    visit(static_cast<TypeDeclaration&>(node));
}
void BaseVisitor::visit(EnumDeclaration& node) {
    visit(static_cast<TypeDeclaration&>(node));
}
void BaseVisitor::visit(TypedefDeclaration& node) {
    visit(static_cast<TypeDeclaration&>(node));
}

void BaseVisitor::visit(StatementBase& node) {
    visit(static_cast<TesselBase&>(node));
}

void BaseVisitor::visit(BlockStatement& node) {
    visit(static_cast<StatementBase&>(node));
}
void BaseVisitor::visit(ExpressionStatement& node) {
    visit(static_cast<StatementBase&>(node));
}
void BaseVisitor::visit(DeclarationStatement& node) {
    visit(static_cast<StatementBase&>(node));
}
void BaseVisitor::visit(IfStatement& node) {
    visit(static_cast<StatementBase&>(node));
}
void BaseVisitor::visit(SwitchStatement& node) {
    visit(static_cast<StatementBase&>(node));
}
void BaseVisitor::visit(CaseStatement& node) {
    visit(static_cast<StatementBase&>(node));
}
void BaseVisitor::visit(LabelStatement& node) {
    visit(static_cast<StatementBase&>(node));
}
void BaseVisitor::visit(GotoStatement& node) {
    visit(static_cast<StatementBase&>(node));
}
void BaseVisitor::visit(BreakStatement& node) {
    visit(static_cast<StatementBase&>(node));
}
void BaseVisitor::visit(ContinueStatement& node) {
    visit(static_cast<StatementBase&>(node));
}
void BaseVisitor::visit(ReturnStatement& node) {
    visit(static_cast<StatementBase&>(node));
}
void BaseVisitor::visit(NullStatement& node) {
    visit(static_cast<StatementBase&>(node));
}
void BaseVisitor::visit(OpaqueStatement& node) {
    visit(static_cast<StatementBase&>(node));
}
void BaseVisitor::visit(LoopStatement& node) {
    visit(static_cast<StatementBase&>(node));
}

void BaseVisitor::visit(ForStatement& node) {
    visit(static_cast<LoopStatement&>(node));
}
void BaseVisitor::visit(WhileStatement& node) {
    visit(static_cast<LoopStatement&>(node));
}
void BaseVisitor::visit(DoWhileStatement& node) {
    visit(static_cast<LoopStatement&>(node));
}

void BaseVisitor::visit(ExpressionBase& node) {
    visit(static_cast<TesselBase&>(node));
}

void BaseVisitor::visit(VariableReference& node) {
    visit(static_cast<ExpressionBase&>(node));
}
void BaseVisitor::visit(SubroutineReference& node) {
    visit(static_cast<ExpressionBase&>(node));
}
void BaseVisitor::visit(EnumeratorReference& node) {
    visit(static_cast<ExpressionBase&>(node));
}
void BaseVisitor::visit(LiteralExpression& node) {
    visit(static_cast<ExpressionBase&>(node));
}
void BaseVisitor::visit(UnaryExpression& node) {
    visit(static_cast<ExpressionBase&>(node));
}
void BaseVisitor::visit(BinaryExpression& node) {
    visit(static_cast<ExpressionBase&>(node));
}
void BaseVisitor::visit(AssignmentExpression& node) {
    visit(static_cast<ExpressionBase&>(node));
}
void BaseVisitor::visit(ConditionalExpression& node) {
    visit(static_cast<ExpressionBase&>(node));
}
void BaseVisitor::visit(CastExpression& node) {
    visit(static_cast<ExpressionBase&>(node));
}
void BaseVisitor::visit(SubscriptExpression& node) {
    visit(static_cast<ExpressionBase&>(node));
}
void BaseVisitor::visit(SectionExpression& node) {
    visit(static_cast<ExpressionBase&>(node));
}
void BaseVisitor::visit(MemberExpression& node) {
    visit(static_cast<ExpressionBase&>(node));
}
void BaseVisitor::visit(SubroutineCallExpression& node) {
    visit(static_cast<ExpressionBase&>(node));
}
void BaseVisitor::visit(TypeQueryExpression& node) {
    visit(static_cast<ExpressionBase&>(node));
}
void BaseVisitor::visit(InitializerListExpression& node) {
    visit(static_cast<ExpressionBase&>(node));
}
void BaseVisitor::visit(DesignatedInitializerExpression& node) {
    visit(static_cast<ExpressionBase&>(node));
}
void BaseVisitor::visit(CompoundLiteralExpression& node) {
    visit(static_cast<ExpressionBase&>(node));
}
void BaseVisitor::visit(GenericSelectionExpression& node) {
    visit(static_cast<ExpressionBase&>(node));
}
void BaseVisitor::visit(StatementExpression& node) {
    visit(static_cast<ExpressionBase&>(node));
}
void BaseVisitor::visit(VariadicArgumentExpression& node) {
    visit(static_cast<ExpressionBase&>(node));
}
void BaseVisitor::visit(LabelAddressExpression& node) {
    visit(static_cast<ExpressionBase&>(node));
}
void BaseVisitor::visit(OpaqueExpression& node) {
    visit(static_cast<ExpressionBase&>(node));
}

} // namespace Kova::Tessel
