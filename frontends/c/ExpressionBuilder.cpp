// SPDX-License-Identifier: MIT
#include "environment/tessel/AssignmentExpression.h"
#include "environment/tessel/BinaryExpression.h"
#include "environment/tessel/CastExpression.h"
#include "environment/tessel/CompoundLiteralExpression.h"
#include "environment/tessel/ConditionalExpression.h"
#include "environment/tessel/DesignatedInitializerExpression.h"
#include "environment/tessel/EnumeratorReference.h"
#include "environment/tessel/FieldDeclaration.h"
#include "environment/tessel/GenericSelectionExpression.h"
#include "environment/tessel/InitializerListExpression.h"
#include "environment/tessel/LabelAddressExpression.h"
#include "environment/tessel/LiteralExpression.h"
#include "environment/tessel/MemberExpression.h"
#include "environment/tessel/OpaqueExpression.h"
#include "environment/tessel/StatementExpression.h"
#include "environment/tessel/SubroutineCallExpression.h"
#include "environment/tessel/SubroutineReference.h"
#include "environment/tessel/SubscriptExpression.h"
#include "environment/tessel/TypeQueryExpression.h"
#include "environment/tessel/UnaryExpression.h"
#include "environment/tessel/VariableReference.h"
#include "environment/tessel/VariadicArgumentExpression.h"
#include "frontends/c/OperatorMapping_p.h"
#include "frontends/c/ProgramMacros_p.h"
#include "frontends/c/UnitContext_p.h"

#include <clang/AST/ASTContext.h>
#include <clang/AST/Expr.h>
#include <clang/AST/StmtVisitor.h>
#include <llvm/ADT/StringExtras.h>
#include <llvm/Support/raw_ostream.h>

namespace Kova::Frontends {

using namespace Tessel;

namespace {

/// Makes the node of one expression; what no visit is written for becomes an opaque expression.
class ExpressionVisitor : public clang::ConstStmtVisitor<ExpressionVisitor, ExpressionPtr> {
public:
    explicit ExpressionVisitor(UnitContext& context) : m_context(context) {}

    ExpressionPtr VisitStmt(const clang::Stmt* expression) { return makeOpaque(m_context.keeper.keep(*expression)); }

    ExpressionPtr VisitExpr(const clang::Expr* expression) {
        ExpressionPtr literal = buildLiteral(m_context, *expression);
        return literal ? std::move(literal) : VisitStmt(expression);
    }

    ExpressionPtr VisitDeclRefExpr(const clang::DeclRefExpr* reference);
    ExpressionPtr VisitUnaryOperator(const clang::UnaryOperator* unary);
    ExpressionPtr VisitBinaryOperator(const clang::BinaryOperator* binary);
    ExpressionPtr VisitCallExpr(const clang::CallExpr* call);
    ExpressionPtr VisitMemberExpr(const clang::MemberExpr* member);
    ExpressionPtr VisitCStyleCastExpr(const clang::CStyleCastExpr* cast);
    ExpressionPtr VisitUnaryExprOrTypeTraitExpr(const clang::UnaryExprOrTypeTraitExpr* query);
    ExpressionPtr VisitInitListExpr(const clang::InitListExpr* list);
    ExpressionPtr VisitDesignatedInitExpr(const clang::DesignatedInitExpr* designated);
    ExpressionPtr VisitGenericSelectionExpr(const clang::GenericSelectionExpr* selection);

