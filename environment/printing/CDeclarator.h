// SPDX-License-Identifier: MIT
#pragma once

#include "environment/printing/PieceList.h"

#include <string>

namespace Kova::Tessel {
class TypeDeclaration;
}

namespace Kova::Backends::CDeclarator {

/// What stands before the declarators of a declaration: a C type without its pointers, arrays and functions, and what
/// qualifies it. Declarations with equal specifiers can share one.
struct Specifier {
    /// Null when unknown.
    const Tessel::Type* base;
    unsigned qualifiers;

    [[nodiscard]] bool operator==(const Specifier& other) const {
        return base == other.base && qualifiers == other.qualifiers;
    }
};

[[nodiscard]] Specifier specifierOf(const Tessel::Type* type);

/// The structure, union, enumeration or typedef that a type is made from; null when it is made from another type.
[[nodiscard]] const Tessel::TypeDeclaration* declarationBehind(const Tessel::Type* type);

/// `const struct node`; the whole definition for a structure, union or enumeration without a name; nothing for a type
/// that is not known. All pieces are for the owner.
/// @param definition what the specifier declares by the way, written in place of the type's name; null for nothing.
[[nodiscard]] PieceList specifierPieces(const Tessel::Type* type, Tessel::TesselBase& owner,
                                        const Tessel::TypeDeclaration* definition = nullptr);

/// What a type puts around the declared: `(*` and `)[10]` for a pointer to an array.
/// @param declared a name with what belongs to it, such as a function's parameters; empty where nothing is declared.
[[nodiscard]] PieceList declaratorPieces(const Tessel::Type* type, PieceList declared, Tessel::TesselBase& owner);

/// Specifier and declarator: `int (*name)[10]`, `int (*)[10]`, `int[10]`.
[[nodiscard]] PieceList declarationPieces(const Tessel::Type* type, PieceList declared, Tessel::TesselBase& owner);

/// Puts the blank between a specifier and what follows it, unless that is nothing or begins with a bracket.
void joinSpecifier(PieceList& specifier, PieceList&& declarator, Tessel::TesselBase& owner);

} // namespace Kova::Backends::CDeclarator
