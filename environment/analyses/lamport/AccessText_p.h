// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/DependenceTypes.h"

#include <string>

namespace Kova::Tessel {
class ExpressionBase;
class TesselBase;
} // namespace Kova::Tessel

namespace DepGraph {

/// The accesses that two occurrences of one arrow stand for, in the language of their file: for the word `a` of
/// `a[i][j]` the whole `a[i][j]`. Of a pointer's occurrences either both stand for the pointer or both for what it
/// leads to: the latter when both are dereferenced or passed on to a subroutine, unless a dependence of this kind needs
/// a write where nothing but the pointer changes.
struct AccessText {
    AccessText(const Kova::Tessel::ExpressionBase& source, const Kova::Tessel::ExpressionBase& target, EN_DepType type);

    std::string source;
    std::string target;
};

/// An expression as the language of its file writes it, an opaque statement as its source text, both on one line and
/// cut after 60 characters; empty for anything else.
[[nodiscard]] std::string printShort(const Kova::Tessel::TesselBase& node);

} // namespace DepGraph
