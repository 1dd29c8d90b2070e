// SPDX-License-Identifier: MIT
#pragma once

#include "tests/environment/analyses/lamport/NestDescription.h"

#include <random>

namespace Kova::Tests {

/// Makes small affine nests: up to three loops deep, triangular bounds, strides, counting down, conditions, sibling
/// loops, coupled subscripts.
class NestGenerator {
public:
    /// @param unknowns how many unknowns bounds, conditions and subscripts may use.
    explicit NestGenerator(unsigned seed, std::size_t unknowns = 0) : m_random(seed), m_unknowns(unknowns) {}

    Nest make() {
        m_occurrences = 0;
        Nest nest;
        const long items = draw(1, 2);
        for (long i = 0; i < items; ++i)
            nest.push_back(chance(5) ? makeStatement(0) : makeLoop(0));
        return nest;
    }

private:
    static constexpr std::size_t deepest = 3;
    static constexpr int mostOccurrences = 9;

    // Not std::uniform_int_distribution, whose numbers depend on the library.
    long draw(long low, long high) {
        return low + static_cast<long>(m_random() % static_cast<unsigned long>(high - low + 1));
    }
    bool chance(long oneIn) { return draw(1, oneIn) == 1; }

    /// A sum of at most `most` counters and a constant.
    Affine makeAffine(std::size_t depth, long most, long largestFactor, long low, long high) {
        Affine affine{draw(low, high), std::vector<long>(depth, 0), std::vector<long>(m_unknowns, 0)};
        for (long i = depth == 0 ? 0 : draw(0, most); i > 0; --i)
            affine.counters[static_cast<std::size_t>(draw(0, static_cast<long>(depth) - 1))] =
                draw(-largestFactor, largestFactor);
        return affine;
    }

    void addUnknown(Affine& affine, long oneIn) {
        if (m_unknowns > 0 && chance(oneIn))
            affine.unknowns[static_cast<std::size_t>(draw(0, static_cast<long>(m_unknowns) - 1))] = 1;
    }

    NestItem makeLoop(std::size_t depth) {
        auto loop = std::make_unique<NestLoop>();
        loop->step = chance(2) ? 1 : std::vector<long>{1, 2, 3, -1, -2}[static_cast<std::size_t>(draw(0, 4))];
        Affine low{draw(-1, 2), std::vector<long>(depth, 0), std::vector<long>(m_unknowns, 0)};
        Affine high{draw(1, 5), std::vector<long>(depth, 0), std::vector<long>(m_unknowns, 0)};
        if (depth > 0 && chance(2))
            (chance(2) ? low : high).counters[static_cast<std::size_t>(draw(0, static_cast<long>(depth) - 1))] =
                chance(3) ? -1 : 1;
        addUnknown(high, 1);
        if (m_unknowns > 0)
            high.constant = draw(-1, 1);
        loop->first = loop->step > 0 ? low : high;
        loop->limit = loop->step > 0 ? high : low;
        const long items = draw(1, 2);
        for (long i = 0; i < items; ++i)
            loop->body.push_back(depth + 1 < deepest && chance(2) ? makeLoop(depth + 1) : makeStatement(depth + 1));
        return {nullptr, std::move(loop)};
    }

    NestItem makeStatement(std::size_t depth) {
        auto statement = std::make_unique<NestStatement>();
        if (chance(4)) {
            statement->conditions.push_back({makeAffine(depth, 2, 1, -2, 3), chance(3) ? draw(2, 3) : 0});
            addUnknown(statement->conditions.back().value, 4);
        }
        statement->target = makeOccurrence(depth);
        statement->compound = chance(4);
        const long reads = m_occurrences < mostOccurrences ? draw(0, 2) : 0;
        for (long i = 0; i < reads; ++i)
            statement->reads.push_back(makeOccurrence(depth));
        return {std::move(statement), nullptr};
    }

    /// Array 0 is a scalar, 1 and 2 have one dimension, 3 has two.
    NestOccurrence makeOccurrence(std::size_t depth) {
        ++m_occurrences;
        const int array = chance(6) ? 0 : static_cast<int>(draw(1, 3));
        NestOccurrence occurrence{array, {}};
        const int dimensions = array == 0 ? 0 : array == 3 ? 2 : 1;
        for (int i = 0; i < dimensions; ++i) {
            occurrence.subscripts.push_back(makeAffine(depth, 2, chance(3) ? 2 : 1, -2, 2));
            addUnknown(occurrence.subscripts.back(), 6);
        }
        return occurrence;
    }

    std::mt19937 m_random;
    std::size_t m_unknowns;
    int m_occurrences = 0;
};

} // namespace Kova::Tests
