// SPDX-License-Identifier: MIT
#pragma once

namespace Kova::Tessel {

class AssignmentExpression;
class BinaryExpression;
class BlockStatement;
class BreakStatement;
class CaseStatement;
class CastExpression;
class CompoundLiteralExpression;
class ConditionalExpression;
class ContinueStatement;
class DeclarationBase;
class DeclarationStatement;
class DesignatedInitializerExpression;
class DoWhileStatement;
class EnumDeclaration;
class EnumeratorDeclaration;
class EnumeratorReference;
class ExpressionBase;
class ExpressionStatement;
class FieldDeclaration;
class ForStatement;
class GenericSelectionExpression;
class GotoStatement;
class IfStatement;
class InitializerListExpression;
class LabelAddressExpression;
class LabelStatement;
class LiteralExpression;
class LoopStatement;
class MemberExpression;
class ModuleDeclaration;
class NullStatement;
class OpaqueDeclaration;
class OpaqueExpression;
class OpaqueStatement;
class ProgramUnit;
class RecordDeclaration;
class ReturnStatement;
class SectionExpression;
class StatementBase;
class StatementExpression;
class SubroutineCallExpression;
class SubroutineDeclaration;
class SubroutineReference;
class SubscriptExpression;
class SwitchStatement;
class TesselBase;
class TranslationUnit;
class TypeDeclaration;
class TypeQueryExpression;
class TypedefDeclaration;
class UnaryExpression;
class VariableDeclaration;
class VariableReference;
class VariadicArgumentExpression;
class WhileStatement;

/// One visit for every class of the tree. A visit that is not overridden calls the one of the node's base class, so a
/// visitor overrides what it cares for, as general or as special as it likes; in the end visit(TesselBase&) does
/// nothing. A derived visitor writes `using BaseVisitor::visit;` to keep the visits that it does not override.
class BaseVisitor {
public:
    virtual ~BaseVisitor() = default;

    virtual void visit(TesselBase& node);

    virtual void visit(ProgramUnit& node);
    virtual void visit(TranslationUnit& node);

    virtual void visit(DeclarationBase& node);

    virtual void visit(SubroutineDeclaration& node);
    virtual void visit(VariableDeclaration& node);
    virtual void visit(FieldDeclaration& node);
    virtual void visit(EnumeratorDeclaration& node);
    virtual void visit(ModuleDeclaration& node);
    virtual void visit(OpaqueDeclaration& node);
    virtual void visit(TypeDeclaration& node);

    virtual void visit(RecordDeclaration& node);
    virtual void visit(EnumDeclaration& node);
    virtual void visit(TypedefDeclaration& node);

    virtual void visit(StatementBase& node);

    virtual void visit(BlockStatement& node);
    virtual void visit(ExpressionStatement& node);
    virtual void visit(DeclarationStatement& node);
    virtual void visit(IfStatement& node);
    virtual void visit(SwitchStatement& node);
    virtual void visit(CaseStatement& node);
    virtual void visit(LabelStatement& node);
    virtual void visit(GotoStatement& node);
    virtual void visit(BreakStatement& node);
    virtual void visit(ContinueStatement& node);
    virtual void visit(ReturnStatement& node);
    virtual void visit(NullStatement& node);
    virtual void visit(OpaqueStatement& node);
    virtual void visit(LoopStatement& node);

    virtual void visit(ForStatement& node);
    virtual void visit(WhileStatement& node);
    virtual void visit(DoWhileStatement& node);

    virtual void visit(ExpressionBase& node);

    virtual void visit(VariableReference& node);
    virtual void visit(SubroutineReference& node);
    virtual void visit(EnumeratorReference& node);
    virtual void visit(LiteralExpression& node);
    virtual void visit(UnaryExpression& node);
    virtual void visit(BinaryExpression& node);
    virtual void visit(AssignmentExpression& node);
    virtual void visit(ConditionalExpression& node);
    virtual void visit(CastExpression& node);
    virtual void visit(SubscriptExpression& node);
    virtual void visit(SectionExpression& node);
    virtual void visit(MemberExpression& node);
    virtual void visit(SubroutineCallExpression& node);
    virtual void visit(TypeQueryExpression& node);
    virtual void visit(InitializerListExpression& node);
    virtual void visit(DesignatedInitializerExpression& node);
    virtual void visit(CompoundLiteralExpression& node);
    virtual void visit(GenericSelectionExpression& node);
    virtual void visit(StatementExpression& node);
    virtual void visit(VariadicArgumentExpression& node);
    virtual void visit(LabelAddressExpression& node);
    virtual void visit(OpaqueExpression& node);

protected:
    BaseVisitor() = default;
    BaseVisitor(const BaseVisitor&) = default;
    BaseVisitor& operator=(const BaseVisitor&) = default;
};

} // namespace Kova::Tessel
