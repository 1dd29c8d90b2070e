// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/AccessModel_p.h"

namespace Kova::Tessel {
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

/// What an lvalue names, or may name, as far as its form tells.
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
    /// Whether further subscripts or members make no difference: the place stands for all there is.
    bool isWhole = false;
    bool isInUnion = false;
    /// The structures on the way, to recognise those that lead back to their like.
    std::vector<const Kova::Tessel::RecordDeclaration*> records;
};

} // namespace DepGraph
