// SPDX-License-Identifier: MIT
#include "tests/controlflow/ClangFlow.h"

#include "frontends/c/Invocation_p.h"
#include "tests/controlflow/ClangPoints.h"

#include <clang/AST/ASTContext.h>
#include <clang/Basic/SourceManager.h>
#include <clang/Frontend/ASTUnit.h>
#include <clang/Tooling/Tooling.h>

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <unordered_map>

namespace Kova::Test {

namespace {

/// What of a statement a place in Clang's graph begins.
enum class Part { Whole, ForStart, ForRound, ForStep, BehindStatements };

struct Anchor {
    std::string name;
    Part part;
};

/// What begins at the places of a graph; what is around, first.
using Anchors = std::unordered_map<std::size_t, std::vector<Anchor>>;

std::string placeOf(clang::SourceLocation location, const clang::SourceManager& sources) {
    const clang::PresumedLoc place = sources.getPresumedLoc(sources.getFileLoc(location), /*UseLineDirectives=*/false);
    return place.isValid() ? placeName(place.getLine(), place.getColumn()) : "nowhere";
}

std::string endOf(clang::SourceLocation location, const clang::SourceManager& sources) {
    const bool isInMacro = location.isMacroID() && !sources.isMacroArgExpansion(location);
    return placeOf(isInMacro ? sources.getExpansionRange(location).getEnd() : location, sources);
}

/// Finds the places of statements in a graph.
class StatementAnchors {
public:
    StatementAnchors(const ClangPoints& points, const clang::SourceManager& sources)
        : m_points(points),
          m_sources(sources) {}

    void find(const clang::Stmt& body) {
        std::vector<const clang::Stmt*> open = {&body};
        while (!open.empty()) {
            const clang::Stmt& statement = *open.back();
            open.pop_back();
            for (const clang::Stmt* inner : note(statement))
                if (inner != nullptr)
                    open.push_back(inner);
            open.insert(open.end(), m_inExpressions.begin(), m_inExpressions.end());
            m_inExpressions.clear();
        }
    }
    [[nodiscard]] const Anchors& get() const { return m_anchors; }

private:
    /// @return the statements inside.
    std::vector<const clang::Stmt*> note(const clang::Stmt& statement);
    void noteAt(std::optional<std::size_t> point, const char* kind, const clang::Stmt& statement,
                Part part = Part::Whole) {
        if (point)
            m_anchors[*point].push_back({std::string(kind) + " " + placeOf(statement.getBeginLoc(), m_sources), part});
    }
    void noteExpression(const clang::Stmt* evaluated, const char* kind, const clang::Stmt& statement,
                        Part part = Part::Whole);
    void noteStatementsIn(const clang::Stmt& evaluated, const char* kind, const clang::Stmt& statement);
    void noteFor(const clang::ForStmt& loop);

