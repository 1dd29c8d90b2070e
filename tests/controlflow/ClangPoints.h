// SPDX-License-Identifier: MIT
#pragma once

#include <clang/Analysis/CFG.h>

#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace Kova::Test {

/// A Clang graph's places one by one: the head of each block (its label and its loop), what it evaluates, its end.
class ClangPoints {
public:
    using PointTest = std::function<bool(std::size_t)>;

    /// Null where Clang makes no graph.
    [[nodiscard]] static std::unique_ptr<ClangPoints> make(const clang::FunctionDecl& function,
                                                           clang::ASTContext& context);

    [[nodiscard]] std::size_t getEntry() const { return m_heads.at(&m_graph->getEntry()); }

    /// Where Clang begins to evaluate a part of the source; none when it does not evaluate it.
    [[nodiscard]] std::optional<std::size_t> findBegin(const clang::Stmt& part) const;
    [[nodiscard]] std::optional<std::size_t> findElement(const clang::Stmt& node) const {
        return lookUp(m_elements, node);
    }
    [[nodiscard]] std::optional<std::size_t> findLabel(const clang::Stmt& label) const {
        return lookUp(m_labels, label);
    }
    /// Where the way back of a loop begins.
    [[nodiscard]] std::optional<std::size_t> findLoopTarget(const clang::Stmt& loop) const {
        return lookUp(m_loops, loop);
    }
    /// Where a jump jumps, a condition branches.
    [[nodiscard]] std::optional<std::size_t> findTerminator(const clang::Stmt& node) const {
        return lookUp(m_ends, node);
    }
    /// True for a call that does not return.
    [[nodiscard]] bool isNoReturn(std::size_t point) const { return m_points[point].isNoReturn; }

    /// The points that meet a condition, and the exit, on all ways from a point up to the first of them each.
    [[nodiscard]] std::vector<std::size_t> findNext(std::size_t from, const PointTest& isWanted) const;

    /// As children(), with both forms of a list of initializers, and the declarations' values.
    [[nodiscard]] static std::vector<const clang::Stmt*> childrenOf(const clang::Stmt& node);

private:
    struct Point {
        bool isNoReturn = false;
        std::vector<std::size_t> next;
    };
    using Places = std::unordered_map<const clang::Stmt*, std::size_t>;

    ClangPoints(std::unique_ptr<clang::CFG> graph, const clang::ASTContext& context);
    void addBlock(const clang::CFGBlock& block);
    std::size_t add();
    void link(std::size_t from, std::size_t to);
    [[nodiscard]] static std::optional<std::size_t> lookUp(const Places& places, const clang::Stmt& node);

    std::unique_ptr<clang::CFG> m_graph;
    std::vector<Point> m_points;
    std::unordered_map<const clang::CFGBlock*, std::size_t> m_heads;
    std::unordered_map<const clang::CFGBlock*, std::size_t> m_tails;
    Places m_elements;
    Places m_labels;
    Places m_loops;
    Places m_ends;
};

} // namespace Kova::Test
