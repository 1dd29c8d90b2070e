// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/StatementBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// Goes on with the next iteration of the innermost loop.
class ContinueStatement final : public Visitable<ContinueStatement, StatementBase> {};

} // namespace Kova::Tessel
