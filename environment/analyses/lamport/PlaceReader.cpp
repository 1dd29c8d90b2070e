// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/PlaceReader_p.h"
#include "environment/tessel/service/TypeFacts.h"
#include "environment/tessel/AssignmentExpression.h"
#include "environment/tessel/BinaryExpression.h"
#include "environment/tessel/CastExpression.h"
#include "environment/tessel/ConditionalExpression.h"
#include "environment/tessel/GenericSelectionExpression.h"
#include "environment/tessel/MemberExpression.h"
#include "environment/tessel/SubscriptExpression.h"
#include "environment/tessel/UnaryExpression.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/VariableReference.h"
#include "environment/tessel/service/Preorder.h"

#include <algorithm>

namespace DepGraph {

using namespace Kova::Tessel;
using namespace Kova::Tessel::Service;

namespace {

/// Longer chains of pointers than any person writes are not followed: the stack is finite.
constexpr int deepestNesting = 200;

std::vector<Place> joined(std::vector<Place> first, std::vector<Place> second, const ExpressionBase& choice) {
    for (Place& place : second)
        first.push_back(std::move(place));
    for (Place& place : first)
        place.doubt({Doubt::Pointer, &choice});
    return first;
}

bool isOfPointerKind(const Place& place) {
    const Type* type = place.leaf->getVariable().getType();
    return !isScalar(type) || asPointer(type) != nullptr;
}

} // namespace

bool PlaceReader::isLvalueForm(const ExpressionBase& expression) {
    if (const auto* unary = dynamic_cast<const UnaryExpression*>(&expression))
        return unary->getOperator() == UnaryOperator::Dereference;
    return dynamic_cast<const VariableReference*>(&expression) != nullptr ||
           dynamic_cast<const SubscriptExpression*>(&expression) != nullptr ||
           dynamic_cast<const MemberExpression*>(&expression) != nullptr;
}

bool PlaceReader::isArrayValue(const ExpressionBase& expression) const {
    if (m_isFortran || !isLvalueForm(expression))
        return false;
    const auto* word = dynamic_cast<const VariableReference*>(&expression);
    if (word != nullptr)
        return asArray(word->getVariable().getType()) != nullptr && !isArrayParameter(word->getVariable());
    if (expression.getType() != nullptr)
        return asArray(expression.getType()) != nullptr;
    const Places places = readLvalue(expression);
    return !places.empty() && asArray(places.front().type) != nullptr;
}

bool PlaceReader::isAddress(const ExpressionBase& expression) const {
    const auto* word = dynamic_cast<const VariableReference*>(&expression);
    const Type* type = word != nullptr ? word->getVariable().getType() : expression.getType();
    return !m_isFortran && (asPointer(type) != nullptr || asArray(type) != nullptr);
}

const ExpressionBase* PlaceReader::pointerOf(const BinaryExpression& sum) const {
    const bool isSubtraction = sum.getOperator() == BinaryOperator::Subtract;
    if ((!isSubtraction && sum.getOperator() != BinaryOperator::Add) || sum.getLeft() == nullptr ||
        sum.getRight() == nullptr)
        return nullptr;
    const bool isLeft = isAddress(*sum.getLeft());
    const bool isRight = isAddress(*sum.getRight());
    if (isLeft == isRight || (isRight && isSubtraction))
        return nullptr;
    return isLeft ? sum.getLeft() : sum.getRight();
}

bool PlaceReader::isSwapped(const SubscriptExpression& element) const {
    return !m_isFortran && element.getBase() != nullptr && element.getIndex() != nullptr &&
           isAddress(*element.getIndex()) && !isAddress(*element.getBase());
}

/// A variable of unknown type with subscripts is an array as far as anyone can tell.
bool PlaceReader::isArray(const Place& place, const ExpressionBase& lvalue) const {
    const auto* word = dynamic_cast<const VariableReference*>(&lvalue);
    if (place.type == nullptr)
        return dynamic_cast<const SubscriptExpression*>(lvalue.getParent()) != nullptr &&
               (word == nullptr || !word->getVariable().isParameter());
    return asArray(place.type) != nullptr && (word == nullptr || !isArrayParameter(word->getVariable()));
}

std::vector<Place> PlaceReader::readUnknown(const ExpressionBase& expression) const {
    Places all;
    // The tree's walks are of nodes that could change; this one only looks.
    for (TesselBase& node : Service::Preorder(const_cast<ExpressionBase&>(expression))) {
        const auto* word = dynamic_cast<const VariableReference*>(&node);
        if (word == nullptr)
            continue;
        Place place = Place::of(*word);
        place.memory.pointee = !isArrayValue(*word);
        place.type = nullptr;
        place.makeWhole({Doubt::Pointer, &expression});
        all.push_back(std::move(place));
    }
    // A number leads nowhere as long as there are pointers beside it.
    if (std::any_of(all.begin(), all.end(), isOfPointerKind))
        all.erase(std::remove_if(all.begin(), all.end(), [](const Place& place) { return !isOfPointerKind(place); }),
                  all.end());
    return all;
}

std::vector<Place> PlaceReader::readLvalue(const ExpressionBase& expression) const {
    if (m_nesting == deepestNesting)
        return readUnknown(expression);
    ++m_nesting;
    Places places = readObject(expression);
    --m_nesting;
    return places;
}

std::vector<Place> PlaceReader::readObject(const ExpressionBase& expression) const {
    if (const auto* word = dynamic_cast<const VariableReference*>(&expression))
        return {Place::of(*word)};
    if (const auto* element = dynamic_cast<const SubscriptExpression*>(&expression))
        return readSubscript(*element);
    if (const auto* member = dynamic_cast<const MemberExpression*>(&expression))
        return readMember(*member);
    if (const auto* unary = dynamic_cast<const UnaryExpression*>(&expression)) {
        if (unary->getOperand() == nullptr)
            return {};
        return unary->getOperator() == UnaryOperator::Dereference ? readPointer(*unary->getOperand())
                                                                  : readLvalue(*unary->getOperand());
    }
    if (const auto* assignment = dynamic_cast<const AssignmentExpression*>(&expression))
        return assignment->getTarget() != nullptr ? readLvalue(*assignment->getTarget()) : Places();
    if (const auto* choice = dynamic_cast<const ConditionalExpression*>(&expression))
        return joined(choice->getFirst() != nullptr ? readLvalue(*choice->getFirst()) : Places(),
                      choice->getSecond() != nullptr ? readLvalue(*choice->getSecond()) : Places(), *choice);
    const auto* binary = dynamic_cast<const BinaryExpression*>(&expression);
    if (binary != nullptr && binary->getOperator() == BinaryOperator::Comma && binary->getRight() != nullptr)
        return readLvalue(*binary->getRight());
    return {};
}

std::vector<Place> PlaceReader::readSubscript(const SubscriptExpression& element) const {
    if (element.getBase() == nullptr)
        return {};
    if (m_isFortran) {
        Places places = readLvalue(*element.getBase());
        for (Place& place : places) {
            for (std::size_t i = 0; i < element.getIndexCount(); ++i)
                place.subscripts.push_back({{{element.getIndex(i), false}}});
            place.type = elementOf(place.type);
        }
        return places;
    }
    // `i[a]` is `a[i]`.
    const bool swapped = isSwapped(element);
    const ExpressionBase* index = swapped ? element.getBase() : element.getIndex();
    Places places = readPointer(swapped ? *element.getIndex() : *element.getBase());
    for (Place& place : places)
        if (index != nullptr)
            place.addToIndex(*index, false);
    return places;
}

std::vector<Place> PlaceReader::readMember(const MemberExpression& member) const {
    if (member.getBase() == nullptr)
        return {};
    Places places = member.getAccess() == MemberExpression::Access::Direct ? readLvalue(*member.getBase())
                                                                           : readPointer(*member.getBase());
    for (Place& place : places)
        place.choose(member.getField(), member);
    return places;
}

std::vector<Place> PlaceReader::readFollowed(const ExpressionBase& pointer) const {
    Places places = readLvalue(pointer);
    for (Place& place : places)
        place.follow(pointer);
    return places;
}

std::vector<Place> PlaceReader::readPointer(const ExpressionBase& expression) const {
    if (m_nesting == deepestNesting)
        return readUnknown(expression);
    ++m_nesting;
    Places places;
    if (isLvalueForm(expression)) {
        places = readObject(expression);
        for (Place& place : places)
            isArray(place, expression) ? place.decay() : place.follow(expression);
    } else {
        places = readOtherPointer(expression);
    }
    --m_nesting;
    return places;
}

std::vector<Place> PlaceReader::readOtherPointer(const ExpressionBase& expression) const {
    if (const auto* binary = dynamic_cast<const BinaryExpression*>(&expression)) {
        if (binary->getOperator() == BinaryOperator::Comma && binary->getRight() != nullptr)
            return readPointer(*binary->getRight());
        const ExpressionBase* pointer = pointerOf(*binary);
        if (pointer == nullptr)
            return readUnknown(expression);
        Places places = readPointer(*pointer);
        for (Place& place : places)
            place.addToIndex(pointer == binary->getLeft() ? *binary->getRight() : *binary->getLeft(),
                             binary->getOperator() == BinaryOperator::Subtract);
        return places;
    }
    if (const auto* unary = dynamic_cast<const UnaryExpression*>(&expression))
        return readUnaryPointer(*unary);
    if (const auto* cast = dynamic_cast<const CastExpression*>(&expression))
        return readCast(*cast);
    if (const auto* assignment = dynamic_cast<const AssignmentExpression*>(&expression))
        return assignment->getTarget() != nullptr ? readFollowed(*assignment->getTarget()) : Places();
    const auto* choice = dynamic_cast<const ConditionalExpression*>(&expression);
    if (choice != nullptr && choice->getFirst() != nullptr && choice->getSecond() != nullptr)
        return joined(readPointer(*choice->getFirst()), readPointer(*choice->getSecond()), *choice);
    if (const auto* selection = dynamic_cast<const GenericSelectionExpression*>(&expression))
        if (const ExpressionBase* chosen = selection->getAssociationValue(selection->getChosen()))
            return readPointer(*chosen);
    return readUnknown(expression);
}

std::vector<Place> PlaceReader::readUnaryPointer(const UnaryExpression& unary) const {
    if (unary.getOperand() == nullptr)
        return {};
    switch (unary.getOperator()) {
    case UnaryOperator::AddressOf:
        return readLvalue(*unary.getOperand());
    case UnaryOperator::Extension:
    case UnaryOperator::Plus:
        return readPointer(*unary.getOperand());
    case UnaryOperator::PreIncrement:
    case UnaryOperator::PreDecrement:
    case UnaryOperator::PostIncrement:
    case UnaryOperator::PostDecrement:
        return readFollowed(*unary.getOperand());
    default:
        return readUnknown(unary);
    }
}

std::vector<Place> PlaceReader::readCast(const CastExpression& cast) const {
    const ExpressionBase* operand = cast.getOperand();
    if (operand == nullptr)
        return {};
    if (asPointer(cast.getType()) == nullptr || !isAddress(*operand))
        return readUnknown(cast);
    const Type* target = elementOf(cast.getType());
    Places places = readPointer(*operand);
    for (Place& place : places) {
        if (!isSameObjectType(place.type, target)) {
            place.makeWhole({Doubt::Pointer, &cast});
            place.memory.members.clear();
        }
        place.type = target;
    }
    return places;
}

} // namespace DepGraph
