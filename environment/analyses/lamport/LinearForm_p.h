// SPDX-License-Identifier: MIT
#pragma once

#include <isl/cpp.h>

#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace DepGraph {

/// Numbers the unknowns of a block from 0, in the order in which they are met.
class UnknownNumbers {
public:
    int operator[](const isl::id& unknown);
    [[nodiscard]] const isl::id& getUnknown(int number) const { return m_unknowns[static_cast<std::size_t>(number)]; }

private:
    // Keeps the names alive that the table is keyed by; isl has one name object per name.
    std::vector<isl::id> m_unknowns;
    std::unordered_map<const isl_id*, int> m_numbers;
};

/// constant + the sum of coefficient * iteration number + the sum of coefficient * unknown.
struct LinearForm {
    /// Coefficients beyond this, and constants beyond its 2^10-fold, are left to isl.
    static constexpr long largestCoefficient = 1L << 30;

    long constant = 0;
    /// One for each loop, outermost first.
    std::vector<long> iterations;
    /// Number and coefficient, which is not 0, by ascending number.
    std::vector<std::pair<int, long>> unknowns;
};

/// Nothing when the function has a division or numbers too large.
[[nodiscard]] std::optional<LinearForm> readLinearForm(const isl::aff& function, UnknownNumbers& unknowns);

/// The function as a linear form; nothing when it is none within the domain: of several pieces, with a division, or
/// with numbers too large.
[[nodiscard]] std::optional<LinearForm> readLinearForm(const isl::pw_aff& function, const isl::set& domain,
                                                       UnknownNumbers& unknowns);

} // namespace DepGraph
