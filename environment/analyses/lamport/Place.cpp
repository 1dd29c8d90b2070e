// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/Place_p.h"
#include "environment/tessel/service/TypeFacts.h"
#include "environment/tessel/FieldDeclaration.h"
#include "environment/tessel/RecordDeclaration.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/VariableReference.h"

#include <algorithm>

namespace DepGraph {

using namespace Kova::Tessel;
using namespace Kova::Tessel::Service;

namespace {

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

} // namespace

Place Place::of(const VariableReference& word) {
    Place place;
    place.leaf = &word;
    place.memory.variable = &word.getVariable();
    place.type = word.getVariable().getType();
    return place;
}

void Place::doubt(Assumption why) {
    if (assumption.doubt == Doubt::None)
        assumption = why;
}

void Place::makeWhole(Assumption why) {
    subscripts.clear();
    isWhole = true;
    doubt(why);
}

void Place::startSubscript() {
    endsInSubscript = true;
    if (!isWhole && !isInUnion)
        subscripts.emplace_back();
}

void Place::decay() {
    type = elementOf(type);
    startSubscript();
}

bool Place::isFirstElement() const {
    return std::all_of(subscripts.begin(), subscripts.end(), [](const IndexSum& sum) { return sum.terms.empty(); });
}

/// Whether the target may be of the same kind as what the pointer lies in, as in a list.
bool Place::leadsBack(const Type* target) const {
    while (asArray(target) != nullptr)
        target = elementOf(target);
    const RecordDeclaration* record = asRecord(target);
    return record != nullptr && std::any_of(records.begin(), records.end(), [record](const RecordDeclaration* seen) {
               return isPartOf(*record, *seen);
           });
}

void Place::follow(const ExpressionBase& pointer) {
    const Type* target = elementOf(type);
    const bool isPlainVariable = !memory.pointee && memory.members.empty() && subscripts.empty() && !isInUnion;
    if (leadsBack(target)) {
        memory.members.clear();
        isInUnion = false;
        makeWhole({Doubt::Pointer, &pointer});
    } else if (!isPlainVariable) {
        memory.loaded = memory.pointee;
        // Two elements of a table of pointers may lead to the same memory.
        if (isInUnion || !isFirstElement())
            makeWhole({Doubt::Pointer, &pointer});
    }
    memory.pointee = true;
    pointers.push_back(&pointer);
    type = target;
    startSubscript();
}

void Place::addToIndex(const ExpressionBase& term, bool isSubtracted) {
    if (!endsInSubscript)
        makeWhole({Doubt::Pointer, &term});
    else if (!isWhole && !isInUnion)
        subscripts.back().terms.push_back({&term, isSubtracted});
}

void Place::choose(const FieldDeclaration& field, const ExpressionBase& member) {
    const RecordDeclaration* record = asRecord(type);
    if (record != nullptr)
        records.push_back(record);
    type = field.getType();
    endsInSubscript = false;
    if (isInUnion) {
        doubt({Doubt::Member, &member});
        return;
    }
    const RecordDeclaration* overlapping = unionAround(field, record);
    if (overlapping == nullptr) {
        memory.members.push_back(&field);
        return;
    }
    isInUnion = true;
    if (overlapping != record)
        memory.members.push_back(overlapping);
    // Scalars all start where the union does, so they share memory for certain.
    if (!isScalar(field.getType()) || field.getBitWidth() != nullptr || field.getParent() != overlapping)
        doubt({Doubt::Member, &member});
}

} // namespace DepGraph
