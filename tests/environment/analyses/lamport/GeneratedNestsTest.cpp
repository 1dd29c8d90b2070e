// SPDX-License-Identifier: MIT
#include "tests/environment/analyses/lamport/ConditionReader.h"
#include "tests/environment/analyses/lamport/FoundArcs.h"
#include "tests/environment/analyses/lamport/GeneratedNest.h"
#include "tests/environment/analyses/lamport/NestText.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>

using namespace Kova::Tests;

namespace {

/// How many nests each test looks at; KOVA_GENERATED_NESTS asks for more.
long countNests() {
    const char* wanted = std::getenv("KOVA_GENERATED_NESTS");
    return wanted != nullptr ? std::atol(wanted) : 300;
}

/// Hands over nests of a bearable size until there were enough; stops at the first that fails.
void forEachNest(std::size_t unknowns, const std::function<void(const Nest&)>& look) {
    long seen = 0;
    for (unsigned seed = 1; seen < countNests() && !testing::Test::HasFailure(); ++seed) {
        const Nest nest = NestGenerator(seed, unknowns).make();
        if (unknowns == 0 && EnumeratedNest(nest).countEvents() > 1000)
            continue;
        ++seen;
        SCOPED_TRACE("seed " + std::to_string(seed) + "\n" + NestText::write(nest));
        look(nest);
    }
}

void expectSame(const FoundArcs& found, const Arcs& expected) {
    for (const auto& [key, arc] : expected) {
        const auto place = found.find(key);
        if (place == found.end())
            ADD_FAILURE() << "missing " << key << ": " << arc;
        else
            EXPECT_EQ(place->second.arc, arc) << key;
    }
    for (const auto& [key, arc] : found) {
        EXPECT_EQ(expected.count(key), 1U) << "too much " << key << ": " << arc.arc;
        EXPECT_EQ(arc.assumption.doubt, DepGraph::Doubt::None);
        EXPECT_EQ(arc.condition, "");
    }
}

bool includes(const std::set<int>& all, const std::set<int>& some) {
    return std::includes(all.begin(), all.end(), some.begin(), some.end());
}

TEST(GeneratedNestsTest, theExactGraphIsTheEnumerations) {
    const DepGraph::IslContext context;
    forEachNest(0, [&](const Nest& nest) {
        expectSame(findExactly(context.get(), NestAccesses(context.get(), nest)),
                   EnumeratedNest(nest).findMemoryBased());
    });
}

TEST(GeneratedNestsTest, valueBasedArcsAreTheEnumerationsLastWrites) {
    const DepGraph::IslContext context;
    forEachNest(0, [&](const Nest& nest) {
        expectSame(findValueBased(context.get(), NestAccesses(context.get(), nest)),
                   EnumeratedNest(nest).findValueBased());
    });
}

TEST(GeneratedNestsTest, quickTestsLoseNothingAndKnowWhatTheyDecide) {
    const DepGraph::IslContext context;
    int proven = 0;
    forEachNest(0, [&](const Nest& nest) {
        const FoundArcs found = findQuickly(context.get(), NestAccesses(context.get(), nest));
        const Arcs expected = EnumeratedNest(nest).findMemoryBased();
        for (const auto& [key, arc] : expected) {
            ASSERT_EQ(found.count(key), 1U) << "missing " << key << ": " << arc;
            EXPECT_TRUE(includes(found.at(key).arc.carriers, arc.carriers)) << key << ": " << arc;
            for (std::size_t loop = 0; loop < arc.distance.size(); ++loop) {
                const std::optional<long> distance = found.at(key).arc.distance[loop];
                EXPECT_TRUE(!distance || distance == arc.distance[loop]) << key << ": " << arc;
                for (const char direction : arc.directions[loop])
                    EXPECT_NE(found.at(key).arc.directions[loop].find(direction), std::string::npos) << key;
            }
        }
        for (const auto& [key, arc] : found) {
            if (arc.assumption.doubt == DepGraph::Doubt::None) {
                ++proven;
                ASSERT_EQ(expected.count(key), 1U) << key;
                EXPECT_EQ(arc.arc, expected.at(key)) << key;
            } else {
                EXPECT_EQ(arc.assumption.doubt, DepGraph::Doubt::QuickTest);
            }
        }
    });
    EXPECT_GT(proven, countNests());
}

TEST(GeneratedNestsTest, conditionsOfUnknownsHoldExactlyWhereTheEnumerationFindsThePair) {
    const DepGraph::IslContext context;
    forEachNest(2, [&](const Nest& nest) {
        const FoundArcs found = findExactly(context.get(), NestAccesses(context.get(), nest, 2));
        for (long n = -2; n <= 4; ++n)
            for (long m = -2; m <= 4; ++m) {
                const EnumeratedNest enumerated(nest, {n, m});
                if (enumerated.countEvents() > 1000)
                    continue;
                const Arcs expected = enumerated.findMemoryBased();
                for (const auto& [key, arc] : expected) {
                    ASSERT_EQ(found.count(key), 1U) << "missing " << key << ": " << arc;
                    EXPECT_TRUE(includes(found.at(key).arc.carriers, arc.carriers)) << key << ": " << arc;
                }
                for (const auto& [key, arc] : found)
                    EXPECT_EQ(ConditionReader::holds(arc.condition, {{"n", n}, {"m", m}}), expected.count(key) == 1)
                        << key << ": " << arc.condition << " with n = " << n << ", m = " << m;
            }
    });
}

} // namespace
