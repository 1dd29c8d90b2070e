// SPDX-License-Identifier: MIT
#include "environment/core/TypeConvertibleMix.h"

#include "environment/core/Exception.h"
#include "environment/core/Strings.h"

namespace Kova {

void castError(const std::type_info& from, const std::type_info& to) {
    throw RuntimeError("An object of type " + Strings::demangle(from.name()) + " cannot be used as " +
                       Strings::demangle(to.name()) + ".");
}

} // namespace Kova
