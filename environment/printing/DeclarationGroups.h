// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace Kova::Tessel {
class DeclarationBase;
class TesselBase;
class TypeDeclaration;
} // namespace Kova::Tessel

namespace Kova::Backends {

class DeclarationFilter;

/// Declarations that C writes as one, up to a semicolon: `struct point { int x; } a, *b;`.
struct DeclarationGroup {
    /// What the specifier declares by the way; null when it only names a type.
    const Tessel::TypeDeclaration* definition = nullptr;
    /// Not empty; more than one share their specifier.
    std::vector<Tessel::DeclarationBase*> declarators;
};

/// Where declarations stand decides how they can be written.
enum class DeclarationPlace {
    /// In a file or module: as the source has them, as far as that is known.
    File,
    /// In a structure or union, where a type is declared by the member that uses it.
    Record,
    /// Among statements.
    Statement,
    /// In the header of a loop, where there is one declaration only.
    LoopHeader
};

/// The declarations among a node's children that a filter leaves, as they are written.
[[nodiscard]] std::vector<DeclarationGroup> groupDeclarations(const Tessel::TesselBase& holder, DeclarationPlace place,
                                                              const DeclarationFilter& filter);

} // namespace Kova::Backends
