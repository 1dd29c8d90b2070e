// SPDX-License-Identifier: MIT
#pragma once

#include <clang/AST/ASTFwd.h>

#include <string>

namespace Kova::Frontends {

/// `#pragma pack` as attributes: what it does to a structure must not depend on where the structure is printed. A
/// bit-field becomes packed, for which no attribute says that it stays inside units of the chosen size.
/// @return empty without the pragma, and where nothing would be aligned less.
[[nodiscard]] std::string packingOf(const clang::FieldDecl& field);
/// What the structure itself needs besides its fields.
[[nodiscard]] std::string packingOf(const clang::RecordDecl& record);

} // namespace Kova::Frontends
