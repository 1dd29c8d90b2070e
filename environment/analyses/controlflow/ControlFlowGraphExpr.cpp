// SPDX-License-Identifier: MIT
#include "environment/analyses/controlflow/ControlFlowGraphExpr.h"

ControlFlowGraphExpr::ControlFlowGraphExpr() = default;

ControlFlowGraphExpr::~ControlFlowGraphExpr() = default;

ControlFlowGraphExpr::BasicBlock& ControlFlowGraphExpr::append() {
    m_owned.push_back(std::make_unique<BasicBlock>());
    m_blocks.push_back(m_owned.back().get());
    return *m_blocks.back();
}

void ControlFlowGraphExpr::clear() {
    m_blocks.clear();
    m_owned.clear();
}
