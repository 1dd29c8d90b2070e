// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/UnknownSum_p.h"

#include <isl/aff.h>
#include <isl/val.h>

#include <cstdlib>
#include <memory>

namespace DepGraph {
namespace {

using Term = UnknownSum::Term;

std::string nameDivision(const isl::aff& aff, int position) {
    const isl::aff argument = isl::manage(isl_aff_get_div(aff.get(), position));
    const isl::val divisor = isl::manage(isl_aff_get_denominator_val(argument.get()));
    const UnknownSum sum = readSum(isl::manage(isl_aff_scale_val(argument.copy(), divisor.copy())));
    const bool single = sum.terms.size() + (sum.constant.is_zero() ? 0 : 1) <= 1;
    const std::string text = single ? toText(sum) : "(" + toText(sum) + ")";
    return "floor(" + text + "/" + toText(divisor) + ")";
}

} // namespace

std::string toText(const isl::val& value) {
    const std::unique_ptr<char, decltype(&std::free)> text(isl_val_to_str(value.get()), &std::free);
    return text ? text.get() : "?";
}

std::string toText(const std::vector<Term>& terms) {
    std::string text;
    for (const Term& term : terms)
        text += (text.empty() ? "" : " + ") + (term.factor.is_one() ? "" : toText(term.factor) + "*") + term.name;
    return text;
}

std::string addConstant(const std::string& text, const isl::val& constant) {
    if (constant.is_zero())
        return text;
    if (text.empty())
        return toText(constant);
    return text + (constant.is_neg() ? " - " : " + ") + toText(constant.abs());
}

std::string toText(const UnknownSum& sum) {
    std::string text;
    for (const Term& term : sum.terms) {
        const std::string sign = term.factor.is_neg() ? (text.empty() ? "-" : " - ") : (text.empty() ? "" : " + ");
        text += sign + toText({Term{term.factor.abs(), term.name}});
    }
    return addConstant(text, sum.constant);
}

UnknownSum readSum(const isl::aff& aff) {
    UnknownSum sum;
    sum.constant = isl::manage(isl_aff_get_constant_val(aff.get()));
    for (const isl_dim_type type : {isl_dim_param, isl_dim_div})
        for (int i = 0; i < isl_aff_dim(aff.get(), type); ++i) {
            const isl::val factor = isl::manage(isl_aff_get_coefficient_val(aff.get(), type, i));
            if (factor.is_zero())
                continue;
            sum.terms.push_back({factor, type == isl_dim_div
                                             ? nameDivision(aff, i)
                                             : isl_aff_get_dim_name(aff.get(), type, static_cast<unsigned>(i))});
        }
    return sum;
}

} // namespace DepGraph
