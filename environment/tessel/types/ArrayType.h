// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/types/Type.h"

#include <vector>

namespace Kova::Tessel {

class ExpressionBase;

/// One dimension of an array. C counts from 0; Fortran from any bound.
struct ArrayDimension {
    enum class Extent {
        /// `extent` elements.
        Constant,
        /// As `upperBound` says: the number of elements in C, the last index in Fortran.
        Variable,
        /// `[*]` in C, `*` or `:` in Fortran.
        Unspecified
    };

    Extent kind = Extent::Unspecified;
    std::uint64_t extent = 0;
    /// The first index where it is constant.
    std::int64_t lower = 0;
    /// Not owned: children of the node that mentions the type. Null unless the bound is an expression.
    const ExpressionBase* lowerBound = nullptr;
    const ExpressionBase* upperBound = nullptr;

    [[nodiscard]] bool operator==(const ArrayDimension& other) const {
        return kind == other.kind && extent == other.extent && lower == other.lower && lowerBound == other.lowerBound &&
               upperBound == other.upperBound;
    }
};

/// An array. Those of C have one dimension; more are arrays of arrays. Those of Fortran have all theirs in one type.
class ArrayType final : public Type {
public:
    /// @param element null when unknown.
    ArrayType(const Type* element, std::vector<ArrayDimension> dimensions, std::uint8_t qualifiers)
        : Type(Kind::Array, qualifiers),
          m_element(element),
          m_dimensions(std::move(dimensions)) {}

    [[nodiscard]] const Type* getElement() const { return m_element; }
    /// At least one, in the order of the source.
    [[nodiscard]] const std::vector<ArrayDimension>& getDimensions() const { return m_dimensions; }

private:
    const Type* m_element;
    std::vector<ArrayDimension> m_dimensions;
};

} // namespace Kova::Tessel
