// SPDX-License-Identifier: MIT
#pragma once

#include <isl/cpp.h>

#include <string>
#include <vector>

namespace DepGraph {

/// A linear expression of unknowns and of quotients of such expressions, made to be written down.
struct UnknownSum {
    struct Term {
        /// Whole, not 0.
        isl::val factor;
        std::string name;
    };
    std::vector<Term> terms;
    isl::val constant;
};

/// @param aff with whole coefficients, a function of the unknowns alone.
[[nodiscard]] UnknownSum readSum(const isl::aff& aff);

[[nodiscard]] std::string toText(const isl::val& value);
/// "n + 2*m" for terms with positive factors; empty for none.
[[nodiscard]] std::string toText(const std::vector<UnknownSum::Term>& terms);
/// "2*n - m + 1"
[[nodiscard]] std::string toText(const UnknownSum& sum);
/// "n + 1", "n - 1", "n"; the number alone when there is no text.
[[nodiscard]] std::string addConstant(const std::string& text, const isl::val& constant);

} // namespace DepGraph
