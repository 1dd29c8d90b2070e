// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/CallEffects_p.h"
#include "environment/analyses/lamport/ExpressionWalker_p.h"
#include "environment/tessel/service/TypeFacts.h"
#include "environment/tessel/AssignmentExpression.h"
#include "environment/tessel/BinaryExpression.h"
#include "environment/tessel/CastExpression.h"
#include "environment/tessel/ConditionalExpression.h"
#include "environment/tessel/GenericSelectionExpression.h"
#include "environment/tessel/MemberExpression.h"
#include "environment/tessel/OpaqueExpression.h"
#include "environment/tessel/StatementExpression.h"
#include "environment/tessel/SubroutineCallExpression.h"
#include "environment/tessel/SubscriptExpression.h"
#include "environment/tessel/TypeQueryExpression.h"
#include "environment/tessel/UnaryExpression.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/VariableReference.h"
#include "environment/tessel/VariadicArgumentExpression.h"
#include "environment/tessel/service/Preorder.h"
#include "environment/tessel/types/ArrayType.h"

namespace DepGraph {

using namespace Kova::Tessel;
using namespace Kova::Tessel::Service;

namespace {

/// Deeper expressions than any person writes are not evaluated in order: the stack is finite.
constexpr int deepestNesting = 400;

bool isShortCircuit(const BinaryExpression& binary) {
    return binary.getOperator() == BinaryOperator::LogicalAnd || binary.getOperator() == BinaryOperator::LogicalOr;
}

bool isIncrement(UnaryOperator operation) {
    return operation == UnaryOperator::PreIncrement || operation == UnaryOperator::PreDecrement ||
           operation == UnaryOperator::PostIncrement || operation == UnaryOperator::PostDecrement;
}

} // namespace

void ExpressionWalker::walk(ExpressionBase* expression) {
    if (expression == nullptr)
        return;
    if (m_depth == deepestNesting) {
        walkUnknown(*expression);
        return;
    }
    ++m_depth;
    expression->accept(*this);
    --m_depth;
}

void ExpressionWalker::update(ExpressionBase& lvalue) {
    locate(lvalue);
    readPlaces(lvalue);
    writePlaces(lvalue);
}

void ExpressionWalker::walkUnknown(TesselBase& node) {
    for (TesselBase& inner : Service::Preorder(node)) {
        auto* leaf = dynamic_cast<VariableReference*>(&inner);
        if (leaf == nullptr)
            continue;
        Place place = m_places.readLvalue(*leaf).front();
        place.isWhole = true;
        place.assumption = {Doubt::Opaque, &node};
        m_sink.read(place);
        m_sink.write(place);
        if (m_places.isArrayValue(*leaf) || !holdsPointer(place.type))
            continue;
        place.memory.pointee = true;
        m_sink.read(place);
        m_sink.write(place);
    }
}

// Whatever has no visit of its own evaluates its parts and no more.
void ExpressionWalker::visit(TesselBase& node) {
    for (std::size_t i = 0; i < node.getChildCount(); ++i)
        if (auto* operand = dynamic_cast<ExpressionBase*>(node.getChild(i)))
            walk(operand);
}

void ExpressionWalker::visit(VariableReference& node) {
    readLvalue(node);
}

void ExpressionWalker::visit(SubscriptExpression& node) {
    readLvalue(node);
}

void ExpressionWalker::visit(MemberExpression& node) {
    readLvalue(node);
}

void ExpressionWalker::readLvalue(ExpressionBase& lvalue) {
    locate(lvalue);
    if (!m_places.isArrayValue(lvalue))
        readPlaces(lvalue);
}

void ExpressionWalker::readPlaces(const ExpressionBase& lvalue) {
    for (const Place& place : m_places.readLvalue(lvalue))
        m_sink.read(place);
}

void ExpressionWalker::writePlaces(const ExpressionBase& lvalue) {
    for (const Place& place : m_places.readLvalue(lvalue))
        m_sink.write(place);
}

void ExpressionWalker::locate(ExpressionBase& lvalue) {
    if (m_depth == deepestNesting) {
        walkUnknown(lvalue);
        return;
    }
    ++m_depth;
    auto* member = dynamic_cast<MemberExpression*>(&lvalue);
    auto* unary = dynamic_cast<UnaryExpression*>(&lvalue);
    if (auto* element = dynamic_cast<SubscriptExpression*>(&lvalue))
        locateElement(*element);
    else if (member != nullptr && member->getBase() != nullptr)
        member->getAccess() == MemberExpression::Access::Direct ? locate(*member->getBase())
                                                                : locateBehind(*member->getBase());
    else if (unary != nullptr && unary->getOperator() == UnaryOperator::Dereference && unary->getOperand() != nullptr)
        locateBehind(*unary->getOperand());
    else if (!PlaceReader::isLvalueForm(lvalue))
        walk(&lvalue);
    --m_depth;
}

void ExpressionWalker::locateElement(SubscriptExpression& element) {
    if (m_places.isSwapped(element)) {
        walk(element.getBase());
        locateBehind(*element.getIndex());
        return;
    }
    if (element.getBase() != nullptr)
        m_isFortran ? locate(*element.getBase()) : locateBehind(*element.getBase());
    for (std::size_t i = 0; i < element.getIndexCount(); ++i)
        walk(element.getIndex(i));
}

void ExpressionWalker::locateBehind(ExpressionBase& pointer) {
    if (m_depth == deepestNesting) {
        walkUnknown(pointer);
        return;
    }
    ++m_depth;
    if (PlaceReader::isLvalueForm(pointer)) {
        locate(pointer);
        if (!m_places.isArrayValue(pointer))
            for (const Place& place : m_places.readLvalue(pointer))
                m_sink.followPointer(place);
    } else {
        locateBehindOther(pointer);
    }
    --m_depth;
}

void ExpressionWalker::locateBehindOther(ExpressionBase& pointer) {
    if (auto* binary = dynamic_cast<BinaryExpression*>(&pointer)) {
        const ExpressionBase* base =
            binary->getOperator() == BinaryOperator::Comma ? binary->getRight() : m_places.pointerOf(*binary);
        for (ExpressionBase* operand : {binary->getLeft(), binary->getRight()})
            operand != nullptr&& operand == base ? locateBehind(*operand) : walk(operand);
        return;
    }
    if (auto* cast = dynamic_cast<CastExpression*>(&pointer);
        cast != nullptr && cast->getOperand() != nullptr && m_places.isAddress(*cast->getOperand())) {
        locateBehind(*cast->getOperand());
        return;
    }
    if (auto* choice = dynamic_cast<ConditionalExpression*>(&pointer); choice != nullptr) {
        walkChoice(*choice, [this](ExpressionBase& part) { locateBehind(part); });
        return;
    }
    auto* unary = dynamic_cast<UnaryExpression*>(&pointer);
    if (unary != nullptr && unary->getOperator() == UnaryOperator::AddressOf && unary->getOperand() != nullptr)
        locate(*unary->getOperand());
    else
        walk(&pointer);
}

void ExpressionWalker::visit(UnaryExpression& node) {
    ExpressionBase* operand = node.getOperand();
    if (operand == nullptr)
        return;
    if (isIncrement(node.getOperator())) {
        update(*operand);
    } else if (node.getOperator() == UnaryOperator::AddressOf) {
        locate(*operand);
    } else if (node.getOperator() == UnaryOperator::Dereference) {
        // What a pointer to a function leads to is no memory of the program.
        isFunction(node.getType()) ? walk(operand) : readLvalue(node);
    } else {
        walk(operand);
    }
}

void ExpressionWalker::visit(BinaryExpression& node) {
    if (isShortCircuit(node)) {
        walkShortCircuit(node);
        return;
    }
    // Generated programs add up thousands of operands: the left ones are followed without recursion.
    std::vector<ExpressionBase*> operands;
    BinaryExpression* link = &node;
    while (true) {
        operands.push_back(link->getRight());
        auto* left = dynamic_cast<BinaryExpression*>(link->getLeft());
        if (left == nullptr || isShortCircuit(*left)) {
            operands.push_back(link->getLeft());
            break;
        }
        link = left;
    }
    for (auto operand = operands.rbegin(); operand != operands.rend(); ++operand)
        walk(*operand);
}

void ExpressionWalker::walkShortCircuit(BinaryExpression& node) {
    // `a && b && c && ...` leans to the left as well.
    std::vector<BinaryExpression*> links{&node};
    while (auto* left = dynamic_cast<BinaryExpression*>(links.back()->getLeft())) {
        if (left->getOperator() != node.getOperator())
            break;
        links.push_back(left);
    }
    walk(links.back()->getLeft());
    for (auto link = links.rbegin(); link != links.rend(); ++link) {
        // Fortran may evaluate both operands or not.
        const bool isConditional = !m_isFortran && (*link)->getLeft() != nullptr;
        if (isConditional)
            m_sink.enterIf(*(*link)->getLeft(), node.getOperator() == BinaryOperator::LogicalAnd);
        walk((*link)->getRight());
        if (isConditional)
            m_sink.leaveIf();
    }
}

void ExpressionWalker::visit(AssignmentExpression& node) {
    ExpressionBase* target = node.getTarget();
    if (target == nullptr) {
        walk(node.getValue());
        return;
    }
    locate(*target);
    if (node.isCompound())
        readPlaces(*target);
    walk(node.getValue());
    writePlaces(*target);
}

void ExpressionWalker::visit(ConditionalExpression& node) {
    walkChoice(node, [this](ExpressionBase& part) { walk(&part); });
}

void ExpressionWalker::walkChoice(ConditionalExpression& choice, const std::function<void(ExpressionBase&)>& use) {
    walk(choice.getCondition());
    const auto useIf = [&](ExpressionBase* part, bool value) {
        if (part == nullptr || choice.getCondition() == nullptr)
            return;
        m_sink.enterIf(*choice.getCondition(), value);
        use(*part);
        m_sink.leaveIf();
    };
    useIf(choice.getFirst(), true);
    useIf(choice.getSecond(), false);
}

void ExpressionWalker::visit(SubroutineCallExpression& node) {
    walk(node.getCallee());
    for (std::size_t i = 0; i < node.getArgumentCount(); ++i)
        walkArgument(node, i);
    for (std::size_t i = 0; i < node.getArgumentCount(); ++i)
        reachThrough(node, i);
    m_sink.call(node);
}

void ExpressionWalker::walkArgument(SubroutineCallExpression& call, std::size_t index) {
    ExpressionBase* argument = call.getArgument(index);
    if (argument == nullptr)
        return;
    if (m_isFortran && PlaceReader::isLvalueForm(*argument))
        locate(*argument);
    else if (m_places.isAddress(*argument))
        locateBehind(*argument);
    else
        walk(argument);
}

void ExpressionWalker::reportCallAccess(Place place, const SubroutineCallExpression& call, bool isWritten) {
    place.subscripts.clear();
    place.memory.members.clear();
    place.isWhole = true;
    place.assumption = {Doubt::Call, &call};
    m_sink.read(place);
    if (isWritten)
        m_sink.write(place);
}

void ExpressionWalker::reachThrough(SubroutineCallExpression& call, std::size_t index) {
    const ExpressionBase* argument = call.getArgument(index);
    if (argument == nullptr)
        return;
    if (m_isFortran) {
        if (PlaceReader::isLvalueForm(*argument))
            for (const Place& place : m_places.readLvalue(*argument))
                reportCallAccess(place, call, true);
        return;
    }
    const bool isArray = m_places.isArrayValue(*argument);
    if (!isArray && !holdsPointer(argument->getType()))
        return;
    const ParameterUse use = parameterUseOf(call, index);
    const bool isAddress = isArray || asPointer(argument->getType()) != nullptr || argument->getType() == nullptr;
    if (!isAddress) {
        // A structure by value: what its pointers lead to.
        for (Place place : m_places.readLvalue(*argument)) {
            place.memory.loaded = place.memory.pointee;
            place.memory.pointee = true;
            reportCallAccess(place, call, true);
        }
        return;
    }
    for (Place place : m_places.readPointer(*argument)) {
        const Type* target = place.type;
        if (isFunction(target))
            continue;
        reportCallAccess(place, call, use.writesDirectly);
        if (!holdsPointer(target))
            continue;
        place.memory.loaded = place.memory.pointee;
        place.memory.pointee = true;
        reportCallAccess(place, call, use.writesBeyond);
    }
}

void ExpressionWalker::visit(TypeQueryExpression& node) {
    ExpressionBase* operand = node.getOperand();
    const ArrayType* array = operand != nullptr ? asArray(operand->getType()) : nullptr;
    const bool isVariable = array != nullptr && array->getDimensions().front().kind == ArrayDimension::Extent::Variable;
    if (operand != nullptr && isVariable)
        walk(operand);
    for (std::size_t i = 1; i < node.getChildCount(); ++i)
        walk(static_cast<ExpressionBase*>(node.getChild(i)));
}

void ExpressionWalker::visit(GenericSelectionExpression& node) {
    walk(node.getAssociationValue(node.getChosen()));
}

void ExpressionWalker::visit(StatementExpression& node) {
    if (node.getBlock() != nullptr)
        m_sink.enterBlock(*node.getBlock());
}

void ExpressionWalker::visit(VariadicArgumentExpression& node) {
    ExpressionBase* list = node.getList();
    if (list == nullptr)
        return;
    update(*list);
}

void ExpressionWalker::visit(OpaqueExpression& node) {
    // Its parts may be evaluated in any order: twice, each comes before each.
    walkUnknown(node);
    walkUnknown(node);
}

} // namespace DepGraph
