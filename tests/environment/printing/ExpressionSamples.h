// SPDX-License-Identifier: MIT
#pragma once

#include "tests/environment/printing/Names.h"
#include "tests/environment/printing/RoundTrip.h"

#include <gtest/gtest.h>

#include <random>

/// Expressions made at random, for tests that read printed expressions back.
namespace Kova::Tests {

/// An expression together with the structure that reading it has to give.
struct Sample {
    Tessel::ExpressionPtr tree;
    std::string structure;
};

/// Makes expressions of the kinds that a language has. They need not make sense beyond its grammar.
class SampleMaker : protected Names {
public:
    virtual ~SampleMaker() = default;
    SampleMaker(const SampleMaker&) = delete;
    SampleMaker& operator=(const SampleMaker&) = delete;

    /// @param depth how many levels of operands there are at most; 0 for a leaf.
    Sample make(int depth) { return depth == 0 ? leaf() : makeInner(depth); }

protected:
    template <class Operator>
    using Table = std::vector<std::pair<Operator, std::string>>;

    explicit SampleMaker(unsigned seed) : m_random(seed) {}

    virtual Sample leaf() = 0;
    /// @param depth at least 1.
    virtual Sample makeInner(int depth) = 0;

    /// One of the numbers from 0 on. @param count at least 1.
    unsigned pick(unsigned count) { return static_cast<unsigned>(m_random() % count); }
    template <class Operator>
    const std::pair<Operator, std::string>& pick(const Table<Operator>& table) {
        return table[pick(static_cast<unsigned>(table.size()))];
    }
    Sample below(int depth) { return make(static_cast<int>(pick(static_cast<unsigned>(depth)))); }

    /// The leaves that every language has. @param number from 0 on; all above 2 give the same one.
    Sample leafOf(unsigned number) {
        switch (number) {
        case 0:
            return {literal("7"), "7"};
        case 1:
            return {literal("-7"), "(u- 7)"};
        case 2:
            return {b(), "b"};
        default:
            return {a(), "a"};
        }
    }
    Sample prefixedBy(const Table<U>& table, int depth) {
        const auto& [operation, name] = pick(table);
        Sample operand = below(depth);
        return {unary(operation, std::move(operand.tree)), "(" + name + " " + operand.structure + ")"};
    }
    Sample joinedBy(const Table<B>& table, int depth) {
        const auto& [operation, name] = pick(table);
        Sample left = below(depth);
        Sample right = below(depth);
        return {binary(std::move(left.tree), operation, std::move(right.tree)),
                "(" + name + " " + left.structure + " " + right.structure + ")"};
    }

private:
    std::mt19937 m_random;
};

/// Expects 20000 samples to read back as they were made, and each of their parentheses to be needed for that.
template <class Printer, class Reader>
void expectToReadBack(SampleMaker& samples) {
    std::size_t parentheses = 0;
    for (int i = 0; i < 20000; ++i) {
        const Sample sample = samples.make(1 + i % 6);
        const std::string text = Printer::expressionToString(*sample.tree);
        ASSERT_EQ(Reader::read(text), sample.structure) << text;
        for (const auto& [open, close] : parenthesesOf(text)) {
            std::string without = text;
            without[open] = without[close] = ' ';
            ASSERT_NE(Reader::read(without), sample.structure) << text << "\n" << without;
            ++parentheses;
        }
    }
    // Enough of them to have tried every kind of operand in every place.
    EXPECT_GT(parentheses, 20000U);
}

/// Expects texts to have the structures that stand beside them; an empty one is for a text that is no expression.
template <class Reader>
void expectToReadAs(const std::vector<std::pair<std::string, std::string>>& expected) {
    for (const auto& [text, structure] : expected)
        EXPECT_EQ(Reader::read(text), structure) << text;
}

} // namespace Kova::Tests
