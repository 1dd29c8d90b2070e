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

/// What the first brackets of an array hold besides what its type says.
struct Brackets {
    /// `static const`, or `*`, which leaves no place for a length; empty for nothing.
    std::string words;
    /// The length is not written, be it known or not.
    bool leaveLengthOut = false;
};

/// The structure, union, enumeration or typedef that a type is made from; null when it is made from another type.
[[nodiscard]] const Tessel::TypeDeclaration* declarationBehind(const Tessel::Type* type);

/// `const struct node`; the whole definition for a structure, union or enumeration without a name; nothing for a type
/// that is not known. All pieces are for the owner.
/// @param definition what the specifier declares by the way, written in place of the type's name; null for nothing.
[[nodiscard]] PieceList specifierPieces(const Tessel::Type* type, Tessel::TesselBase& owner,
                                        const Tessel::TypeDeclaration* definition = nullptr);

/// What a type puts around the declared: `(*` and `)[10]` for a pointer to an array.
/// @param declared a name with what belongs to it, such as a function's parameters; empty where nothing is declared.
/// @param brackets of a type that is an array; other types have none.
[[nodiscard]] PieceList declaratorPieces(const Tessel::Type* type, PieceList declared, Tessel::TesselBase& owner,
                                         const Brackets& brackets = {});

/// Specifier and declarator: `int (*name)[10]`, `int (*)[10]`, `int[10]`.
[[nodiscard]] PieceList declarationPieces(const Tessel::Type* type, PieceList declared, Tessel::TesselBase& owner,
                                          const Brackets& brackets = {});

/// Puts the blank between a specifier and what follows it, unless that is nothing or begins with a bracket.
void joinSpecifier(PieceList& specifier, PieceList&& declarator, Tessel::TesselBase& owner);

} // namespace Kova::Backends::CDeclarator
