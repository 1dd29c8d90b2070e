// SPDX-License-Identifier: MIT
#include "environment/tessel/BreakStatement.h"
#include "environment/tessel/CaseStatement.h"
#include "environment/tessel/ContinueStatement.h"
#include "environment/tessel/DeclarationStatement.h"
#include "environment/tessel/DoWhileStatement.h"
#include "environment/tessel/ExpressionStatement.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/GotoStatement.h"
#include "environment/tessel/IfStatement.h"
#include "environment/tessel/LabelStatement.h"
#include "environment/tessel/NullStatement.h"
#include "environment/tessel/OpaqueStatement.h"
#include "environment/tessel/ReturnStatement.h"
#include "environment/tessel/SwitchStatement.h"
#include "environment/tessel/WhileStatement.h"
#include "frontends/c/FallThroughComments_p.h"
#include "frontends/c/SystemHeaders_p.h"
#include "frontends/c/UnitContext_p.h"

#include <clang/AST/Decl.h>
#include <clang/AST/Expr.h>
#include <clang/AST/StmtVisitor.h>

namespace Kova::Frontends {

using namespace Tessel;

namespace {

using BlockPtr = std::unique_ptr<BlockStatement>;

/// The range from one node's begin to another's end.
SourceRange spanning(const SourceRange& first, const SourceRange& last) {
    SourceRange range = first;
    if (last.isKnown() && last.file == first.file) {
        range.endLine = last.endLine;
        range.endColumn = last.endColumn;
    }
    return range;
}

bool isWithoutStatements(const clang::Stmt& statement) {
    return llvm::isa<clang::Expr, clang::DeclStmt, clang::ReturnStmt, clang::AsmStmt, clang::IndirectGotoStmt>(
        statement);
}

/// The statement that ends a statement, in blocks and behind labels.
const clang::Stmt& lastOf(const clang::Stmt& statement) {
    const clang::Stmt* last = &statement;
    while (true) {
        const auto* block = llvm::dyn_cast<clang::CompoundStmt>(last);
        if (block != nullptr && !block->body_empty())
            last = block->body_back();
        else if (const auto* label = llvm::dyn_cast<clang::SwitchCase>(last); label != nullptr && label->getSubStmt())
            last = label->getSubStmt();
        else
            return *last;
    }
}

/// Makes the node of one statement; what no visit is written for becomes an opaque statement.
class StatementVisitor : public clang::ConstStmtVisitor<StatementVisitor, StatementPtr> {
public:
    explicit StatementVisitor(UnitContext& context) : m_context(context) {}

    /// The block of a body, which need not be in braces in the source.
    [[nodiscard]] BlockPtr buildBlock(const clang::Stmt* body);
    /// The statements of a block in braces.
    void appendAll(BlockStatement& block, const clang::CompoundStmt& from);

