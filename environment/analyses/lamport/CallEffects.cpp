// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/CallEffects_p.h"
#include "environment/analyses/lamport/TypeFacts_p.h"
#include "environment/tessel/SubroutineCallExpression.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/types/FunctionType.h"

namespace DepGraph {

using namespace Kova::Tessel;

namespace {

const FunctionType* functionTypeOf(const SubroutineCallExpression& call) {
    if (const SubroutineDeclaration* subroutine = call.getSubroutine())
        return dynamic_cast<const FunctionType*>(behindNames(subroutine->getType()));
    if (call.getCallee() == nullptr)
        return nullptr;
    const Type* type = behindNames(call.getCallee()->getType());
    if (asPointer(type) != nullptr)
        type = behindNames(elementOf(type));
    return dynamic_cast<const FunctionType*>(type);
}

} // namespace

ParameterUse parameterUseOf(const SubroutineCallExpression& call, std::size_t index) {
    const FunctionType* function = functionTypeOf(call);
    if (function == nullptr || function->getParametersKind() == FunctionType::Parameters::Unspecified ||
        index >= function->getParameters().size())
        return {};
    const Type* target = elementOf(function->getParameters()[index]);
    const bool isConst = hasQualifier(target, Type::Const);
    const bool isConstBeyond = isConst && asPointer(target) != nullptr && hasQualifier(elementOf(target), Type::Const);
    return {!isConst, !isConstBeyond};
}

} // namespace DepGraph
