// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/DeclarationBase.h"

namespace Kova::Tessel {

/// Gives a type a name or a shape.
class TypeDeclaration : public DeclarationBase {
protected:
    using DeclarationBase::DeclarationBase;
};

} // namespace Kova::Tessel
