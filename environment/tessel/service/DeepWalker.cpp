// SPDX-License-Identifier: MIT
#include "environment/tessel/service/DeepWalker.h"

#include "environment/tessel/TesselBase.h"

namespace Kova::Tessel::Service {

void DeepWalker::walkChildren(TesselBase& node) {
    for (std::size_t i = 0; i < node.getChildCount(); ++i)
        if (TesselBase* child = node.getChild(i))
            child->accept(*this);
}

} // namespace Kova::Tessel::Service
