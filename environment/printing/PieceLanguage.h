// SPDX-License-Identifier: MIT
#pragma once

#include "environment/printing/Precedence.h"

namespace Kova::Tessel {
class TesselBase;
class Type;
} // namespace Kova::Tessel

namespace Kova::Backends {

class PieceList;

/// Knows how a language writes a node, one level deep.
class PieceLanguage {
public:
    virtual ~PieceLanguage() = default;

    /// Appends what the node prints as. @return how tightly that holds together.
    virtual Precedence expand(Tessel::TesselBase& node, PieceList& out) = 0;
    /// Appends the type as it stands where no name is declared, as in a cast. @param owner what it is printed for.
    virtual void expandType(const Tessel::Type& type, Tessel::TesselBase& owner, PieceList& out) = 0;

protected:
    PieceLanguage() = default;
    PieceLanguage(const PieceLanguage&) = default;
    PieceLanguage& operator=(const PieceLanguage&) = default;
};

} // namespace Kova::Backends
