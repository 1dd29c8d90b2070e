// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/AccessModel_p.h"

namespace Kova::Tessel {
class FieldDeclaration;
class RecordDeclaration;
class Type;
class VariableReference;
} // namespace Kova::Tessel

namespace DepGraph {

/// One subscript: a sum, since pointer arithmetic adds to what is there already. Empty for the first element.
struct IndexSum {
    struct Term {
        const Kova::Tessel::ExpressionBase* expression;
        bool isSubtracted;
    };
    std::vector<Term> terms;
};

/// What an lvalue names, or may name, as far as its form tells. Made of a variable's word, then changed step by step as
/// the form says.
struct Place {
    /// The word that is printed for it.
    const Kova::Tessel::VariableReference* leaf = nullptr;
    Memory memory;
    std::vector<IndexSum> subscripts;
    /// The pointers that were followed on the way, as lvalues, in the order of following. The place is what the form
    /// says only if these do not change.
    std::vector<const Kova::Tessel::ExpressionBase*> pointers;
    /// None when the form tells the place for certain, given the pointers.
    Assumption assumption;

    /// Of the object; null when unknown.
    const Kova::Tessel::Type* type = nullptr;
    /// Whether the last step chose an element, so that pointer arithmetic chooses another one.
    bool endsInSubscript = false;
    /// Whether further subscripts make no difference: the place stands for all elements.
    bool isWhole = false;
    bool isInUnion = false;
    /// The structures on the way, to recognise those that lead back to their like.
    std::vector<const Kova::Tessel::RecordDeclaration*> records;

    /// The variable that a word names.
    [[nodiscard]] static Place of(const Kova::Tessel::VariableReference& word);

    /// From an array to its first element.
    void decay();
    /// From a pointer to what it leads to. @param pointer the place's lvalue.
    void follow(const Kova::Tessel::ExpressionBase& pointer);
    /// To a member. @param member the expression that chooses it.
    void choose(const Kova::Tessel::FieldDeclaration& field, const Kova::Tessel::ExpressionBase& member);
    /// To another element, by pointer arithmetic or a subscript.
    void addToIndex(const Kova::Tessel::ExpressionBase& term, bool isSubtracted);
    /// To all elements, since it is not known which. The first doubt stays.
    void makeWhole(Assumption why);
    void doubt(Assumption why);

private:
    [[nodiscard]] bool isFirstElement() const;
    [[nodiscard]] bool leadsBack(const Kova::Tessel::Type* target) const;
    void startSubscript();
};

} // namespace DepGraph
