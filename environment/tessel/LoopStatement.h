// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/BlockStatement.h"

namespace Kova::Tessel {

/// What all loops have in common: a body.
class LoopStatement : public StatementBase {
public:
    [[nodiscard]] virtual BlockStatement* getBody() const = 0;

protected:
    LoopStatement() = default;
};

} // namespace Kova::Tessel
