// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace Kova {

/// Where analyses and views write what a person should know, line by line.
class Console {
public:
    enum Level : int {
        Debug = 0,
        Info = 1,
        /// Something was interrupted, for instance because there is nothing to show.
        Warning = 2,
        /// An auxiliary window or service is not available.
        AuxUnavailable = 3,
        /// Something failed.
        Error = 4
    };

    virtual ~Console() = default;

    /// Writes one line. Any level is accepted; text carries no line end.
    virtual void log(int level, const std::string& text) = 0;

protected:
    Console() = default;
    Console(const Console&) = default;
    Console& operator=(const Console&) = default;
};

/// The console of a tag and a flag, made at its first use; it lives until the factory is replaced or the process ends.
/// @param flag callers pass true; what false means is up to the factory, the default makes no difference.
Console& getOutputConsole(const std::string& tag, bool flag);

/// Gets what getOutputConsole() was called with.
using ConsoleFactory = std::function<std::unique_ptr<Console>(const std::string& tag, bool flag)>;

/// Replaces what makes consoles, and forgets those made so far: references to them end here. An empty factory
/// brings back the default, which writes `tag: text` lines to standard error.
void setConsoleFactory(ConsoleFactory factory);

} // namespace Kova
