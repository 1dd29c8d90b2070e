// SPDX-License-Identifier: MIT
#pragma once

/// The numbers that tell kinds and methods are bit flags and menu positions elsewhere: they never change.
namespace DepGraph {

/// What the two occurrences of a dependence do to the memory that they share.
enum EN_DepType : int {
    DT_FLOW = 1,   ///< Written, then read.
    DT_ANTI = 2,   ///< Read, then written.
    DT_OUTPUT = 4, ///< Written twice.
    DT_INPUT = 8,  ///< Read twice.
};

/// The wordings of a description. Popular ones are for students, developer ones for people who build compilers.
enum EN_PrintModes : int {
    PM_POPULAR_RUSSIAN = 1,
    PM_DEVELOPER_ENGLISH = 2,
    PM_DEVELOPER_RUSSIAN = 3,
    PM_POPULAR_ENGLISH = 4,
};

enum EN_RefineMethod : int {
    RM_EXACT = 0,       ///< Memory-based, exact wherever everything is affine.
    RM_QUICK_TESTS = 1, ///< ZIV, SIV, GCD and Banerjee's bounds only.
    RM_VALUE_BASED = 2, ///< Only pairs between which nobody else writes the element.
};

enum EN_LamportGraphBuildParams : int {
    BP_DEFAULT = 1,
};

} // namespace DepGraph
