// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace Kova::Frontends {

/// Runs work on a thread of its own with a stack for deeply nested programs, and waits for it. When the work crashes
/// or overflows even that stack, the process goes on; what the work held is then lost and must not be used. An
/// exception that leaves the work counts as a failure too. One call at a time: signal handlers are the process's.
/// @return false when the work did not reach its end.
[[nodiscard]] bool runGuarded(const std::function<void()>& work);

} // namespace Kova::Frontends
