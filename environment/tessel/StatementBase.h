// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/TesselBase.h"

namespace Kova::Tessel {

class BlockStatement;

/// An action of the program, or a label on the way.
class StatementBase : public TesselBase {
public:
    /// The outermost block that holds this statement, itself included: a subroutine's body for the statements of a
    /// subroutine. Null for a statement outside every block.
    [[nodiscard]] BlockStatement* getRootBlock() const;

protected:
    StatementBase() = default;
};

using StatementPtr = std::unique_ptr<StatementBase>;

} // namespace Kova::Tessel
