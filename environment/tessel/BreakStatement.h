// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/StatementBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// Leaves the innermost loop or switch.
class BreakStatement final : public Visitable<BreakStatement, StatementBase> {};

} // namespace Kova::Tessel
