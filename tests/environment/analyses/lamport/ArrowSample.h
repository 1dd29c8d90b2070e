// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/LampArrow.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/GotoStatement.h"
#include "environment/tessel/OpaqueStatement.h"
#include "environment/tessel/WhileStatement.h"
#include "tests/environment/support/Build.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Kova::Tests {

template <class Node>
Node& atLine(Node& node, unsigned line) {
    Tessel::SourceRange range;
    range.beginLine = line;
    range.endLine = line;
    node.setSourceRange(range);
    return node;
}

/// `for (; counter < 9; counter++) {}` at a line.
inline std::unique_ptr<Tessel::ForStatement> loopOver(Tessel::VariableDeclaration& counter, unsigned line) {
    auto loop = std::make_unique<Tessel::ForStatement>(
        nullptr, binary(use(counter), Tessel::BinaryOperator::Less, literal("9")),
        unary(Tessel::UnaryOperator::PostIncrement, use(counter)), block());
    atLine(*loop, line);
    return loop;
}

inline std::unique_ptr<Tessel::WhileStatement> whileLoop(unsigned line) {
    auto loop = std::make_unique<Tessel::WhileStatement>(literal("1"), block());
    atLine(*loop, line);
    return loop;
}

/// Arrows by hand: `a[i]` in line 5 is the source and `a[i - 2]` in line 7 the target unless a test says otherwise.
class ArrowSample {
public:
    ArrowSample() { facts().type = DepGraph::DT_FLOW; }

    [[nodiscard]] DepGraph::DependenceFacts& facts() { return m_facts; }
    [[nodiscard]] std::string tag(DepGraph::EN_PrintModes mode) const {
        return DepGraph::LampArrow(m_facts).GetTag(mode);
    }

    /// Sets the distance of every loop around both, which is as many loops over i, j, k as there are distances.
    ArrowSample& loops(std::vector<std::optional<long>> distance, std::vector<std::string> directions = {}) {
        const Tessel::LoopStatement* const nest[] = {m_loopI.get(), m_loopJ.get(), m_loopK.get()};
        m_facts.commonLoops.assign(nest, nest + distance.size());
        m_facts.distance = std::move(distance);
        m_facts.directions = std::move(directions);
        m_facts.directions.resize(m_facts.distance.size());
        return *this;
    }
    ArrowSample& carriers(std::vector<int> numbers) {
        m_facts.carriers = std::move(numbers);
        return *this;
    }
    ArrowSample& kind(DepGraph::EN_DepType type) {
        m_facts.type = type;
        return *this;
    }
    ArrowSample& target(const Tessel::ExpressionBase& occurrence) {
        m_facts.target = &occurrence;
        return *this;
    }
    ArrowSample& doubt(DepGraph::Doubt doubt, const Tessel::TesselBase* where = nullptr) {
        m_facts.assumption = {doubt, where};
        return *this;
    }
    ArrowSample& condition(std::string text) {
        m_facts.condition = std::move(text);
        return *this;
    }

    /// The name `a` of `a[index]` at a line.
    const Tessel::ExpressionBase& element(Tessel::ExpressionPtr index, unsigned line) {
        Tessel::ExpressionPtr name = use(a);
        const Tessel::ExpressionBase& occurrence = atLine(*name, line);
        m_kept.push_back(subscript(std::move(name), std::move(index)));
        return occurrence;
    }
    /// A tree that lives as long as the sample.
    Tessel::ExpressionBase& keep(Tessel::ExpressionPtr expression) {
        m_kept.push_back(std::move(expression));
        return *m_kept.back();
    }

    Tessel::VariableDeclaration a{"a", nullptr};
    Tessel::VariableDeclaration i{"i", nullptr};
    Tessel::VariableDeclaration j{"j", nullptr};
    Tessel::VariableDeclaration k{"k", nullptr};

private:
    std::vector<Tessel::ExpressionPtr> m_kept;
    std::unique_ptr<Tessel::ForStatement> m_loopI = loopOver(i, 3);
    std::unique_ptr<Tessel::ForStatement> m_loopJ = loopOver(j, 4);
    std::unique_ptr<Tessel::ForStatement> m_loopK = loopOver(k, 5);
    DepGraph::DependenceFacts m_facts = makeFacts();

    DepGraph::DependenceFacts makeFacts() {
        DepGraph::DependenceFacts facts;
        facts.source = &element(use(i), 5);
        facts.target = &element(binary(use(i), Tessel::BinaryOperator::Subtract, literal("2")), 7);
        return facts;
    }
};

} // namespace Kova::Tests
