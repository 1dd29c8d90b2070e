// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/LamportGraph.h"
#include "environment/tessel/ForStatement.h"
#include "tests/environment/support/Build.h"

#include <memory>
#include <utility>
#include <vector>

/// A block with its dependences by hand:
///
///     {
///         for (; i < n; i++)
///         {
///             a[i] = s;
///             s = s + a[i - 1];
///         }
///         t = s;
///     }
///
/// on the printed lines 0 to 7.
class SampleBlock {
public:
    SampleBlock() {
        using namespace Kova::Tests;
        using namespace Kova::Tessel;
        auto first = statement(assign(subscript(name(writtenA, a), use(i)), name(readS, s)));
        auto second = statement(
            assign(name(writtenS, s),
                   binary(name(addedS, s), BinaryOperator::Add,
                          subscript(name(readA, a), binary(use(i), BinaryOperator::Subtract, literal("1"))))));
        auto loop = std::make_unique<ForStatement>(nullptr, binary(use(i), BinaryOperator::Less, name(bound, n)),
                                                   unary(UnaryOperator::PostIncrement, use(i)),
                                                   Kova::Tests::block(std::move(first), std::move(second)));
        auto last = statement(assign(name(writtenT, t), name(lastS, s)));
        block = Kova::Tests::block(std::move(loop), std::move(last));
    }

    /// Appends a dependence.
    SampleBlock& add(int type, const Kova::Tessel::ExpressionBase* source, const Kova::Tessel::ExpressionBase* target,
                     std::vector<int> carriers) {
        ::DepGraph::DependenceFacts facts;
        facts.type = static_cast<::DepGraph::EN_DepType>(type);
        facts.source = source;
        facts.target = target;
        facts.carriers = std::move(carriers);
        m_arrows.emplace_back(std::move(facts));
        return *this;
    }
    /// One of each kind: flow a -> a, anti s -> s of different lines, output of s on itself, input n on itself.
    SampleBlock& addOneOfEachKind() {
        return add(1, writtenA, readA, {1})
            .add(2, readS, writtenS, {-1, 1})
            .add(4, writtenS, writtenS, {1})
            .add(8, bound, bound, {1});
    }
    [[nodiscard]] std::unique_ptr<::DepGraph::LamportGraph> graph() const {
        return std::make_unique<::DepGraph::LamportGraph>(m_arrows);
    }

    Kova::Tessel::VariableDeclaration a{"a", nullptr};
    Kova::Tessel::VariableDeclaration i{"i", nullptr};
    Kova::Tessel::VariableDeclaration n{"n", nullptr};
    Kova::Tessel::VariableDeclaration s{"s", nullptr};
    Kova::Tessel::VariableDeclaration t{"t", nullptr};
    std::unique_ptr<Kova::Tessel::BlockStatement> block;
    const Kova::Tessel::ExpressionBase* bound = nullptr;
    const Kova::Tessel::ExpressionBase* writtenA = nullptr;
    const Kova::Tessel::ExpressionBase* readS = nullptr;
    const Kova::Tessel::ExpressionBase* writtenS = nullptr;
    const Kova::Tessel::ExpressionBase* addedS = nullptr;
    const Kova::Tessel::ExpressionBase* readA = nullptr;
    const Kova::Tessel::ExpressionBase* writtenT = nullptr;
    const Kova::Tessel::ExpressionBase* lastS = nullptr;

private:
    static Kova::Tessel::ExpressionPtr name(const Kova::Tessel::ExpressionBase*& occurrence,
                                            Kova::Tessel::VariableDeclaration& variable) {
        Kova::Tessel::ExpressionPtr reference = Kova::Tests::use(variable);
        occurrence = reference.get();
        return reference;
    }

    std::vector<::DepGraph::LampArrow> m_arrows;
};