    const ClangPoints& m_points;
    const clang::SourceManager& m_sources;
    Anchors m_anchors;
    std::vector<const clang::Stmt*> m_inExpressions;
};

/// Where statements inside of the expression end, control is back at the statement around them.
void StatementAnchors::noteExpression(const clang::Stmt* evaluated, const char* kind, const clang::Stmt& statement,
                                      Part part) {
    if (evaluated == nullptr)
        return;
    noteAt(m_points.findBegin(*evaluated), kind, statement, part);
    noteStatementsIn(*evaluated, kind, statement);
}

void StatementAnchors::noteStatementsIn(const clang::Stmt& evaluated, const char* kind, const clang::Stmt& statement) {
    std::vector<const clang::Stmt*> open = {&evaluated};
    while (!open.empty()) {
        const clang::Stmt* node = open.back();
        open.pop_back();
        if (const auto* statements = llvm::dyn_cast<clang::StmtExpr>(node)) {
            noteAt(m_points.findElement(*node), kind, statement, Part::BehindStatements);
            m_inExpressions.push_back(statements->getSubStmt());
            continue;
        }
        const std::vector<const clang::Stmt*> inner = ClangPoints::childrenOf(*node);
        open.insert(open.end(), inner.begin(), inner.end());
    }
}

void StatementAnchors::noteFor(const clang::ForStmt& loop) {
    noteAt(m_points.findLoopTarget(loop), "for", loop, Part::ForStep);
    noteExpression(loop.getInit(), "for", loop, Part::ForStart);
    noteExpression(loop.getCond(), "for", loop, Part::ForRound);
    if (loop.getCond() == nullptr)
        noteAt(m_points.findTerminator(loop), "for", loop, Part::ForRound);
    if (loop.getInc() != nullptr)
        noteStatementsIn(*loop.getInc(), "for", loop);
}

std::vector<const clang::Stmt*> StatementAnchors::note(const clang::Stmt& statement) {
    if (const auto* block = llvm::dyn_cast<clang::CompoundStmt>(&statement))
        return {block->body_begin(), block->body_end()};
    if (const auto* marked = llvm::dyn_cast<clang::AttributedStmt>(&statement))
        return {marked->getSubStmt()};
    if (const auto* label = llvm::dyn_cast<clang::LabelStmt>(&statement)) {
        noteAt(m_points.findLabel(statement), "label", statement);
        return {label->getSubStmt()};
    }
    if (const auto* value = llvm::dyn_cast<clang::SwitchCase>(&statement)) {
        noteAt(m_points.findLabel(statement), "case", statement);
        return {value->getSubStmt()};
    }
    if (const auto* branch = llvm::dyn_cast<clang::IfStmt>(&statement)) {
        noteExpression(branch->getCond(), "if", statement);
        return {branch->getThen(), branch->getElse()};
    }
    if (const auto* choice = llvm::dyn_cast<clang::SwitchStmt>(&statement)) {
        noteExpression(choice->getCond(), "switch", statement);
        return {choice->getBody()};
    }
    if (const auto* loop = llvm::dyn_cast<clang::WhileStmt>(&statement)) {
        noteExpression(loop->getCond(), "while", statement);
        return {loop->getBody()};
    }
    if (const auto* until = llvm::dyn_cast<clang::DoStmt>(&statement)) {
        noteExpression(until->getCond(), "do", statement);
        return {until->getBody()};
    }
    if (const auto* counted = llvm::dyn_cast<clang::ForStmt>(&statement)) {
        noteFor(*counted);
        return {counted->getBody()};
    }
    if (llvm::isa<clang::BreakStmt, clang::ContinueStmt, clang::GotoStmt>(statement))
        noteAt(m_points.findTerminator(statement), "jump", statement);
    else if (const auto* computed = llvm::dyn_cast<clang::IndirectGotoStmt>(&statement))
        noteExpression(computed->getTarget(), "jump", statement);
    else
        noteExpression(&statement, "simple", statement);
    return {};
}

/// True for a step inside of a for loop's own header.
bool isInside(const Anchor& from, const Anchor& to) {
    return from.name == to.name && to.part == Part::ForRound && from.part != Part::ForRound;
}

FlowEdges contract(const ClangPoints& points, const Anchors& anchors) {
    FlowEdges edges;
    const auto isAnchor = [&](std::size_t point) { return anchors.count(point) != 0; };
    const auto addEdge = [&](const Anchor& from, const Anchor& to) {
        if (!isInside(from, to))
            edges.add(from.name, to.name);
    };
    const auto addFrom = [&](std::size_t point, const Anchor& from) {
        edges.successors[from.name];
        for (const std::size_t next : points.findNext(point, isAnchor)) {
            const auto to = anchors.find(next);
            addEdge(from, to != anchors.end() ? to->second.front() : Anchor{FlowEdges::end, Part::Whole});
        }
    };
    addFrom(points.getEntry(), {FlowEdges::entry, Part::Whole});
    for (const auto& [point, here] : anchors) {
        for (std::size_t i = 0; i + 1 < here.size(); ++i)
            addEdge(here[i], here[i + 1]);
        addFrom(point, here.back());
    }
    return edges;
}

class ExpressionAnchors {
public:
    ExpressionAnchors(const ClangPoints& points, const clang::ASTContext& context, const std::set<std::string>& listed)
        : m_points(points),
          m_sources(context.getSourceManager()),
          m_listed(listed) {}

