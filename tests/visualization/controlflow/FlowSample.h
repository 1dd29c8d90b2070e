// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/IfStatement.h"
#include "environment/tessel/ReturnStatement.h"
#include "environment/tessel/WhileStatement.h"
#include "tests/environment/support/Build.h"

/// A block with two ways and a loop:
///
///     {
///         a = b;
///         if (a)
///         {
///             b = a;
///         }
///         else
///         {
///             a = b;
///         }
///         while (b)
///         {
///             a = b;
///         }
///         return;
///     }
///
/// on the printed lines 0 to 15.
class FlowSample {
public:
    FlowSample() {
        using namespace Kova::Tests;
        auto madeBranch =
            make<Kova::Tessel::IfStatement>(use(a), Kova::Tests::block(set(b, a)), Kova::Tests::block(set(a, b)));
        auto madeLoop = make<Kova::Tessel::WhileStatement>(use(b), Kova::Tests::block(set(a, b)));
        branch = madeBranch.get();
        loop = madeLoop.get();
        block = Kova::Tests::block(set(a, b), std::move(madeBranch), std::move(madeLoop),
                                   make<Kova::Tessel::ReturnStatement>(nullptr));
    }

    static Kova::Tessel::StatementPtr set(Kova::Tessel::VariableDeclaration& target,
                                          Kova::Tessel::VariableDeclaration& value) {
        return Kova::Tests::statement(Kova::Tests::assign(Kova::Tests::use(target), Kova::Tests::use(value)));
    }
    [[nodiscard]] const Kova::Tessel::StatementBase* first() const { return block->getStatement(0); }
    [[nodiscard]] const Kova::Tessel::StatementBase* last() const { return block->getStatement(3); }

    Kova::Tessel::VariableDeclaration a{"a", nullptr};
    Kova::Tessel::VariableDeclaration b{"b", nullptr};
    std::unique_ptr<Kova::Tessel::BlockStatement> block;
    const Kova::Tessel::IfStatement* branch = nullptr;
    const Kova::Tessel::WhileStatement* loop = nullptr;
};