    StatementPtr VisitStmt(const clang::Stmt* statement) { return makeOpaque(m_context.keeper.keep(*statement)); }
    // Clang's range of an assembly ends before its semicolon, its rendering behind it.
    StatementPtr VisitAsmStmt(const clang::AsmStmt* statement) {
        KeptText kept = m_context.keeper.keep(*statement);
        if (kept.text.empty() || kept.text.back() != ';')
            kept.text += ';';
        return makeOpaque(std::move(kept));
    }
    StatementPtr VisitExpr(const clang::Expr* expression) {
        return std::make_unique<ExpressionStatement>(buildExpression(m_context, *expression));
    }
    StatementPtr VisitCompoundStmt(const clang::CompoundStmt* block) { return buildBlock(block); }
    StatementPtr VisitDeclStmt(const clang::DeclStmt* statement);
    StatementPtr VisitNullStmt(const clang::NullStmt*) { return std::make_unique<NullStatement>(); }
    StatementPtr VisitBreakStmt(const clang::BreakStmt*) { return std::make_unique<BreakStatement>(); }
    StatementPtr VisitContinueStmt(const clang::ContinueStmt*) { return std::make_unique<ContinueStatement>(); }
    StatementPtr VisitReturnStmt(const clang::ReturnStmt* statement) {
        return std::make_unique<ReturnStatement>(build(statement->getRetValue()));
    }
    StatementPtr VisitGotoStmt(const clang::GotoStmt* jump);
    StatementPtr VisitIndirectGotoStmt(const clang::IndirectGotoStmt* jump) {
        return std::make_unique<GotoStatement>(build(jump->getTarget()));
    }
    StatementPtr VisitIfStmt(const clang::IfStmt* branch);
    StatementPtr VisitSwitchStmt(const clang::SwitchStmt* statement) {
        ExpressionPtr selector = build(statement->getCond());
        hoistDirectives(statement->getRParenLoc());
        ++m_switches;
        BlockPtr body = buildBlock(statement->getBody());
        --m_switches;
        return std::make_unique<SwitchStatement>(std::move(selector), std::move(body));
    }
    StatementPtr VisitWhileStmt(const clang::WhileStmt* loop) {
        ExpressionPtr condition = build(loop->getCond());
        hoistDirectives(loop->getRParenLoc());
        return std::make_unique<WhileStatement>(std::move(condition), buildBlock(loop->getBody()));
    }
    StatementPtr VisitDoStmt(const clang::DoStmt* loop) {
        BlockPtr body = buildBlock(loop->getBody());
        ExpressionPtr condition = build(loop->getCond());
        hoistDirectives(loop->getRParenLoc());
        return std::make_unique<DoWhileStatement>(std::move(body), std::move(condition));
    }
    StatementPtr VisitForStmt(const clang::ForStmt* loop);

private:
    [[nodiscard]] ExpressionPtr build(const clang::Expr* expression) { return buildExpression(m_context, expression); }
    /// One statement without labels before it.
    [[nodiscard]] StatementPtr buildPlain(const clang::Stmt& statement);
    void append(BlockStatement& block, const clang::Stmt& statement);
    void appendAttributed(BlockStatement& block, const clang::AttributedStmt& statement);
    /// The directives before a place that no statement has yet.
    [[nodiscard]] std::vector<StatementPtr> takeDirectives(clang::SourceLocation end);
    void appendDirectives(BlockStatement& block, clang::SourceLocation end);
    /// Directives inside a statement, which have no place there, come before it.
    void hoistDirectives(clang::SourceLocation end);
    void appendLabel(BlockStatement& block, StatementPtr label, clang::SourceRange range);
    const clang::Stmt* appendCase(BlockStatement& block, const clang::CaseStmt& label);
    const clang::Stmt* appendNamed(BlockStatement& block, const clang::LabelStmt& label);
    /// Appends the labels before a statement and gives the statement that they mark.
    const clang::Stmt& appendLabels(BlockStatement& block, const clang::Stmt& statement);
    void appendFallThrough(BlockStatement& block, const clang::Stmt& last, const clang::Stmt& next);
    StatementPtr makeOpaque(KeptText kept);
    StatementPtr makeFallThrough(clang::SourceRange range);
    StatementPtr buildFallThrough(const clang::Stmt& statement);

