// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/UnknownSum_p.h"

#include <isl/aff.h>
#include <isl/val.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace DepGraph {
namespace {

using Term = UnknownSum::Term;

void addTerm(UnknownSum& sum, const isl::val& factor, const std::string& name) {
    const auto isSame = [&](const Term& term) { return term.name == name; };
    const auto place = std::find_if(sum.terms.begin(), sum.terms.end(), isSame);
    if (place == sum.terms.end()) {
        sum.terms.push_back({factor, name});
        return;
    }
    place->factor = place->factor.add(factor);
    if (place->factor.is_zero())
        sum.terms.erase(place);
}

/// Adds factor * floor(argument / divisor).
void addDivision(UnknownSum& sum, const isl::val& factor, const UnknownSum& argument, const isl::val& divisor) {
    if (divisor.is_one()) {
        for (const Term& term : argument.terms)
            addTerm(sum, factor.mul(term.factor), term.name);
        sum.constant = sum.constant.add(factor.mul(argument.constant));
        return;
    }
    const bool single = argument.terms.size() + (argument.constant.is_zero() ? 0 : 1) <= 1;
    const std::string text = single ? toText(argument) : "(" + toText(argument) + ")";
    addTerm(sum, factor, "floor(" + text + "/" + toText(divisor) + ")");
}

void addDivision(UnknownSum& sum, const isl::val& factor, const isl::aff& quotient) {
    const isl::val divisor = isl::manage(isl_aff_get_denominator_val(quotient.get()));
    addDivision(sum, factor, readSum(isl::manage(isl_aff_scale_val(quotient.copy(), divisor.copy()))), divisor);
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
    for (const bool negative : {false, true})
        for (const Term& term : sum.terms) {
            if (term.factor.is_neg() != negative)
                continue;
            const std::string sign = negative ? (text.empty() ? "-" : " - ") : (text.empty() ? "" : " + ");
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
            if (type == isl_dim_div)
                addDivision(sum, factor, isl::manage(isl_aff_get_div(aff.get(), i)));
            else
                addTerm(sum, factor, isl_aff_get_dim_name(aff.get(), type, static_cast<unsigned>(i)));
        }
    return sum;
}

} // namespace DepGraph
