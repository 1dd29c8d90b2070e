// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <vector>

namespace Kova::Test {

/// Numbers that a seed decides, the same on every machine: no distribution of the standard library is used.
class Random {
public:
    explicit Random(unsigned seed) : m_engine(seed) {}

    /// @return from the half-open range [0, limit). @param limit positive.
    unsigned below(unsigned limit) { return static_cast<unsigned>(m_engine()) % limit; }
    /// True once in so many times.
    bool once(unsigned in) { return below(in) == 0; }
    /// @param choices not empty.
    const std::string& pick(const std::vector<std::string>& choices) {
        return choices[below(static_cast<unsigned>(choices.size()))];
    }

private:
    std::mt19937 m_engine;
};

} // namespace Kova::Test
