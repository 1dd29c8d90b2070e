// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/TesselBase.h"

namespace Kova::Tessel {

class StatementBase;
class Type;

/// A value computed by the program.
class ExpressionBase : public TesselBase {
public:
    /// The innermost statement that holds this expression; null when there is none, as in a file-level initializer.
    [[nodiscard]] StatementBase* obtainParentStatement() const;

    /// The value's type; null when it is not known. Owned by the ProgramUnit.
    [[nodiscard]] const Type* getType() const { return m_type; }
    void setType(const Type* type) { m_type = type; }

protected:
    ExpressionBase() = default;

private:
    const Type* m_type = nullptr;
};

using ExpressionPtr = std::unique_ptr<ExpressionBase>;

} // namespace Kova::Tessel
