// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// Loop nests as the tests describe them: what is generated from, enumerated, printed as C and turned into accesses.
namespace Kova::Tests {

/// constant + the sum of factor * counter + the sum of factor * unknown; shorter vectors go on with zeros.
struct Affine {
    long constant = 0;
    std::vector<long> counters = {};
    std::vector<long> unknowns = {};
};

/// The value for counters and unknowns of the given values.
inline long evaluate(const Affine& affine, const std::vector<long>& counters, const std::vector<long>& unknowns) {
    long value = affine.constant;
    for (std::size_t i = 0; i < affine.counters.size(); ++i)
        value += affine.counters[i] * counters[i];
    for (std::size_t i = 0; i < affine.unknowns.size(); ++i)
        value += affine.unknowns[i] * unknowns[i];
    return value;
}

/// value >= 0, or value mod modulus = 0 when there is a modulus.
struct NestCondition {
    Affine value;
    long modulus = 0;
};

/// A name in the text: `A[...]`. Elements of arrays of different numbers are different.
struct NestOccurrence {
    int array = 0;
    std::vector<Affine> subscripts;
};

/// if (conditions) target = reads[0] + reads[1] + ...; or `target += ...` when it is compound.
struct NestStatement {
    std::vector<NestCondition> conditions;
    NestOccurrence target;
    bool compound = false;
    std::vector<NestOccurrence> reads;
};

struct NestItem;

/// for (counter = first; counter <= limit; counter += step), with >= for a negative step.
struct NestLoop {
    Affine first;
    Affine limit;
    long step = 1;
    std::vector<NestItem> body;
};

/// One of the two.
struct NestItem {
    std::unique_ptr<NestStatement> statement;
    std::unique_ptr<NestLoop> loop;
};

using Nest = std::vector<NestItem>;

/// Unknowns are called n, m, k, counters by their depth.
inline std::string nameUnknown(std::size_t unknown) {
    return std::string(1, "nmk"[unknown]);
}
inline std::string nameCounter(std::size_t depth) {
    return "i" + std::to_string(depth);
}
inline std::string nameArray(int array) {
    return std::string(1, static_cast<char>('A' + array));
}

} // namespace Kova::Tests
