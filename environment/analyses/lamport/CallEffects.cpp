// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/CallEffects_p.h"
#include "environment/analyses/lamport/ExpressionWalker_p.h"
#include "environment/analyses/lamport/TreeFacts_p.h"
#include "environment/tessel/service/TypeFacts.h"
#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/SubroutineCallExpression.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/SubscriptExpression.h"
#include "environment/tessel/UnaryExpression.h"
#include "environment/tessel/VariableReference.h"
#include "environment/tessel/service/Preorder.h"
#include "environment/tessel/service/SubroutineIndex.h"
#include "environment/tessel/types/FunctionType.h"

#include <algorithm>
#include <cctype>

namespace DepGraph {

using namespace Kova::Tessel;
using namespace Kova::Tessel::Service;

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

bool takesFunctions(const SubroutineCallExpression& call) {
    const FunctionType* type = functionTypeOf(call);
    if (type == nullptr)
        return true;
    return std::any_of(type->getParameters().begin(), type->getParameters().end(),
                       [](const Type* parameter) { return isFunction(parameter) || isFunction(elementOf(parameter)); });
}

bool hasAttribute(const SubroutineDeclaration& subroutine, const std::string& name) {
    const std::string& text = subroutine.getAttributes();
    const auto isPart = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; };
    for (std::size_t at = text.find(name); at != std::string::npos; at = text.find(name, at + 1)) {
        const std::size_t end = at + name.size();
        if ((at == 0 || !isPart(text[at - 1])) && (end == text.size() || !isPart(text[end])))
            return true;
    }
    return false;
}

/// A variable that lives as long as the program.
bool isGlobal(const VariableDeclaration& variable) {
    return !variable.isParameter() && !isAutomatic(variable);
}

bool isNamedEverywhere(const VariableDeclaration& variable) {
    return isGlobal(variable) && variable.getStorageClass() != StorageClass::Static &&
           variable.getStorageClass() != StorageClass::StaticThreadLocal;
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

/// Notes what a called body writes.
class CallEffects::BodyReader final : public AccessSink {
public:
    explicit BodyReader(CallEffects& effects) : m_effects(effects), m_walker(*this, effects.m_isFortran) {}

    void read(const Place&) override {}
    void followPointer(const Place&) override {}
    void enterIf(const ExpressionBase&, bool) override {}
    void leaveIf() override {}
    void call(const SubroutineCallExpression& call) override { m_effects.add(call); }
    void enterBlock(BlockStatement& block) override { walk(block); }
    void write(const Place& place) override {
        if (place.memory.pointee)
            m_effects.m_writesThroughPointers = true;
        else
            m_effects.addWritten(place.leaf->getVariable());
    }
    void walk(BlockStatement& block) {
        forEachRootExpression(block, [this](ExpressionBase& expression) { m_walker.walk(&expression); });
    }

private:
    CallEffects& m_effects;
    ExpressionWalker m_walker;
};

CallEffects::CallEffects(BlockStatement& block) : m_block(block), m_isFortran(isFortranCode(block)) {
    BlockStatement* root = block.getRootBlock();
    findAddressesTaken(root != nullptr ? *root : block);
}

CallEffects::~CallEffects() = default;

void CallEffects::addWritten(const VariableDeclaration& variable) {
    if (!isGlobal(variable))
        return;
    m_written.insert(&variable);
    if (isNamedEverywhere(variable))
        m_writtenNames.insert(variable.getName());
}

SubroutineDeclaration* CallEffects::findBody(const SubroutineDeclaration& subroutine) {
    const ProgramUnit* program = m_block.findProgramUnit();
    if (program == nullptr)
        return subroutine.hasImplementation() ? const_cast<SubroutineDeclaration*>(&subroutine) : nullptr;
    if (m_index == nullptr)
        m_index = std::make_unique<Service::SubroutineIndex>(*program);
    return m_index->findImplementation(subroutine);
}

void CallEffects::add(const SubroutineCallExpression& call) {
    const SubroutineDeclaration* subroutine = call.getSubroutine();
    SubroutineDeclaration* body = subroutine != nullptr ? findBody(*subroutine) : nullptr;
    if (body != nullptr) {
        if (m_seen.insert(body).second)
            m_pending.push_back(body);
    } else if (subroutine == nullptr || (!hasAttribute(*subroutine, "pure") && !hasAttribute(*subroutine, "const") &&
                                         (!subroutine->isExternal() || takesFunctions(call)))) {
        m_writesAnything = true;
    }
    readBodies();
}

/// One after the other, however deep they call each other.
void CallEffects::readBodies() {
    if (m_isReading)
        return;
    m_isReading = true;
    while (!m_pending.empty()) {
        BlockStatement& body = *m_pending.back()->getBody();
        m_pending.pop_back();
        BodyReader(*this).walk(body);
    }
    m_isReading = false;
}

void CallEffects::findAddressesTaken(BlockStatement& root) {
    const PlaceReader places(m_isFortran);
    const auto take = [&](const ExpressionBase& lvalue) {
        for (const Place& place : places.readLvalue(lvalue))
            if (!place.memory.pointee)
                m_addressTaken.insert(place.memory.variable);
    };
    for (TesselBase& node : Service::Preorder(root)) {
        const auto* unary = dynamic_cast<const UnaryExpression*>(&node);
        if (unary != nullptr && unary->getOperator() == UnaryOperator::AddressOf && unary->getOperand() != nullptr)
            take(*unary->getOperand());
        // An array outside of a subscript is the address of its first element.
        const auto* array = dynamic_cast<const ExpressionBase*>(&node);
        if (array != nullptr && PlaceReader::isLvalueForm(*array) && places.isArrayValue(*array) &&
            dynamic_cast<const SubscriptExpression*>(array->getParent()) == nullptr)
            take(*array);
    }
}

bool CallEffects::isReachable(const VariableDeclaration& variable) const {
    return isGlobal(variable) || m_addressTaken.count(&variable) != 0;
}

bool CallEffects::mayWrite(const VariableDeclaration& variable) const {
    if (m_written.count(&variable) != 0 || (isNamedEverywhere(variable) && m_writtenNames.count(variable.getName())))
        return true;
    if (m_writesThroughPointers && m_addressTaken.count(&variable) != 0)
        return true;
    return m_writesAnything && isReachable(variable);
}

} // namespace DepGraph
