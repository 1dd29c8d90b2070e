// SPDX-License-Identifier: MIT
#pragma once

#include <clang/AST/ASTFwd.h>

namespace Kova::Frontends {

/// What no field of a structure or union is aligned to more bytes than, as `#pragma pack` says where it is defined.
/// @return 0 without the pragma, and where no field would be aligned to more.
[[nodiscard]] unsigned packingOf(const clang::RecordDecl& record);

} // namespace Kova::Frontends