    ExpressionPtr VisitConditionalOperator(const clang::ConditionalOperator* choice) {
        return std::make_unique<ConditionalExpression>(build(choice->getCond()), build(choice->getTrueExpr()),
                                                       build(choice->getFalseExpr()));
    }
    ExpressionPtr VisitBinaryConditionalOperator(const clang::BinaryConditionalOperator* choice) {
        return std::make_unique<ConditionalExpression>(build(choice->getCommon()), nullptr,
                                                       build(choice->getFalseExpr()));
    }
    ExpressionPtr VisitArraySubscriptExpr(const clang::ArraySubscriptExpr* element) {
        return std::make_unique<SubscriptExpression>(build(element->getLHS()), build(element->getRHS()));
    }
    ExpressionPtr VisitCompoundLiteralExpr(const clang::CompoundLiteralExpr* literal) {
        auto result = std::make_unique<CompoundLiteralExpression>(m_context.types.build(literal->getType()),
                                                                  build(literal->getInitializer()));
        result->setLengthLeftOut(leavesLengthOut(literal->getTypeSourceInfo(), literal->getType()));
        return result;
    }
    ExpressionPtr VisitStmtExpr(const clang::StmtExpr* block) {
        return std::make_unique<StatementExpression>(buildInnerBlock(m_context, *block->getSubStmt()));
    }
    ExpressionPtr VisitAddrLabelExpr(const clang::AddrLabelExpr* address) {
        return std::make_unique<LabelAddressExpression>(address->getLabel()->getNameAsString());
    }
    // What Clang's own headers make of atomic_load and its like is known to Clang alone.
    ExpressionPtr VisitAtomicExpr(const clang::AtomicExpr* access) { return makeMacroUse(*access); }
    // A call of `__builtin_LINE()` and its like means its own place, which printing changes.
    ExpressionPtr VisitSourceLocExpr(const clang::SourceLocExpr* place);
    ExpressionPtr VisitVAArgExpr(const clang::VAArgExpr* argument) {
        auto result = std::make_unique<VariadicArgumentExpression>(
            build(argument->getSubExpr()), m_context.types.build(argument->getWrittenTypeInfo()->getType()));
        result->setBuiltin(!m_context.text.isMacroOf(argument->getBuiltinLoc(), "va_arg"));
        return result;
    }

private:
    [[nodiscard]] ExpressionPtr makeOpaque(KeptText kept);
    /// The use of a system header's macro as it is written.
    [[nodiscard]] ExpressionPtr makeMacroUse(const clang::Expr& expression) {
        KeptText use = m_context.keeper.keepMacroUse(expression);
        return use.text.empty() ? VisitStmt(&expression) : makeOpaque(std::move(use));
    }
    [[nodiscard]] ExpressionPtr buildCallee(const clang::CallExpr& call);
    [[nodiscard]] ExpressionPtr build(const clang::Expr* expression) { return buildExpression(m_context, expression); }

