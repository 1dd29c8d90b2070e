// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/types/Type.h"

#include <utility>
#include <vector>

namespace Kova::Tessel {

class FunctionType final : public Type {
public:
    enum class Parameters {
        /// As listed.
        Fixed,
        /// As listed, and any after them (`...`).
        Variadic,
        /// Nothing is known: an old-style declaration without a prototype.
        Unspecified
    };

    /// @param result null when unknown; a void type, or null for a Fortran subroutine.
    FunctionType(const Type* result, std::vector<const Type*> parameters, Parameters kind)
        : Type(Kind::Function, NoQualifier),
          m_result(result),
          m_parameters(std::move(parameters)),
          m_kind(kind) {}

    [[nodiscard]] const Type* getResult() const { return m_result; }
    [[nodiscard]] const std::vector<const Type*>& getParameters() const { return m_parameters; }
    [[nodiscard]] Parameters getParametersKind() const { return m_kind; }

private:
    const Type* m_result;
    std::vector<const Type*> m_parameters;
    Parameters m_kind;
};

} // namespace Kova::Tessel