    /// Outer expressions are met before those inside of the same place.
    void find(const clang::Stmt& body) {
        std::vector<std::pair<const clang::Stmt*, std::string>> open = {{&body, ""}};
        while (!open.empty()) {
            auto [node, around] = open.back();
            open.pop_back();
            if (const auto* expression = llvm::dyn_cast<clang::Expr>(node))
                note(*expression, around);
            std::vector<const clang::Stmt*> inner = ClangPoints::childrenOf(*node);
            for (auto child = inner.rbegin(); child != inner.rend(); ++child)
                open.emplace_back(*child, around);
        }
        for (const auto& [name, point] : m_found)
            m_anchors[point].push_back({name, Part::Whole});
    }
    [[nodiscard]] const Anchors& get() const { return m_anchors; }

private:
    /// @param around the listed expression around, which becomes this one when it is listed.
    void note(const clang::Expr& expression, std::string& around) {
        std::string name =
            placeOf(expression.getBeginLoc(), m_sources) + "-" + endOf(expression.getEndLoc(), m_sources);
        const std::optional<std::size_t> point = m_points.findElement(expression);
        if (m_listed.count(name) != 0) {
            if (point)
                m_found.emplace(name, *point);
            around = std::move(name);
        }
        // What follows such a call is not evaluated: the expression around it ends there.
        if (point && m_points.isNoReturn(*point))
            m_found[around] = *point;
    }

    const ClangPoints& m_points;
    const clang::SourceManager& m_sources;
    const std::set<std::string>& m_listed;
    std::map<std::string, std::size_t> m_found;
    Anchors m_anchors;
};

} // namespace

struct ClangFlow::Unit {
    struct Function {
        const clang::Stmt* body;
        std::unique_ptr<ClangPoints> points;
    };
    std::unique_ptr<clang::ASTUnit> ast;
    std::vector<std::string> bodies;
    std::unordered_map<std::string, Function> functions;
};

ClangFlow::ClangFlow(const std::string& path, const Frontends::COptions& options) : m_unit(std::make_unique<Unit>()) {
    std::ifstream file(path, std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    std::vector<std::string> line = Frontends::makeCommandLine(options, path, Frontends::findResourceDirectory());
    // The program's name, the two dashes and the path are added anew.
    line = std::vector<std::string>(line.begin() + 1, line.end() - 2);
    line.emplace_back("-w");
    m_unit->ast = clang::tooling::buildASTFromCodeWithArgs(text.str(), line, path);
    if (!m_unit->ast)
        throw std::runtime_error("Clang cannot read " + path);
    clang::ASTContext& context = m_unit->ast->getASTContext();
    const clang::SourceManager& sources = context.getSourceManager();
    for (clang::Decl* declaration : context.getTranslationUnitDecl()->decls()) {
        const auto* function = llvm::dyn_cast<clang::FunctionDecl>(declaration);
        if (function == nullptr || !function->doesThisDeclarationHaveABody() ||
            !sources.isInMainFile(sources.getExpansionLoc(function->getBeginLoc())))
            continue;
        auto points = ClangPoints::make(*function, context);
        if (!points)
            continue;
        const std::string place = placeOf(function->getBody()->getBeginLoc(), sources);
        m_unit->bodies.push_back(place);
        m_unit->functions[place] = {function->getBody(), std::move(points)};
    }
}

ClangFlow::~ClangFlow() = default;

std::vector<std::string> ClangFlow::getBodies() const {
    return m_unit->bodies;
}

FlowEdges ClangFlow::flowOfStatements(const std::string& body) const {
    const Unit::Function& function = m_unit->functions.at(body);
    StatementAnchors anchors(*function.points, m_unit->ast->getSourceManager());
    anchors.find(*function.body);
    return contract(*function.points, anchors.get());
}

FlowEdges ClangFlow::flowOfExpressions(const std::string& body, const std::set<std::string>& listed) const {
    const Unit::Function& function = m_unit->functions.at(body);
    ExpressionAnchors anchors(*function.points, m_unit->ast->getASTContext(), listed);
    anchors.find(*function.body);
    return contract(*function.points, anchors.get());
}

} // namespace Kova::Test
