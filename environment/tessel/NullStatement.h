// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/StatementBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// A lone semicolon; CONTINUE in Fortran.
class NullStatement final : public Visitable<NullStatement, StatementBase> {};

} // namespace Kova::Tessel
