// SPDX-License-Identifier: MIT
#include "environment/tessel/service/Evaluation.h"

#include "environment/tessel/DesignatedInitializerExpression.h"
#include "environment/tessel/GenericSelectionExpression.h"
#include "environment/tessel/TypeQueryExpression.h"
#include "environment/tessel/TypedefDeclaration.h"
#include "environment/tessel/service/TypeFacts.h"
#include "environment/tessel/types/ArrayType.h"

#include <algorithm>

namespace Kova::Tessel::Service {

namespace {

bool isVariableLength(const Type* type) {
    for (const ArrayType* array = asArray(type); array != nullptr; array = asArray(array->getElement()))
        for (const ArrayDimension& dimension : array->getDimensions())
            if (dimension.kind == ArrayDimension::Extent::Variable)
                return true;
    return false;
}

} // namespace

bool isEvaluated(const TesselBase& node) {
    const TesselBase* parent = node.getParent();
    if (const auto* query = dynamic_cast<const TypeQueryExpression*>(parent)) {
        if (query->getQuery() == TypeQueryExpression::Query::AlignOf)
            return false;
        return &node != query->getOperand() || isVariableLength(query->getOperand()->getType());
    }
    if (const auto* selection = dynamic_cast<const GenericSelectionExpression*>(parent))
        return node.getIndexInParent() == selection->getChosen() + 1;
    if (const auto* designated = dynamic_cast<const DesignatedInitializerExpression*>(parent))
        return &node == designated->getValue();
    return true;
}

} // namespace Kova::Tessel::Service
