// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/BaseVisitor.h"

namespace Kova::Tessel::Service {

/// Visits every node below the one that accepts it, children in program order, parents before children. An override
/// stops the descent at its kind of node unless it calls the base's visit or walkChildren. Its depth of recursion is
/// the tree's; a walk over trees of any depth, or one that needs no kinds, is better written with Preorder.
class DeepWalker : public BaseVisitor {
public:
    using BaseVisitor::visit;
    void visit(TesselBase& node) override { walkChildren(node); }

protected:
    /// Lets each child that is there accept this walker.
    void walkChildren(TesselBase& node);
};

} // namespace Kova::Tessel::Service
