// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace Kova::Tessel {

/// A part of a text, [begin, end) in bytes.
struct TextPlace {
    std::size_t begin = 0;
    std::size_t end = 0;

    [[nodiscard]] bool operator==(const TextPlace& other) const { return begin == other.begin && end == other.end; }
};

} // namespace Kova::Tessel