    UnitContext& m_context;
    // Of the statement under construction.
    std::vector<StatementPtr> m_hoisted;
    // How many are around it.
    unsigned m_switches = 0;
};

void StatementVisitor::appendLabel(BlockStatement& block, StatementPtr label, clang::SourceRange range) {
    label->setSourceRange(m_context.text.rangeOf(range));
    block.append(std::move(label));
}

const clang::Stmt* StatementVisitor::appendCase(BlockStatement& block, const clang::CaseStmt& label) {
    ExpressionPtr value = build(label.getLHS());
    appendLabel(block, std::make_unique<CaseStatement>(std::move(value), build(label.getRHS())),
                {label.getCaseLoc(), label.getColonLoc()});
    return label.getSubStmt();
}

const clang::Stmt* StatementVisitor::appendNamed(BlockStatement& block, const clang::LabelStmt& label) {
    auto made = std::make_unique<LabelStatement>(label.getName());
    made->setAttributes(buildAttributes(m_context, *label.getDecl()));
    m_context.jumps.labels[label.getDecl()] = made.get();
    appendLabel(block, std::move(made), label.getIdentLoc());
    return label.getSubStmt();
}

const clang::Stmt& StatementVisitor::appendLabels(BlockStatement& block, const clang::Stmt& statement) {
    const clang::Stmt* marked = &statement;
    while (true) {
        if (const auto* value = llvm::dyn_cast<clang::CaseStmt>(marked)) {
            marked = appendCase(block, *value);
        } else if (const auto* otherwise = llvm::dyn_cast<clang::DefaultStmt>(marked)) {
            appendLabel(block, std::make_unique<CaseStatement>(nullptr, nullptr),
                        {otherwise->getDefaultLoc(), otherwise->getColonLoc()});
            marked = otherwise->getSubStmt();
        } else if (const auto* named = llvm::dyn_cast<clang::LabelStmt>(marked)) {
            marked = appendNamed(block, *named);
        } else {
            return *marked;
        }
    }
}

void StatementVisitor::append(BlockStatement& block, const clang::Stmt& statement) {
    appendDirectives(block, statement.getBeginLoc());
    const clang::Stmt* marked = &appendLabels(block, statement);
    if (const auto* attributed = llvm::dyn_cast<clang::AttributedStmt>(marked)) {
        appendAttributed(block, *attributed);
        return;
    }
    appendDirectives(block, marked->getBeginLoc());
    std::vector<StatementPtr> around = std::exchange(m_hoisted, {});
    StatementPtr made = buildFallThrough(*marked);
    if (!made)
        made = buildPlain(*marked);
    for (StatementPtr& directive : m_hoisted)
        block.append(std::move(directive));
    m_hoisted = std::move(around);
    block.append(std::move(made));
}

/// Attributes are a statement of their own, be it before the one that they speak of or instead of one.
void StatementVisitor::appendAttributed(BlockStatement& block, const clang::AttributedStmt& statement) {
    std::string attributes = buildAttributes(m_context, statement);
    const bool isAlone = llvm::isa<clang::NullStmt>(statement.getSubStmt()) && !attributes.empty();
    if (!attributes.empty()) {
        auto hint = std::make_unique<OpaqueStatement>(attributes + (isAlone ? ";" : ""));
        hint->setSourceRange(
            m_context.text.rangeOf(isAlone ? statement.getSourceRange() : clang::SourceRange(statement.getAttrLoc())));
        block.append(std::move(hint));
    }
    if (!isAlone)
        append(block, *statement.getSubStmt());
}

std::vector<StatementPtr> StatementVisitor::takeDirectives(clang::SourceLocation end) {
    std::vector<StatementPtr> taken;
    for (Directive& directive : m_context.directives.takeBefore(end, m_context.clang.getSourceManager())) {
        taken.push_back(std::make_unique<OpaqueStatement>(std::move(directive.text)));
        taken.back()->setSourceRange(m_context.text.rangeOf(directive.place));
    }
    return taken;
}

void StatementVisitor::appendDirectives(BlockStatement& block, clang::SourceLocation end) {
    for (StatementPtr& directive : takeDirectives(end))
        block.append(std::move(directive));
}

void StatementVisitor::hoistDirectives(clang::SourceLocation end) {
    for (StatementPtr& directive : takeDirectives(end))
        m_hoisted.push_back(std::move(directive));
}

/// Comments are not kept, but compilers read this one: it becomes the attribute that says the same.
void StatementVisitor::appendFallThrough(BlockStatement& block, const clang::Stmt& last, const clang::Stmt& next) {
    const clang::SourceManager& sources = m_context.clang.getSourceManager();
    const clang::SourceLocation behind = sources.getExpansionLoc(next.getBeginLoc());
    clang::SourceRange comment =
        m_context.fallThrough.findBetween(sources.getExpansionRange(last.getEndLoc()).getEnd(), behind, sources);
    // A macro, other than a comment, may stand inside of the braces.
    const clang::Stmt& end = lastOf(last);
    if (comment.isInvalid() && &end != &last)
        comment = m_context.fallThrough.findMacroBetween(sources.getExpansionRange(end.getEndLoc()).getEnd(), behind,
                                                         sources);
    const StatementBase* before = block.getStatement(block.getChildCount() - 1);
    const bool goesOn = dynamic_cast<const BreakStatement*>(before) == nullptr &&
                        dynamic_cast<const ReturnStatement*>(before) == nullptr &&
                        dynamic_cast<const GotoStatement*>(before) == nullptr &&
                        dynamic_cast<const ContinueStatement*>(before) == nullptr;
    // Nor do they warn of what a system header's macro does, such as assert(0).
    const bool isSilent = end.getEndLoc().isMacroID() && m_context.system.hold(sources.getSpellingLoc(end.getEndLoc()));
    if (goesOn && comment.isValid())
        block.append(makeFallThrough(comment));
    else if (goesOn && isSilent)
        block.append(makeFallThrough(end.getEndLoc()));
}

StatementPtr StatementVisitor::makeFallThrough(clang::SourceRange range) {
    auto made = std::make_unique<OpaqueStatement>("__attribute__((fallthrough));");
    made->setSourceRange(m_context.text.rangeOf(range));
    return made;
}

/// Null for any statement but one that does nothing and that a macro named so writes.
StatementPtr StatementVisitor::buildFallThrough(const clang::Stmt& statement) {
    const auto* expression = llvm::dyn_cast<clang::Expr>(&statement);
    const bool doesNothing = llvm::isa<clang::NullStmt>(statement) ||
                             (expression != nullptr && !expression->HasSideEffects(m_context.clang));
    if (m_switches == 0 || !doesNothing)
        return nullptr;
    const clang::SourceRange macro = m_context.fallThrough.findMacro(
        statement.getSourceRange(), m_context.clang.getSourceManager(), m_context.clang.getLangOpts());
    return macro.isValid() ? makeFallThrough(macro) : nullptr;
}

StatementPtr StatementVisitor::buildPlain(const clang::Stmt& statement) {
    StatementPtr made = Visit(&statement);
    if (isWithoutStatements(statement))
        hoistDirectives(statement.getEndLoc());
    // An else knows its end from its branch: asking Clang at every level of a long chain would take its square.
    if (!made->getSourceRange().isKnown())
        made->setSourceRange(m_context.text.rangeOf(statement.getSourceRange()));
    return made;
}

BlockPtr StatementVisitor::buildBlock(const clang::Stmt* body) {
    auto block = std::make_unique<BlockStatement>();
    const auto* compound = llvm::dyn_cast_or_null<clang::CompoundStmt>(body);
    // A directive before the braces of a body speaks of all that is in them.
    if (compound != nullptr &&
        !m_context.directives.areBefore(compound->getLBracLoc(), m_context.clang.getSourceManager())) {
        appendAll(*block, *compound);
    } else if (body != nullptr) {
        append(*block, *body);
        block->setSourceRange(spanning(block->getStatement(0)->getSourceRange(),
                                       block->getStatement(block->getChildCount() - 1)->getSourceRange()));
    }
    return block;
}

void StatementVisitor::appendAll(BlockStatement& block, const clang::CompoundStmt& from) {
    const clang::Stmt* last = nullptr;
    for (const clang::Stmt* statement : from.body()) {
        if (last != nullptr && llvm::isa<clang::SwitchCase>(statement))
            appendFallThrough(block, *last, *statement);
        append(block, *statement);
        last = statement;
    }
    appendDirectives(block, from.getRBracLoc());
    block.setSourceRange(m_context.text.rangeOf(from.getSourceRange()));
}

StatementPtr StatementVisitor::VisitDeclStmt(const clang::DeclStmt* statement) {
    auto result = std::make_unique<DeclarationStatement>();
    for (const clang::Decl* declaration : statement->decls())
        if (DeclarationPtr made = buildDeclaration(m_context, *declaration))
            result->append(std::move(made));
    return result;
}

StatementPtr StatementVisitor::VisitGotoStmt(const clang::GotoStmt* jump) {
    auto result = std::make_unique<GotoStatement>(jump->getLabel()->getNameAsString());
    m_context.jumps.jumps.emplace_back(result.get(), jump->getLabel());
    return result;
}

StatementPtr StatementVisitor::VisitIfStmt(const clang::IfStmt* branch) {
    ExpressionPtr condition = build(branch->getCond());
    hoistDirectives(branch->getRParenLoc());
    BlockPtr thenBlock = buildBlock(branch->getThen());
    BlockPtr elseBlock = branch->getElse() != nullptr ? buildBlock(branch->getElse()) : nullptr;
    const SourceRange end = (elseBlock ? elseBlock : thenBlock)->getSourceRange();
    auto result = std::make_unique<IfStatement>(std::move(condition), std::move(thenBlock), std::move(elseBlock));
    result->setSourceRange(spanning(m_context.text.rangeOf(branch->getIfLoc()), end));
    return result;
}

StatementPtr StatementVisitor::VisitForStmt(const clang::ForStmt* loop) {
    StatementPtr initialization = loop->getInit() != nullptr ? buildPlain(*loop->getInit()) : nullptr;
    ExpressionPtr condition = build(loop->getCond());
    ExpressionPtr increment = build(loop->getInc());
    hoistDirectives(loop->getRParenLoc());
    return std::make_unique<ForStatement>(std::move(initialization), std::move(condition), std::move(increment),
                                          buildBlock(loop->getBody()));
}

StatementPtr StatementVisitor::makeOpaque(KeptText kept) {
    auto opaque = std::make_unique<OpaqueStatement>(std::move(kept.text));
    for (const KeptText::Operand& operand : kept.operands)
        opaque->appendOperand(build(operand.expression), operand.place);
    return opaque;
}

} // namespace

BlockPtr buildInnerBlock(UnitContext& context, const clang::CompoundStmt& body) {
    auto block = std::make_unique<BlockStatement>();
    StatementVisitor(context).appendAll(*block, body);
    return block;
}

BlockPtr buildBody(UnitContext& context, const clang::Stmt& body) {
    context.jumps = JumpTargets();
    BlockPtr block = buildInnerBlock(context, llvm::cast<clang::CompoundStmt>(body));
    for (const auto& [jump, label] : context.jumps.jumps)
        jump->setLabel(context.jumps.labels.lookup(label));
    return block;
}

} // namespace Kova::Frontends
