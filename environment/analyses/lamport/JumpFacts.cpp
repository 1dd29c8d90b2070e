// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/JumpFacts_p.h"
#include "environment/analyses/lamport/TreeFacts_p.h"
#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/BreakStatement.h"
#include "environment/tessel/CaseStatement.h"
#include "environment/tessel/GotoStatement.h"
#include "environment/tessel/LabelStatement.h"
#include "environment/tessel/LoopStatement.h"
#include "environment/tessel/OpaqueStatement.h"
#include "environment/tessel/ReturnStatement.h"
#include "environment/tessel/SubroutineCallExpression.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/SwitchStatement.h"
#include "environment/tessel/service/Preorder.h"

namespace DepGraph {

using namespace Kova::Tessel;

JumpFacts::JumpFacts(BlockStatement& block, const BlockFacts& facts) : m_block(block), m_facts(facts) {
    for (TesselBase& node : Service::Preorder(block))
        readInside(node);
    readEntries(block);
}

void JumpFacts::readInside(TesselBase& node) {
    if (const auto* jump = dynamic_cast<const GotoStatement*>(&node)) {
        readGoto(*jump);
    } else if (const auto* label = dynamic_cast<const CaseStatement*>(&node)) {
        readCase(*label);
    } else if (dynamic_cast<const BreakStatement*>(&node) != nullptr) {
        readBreak(node);
    } else if (dynamic_cast<const ReturnStatement*>(&node) != nullptr) {
        leaveLoops(node, nullptr);
    } else if (const auto* opaque = dynamic_cast<const OpaqueStatement*>(&node)) {
        // Assembly may jump.
        if (opaque->getText().find("goto") != std::string::npos)
            disorder(node);
    } else if (dynamic_cast<const LabelStatement*>(&node) != nullptr) {
        m_hasLabels = true;
    } else if (const auto* call = dynamic_cast<const SubroutineCallExpression*>(&node)) {
        if (call->getSubroutine() != nullptr && call->getSubroutine()->isNoReturn())
            leaveLoops(node, nullptr);
    }
}

bool JumpFacts::isInBlock(const TesselBase& node) const {
    return isInside(node, &m_block);
}

std::size_t JumpFacts::countLoopsAround(const TesselBase& node) const {
    std::size_t count = 0;
    for (const TesselBase* around = node.getParent(); around != nullptr && around != &m_block;
         around = around->getParent())
        count += dynamic_cast<const LoopStatement*>(around) != nullptr ? 1 : 0;
    return count;
}

void JumpFacts::readGoto(const GotoStatement& jump) {
    const LabelStatement* label = jump.getLabel();
    if (label == nullptr) {
        disorder(jump);
    } else if (!isInBlock(*label)) {
        leaveLoops(jump, nullptr);
    } else if (m_facts.getNumber(*label) < m_facts.getNumber(jump)) {
        disorder(jump);
    } else {
        for (const TesselBase* around = label->getParent(); around != &m_block; around = around->getParent())
            if (dynamic_cast<const LoopStatement*>(around) != nullptr && !isInside(jump, around))
                disorder(jump);
        leaveLoops(jump, label);
    }
}

void JumpFacts::readCase(const CaseStatement& label) {
    for (const TesselBase* around = label.getParent(); around != nullptr && around != &m_block;
         around = around->getParent()) {
        if (dynamic_cast<const SwitchStatement*>(around) != nullptr)
            return;
        if (dynamic_cast<const LoopStatement*>(around) != nullptr) {
            disorder(label);
            return;
        }
    }
    if (m_entry == nullptr)
        m_entry = &label;
}

void JumpFacts::readBreak(const TesselBase& jump) {
    for (const TesselBase* around = jump.getParent(); around != nullptr && around != &m_block;
         around = around->getParent()) {
        if (dynamic_cast<const SwitchStatement*>(around) != nullptr)
            return;
        if (const auto* loop = dynamic_cast<const LoopStatement*>(around)) {
            m_exits.try_emplace(loop, &jump);
            return;
        }
    }
}

void JumpFacts::leaveLoops(const TesselBase& jump, const TesselBase* target) {
    for (const TesselBase* around = jump.getParent(); around != nullptr && around != &m_block;
         around = around->getParent()) {
        const auto* loop = dynamic_cast<const LoopStatement*>(around);
        if (loop == nullptr || (target != nullptr && isInside(*target, loop)))
            continue;
        m_exits.try_emplace(loop, &jump);
        m_escapes.try_emplace(loop, &jump);
    }
}

void JumpFacts::readEntries(BlockStatement& block) {
    BlockStatement* root = block.getRootBlock();
    if (root == nullptr || root == &block)
        return;
    for (TesselBase& node : Service::Preorder(*root)) {
        const auto* jump = dynamic_cast<const GotoStatement*>(&node);
        if (jump == nullptr || isInBlock(*jump))
            continue;
        const LabelStatement* label = jump->getLabel();
        const bool mayEnter = label != nullptr ? isInBlock(*label) : m_hasLabels;
        if (!mayEnter)
            continue;
        if (label == nullptr || countLoopsAround(*label) != 0)
            disorder(*jump);
        if (m_entry == nullptr)
            m_entry = jump;
    }
}

const TesselBase* JumpFacts::findExit(const LoopStatement& loop) const {
    const auto found = m_exits.find(&loop);
    return found != m_exits.end() ? found->second : nullptr;
}

const TesselBase* JumpFacts::findEscape(const LoopStatement& loop) const {
    const auto found = m_escapes.find(&loop);
    return found != m_escapes.end() ? found->second : nullptr;
}

} // namespace DepGraph
