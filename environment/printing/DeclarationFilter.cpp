// SPDX-License-Identifier: MIT
#include "environment/printing/DeclarationFilter.h"

#include "environment/tessel/AssignmentExpression.h"
#include "environment/tessel/DeclarationStatement.h"
#include "environment/tessel/OpaqueExpression.h"
#include "environment/tessel/StatementExpression.h"
#include "environment/tessel/SubroutineCallExpression.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/TypeDeclaration.h"
#include "environment/tessel/UnaryExpression.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/VariadicArgumentExpression.h"
#include "environment/tessel/service/Preorder.h"
#include "environment/tessel/types/Type.h"

namespace Kova::Backends {

using namespace Tessel;

namespace {

bool isStep(const UnaryExpression& expression) {
    switch (expression.getOperator()) {
    case UnaryOperator::PreIncrement:
    case UnaryOperator::PreDecrement:
    case UnaryOperator::PostIncrement:
    case UnaryOperator::PostDecrement:
        return true;
    default:
        return false;
    }
}

bool isAction(const TesselBase& node) {
    if (const auto* unary = dynamic_cast<const UnaryExpression*>(&node); unary != nullptr && isStep(*unary))
        return true;
    if (const auto* value = dynamic_cast<const ExpressionBase*>(&node)) {
        const Type* type = value->getType();
        if (type != nullptr && (type->getQualifiers() & Type::Volatile) != 0)
            return true;
    }
    return dynamic_cast<const AssignmentExpression*>(&node) != nullptr ||
           dynamic_cast<const SubroutineCallExpression*>(&node) != nullptr ||
           dynamic_cast<const VariadicArgumentExpression*>(&node) != nullptr ||
           dynamic_cast<const StatementExpression*>(&node) != nullptr ||
           dynamic_cast<const OpaqueExpression*>(&node) != nullptr;
}

/// True when evaluating what a declaration holds may do more than give a value.
bool acts(const DeclarationBase& declaration) {
    // A walk needs a node that can be changed, but changes none.
    for (const TesselBase& node : Service::Preorder(const_cast<DeclarationBase&>(declaration)))
        if (isAction(node))
            return true;
    return false;
}

bool isExtern(const VariableDeclaration& variable) {
    const StorageClass storage = variable.getStorageClass();
    return (storage == StorageClass::Extern || storage == StorageClass::ExternThreadLocal) &&
           variable.getInitializer() == nullptr;
}

} // namespace

bool DeclarationFilter::hidesKindOf(const DeclarationBase& declaration) const {
    if (m_options.hideExternalDeclarations && declaration.isExternal())
        return true;
    if (const auto* subroutine = dynamic_cast<const SubroutineDeclaration*>(&declaration))
        return m_options.hidePrototypes && !subroutine->hasImplementation();
    if (dynamic_cast<const TypeDeclaration*>(&declaration) != nullptr)
        return m_options.hideTypedefs && !acts(declaration);
    if (const auto* variable = dynamic_cast<const VariableDeclaration*>(&declaration)) {
        if (m_options.hideExternalDeclarations && isExtern(*variable))
            return true;
        return m_options.hideVariables && !acts(declaration);
    }
    return false;
}

bool DeclarationFilter::hidesAllIn(const StatementBase& statement) const {
    const auto* declarations = dynamic_cast<const DeclarationStatement*>(&statement);
    if (declarations == nullptr || declarations->getChildCount() == 0)
        return false;
    for (std::size_t i = 0; i < declarations->getChildCount(); ++i) {
        const DeclarationBase* declaration = declarations->getDeclaration(i);
        if (declaration != nullptr && !hidesKindOf(*declaration))
            return false;
    }
    return true;
}

} // namespace Kova::Backends