    UnitContext& m_context;
};

ExpressionPtr ExpressionVisitor::makeOpaque(KeptText kept) {
    auto opaque = std::make_unique<OpaqueExpression>(std::move(kept.text));
    for (const KeptText::Operand& operand : kept.operands)
        opaque->appendOperand(build(operand.expression), operand.place);
    return opaque;
}

ExpressionPtr ExpressionVisitor::VisitSourceLocExpr(const clang::SourceLocExpr* place) {
    const clang::APValue value = place->EvaluateInContext(m_context.clang, nullptr);
    if (value.isInt()) {
        auto number =
            std::make_unique<LiteralExpression>(LiteralExpression::Kind::Integer, llvm::toString(value.getInt(), 10));
        number->setIntegerValue(value.getInt().getExtValue());
        return number;
    }
    const auto* text = value.isLValue() ? value.getLValueBase().dyn_cast<const clang::Expr*>() : nullptr;
    const auto* string = llvm::dyn_cast_or_null<clang::StringLiteral>(text);
    if (string == nullptr)
        return VisitStmt(place);
    std::string quoted;
    llvm::raw_string_ostream stream(quoted);
    string->outputString(stream);
    return std::make_unique<LiteralExpression>(LiteralExpression::Kind::String, stream.str());
}

ExpressionPtr ExpressionVisitor::VisitDeclRefExpr(const clang::DeclRefExpr* reference) {
    const clang::ValueDecl* meant = reference->getDecl();
    if (const auto* variable = llvm::dyn_cast<clang::VarDecl>(meant))
        return std::make_unique<VariableReference>(m_context.declarations.variable(*variable));
    if (const auto* function = llvm::dyn_cast<clang::FunctionDecl>(meant))
        return std::make_unique<SubroutineReference>(m_context.declarations.subroutine(*function));
    if (const auto* constant = llvm::dyn_cast<clang::EnumConstantDecl>(meant))
        if (EnumeratorDeclaration* enumerator = m_context.declarations.enumerator(*constant))
            return std::make_unique<EnumeratorReference>(*enumerator);
    return VisitStmt(reference);
}

ExpressionPtr ExpressionVisitor::VisitUnaryOperator(const clang::UnaryOperator* unary) {
    const std::optional<UnaryOperator> operation = mapOperator(unary->getOpcode());
    if (!operation)
        return VisitStmt(unary);
    return std::make_unique<UnaryExpression>(*operation, build(unary->getSubExpr()));
}

ExpressionPtr ExpressionVisitor::VisitBinaryOperator(const clang::BinaryOperator* binary) {
    if (!binary->isAssignmentOp())
        return VisitStmt(binary);
    std::optional<BinaryOperator> operation;
    if (binary->isCompoundAssignmentOp())
        operation = mapOperator(clang::BinaryOperator::getOpForCompoundAssignment(binary->getOpcode()));
    ExpressionPtr target = build(binary->getLHS());
    return std::make_unique<AssignmentExpression>(std::move(target), build(binary->getRHS()), operation);
}

/// True for the helpers behind the macros of Clang's <stdatomic.h>, <tgmath.h> and <immintrin.h>, which no other
/// compiler has or has alike.
bool isOfClangAlone(const clang::CallExpr& call) {
    const clang::FunctionDecl* function = call.getDirectCallee();
    return function != nullptr && function->getIdentifier() != nullptr &&
           (function->getName().starts_with("__c11_") || function->getName().starts_with("__tg_") ||
            function->getName().starts_with("__builtin_ia32_"));
}

/// The name of a pointer that is called; null where none is.
const clang::IdentifierInfo* nameOfPointer(const clang::Expr& callee) {
    if (const auto* member = llvm::dyn_cast<clang::MemberExpr>(&callee))
        return member->getMemberDecl()->getIdentifier();
    const auto* reference = llvm::dyn_cast<clang::DeclRefExpr>(&callee);
    const bool isVariable = reference != nullptr && llvm::isa<clang::VarDecl>(reference->getDecl());
    return isVariable ? reference->getDecl()->getIdentifier() : nullptr;
}

/// A call through a pointer that is named as a macro of a system header would be the macro's use: `(s.isalpha)(c)` is
/// `(*s.isalpha)(c)`.
ExpressionPtr ExpressionVisitor::buildCallee(const clang::CallExpr& call) {
    ExpressionPtr callee = build(call.getCallee());
    const clang::Expr& visible = skipInvisible(*call.getCallee());
    const clang::IdentifierInfo* name = nameOfPointer(visible);
    if (name == nullptr || !m_context.macros.isSystemCall(*name))
        return callee;
    const SourceRange range = callee->getSourceRange();
    auto function = std::make_unique<UnaryExpression>(UnaryOperator::Dereference, std::move(callee));
    function->setSourceRange(range);
    function->setType(m_context.types.build(visible.getType()->getPointeeType()));
    return function;
}

ExpressionPtr ExpressionVisitor::VisitCallExpr(const clang::CallExpr* call) {
    if (isOfClangAlone(*call))
        if (KeptText use = m_context.keeper.keepMacroUse(*call); !use.text.empty())
            return makeOpaque(std::move(use));
    auto result = std::make_unique<SubroutineCallExpression>(buildCallee(*call));
    for (const clang::Expr* argument : call->arguments())
        result->appendArgument(build(argument));
    return result;
}

ExpressionPtr ExpressionVisitor::VisitMemberExpr(const clang::MemberExpr* member) {
    const auto* meant = llvm::dyn_cast<clang::FieldDecl>(member->getMemberDecl());
    FieldDeclaration* field = meant != nullptr ? m_context.declarations.field(*meant) : nullptr;
    if (field == nullptr)
        return VisitStmt(member);
    // The source does not write the steps through unnamed members, nor those that a macro takes which is named as the
    // member and would take them again: `sa_handler` means `__sigaction_handler.sa_handler`.
    const clang::MemberExpr* outermost = member;
    const bool isMacro = m_context.text.isMacroOf(member->getMemberLoc(), field->getName());
    while (const auto* step = llvm::dyn_cast<clang::MemberExpr>(&skipInvisible(*outermost->getBase()))) {
        const bool isInMacro = isMacro && m_context.text.isSameUse(step->getMemberLoc(), member->getMemberLoc());
        if (!isInMacro && !step->getMemberDecl()->getDeclName().isEmpty())
            break;
        outermost = step;
    }
    const auto access =
        outermost->isArrow() ? MemberExpression::Access::ThroughPointer : MemberExpression::Access::Direct;
    return std::make_unique<MemberExpression>(build(outermost->getBase()), access, *field);
}

/// True for a cast that a macro of such a helper's header puts around its call.
bool isAroundClangAlone(const clang::CStyleCastExpr& cast, const SourcePlaces& places) {
    const clang::Expr* inner = &cast;
    while (const auto* around = llvm::dyn_cast<clang::CStyleCastExpr>(inner))
        inner = &skipInvisible(*around->getSubExpr());
    const auto* call = llvm::dyn_cast<clang::CallExpr>(inner);
    return call != nullptr && isOfClangAlone(*call) && places.isSameUse(cast.getLParenLoc(), call->getBeginLoc());
}

ExpressionPtr ExpressionVisitor::VisitCStyleCastExpr(const clang::CStyleCastExpr* cast) {
    if (isAroundClangAlone(*cast, m_context.text))
        return makeMacroUse(*cast);
    std::vector<ExpressionPtr> bounds;
    const Type* type = m_context.types.build(cast->getTypeAsWritten(), bounds);
    auto result = std::make_unique<CastExpression>(type, build(cast->getSubExpr()));
    for (ExpressionPtr& bound : bounds)
        result->appendBound(std::move(bound));
    return result;
}

ExpressionPtr ExpressionVisitor::VisitUnaryExprOrTypeTraitExpr(const clang::UnaryExprOrTypeTraitExpr* query) {
    const clang::UnaryExprOrTypeTrait kind = query->getKind();
    // Any other question is asked of a type or of an operand that is not evaluated.
    if (kind != clang::UETT_SizeOf && kind != clang::UETT_AlignOf && kind != clang::UETT_PreferredAlignOf)
        return std::make_unique<OpaqueExpression>(m_context.keeper.textOf(*query));
    const auto asked =
        kind == clang::UETT_SizeOf ? TypeQueryExpression::Query::SizeOf : TypeQueryExpression::Query::AlignOf;
    if (!query->isArgumentType())
        return std::make_unique<TypeQueryExpression>(asked, build(query->getArgumentExpr()));
    std::vector<ExpressionPtr> bounds;
    const Type* type = m_context.types.build(query->getArgumentType(), bounds);
    auto result = std::make_unique<TypeQueryExpression>(asked, type);
    for (ExpressionPtr& bound : bounds)
        result->appendBound(std::move(bound));
    return result;
}

ExpressionPtr ExpressionVisitor::VisitInitListExpr(const clang::InitListExpr* list) {
    const clang::InitListExpr* written = list->getSyntacticForm() != nullptr ? list->getSyntacticForm() : list;
    auto result = std::make_unique<InitializerListExpression>();
    for (const clang::Expr* value : written->inits())
        if (value != nullptr)
            result->append(build(value));
    // Only the form that Clang checked knows the type of what the list initializes.
    const clang::InitListExpr* checked = written->getSemanticForm() != nullptr ? written->getSemanticForm() : list;
    result->setType(m_context.types.build(checked->getType()));
    return result;
}

ExpressionPtr ExpressionVisitor::VisitDesignatedInitExpr(const clang::DesignatedInitExpr* designated) {
    auto result = std::make_unique<DesignatedInitializerExpression>(build(designated->getInit()));
    for (const clang::DesignatedInitExpr::Designator& designator : designated->designators()) {
        // Clang names the members without a name on the way as well.
        if (designator.isFieldDesignator() && designator.getFieldName() == nullptr)
            continue;
        if (designator.isFieldDesignator())
            result->appendField(designator.getFieldName()->getName().str());
        else if (designator.isArrayDesignator())
            result->appendIndex(build(designated->getArrayIndex(designator)));
        else
            result->appendIndexRange(build(designated->getArrayRangeStart(designator)),
                                     build(designated->getArrayRangeEnd(designator)));
    }
    return result;
}

ExpressionPtr ExpressionVisitor::VisitGenericSelectionExpr(const clang::GenericSelectionExpr* selection) {
    if (!selection->isExprPredicate() || selection->isResultDependent())
        return VisitStmt(selection);
    auto result = std::make_unique<GenericSelectionExpression>(build(selection->getControllingExpr()),
                                                               selection->getResultIndex());
    for (const auto& association : selection->associations()) {
        const clang::TypeSourceInfo* type = association.getTypeSourceInfo();
        result->appendAssociation(type != nullptr ? m_context.types.build(type->getType()) : nullptr,
                                  build(association.getAssociationExpr()));
    }
    return result;
}

void setTypeAndRange(UnitContext& context, ExpressionBase& made, const clang::Expr& from, clang::SourceRange range) {
    made.setSourceRange(context.text.rangeOf(range));
    if (made.getType() == nullptr)
        made.setType(context.types.build(from.getType()));
}

bool isChainLink(const clang::Expr& expression) {
    const auto* binary = llvm::dyn_cast<clang::BinaryOperator>(&expression);
    return binary != nullptr && mapOperator(binary->getOpcode()).has_value();
}

/// `a + b + c + ...`: a generated program may add up thousands, so the left operands are followed without recursion,
/// and the begin is handed up instead of being searched for anew at every level.
ExpressionPtr buildChain(UnitContext& context, const clang::Expr& last) {
    std::vector<const clang::BinaryOperator*> chain;
    const clang::Expr* left = &last;
    for (; isChainLink(*left); left = &skipInvisible(*chain.back()->getLHS()))
        chain.push_back(llvm::cast<clang::BinaryOperator>(left));

    ExpressionPtr result = buildExpression(context, *left);
    clang::SourceLocation begin = left->getBeginLoc();
    for (; !chain.empty(); chain.pop_back()) {
        const clang::BinaryOperator& binary = *chain.back();
        const clang::Expr* operand = binary.getLHS()->IgnoreImplicit();
        if (llvm::isa<clang::ParenExpr>(operand))
            begin = operand->getBeginLoc();
        result = std::make_unique<BinaryExpression>(*mapOperator(binary.getOpcode()), std::move(result),
                                                    buildExpression(context, *binary.getRHS()));
        setTypeAndRange(context, *result, binary, {begin, binary.getEndLoc()});
    }
    return result;
}

} // namespace

const clang::Expr& skipInvisible(const clang::Expr& expression) {
    const clang::Expr* visible = &expression;
    while (true) {
        if (const auto* parentheses = llvm::dyn_cast<clang::ParenExpr>(visible))
            visible = parentheses->getSubExpr();
        else if (const auto* conversion = llvm::dyn_cast<clang::ImplicitCastExpr>(visible))
            visible = conversion->getSubExpr();
        else if (const auto* full = llvm::dyn_cast<clang::FullExpr>(visible))
            visible = full->getSubExpr();
        else if (const auto* pseudo = llvm::dyn_cast<clang::PseudoObjectExpr>(visible))
            visible = pseudo->getSyntacticForm();
        else if (const auto* shared = llvm::dyn_cast<clang::OpaqueValueExpr>(visible);
                 shared != nullptr && shared->getSourceExpr() != nullptr)
            visible = shared->getSourceExpr();
        else
            return *visible;
    }
}

ExpressionPtr buildExpression(UnitContext& context, const clang::Expr& expression) {
    const clang::Expr& visible = skipInvisible(expression);
    if (isChainLink(visible))
        return buildChain(context, visible);
    ExpressionPtr result = ExpressionVisitor(context).Visit(&visible);
    setTypeAndRange(context, *result, visible, visible.getSourceRange());
    return result;
}

ExpressionPtr buildExpression(UnitContext& context, const clang::Expr* expression) {
    return expression != nullptr ? buildExpression(context, *expression) : nullptr;
}

} // namespace Kova::Frontends
