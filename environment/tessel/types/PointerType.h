// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/types/Type.h"

namespace Kova::Tessel {

class PointerType final : public Type {
public:
    /// @param pointee null when unknown.
    PointerType(const Type* pointee, std::uint8_t qualifiers) : Type(Kind::Pointer, qualifiers), m_pointee(pointee) {}

    [[nodiscard]] const Type* getPointee() const { return m_pointee; }

private:
    const Type* m_pointee;
};

} // namespace Kova::Tessel
