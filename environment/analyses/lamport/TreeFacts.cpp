// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/TreeFacts_p.h"
#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/TranslationUnit.h"
#include "environment/tessel/service/Preorder.h"

namespace DepGraph {

using namespace Kova::Tessel;

void forEachRootExpression(BlockStatement& block, const std::function<void(ExpressionBase&)>& use) {
    const Service::Preorder nodes(block);
    for (auto node = nodes.begin(); node != nodes.end();) {
        if (auto* expression = dynamic_cast<ExpressionBase*>(&*node)) {
            use(*expression);
            node.skipChildren();
        } else {
            ++node;
        }
    }
}

bool isInside(const TesselBase& node, const TesselBase* ancestor) {
    for (const TesselBase* around = &node; around != nullptr; around = around->getParent())
        if (around == ancestor)
            return true;
    return false;
}

bool isFortranCode(const BlockStatement& block) {
    const TranslationUnit* unit = block.findTranslationUnit();
    return unit != nullptr && unit->getSourceLanguage() == LANG_FORTRAN;
}

} // namespace DepGraph
