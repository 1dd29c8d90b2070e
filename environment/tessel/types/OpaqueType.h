// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/types/Type.h"

#include <string>
#include <utility>

namespace Kova::Tessel {

/// A type that has no class of its own, such as a vector type: prints as its text.
class OpaqueType final : public Type {
public:
    OpaqueType(std::string text, std::uint8_t qualifiers) : Type(Kind::Opaque, qualifiers), m_text(std::move(text)) {}

    [[nodiscard]] const std::string& getText() const { return m_text; }

private:
    std::string m_text;
};

} // namespace Kova::Tessel
