// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/LinearForm_p.h"

#include <isl/aff.h>

#include <algorithm>

namespace DepGraph {
namespace {

std::optional<long> readNumber(const isl::val& value, long largest) {
    if (!value.is_int() || value.cmp_si(largest) > 0 || value.cmp_si(-largest) < 0)
        return std::nullopt;
    return value.num_si();
}

std::optional<long> readCoefficient(const isl::aff& aff, isl_dim_type type, int position) {
    return readNumber(isl::manage(isl_aff_get_coefficient_val(aff.get(), type, position)),
                      LinearForm::largestCoefficient);
}

bool hasDivisions(const isl::aff& aff) {
    for (int i = 0; i < isl_aff_dim(aff.get(), isl_dim_div); ++i)
        if (readCoefficient(aff, isl_dim_div, i) != 0)
            return true;
    return false;
}

bool readIterations(const isl::aff& aff, LinearForm& form) {
    for (int i = 0; i < isl_aff_dim(aff.get(), isl_dim_in); ++i) {
        const std::optional<long> coefficient = readCoefficient(aff, isl_dim_in, i);
        if (!coefficient)
            return false;
        form.iterations.push_back(*coefficient);
    }
    return true;
}

bool readUnknowns(const isl::aff& aff, UnknownNumbers& numbers, LinearForm& form) {
    const isl::space space = isl::manage(isl_aff_get_domain_space(aff.get()));
    for (int i = 0; i < isl_aff_dim(aff.get(), isl_dim_param); ++i) {
        const std::optional<long> coefficient = readCoefficient(aff, isl_dim_param, i);
        if (!coefficient)
            return false;
        if (*coefficient != 0)
            form.unknowns.emplace_back(
                numbers[isl::manage(isl_space_get_dim_id(space.get(), isl_dim_param, static_cast<unsigned>(i)))],
                *coefficient);
    }
    std::sort(form.unknowns.begin(), form.unknowns.end());
    return true;
}

} // namespace

int UnknownNumbers::operator[](const isl::id& unknown) {
    const auto [entry, isNew] = m_numbers.emplace(unknown.get(), static_cast<int>(m_unknowns.size()));
    if (isNew)
        m_unknowns.push_back(unknown);
    return entry->second;
}

std::optional<LinearForm> readLinearForm(const isl::aff& function, UnknownNumbers& unknowns) {
    const std::optional<long> constant = readNumber(function.constant_val(), LinearForm::largestCoefficient << 10);
    LinearForm form;
    if (!constant || hasDivisions(function) || !readIterations(function, form) ||
        !readUnknowns(function, unknowns, form))
        return std::nullopt;
    form.constant = *constant;
    return form;
}

std::optional<LinearForm> readLinearForm(const isl::pw_aff& function, const isl::set& domain,
                                         UnknownNumbers& unknowns) {
    const isl::pw_aff simple = isl_pw_aff_isa_aff(function.get()) == isl_bool_true ? function : function.gist(domain);
    if (isl_pw_aff_isa_aff(simple.get()) != isl_bool_true)
        return std::nullopt;
    return readLinearForm(isl::aff(isl::manage(isl_pw_aff_as_aff(simple.copy()))), unknowns);
}

} // namespace DepGraph
