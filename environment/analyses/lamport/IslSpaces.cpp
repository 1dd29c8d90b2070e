// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/IslSpaces_p.h"

#include <isl/aff.h>
#include <isl/map.h>
#include <isl/set.h>
#include <isl/val.h>

namespace DepGraph {

namespace {

isl_local_space* spaceOf(isl::ctx context, unsigned loops) {
    return isl_local_space_from_space(isl_space_set_alloc(context.get(), 0, loops));
}

} // namespace

isl::val powerOfTwo(isl::ctx context, unsigned exponent) {
    return isl::manage(isl_val_2exp(isl_val_int_from_ui(context.get(), exponent)));
}

isl::set allVectors(isl::ctx context, unsigned loops) {
    return isl::manage(isl_set_universe(isl_space_set_alloc(context.get(), 0, loops)));
}

isl::pw_aff constantOn(isl::ctx context, unsigned loops, const isl::val& value) {
    const isl::aff constant = isl::manage(isl_aff_val_on_domain(spaceOf(context, loops), value.copy()));
    return isl::pw_aff(constant);
}

isl::pw_aff unknownOn(isl::ctx context, unsigned loops, const std::string& name) {
    isl_id* id = isl_id_alloc(context.get(), name.c_str(), nullptr);
    return isl::manage(
        isl_pw_aff_param_on_domain_id(isl_set_universe(isl_space_set_alloc(context.get(), 0, loops)), id));
}

isl::pw_aff iterationOn(isl::ctx context, unsigned loops, unsigned loop) {
    const isl::aff iteration = isl::manage(isl_aff_var_on_domain(spaceOf(context, loops), isl_dim_set, loop));
    return isl::pw_aff(iteration);
}

unsigned loopsOf(const isl::set& vectors) {
    return static_cast<unsigned>(isl_set_dim(vectors.get(), isl_dim_set));
}

isl::set lifted(const isl::set& vectors, unsigned loops) {
    const unsigned present = loopsOf(vectors);
    return present == loops ? vectors : isl::manage(isl_set_add_dims(vectors.copy(), isl_dim_set, loops - present));
}

isl::pw_aff lifted(const isl::pw_aff& value, unsigned loops) {
    const auto present = static_cast<unsigned>(isl_pw_aff_dim(value.get(), isl_dim_in));
    return present == loops ? value : isl::manage(isl_pw_aff_add_dims(value.copy(), isl_dim_in, loops - present));
}

isl::set within(const isl::set& vectors, const isl::pw_aff& value, Kova::Tessel::Service::IntegerType type, bool withGreatest) {
    const isl::ctx context = vectors.ctx();
    const unsigned loops = loopsOf(vectors);
    const isl::val end = powerOfTwo(context, type.isSigned ? type.bits - 1 : type.bits);
    const isl::val first = type.isSigned ? end.neg() : isl::val(context, 0);
    const isl::set high = vectors.intersect(value.ge_set(constantOn(context, loops, first)));
    return withGreatest ? high.intersect(value.lt_set(constantOn(context, loops, end))) : high;
}

isl::set laterInInnermost(const isl::set& vectors) {
    const unsigned innermost = loopsOf(vectors) - 1;
    isl::map later = isl::manage(isl_map_universe(isl_space_map_from_set(isl_set_get_space(vectors.get()))));
    for (unsigned loop = 0; loop < innermost; ++loop)
        later = isl::manage(
            isl_map_equate(later.release(), isl_dim_in, static_cast<int>(loop), isl_dim_out, static_cast<int>(loop)));
    later = isl::manage(isl_map_order_lt(later.release(), isl_dim_in, static_cast<int>(innermost), isl_dim_out,
                                         static_cast<int>(innermost)));
    return vectors.apply(later);
}

} // namespace DepGraph
