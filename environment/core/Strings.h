// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Kova::Strings {

/// A text formatted as by printf.
/// @throws RuntimeError when the C library rejects the format.
[[nodiscard]] std::string format(const char* fmt, ...) __attribute__((format(printf, 1, 2)));

/// Reads the decimal integer that text starts with: an optional sign, then digits; no leading blanks. What follows
/// the digits is ignored.
/// @return true when a number that fits an int was read; otherwise value is left as it was. A null text holds none.
bool fetch(const char* text, int& value);

/// The readable form of a mangled C++ type name, or the name itself where there is none.
[[nodiscard]] std::string demangle(const char* name);

} // namespace Kova::Strings
