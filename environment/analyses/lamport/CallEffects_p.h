// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace Kova::Tessel {
class SubroutineCallExpression;
} // namespace Kova::Tessel

namespace DepGraph {

/// What a call may do to the memory that an argument leads to. All of it may be read.
struct ParameterUse {
    /// The object that the pointer leads to.
    bool writesDirectly = true;
    /// What pointers in that object lead to.
    bool writesBeyond = true;
};
/// As the parameter's declared type promises: nothing is written through a pointer to const.
[[nodiscard]] ParameterUse parameterUseOf(const Kova::Tessel::SubroutineCallExpression& call, std::size_t index);

} // namespace DepGraph
