// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/ConditionText_p.h"
#include "environment/analyses/lamport/UnknownSum_p.h"

#include <isl/aff.h>
#include <isl/constraint.h>
#include <isl/set.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace DepGraph {
namespace {

using Term = UnknownSum::Term;

/// The terms with a positive factor, or those with a negative one turned positive.
std::vector<Term> pickTerms(const UnknownSum& sum, bool negative) {
    std::vector<Term> picked;
    for (const Term& term : sum.terms)
        if (term.factor.is_neg() == negative)
            picked.push_back({term.factor.abs(), term.name});
    return picked;
}

isl::aff getDivision(const isl::aff& aff, int position) {
    return isl::manage(isl_aff_get_div(aff.get(), position));
}

std::string describeInequality(const UnknownSum& sum) {
    const std::string left = toText(pickTerms(sum, false));
    const std::string right = toText(pickTerms(sum, true));
    if (left.empty())
        return right + " <= " + toText(sum.constant);
    if (!right.empty() && sum.constant.is_negone())
        return left + " > " + right;
    return left + " >= " + addConstant(right, sum.constant.neg()) +
           (right.empty() && sum.constant.is_zero() ? "0" : "");
}

std::string describeEquality(const UnknownSum& sum) {
    const std::string left = toText(pickTerms(sum, false));
    const std::string right = toText(pickTerms(sum, true));
    if (left.empty())
        return right + " = " + toText(sum.constant);
    return left + " = " + (right.empty() ? toText(sum.constant.neg()) : addConstant(right, sum.constant.neg()));
}

/// "n mod 2 = 1" for sum = 0 modulo the divisor.
std::string describeCongruence(UnknownSum sum, const isl::val& divisor) {
    const auto vanishes = [&](const Term& term) { return term.factor.is_divisible_by(divisor); };
    sum.terms.erase(std::remove_if(sum.terms.begin(), sum.terms.end(), vanishes), sum.terms.end());
    if (!sum.terms.empty() && sum.terms.front().factor.is_neg()) {
        for (Term& term : sum.terms)
            term.factor = term.factor.neg();
        sum.constant = sum.constant.neg();
    }
    const isl::val rest = sum.constant.neg().mod(divisor);
    const bool single = sum.terms.size() == 1 && sum.terms.front().factor.is_one();
    sum.constant = isl::val::zero(divisor.ctx());
    return (single ? toText(sum) : "(" + toText(sum) + ")") + " mod " + toText(divisor) + " = " + toText(rest);
}

/// The only quotient that the constraint names; -1 when there is none or several.
int findOnlyDivision(const isl::aff& aff) {
    int found = -1;
    for (int i = 0; i < isl_aff_dim(aff.get(), isl_dim_div); ++i)
        if (isl_val_is_zero(isl::manage(isl_aff_get_coefficient_val(aff.get(), isl_dim_div, i)).get()) ==
            isl_bool_false) {
            if (found >= 0)
                return -1;
            found = i;
        }
    return found;
}

/// The text of sum - divisor * floor((sum + k) / divisor) = 0 with 0 <= k < divisor, which says that the divisor
/// divides the sum; empty for any other equality.
std::string findCongruence(const isl::aff& aff) {
    const int division = findOnlyDivision(aff);
    if (division < 0)
        return {};
    const isl::aff quotient = getDivision(aff, division);
    const isl::val divisor = isl::manage(isl_aff_get_denominator_val(quotient.get()));
    const isl::val factor = isl::manage(isl_aff_get_coefficient_val(aff.get(), isl_dim_div, division));
    if (divisor.is_one() || !factor.abs().eq(divisor))
        return {};
    isl::aff sum = isl::manage(isl_aff_set_coefficient_si(aff.copy(), isl_dim_div, division, 0));
    if (factor.is_pos())
        sum = sum.neg();
    const isl::aff shift = isl::manage(isl_aff_scale_val(quotient.copy(), divisor.copy())).sub(sum);
    if (isl_aff_is_cst(shift.get()) != isl_bool_true || shift.constant_val().is_neg() ||
        shift.constant_val().ge(divisor))
        return {};
    return describeCongruence(readSum(sum), divisor);
}

std::string describeConstraint(const isl::aff& aff, bool equality) {
    const std::string congruence = equality ? findCongruence(aff) : std::string();
    if (!congruence.empty())
        return congruence;
    return equality ? describeEquality(readSum(aff)) : describeInequality(readSum(aff));
}

using ConstraintPtr = std::unique_ptr<isl_constraint, decltype(&isl_constraint_free)>;
using ConstraintListPtr = std::unique_ptr<isl_constraint_list, decltype(&isl_constraint_list_free)>;

struct ConstraintText {
    std::size_t terms;
    std::string text;
};

std::vector<ConstraintText> describeConstraints(const isl::basic_set& set) {
    const ConstraintListPtr list(isl_basic_set_get_constraint_list(set.get()), &isl_constraint_list_free);
    std::vector<ConstraintText> texts;
    for (int i = 0; i < isl_constraint_list_n_constraint(list.get()); ++i) {
        const ConstraintPtr constraint(isl_constraint_list_get_constraint(list.get(), i), &isl_constraint_free);
        if (isl_constraint_is_div_constraint(constraint.get()) == isl_bool_true)
            continue;
        const isl::aff aff = isl::manage(isl_constraint_get_aff(constraint.get()));
        const bool equality = isl_constraint_is_equality(constraint.get()) == isl_bool_true;
        const std::size_t terms = readSum(aff).terms.size();
        // A quotient by 1 is the number itself: what says so says nothing.
        if (terms > 0)
            texts.push_back({terms, describeConstraint(aff, equality)});
    }
    return texts;
}

std::string describeConjunction(const isl::basic_set& set) {
    std::vector<ConstraintText> constraints = describeConstraints(set);
    // Those of single unknowns first; not in isl's order, which depends on how the set came about.
    std::sort(constraints.begin(), constraints.end(), [](const ConstraintText& a, const ConstraintText& b) {
        return a.terms != b.terms ? a.terms < b.terms : a.text < b.text;
    });
    std::string text;
    for (const ConstraintText& constraint : constraints)
        text += (text.empty() ? "" : " and ") + constraint.text;
    return text;
}

} // namespace

std::string describeCondition(const isl::set& unknowns) {
    const isl::set universe = isl::set::universe(unknowns.space());
    if (isl_set_plain_is_universe(unknowns.get()) == isl_bool_true)
        return {};
    isl::set simple = isl::manage(isl_set_remove_redundancies(unknowns.coalesce().release()));
    if (universe.is_subset(simple))
        return {};
    // Last, since simplifying forgets what the quotients are.
    simple = isl::manage(isl_set_compute_divs(simple.release()));
    std::vector<std::string> alternatives;
    simple.foreach_basic_set([&](const isl::basic_set& part) {
        if (!part.is_empty())
            alternatives.push_back(describeConjunction(part));
    });
    std::sort(alternatives.begin(), alternatives.end());
    std::string text;
    for (const std::string& alternative : alternatives)
        text += (text.empty() ? "" : " or ") + alternative;
    return text.empty() ? "false" : text;
}

} // namespace DepGraph
