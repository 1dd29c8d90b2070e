// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Kova::Tessel {
class TesselBase;
class Type;
} // namespace Kova::Tessel

namespace Kova::Test {

/// A tree as text that a person can write down from the C source. Expressions are in one line, operator first:
/// `(= ([] a i) (call @f 1))`; `@` marks a subroutine, `#` an enumerator, `_` a part that is left out. Statements and
/// declarations are one line each, what is inside indented by two blanks.
[[nodiscard]] std::string treeText(const Tessel::TesselBase& node);

/// `ptr(const char)`, `array[10](int)`, `fn(int,...)->void`, `struct s`, a typedef's name; `?` for none.
[[nodiscard]] std::string typeText(const Tessel::Type* type);

} // namespace Kova::Test
