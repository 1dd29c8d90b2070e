// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/IterationPairs_p.h"

#include <cstddef>
#include <vector>

namespace DepGraph {

/// Linear equalities and inequalities of a few whole numbers, for the systems that arise from common loops: with
/// factors of 1 nearly everywhere a variable can be eliminated exactly by substitution or by pairing its bounds (W.
/// Pugh, "The Omega Test", 1991). Systems that need more than that are left to isl.
class LinearSystem {
public:
    /// The sum of factor * variable + constant is 0, or at least 0.
    struct Row {
        std::vector<long> factors;
        long constant = 0;
        bool equality = false;
    };

    explicit LinearSystem(std::size_t variables) : m_variables(variables) {}

    [[nodiscard]] std::size_t countVariables() const { return m_variables; }
    /// @param row with a factor for each variable.
    void add(Row row);
    /// Adds target = source + a variable of its own, the last one.
    void addDifference(std::size_t source, std::size_t target);

    /// Eliminates the variables from `first` until before `last`: what is left holds for exactly those values of the
    /// others for which there were whole numbers for these. Afterwards isSolved() tells whether that was possible.
    void eliminate(std::size_t first, std::size_t last);

    /// False when an elimination was beyond the means here; the system is worth nothing then.
    [[nodiscard]] bool isSolved() const { return m_solved; }
    /// No values at all.
    [[nodiscard]] bool isContradictory() const { return m_contradictory; }
    [[nodiscard]] const std::vector<Row>& getRows() const { return m_rows; }
    /// The range of the only variable that has not been eliminated.
    [[nodiscard]] IterationRange findRange(std::size_t variable) const;

private:
    void normalize(Row& row);
    bool substituteOne(std::size_t first, std::size_t last);
    void substitute(std::size_t variable, const Row& definition);
    bool pairOne(std::size_t first, std::size_t last);
    void pairBounds(std::size_t variable);
    [[nodiscard]] bool mentions(std::size_t first, std::size_t last) const;
    /// target * targetFactor + other * otherFactor
    void combine(Row& target, long targetFactor, const Row& other, long otherFactor);

    std::size_t m_variables;
    std::vector<Row> m_rows;
    bool m_solved = true;
    bool m_contradictory = false;
};

} // namespace DepGraph
