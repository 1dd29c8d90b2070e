// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/DeclarationStatement.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/IfStatement.h"
#include "tests/environment/support/Build.h"

#include <cstddef>

namespace Kova::Benchmark {

/// Makes blocks that read like numerical C, 19 lines at a time: a declaration, a stencil in a loop nest, a branch with
/// its else, calls. Owns the declarations that the blocks mention.
class GeneratedBlock {
public:
    /// @param lines how many lines the block prints as, at least.
    [[nodiscard]] std::unique_ptr<Tessel::BlockStatement> make(std::size_t lines) {
        auto block = std::make_unique<Tessel::BlockStatement>();
        constexpr std::size_t linesAPart = 19;
        for (std::size_t done = 2; done < lines; done += linesAPart)
            appendPart(*block);
        return block;
    }

private:
    using Op = Tessel::BinaryOperator;

    Tessel::ExpressionPtr element(Tessel::VariableDeclaration& array, const char* shift) {
        Tessel::ExpressionPtr row = Tests::binary(Tests::use(m_i), Op::Add, Tests::literal(shift));
        return Tests::subscript(Tests::subscript(Tests::use(array), std::move(row)), Tests::use(m_j));
    }

    Tessel::ExpressionPtr weighted() {
        return Tests::binary(Tests::literal("0.25"), Op::Multiply,
                             Tests::binary(element(m_plate, "1"), Op::Subtract, element(m_plate, "2")));
    }

    Tessel::StatementPtr loop(Tessel::VariableDeclaration& index, std::unique_ptr<Tessel::BlockStatement> body) {
        return std::make_unique<Tessel::ForStatement>(
            Tests::statement(Tests::assign(Tests::use(index), Tests::literal("1"))),
            Tests::binary(Tests::use(index), Op::Less, Tests::use(m_limit)),
            Tests::unary(Tessel::UnaryOperator::PostIncrement, Tests::use(index)), std::move(body));
    }

    Tessel::StatementPtr declaration() {
        auto statement = std::make_unique<Tessel::DeclarationStatement>();
        statement->append(std::make_unique<Tessel::VariableDeclaration>("total", m_double, element(m_next, "0")));
        return statement;
    }

    /// 19 lines.
    void appendPart(Tessel::BlockStatement& block) {
        using namespace Tests;
        auto inner = Tests::block(statement(assign(element(m_next, "1"), weighted())),
                                  statement(assign(element(m_plate, "0"), call(m_scale, weighted(), use(m_i)))));
        block.append(declaration());
        block.append(loop(m_i, Tests::block(loop(m_j, std::move(inner)))));
        ExpressionPtr condition =
            binary(binary(use(m_i), Op::Less, use(m_limit)), Op::LogicalAnd, element(m_next, "3"));
        block.append(std::make_unique<Tessel::IfStatement>(
            std::move(condition), Tests::block(statement(assign(use(m_j), binary(use(m_j), Op::Multiply, use(m_i))))),
            Tests::block(statement(call(m_scale, weighted(), literal("7"))), statement(assign(use(m_i), use(m_j))))));
        block.append(statement(call(m_scale, element(m_plate, "4"), binary(use(m_i), Op::Remainder, use(m_limit)))));
        block.append(statement(assign(element(m_plate, "5"), weighted())));
    }

    using ExpressionPtr = Tessel::ExpressionPtr;

    Tessel::TypeTable m_types;
    const Tessel::Type* m_double = m_types.basic("double", Tessel::BasicType::Category::Floating, 64);
    Tessel::VariableDeclaration m_i{"i", nullptr};
    Tessel::VariableDeclaration m_j{"j", nullptr};
    Tessel::VariableDeclaration m_limit{"limit", nullptr};
    Tessel::VariableDeclaration m_plate{"plate", nullptr};
    Tessel::VariableDeclaration m_next{"next_plate", nullptr};
    Tessel::SubroutineDeclaration m_scale{"scale_value", nullptr};
};

} // namespace Kova::Benchmark
