// SPDX-License-Identifier: MIT
#include "environment/tessel/StatementBase.h"

#include "environment/tessel/BlockStatement.h"

namespace Kova::Tessel {

BlockStatement* StatementBase::getRootBlock() const {
    const BlockStatement* outermost = nullptr;
    for (const TesselBase* node = this; node != nullptr; node = node->getParent())
        if (const auto* block = dynamic_cast<const BlockStatement*>(node))
            outermost = block;
    return const_cast<BlockStatement*>(outermost); // as TesselBase::findProgramUnit
}

} // namespace Kova::Tessel
