// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/LinearSystem_p.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <optional>
#include <utility>

namespace DepGraph {
namespace {

using Row = LinearSystem::Row;

/// Products of two such numbers can be added without overflow.
constexpr long largestNumber = (1L << 31) - 1;
constexpr std::size_t mostRows = 64;

bool isWithinLimits(const Row& row) {
    return std::abs(row.constant) <= largestNumber &&
           std::all_of(row.factors.begin(), row.factors.end(),
                       [](long factor) { return std::abs(factor) <= largestNumber; });
}

long divideDown(long value, long divisor) {
    return value >= 0 ? value / divisor : -((-value + divisor - 1) / divisor);
}

bool isOpposite(const Row& one, const Row& other) {
    return std::equal(one.factors.begin(), one.factors.end(), other.factors.begin(),
                      [](long a, long b) { return a == -b; });
}

} // namespace

void LinearSystem::add(Row row) {
    normalize(row);
    if (m_contradictory || !m_solved || row.factors.empty())
        return;
    for (Row& known : m_rows) {
        if (known.equality || row.equality)
            continue;
        if (known.factors == row.factors) {
            known.constant = std::min(known.constant, row.constant);
            return;
        }
        if (isOpposite(known, row) && known.constant + row.constant < 0)
            m_contradictory = true;
    }
    m_rows.push_back(std::move(row));
    m_solved = m_rows.size() <= mostRows;
}

/// Makes the factors prime to each other; leaves no factors when the row says nothing.
void LinearSystem::normalize(Row& row) {
    if (!isWithinLimits(row)) {
        m_solved = false;
        return;
    }
    long divisor = 0;
    for (const long factor : row.factors)
        divisor = std::gcd(divisor, factor);
    if (divisor == 0) {
        m_contradictory = m_contradictory || (row.equality ? row.constant != 0 : row.constant < 0);
        row.factors.clear();
        return;
    }
    m_contradictory = m_contradictory || (row.equality && row.constant % divisor != 0);
    for (long& factor : row.factors)
        factor /= divisor;
    row.constant = divideDown(row.constant, divisor);
}

void LinearSystem::addDifference(std::size_t source, std::size_t target) {
    ++m_variables;
    for (Row& row : m_rows)
        row.factors.push_back(0);
    Row row{std::vector<long>(m_variables, 0), 0, true};
    row.factors[source] = 1;
    row.factors[target] = -1;
    row.factors.back() = 1;
    add(std::move(row));
}

void LinearSystem::combine(Row& target, long targetFactor, const Row& other, long otherFactor) {
    for (std::size_t i = 0; i < m_variables; ++i)
        target.factors[i] = target.factors[i] * targetFactor + other.factors[i] * otherFactor;
    target.constant = target.constant * targetFactor + other.constant * otherFactor;
}

void LinearSystem::eliminate(std::size_t first, std::size_t last) {
    while (m_solved && !m_contradictory && mentions(first, last))
        if (!substituteOne(first, last) && !pairOne(first, last))
            m_solved = false;
}

bool LinearSystem::mentions(std::size_t first, std::size_t last) const {
    return std::any_of(m_rows.begin(), m_rows.end(), [&](const Row& row) {
        return std::any_of(row.factors.begin() + static_cast<std::ptrdiff_t>(first),
                           row.factors.begin() + static_cast<std::ptrdiff_t>(last),
                           [](long factor) { return factor != 0; });
    });
}

bool LinearSystem::substituteOne(std::size_t first, std::size_t last) {
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        if (!m_rows[i].equality)
            continue;
        for (std::size_t variable = first; variable < last; ++variable)
            if (std::abs(m_rows[i].factors[variable]) == 1) {
                const Row definition = std::move(m_rows[i]);
                m_rows.erase(m_rows.begin() + static_cast<std::ptrdiff_t>(i));
                substitute(variable, definition);
                return true;
            }
    }
    return false;
}

void LinearSystem::substitute(std::size_t variable, const Row& definition) {
    const std::vector<Row> rows = std::exchange(m_rows, {});
    for (Row row : rows) {
        const long factor = row.factors[variable];
        if (factor != 0)
            combine(row, 1, definition, -factor * definition.factors[variable]);
        add(std::move(row));
    }
}

/// Eliminates the variable with the fewest pairs of a lower and an upper bound of which one has the factor 1. False
/// when there is none, or when a variable is left in an equality.
bool LinearSystem::pairOne(std::size_t first, std::size_t last) {
    std::optional<std::size_t> best;
    std::size_t fewest = 0;
    for (std::size_t variable = first; variable < last; ++variable) {
        std::size_t lower = 0;
        std::size_t upper = 0;
        bool lowerOnes = true;
        bool upperOnes = true;
        for (const Row& row : m_rows) {
            const long factor = row.factors[variable];
            if (factor != 0 && row.equality)
                return false;
            lower += factor > 0 ? 1 : 0;
            upper += factor < 0 ? 1 : 0;
            lowerOnes = lowerOnes && factor <= 1;
            upperOnes = upperOnes && factor >= -1;
        }
        if (lower + upper > 0 && (lowerOnes || upperOnes || lower * upper == 0) && (!best || lower * upper < fewest)) {
            best = variable;
            fewest = lower * upper;
        }
    }
    if (best)
        pairBounds(*best);
    return best.has_value();
}

void LinearSystem::pairBounds(std::size_t variable) {
    const std::vector<Row> rows = std::exchange(m_rows, {});
    for (const Row& lower : rows) {
        if (lower.factors[variable] == 0)
            add(lower);
        if (lower.factors[variable] <= 0)
            continue;
        for (const Row& upper : rows) {
            if (upper.factors[variable] >= 0)
                continue;
            Row both = lower;
            combine(both, -upper.factors[variable], upper, lower.factors[variable]);
            add(std::move(both));
        }
    }
}

IterationRange LinearSystem::findRange(std::size_t variable) const {
    IterationRange range{-IterationRange::unbounded, IterationRange::unbounded};
    for (const Row& row : m_rows) {
        // A normalized row of one variable has the factor 1 or -1.
        const long factor = row.factors[variable];
        if (factor > 0 || row.equality)
            range.low = std::max(range.low, -row.constant * factor);
        if (factor < 0 || row.equality)
            range.high = std::min(range.high, row.equality ? -row.constant * factor : row.constant);
    }
    return range;
}

} // namespace DepGraph
