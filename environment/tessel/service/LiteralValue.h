// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

namespace Kova::Tessel {
class LiteralExpression;
}

namespace Kova::Tessel::Service {

/// The value of a literal, read from its text where the tree does not hold it: whole numbers of C in any base and with
/// any suffix, single characters with their escapes. None for anything else and for what does not fit.
[[nodiscard]] std::optional<std::int64_t> valueOf(const LiteralExpression& literal);

} // namespace Kova::Tessel::Service
