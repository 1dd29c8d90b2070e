// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/BaseVisitor.h"

namespace Kova::Tessel {

/// Gives the concrete node class Derived its visitor entry.
template <class Derived, class Base>
class Visitable : public Base {
public:
    using Base::Base;

    void accept(BaseVisitor& visitor) override { visitor.visit(static_cast<Derived&>(*this)); }
};

} // namespace Kova::Tessel
