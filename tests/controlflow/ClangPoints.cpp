// SPDX-License-Identifier: MIT
#include "tests/controlflow/ClangPoints.h"

#include <clang/AST/ASTContext.h>

#include <algorithm>
#include <unordered_set>

namespace Kova::Test {

std::unique_ptr<ClangPoints> ClangPoints::make(const clang::FunctionDecl& function, clang::ASTContext& context) {
    clang::CFG::BuildOptions options;
    options.PruneTriviallyFalseEdges = true;
    options.setAllAlwaysAdd();
    std::unique_ptr<clang::CFG> graph = clang::CFG::buildCFG(&function, function.getBody(), &context, options);
    return graph ? std::unique_ptr<ClangPoints>(new ClangPoints(std::move(graph), context)) : nullptr;
}

namespace {

/// Clang takes for certain that a selector has one of its enumerators' values, which C does not.
bool namesAllEnumerators(const clang::CFGBlock& block, const clang::ASTContext& context) {
    const auto* choice = llvm::dyn_cast_or_null<clang::SwitchStmt>(block.getTerminatorStmt());
    clang::Expr::EvalResult constant;
    return choice != nullptr && choice->isAllEnumCasesCovered() && !choice->getCond()->EvaluateAsInt(constant, context);
}

} // namespace

ClangPoints::ClangPoints(std::unique_ptr<clang::CFG> graph, const clang::ASTContext& context)
    : m_graph(std::move(graph)) {
    for (const clang::CFGBlock* block : *m_graph)
        addBlock(*block);
    for (const clang::CFGBlock* block : *m_graph) {
        // Clang lets a block whose call does not return lead to the exit, so that every block leads somewhere.
        if (block->hasNoReturnElement())
            continue;
        for (const clang::CFGBlock::AdjacentBlock& next : block->succs()) {
            const clang::CFGBlock* target = next.getReachableBlock();
            if (target == nullptr && namesAllEnumerators(*block, context))
                target = next.getPossiblyUnreachableBlock();
            if (target != nullptr)
                link(m_tails.at(block), m_heads.at(target));
        }
    }
    // Several declarations of one statement are elements of their own, of statements that stand for them.
    for (const auto& [made, written] : m_graph->synthetic_stmts())
        if (const auto place = m_elements.find(made); place != m_elements.end())
            m_elements.emplace(written, place->second);
}

std::size_t ClangPoints::add() {
    m_points.emplace_back();
    return m_points.size() - 1;
}

void ClangPoints::link(std::size_t from, std::size_t to) {
    m_points[from].next.push_back(to);
}

void ClangPoints::addBlock(const clang::CFGBlock& block) {
    std::size_t last = add();
    m_heads[&block] = last;
    const auto append = [&](const clang::Stmt* node, Places& places) {
        const std::size_t point = add();
        link(last, point);
        places.emplace(node, point);
        last = point;
    };
    if (block.getLabel() != nullptr)
        append(block.getLabel(), m_labels);
    if (block.getLoopTarget() != nullptr)
        append(block.getLoopTarget(), m_loops);
    for (const clang::CFGElement& element : block)
        if (const auto evaluated = element.getAs<clang::CFGStmt>())
            append(evaluated->getStmt(), m_elements);
    m_points[last].isNoReturn = block.hasNoReturnElement();
    if (block.getTerminatorStmt() != nullptr)
        append(block.getTerminatorStmt(), m_ends);
    m_tails[&block] = last;
}

std::optional<std::size_t> ClangPoints::lookUp(const Places& places, const clang::Stmt& node) {
    const auto found = places.find(&node);
    return found != places.end() ? std::optional(found->second) : std::nullopt;
}

std::vector<const clang::Stmt*> ClangPoints::childrenOf(const clang::Stmt& node) {
    std::vector<const clang::Stmt*> children;
    for (const clang::Stmt* child : node.children())
        if (child != nullptr)
            children.push_back(child);
    if (const auto* list = llvm::dyn_cast<clang::InitListExpr>(&node))
        if (list->isSemanticForm() && list->getSyntacticForm() != nullptr)
            children.push_back(list->getSyntacticForm());
    return children;
}

std::optional<std::size_t> ClangPoints::findBegin(const clang::Stmt& part) const {
    std::vector<const clang::Stmt*> parts = childrenOf(part);
    // Clang takes what is assigned before what it is assigned to.
    const auto* binary = llvm::dyn_cast<clang::BinaryOperator>(&part);
    if (binary != nullptr && binary->isAssignmentOp())
        std::reverse(parts.begin(), parts.end());
    for (const clang::Stmt* inner : parts)
        if (const std::optional<std::size_t> begin = findBegin(*inner))
            return begin;
    return findElement(part);
}

std::vector<std::size_t> ClangPoints::findNext(std::size_t from, const PointTest& isWanted) const {
    const std::size_t exit = m_heads.at(&m_graph->getExit());
    std::vector<std::size_t> found;
    std::unordered_set<std::size_t> seen;
    std::vector<std::size_t> open = m_points[from].next;
    while (!open.empty()) {
        const std::size_t point = open.back();
        open.pop_back();
        if (!seen.insert(point).second)
            continue;
        if (point == exit || isWanted(point))
            found.push_back(point);
        else
            open.insert(open.end(), m_points[point].next.begin(), m_points[point].next.end());
    }
    return found;
}

} // namespace Kova::Test
