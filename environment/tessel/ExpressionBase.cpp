// SPDX-License-Identifier: MIT
#include "environment/tessel/ExpressionBase.h"

#include "environment/tessel/StatementBase.h"

namespace Kova::Tessel {

StatementBase* ExpressionBase::obtainParentStatement() const {
    for (const TesselBase* node = getParent(); node != nullptr; node = node->getParent())
        if (const auto* statement = dynamic_cast<const StatementBase*>(node))
            return const_cast<StatementBase*>(statement); // as TesselBase::findProgramUnit
    return nullptr;
}

} // namespace Kova::Tessel
