// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/service/DeepWalker.h"
#include "visualization/VisualizationExport.h"

#include <vector>

namespace Kova::GUI {

/// Gathers the subroutines below the node that accepts it, in program order; those inside of others are not looked for.
class VISUALIZATION_EXPORT SubroutineCollector : public Tessel::Service::DeepWalker {
public:
    using DeepWalker::visit;
    void visit(Tessel::SubroutineDeclaration& node) override { m_subroutines.push_back(&node); }

    [[nodiscard]] const std::vector<Tessel::SubroutineDeclaration*>& getSubroutines() const { return m_subroutines; }

private:
    std::vector<Tessel::SubroutineDeclaration*> m_subroutines;
};

} // namespace Kova::GUI
