// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Kova::Tessel {
class DeclarationBase;
class Type;
} // namespace Kova::Tessel

namespace Kova::Backends::DeclarationHead {

/// The type of a declaration that declares names of one: a variable, a field, a typedef. Null for any other.
[[nodiscard]] const Tessel::Type* typeOf(const Tessel::DeclarationBase& declaration);

/// What C writes before the type, with a blank behind it: attributes, which C takes there for variables, types and
/// functions alike, and storage class.
[[nodiscard]] std::string wordsBefore(const Tessel::DeclarationBase& declaration);

/// What GNU C takes behind the declared name only, with a blank before it: `asm ("name")`, and the attributes of a
/// parameter that an old definition declares between its head and its body.
[[nodiscard]] std::string wordsBehind(const Tessel::DeclarationBase& declaration);

/// Neighbours that differ in their declarators only can share what stands before these.
[[nodiscard]] bool canShare(const Tessel::DeclarationBase& a, const Tessel::DeclarationBase& b);

/// False for what brings its own end: a function with its body, a module, source text.
[[nodiscard]] bool endsWithSemicolon(const Tessel::DeclarationBase& declaration);

} // namespace Kova::Backends::DeclarationHead
