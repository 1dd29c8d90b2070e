// SPDX-License-Identifier: MIT
#pragma once

#include "tests/environment/analyses/lamport/ArrowSample.h"

#include <gtest/gtest.h>

#include <string>

namespace Kova::Tests {

/// The four descriptions of an arrow, in the order of their modes.
struct Tags {
    std::string popularRussian;
    std::string developerEnglish;
    std::string developerRussian;
    std::string popularEnglish;
};

inline void expectTags(const ArrowSample& sample, const Tags& tags) {
    EXPECT_EQ(sample.tag(DepGraph::PM_POPULAR_RUSSIAN), tags.popularRussian);
    EXPECT_EQ(sample.tag(DepGraph::PM_DEVELOPER_ENGLISH), tags.developerEnglish);
    EXPECT_EQ(sample.tag(DepGraph::PM_DEVELOPER_RUSSIAN), tags.developerRussian);
    EXPECT_EQ(sample.tag(DepGraph::PM_POPULAR_ENGLISH), tags.popularEnglish);
}

} // namespace Kova::Tests
