// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/PlaceReader_p.h"
#include "environment/analyses/lamport/TypeFacts_p.h"
#include "environment/tessel/AssignmentExpression.h"
#include "environment/tessel/BinaryExpression.h"
#include "environment/tessel/CastExpression.h"
#include "environment/tessel/ConditionalExpression.h"
#include "environment/tessel/FieldDeclaration.h"
#include "environment/tessel/GenericSelectionExpression.h"
#include "environment/tessel/MemberExpression.h"
#include "environment/tessel/RecordDeclaration.h"
#include "environment/tessel/SubscriptExpression.h"
#include "environment/tessel/UnaryExpression.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/VariableReference.h"
#include "environment/tessel/service/Preorder.h"

#include <algorithm>

namespace DepGraph {

using namespace Kova::Tessel;

namespace {

using Places = std::vector<Place>;

void makeWhole(Place& place, Assumption assumption) {
    place.subscripts.clear();
    place.isWhole = true;
    if (place.assumption.doubt == Doubt::None)
        place.assumption = assumption;
}

/// An array becomes a pointer to its first element.
void decay(Place& place) {
    place.type = elementOf(place.type);
    place.endsInSubscript = true;
    if (!place.isWhole && !place.isInUnion)
        place.subscripts.emplace_back();
}

bool isFirstElement(const Place& place) {
    return std::all_of(place.subscripts.begin(), place.subscripts.end(),
                       [](const IndexSum& sum) { return sum.terms.empty(); });
}

/// Whether what the pointer leads to may be of the same kind as what the pointer lies in, as in a list.
bool leadsBack(const Place& pointer, const Type* target) {
    while (asArray(target) != nullptr)
        target = elementOf(target);
    const RecordDeclaration* record = asRecord(target);
    return record != nullptr &&
           std::any_of(pointer.records.begin(), pointer.records.end(),
                       [record](const RecordDeclaration* seen) { return isPartOf(*record, *seen); });
}

/// From a pointer to what it leads to.
void follow(Place& place, const ExpressionBase& pointer) {
    const Type* target = elementOf(place.type);
    const bool isPlainVariable = !place.memory.pointee && place.memory.members.empty() && place.subscripts.empty();
    const bool isRecursive = leadsBack(place, target);
    if (isRecursive) {
        place.memory.members.clear();
        place.memory.pointee = true;
        makeWhole(place, {Doubt::Pointer, &pointer});
    } else if (!isPlainVariable) {
        place.memory.loaded = place.memory.pointee;
        place.memory.pointee = true;
        // Two elements of a table of pointers may lead to the same memory.
        if (place.isInUnion || !isFirstElement(place))
            makeWhole(place, {Doubt::Pointer, &pointer});
    }
    place.memory.pointee = true;
    place.pointers.push_back(&pointer);
    place.type = target;
    place.endsInSubscript = true;
    if (!place.isWhole && !place.isInUnion)
        place.subscripts.emplace_back();
}

void addToIndex(Place& place, const ExpressionBase& term, bool isSubtracted) {
    if (!place.endsInSubscript)
        makeWhole(place, {Doubt::Pointer, &term});
    else if (!place.isWhole && !place.isInUnion)
        place.subscripts.back().terms.push_back({&term, isSubtracted});
}

/// The outermost union that holds the field inside a structure whose members the field is written as one of; null when
/// there is none. The steps through members without a name are not written.
const RecordDeclaration* unionAround(const FieldDeclaration& field, const RecordDeclaration* written) {
    const RecordDeclaration* outermost = nullptr;
    for (const TesselBase* node = field.getParent(); node != nullptr; node = node->getParent()) {
        const auto* record = dynamic_cast<const RecordDeclaration*>(node);
        if (record == nullptr)
            break;
        if (record->getKind() == RecordDeclaration::Kind::Union)
            outermost = record;
        if (record == written || !record->getName().empty())
            break;
    }
    return outermost;
}

void choose(Place& place, const FieldDeclaration& field, const ExpressionBase& member) {
    const RecordDeclaration* record = asRecord(place.type);
    if (record != nullptr)
        place.records.push_back(record);
    place.type = field.getType();
    place.endsInSubscript = false;
    if (place.isInUnion) {
        if (place.assumption.doubt == Doubt::None)
            place.assumption = {Doubt::Member, &member};
        return;
    }
    const RecordDeclaration* overlapping = unionAround(field, record);
    if (overlapping == nullptr) {
        place.memory.members.push_back(&field);
        return;
    }
    place.isInUnion = true;
    if (overlapping != record)
        place.memory.members.push_back(overlapping);
    // Scalars all start where the union does, so they share memory for certain.
    if ((!isScalar(field.getType()) || field.getBitWidth() != nullptr) && place.assumption.doubt == Doubt::None)
        place.assumption = {Doubt::Member, &member};
}

/// One place for each variable in an expression of which nothing is known but that it gives a pointer.
Places readUnknown(const ExpressionBase& expression) {
    Places all;
    // The tree's walks are of nodes that could change; this one only looks.
    for (TesselBase& node : Service::Preorder(const_cast<ExpressionBase&>(expression))) {
        const auto* leaf = dynamic_cast<const VariableReference*>(&node);
        if (leaf == nullptr)
            continue;
        Place place;
        place.leaf = leaf;
        place.memory.variable = &leaf->getVariable();
        place.type = leaf->getVariable().getType();
        const bool isArray = asArray(place.type) != nullptr && !isArrayParameter(leaf->getVariable());
        place.memory.pointee = !isArray;
        makeWhole(place, {Doubt::Pointer, &expression});
        place.type = nullptr;
        all.push_back(std::move(place));
    }
    const auto isPointer = [](const Place& place) {
        const Type* type = place.leaf->getVariable().getType();
        return !isScalar(type) || asPointer(type) != nullptr;
    };
    // A number leads nowhere as long as there are pointers beside it.
    if (std::any_of(all.begin(), all.end(), isPointer))
        all.erase(std::remove_if(all.begin(), all.end(), [&](const Place& place) { return !isPointer(place); }),
                  all.end());
    return all;
}

Places joined(Places first, Places second, const ExpressionBase& choice) {
    for (Place& place : second)
        first.push_back(std::move(place));
    for (Place& place : first)
        if (place.assumption.doubt == Doubt::None)
            place.assumption = {Doubt::Pointer, &choice};
    return first;
}

} // namespace

const Type* PlaceReader::typeOf(const ExpressionBase& expression) const {
    if (expression.getType() != nullptr)
        return expression.getType();
    if (!isLvalueForm(expression))
        return nullptr;
    const Places places = readLvalue(expression);
    return places.empty() ? nullptr : places.front().type;
}

bool PlaceReader::isArrayValue(const ExpressionBase& expression) const {
    if (m_isFortran || !isLvalueForm(expression))
        return false;
    const auto* reference = dynamic_cast<const VariableReference*>(&expression);
    if (reference != nullptr && isArrayParameter(reference->getVariable()))
        return false;
    const Type* type = reference != nullptr ? reference->getVariable().getType() : typeOf(expression);
    return asArray(type) != nullptr;
}

bool PlaceReader::isLvalueForm(const ExpressionBase& expression) {
    if (const auto* unary = dynamic_cast<const UnaryExpression*>(&expression))
        return unary->getOperator() == UnaryOperator::Dereference;
    return dynamic_cast<const VariableReference*>(&expression) != nullptr ||
           dynamic_cast<const SubscriptExpression*>(&expression) != nullptr ||
           dynamic_cast<const MemberExpression*>(&expression) != nullptr;
}

const ExpressionBase* PlaceReader::pointerOf(const ExpressionBase& first, const ExpressionBase& second) const {
    const auto isAddress = [this](const ExpressionBase& operand) {
        if (isArrayValue(operand))
            return true;
        const auto* reference = dynamic_cast<const VariableReference*>(&operand);
        if (reference != nullptr && isArrayParameter(reference->getVariable()))
            return true;
        return asPointer(typeOf(operand)) != nullptr || asArray(operand.getType()) != nullptr;
    };
    const bool isFirst = isAddress(first);
    if (isFirst == isAddress(second))
        return nullptr;
    return isFirst ? &first : &second;
}

std::vector<Place> PlaceReader::readLvalue(const ExpressionBase& expression) const {
    if (const auto* reference = dynamic_cast<const VariableReference*>(&expression)) {
        Place place;
        place.leaf = reference;
        place.memory.variable = &reference->getVariable();
        place.type = reference->getVariable().getType();
        return {place};
    }
    if (const auto* element = dynamic_cast<const SubscriptExpression*>(&expression))
        return readSubscript(*element);
    if (const auto* member = dynamic_cast<const MemberExpression*>(&expression))
        return readMember(*member);
    if (const auto* unary = dynamic_cast<const UnaryExpression*>(&expression)) {
        if (unary->getOperator() == UnaryOperator::Dereference && unary->getOperand() != nullptr)
            return readPointer(*unary->getOperand());
        return unary->getOperand() != nullptr ? readLvalue(*unary->getOperand()) : Places();
    }
    if (const auto* assignment = dynamic_cast<const AssignmentExpression*>(&expression))
        return assignment->getTarget() != nullptr ? readLvalue(*assignment->getTarget()) : Places();
    if (const auto* choice = dynamic_cast<const ConditionalExpression*>(&expression))
        return joined(choice->getFirst() != nullptr ? readLvalue(*choice->getFirst()) : Places(),
                      choice->getSecond() != nullptr ? readLvalue(*choice->getSecond()) : Places(), *choice);
    if (const auto* binary = dynamic_cast<const BinaryExpression*>(&expression);
        binary != nullptr && binary->getOperator() == BinaryOperator::Comma)
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
    if (element.getIndex() == nullptr)
        return readPointer(*element.getBase());
    // `i[a]` is `a[i]`.
    const bool isSwapped = pointerOf(*element.getBase(), *element.getIndex()) == element.getIndex();
    const ExpressionBase& base = isSwapped ? *element.getIndex() : *element.getBase();
    Places places = readPointer(base);
    for (Place& place : places)
        addToIndex(place, isSwapped ? *element.getBase() : *element.getIndex(), false);
    return places;
}

std::vector<Place> PlaceReader::readMember(const MemberExpression& member) const {
    if (member.getBase() == nullptr)
        return {};
    Places places = member.getAccess() == MemberExpression::Access::Direct ? readLvalue(*member.getBase())
                                                                           : readPointer(*member.getBase());
    for (Place& place : places)
        choose(place, member.getField(), member);
    return places;
}

std::vector<Place> PlaceReader::readPointer(const ExpressionBase& expression) const {
    if (isLvalueForm(expression)) {
        Places places = readLvalue(expression);
        const auto* reference = dynamic_cast<const VariableReference*>(&expression);
        // A variable of unknown type with subscripts is an array as far as anyone can tell.
        const bool isArray =
            isArrayValue(expression) || (typeOf(expression) == nullptr &&
                                         dynamic_cast<const SubscriptExpression*>(expression.getParent()) != nullptr &&
                                         (reference == nullptr || !reference->getVariable().isParameter()));
        for (Place& place : places)
            isArray ? decay(place) : follow(place, expression);
        return places;
    }
    if (const auto* binary = dynamic_cast<const BinaryExpression*>(&expression)) {
        if (binary->getOperator() == BinaryOperator::Comma)
            return readPointer(*binary->getRight());
        const bool isSubtracted = binary->getOperator() == BinaryOperator::Subtract;
        const ExpressionBase* pointer = isSubtracted || binary->getOperator() == BinaryOperator::Add
                                            ? pointerOf(*binary->getLeft(), *binary->getRight())
                                            : nullptr;
        if (pointer == nullptr)
            return readUnknown(expression);
        Places places = readPointer(*pointer);
        for (Place& place : places)
            addToIndex(place, pointer == binary->getLeft() ? *binary->getRight() : *binary->getLeft(), isSubtracted);
        return places;
    }
    if (const auto* unary = dynamic_cast<const UnaryExpression*>(&expression))
        return readUnaryPointer(*unary);
    if (const auto* cast = dynamic_cast<const CastExpression*>(&expression))
        return readCast(*cast);
    if (const auto* assignment = dynamic_cast<const AssignmentExpression*>(&expression)) {
        Places places = readLvalue(*assignment->getTarget());
        for (Place& place : places)
            follow(place, *assignment->getTarget());
        return places;
    }
    if (const auto* choice = dynamic_cast<const ConditionalExpression*>(&expression);
        choice != nullptr && choice->getFirst() != nullptr)
        return joined(readPointer(*choice->getFirst()), readPointer(*choice->getSecond()), *choice);
    if (const auto* selection = dynamic_cast<const GenericSelectionExpression*>(&expression))
        if (const ExpressionBase* chosen = selection->getAssociationValue(selection->getChosen()))
            return readPointer(*chosen);
    return readUnknown(expression);
}

std::vector<Place> PlaceReader::readUnaryPointer(const UnaryExpression& unary) const {
    switch (unary.getOperator()) {
    case UnaryOperator::AddressOf:
        return readLvalue(*unary.getOperand());
    case UnaryOperator::Extension:
    case UnaryOperator::Plus:
        return readPointer(*unary.getOperand());
    case UnaryOperator::PreIncrement:
    case UnaryOperator::PreDecrement:
    case UnaryOperator::PostIncrement:
    case UnaryOperator::PostDecrement: {
        Places places = readLvalue(*unary.getOperand());
        for (Place& place : places)
            follow(place, *unary.getOperand());
        return places;
    }
    default:
        return readUnknown(unary);
    }
}

std::vector<Place> PlaceReader::readCast(const CastExpression& cast) const {
    const ExpressionBase* operand = cast.getOperand();
    if (operand == nullptr)
        return {};
    if (asPointer(cast.getType()) == nullptr ||
        (asPointer(typeOf(*operand)) == nullptr && !isArrayValue(*operand) && asArray(operand->getType()) == nullptr))
        return readUnknown(cast);
    Places places = readPointer(*operand);
    for (Place& place : places) {
        if (!isSameObjectType(place.type, elementOf(cast.getType())))
            makeWhole(place, {Doubt::Pointer, &cast});
        if (place.isWhole)
            place.memory.members.clear();
        place.type = elementOf(cast.getType());
    }
    return places;
}

} // namespace DepGraph
