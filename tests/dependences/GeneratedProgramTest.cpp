// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/LamportGraph.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/VariableReference.h"
#include "environment/tessel/service/Preorder.h"
#include "tests/environment/analyses/lamport/ConditionReader.h"
#include "tests/environment/analyses/lamport/EnumeratedNest.h"
#include "tests/environment/analyses/lamport/GeneratedNest.h"
#include "tests/environment/analyses/lamport/NestText.h"
#include "tests/frontends/c/Reading.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <unordered_map>

using namespace Kova;
using namespace Kova::Tests;

namespace {

struct FoundArc {
    Arc arc;
    bool proven;
    std::string condition;
};
using FoundArcs = std::map<ArcKey, FoundArc>;

/// A nest as a C program, read and analysed: from the text to the arrows.
class ReadNest {
public:
    explicit ReadNest(const Nest& nest) : m_reading(makeProgram(nest)) {
        for (std::size_t i = 0; i < m_reading.unit().getChildCount(); ++i)
            if (auto* function = dynamic_cast<Tessel::SubroutineDeclaration*>(m_reading.unit().getChild(i)))
                m_graph.Build(*function->getBody(), DepGraph::BP_DEFAULT, true);
        for (const Tessel::TesselBase& node : Tessel::Service::Preorder(*m_reading.unit().getChild(4))) {
            const auto* name = dynamic_cast<const Tessel::VariableReference*>(&node);
            if (name != nullptr && std::isupper(static_cast<unsigned char>(name->getVariable().getName()[0])) != 0)
                m_numbers.emplace(name, static_cast<int>(m_numbers.size()));
        }
    }

    FoundArcs find(DepGraph::EN_RefineMethod method) {
        m_graph.Refine(method);
        FoundArcs arcs;
        for (const DepGraph::LampArrow* arrow : m_graph.getArrows()) {
            const auto source = m_numbers.find(arrow->getSource());
            if (source == m_numbers.end())
                continue;
            const DepGraph::DependenceFacts& facts = arrow->getFacts();
            arcs.emplace(ArcKey{source->second, m_numbers.at(arrow->getTarget()), facts.type},
                         FoundArc{{{facts.carriers.begin(), facts.carriers.end()}, facts.distance, facts.directions},
                                  arrow->isProven(),
                                  facts.condition});
        }
        return arcs;
    }

private:
    static std::string makeProgram(const Nest& nest) {
        return "double A;\ndouble B[100];\ndouble C[100];\ndouble D[100][100];\nvoid f(int n, int m) {\n" +
               NestText::write(nest) + "}\n";
    }

    Test::Reading m_reading;
    DepGraph::LamportGraph m_graph;
    std::unordered_map<const Tessel::ExpressionBase*, int> m_numbers;
};

long countNests() {
    const char* wanted = std::getenv("KOVA_GENERATED_NESTS");
    return wanted != nullptr ? std::atol(wanted) : 300;
}

void forEachNest(std::size_t unknowns, const std::function<void(const Nest&)>& look) {
    long seen = 0;
    for (unsigned seed = 100'001; seen < countNests() && !testing::Test::HasFailure(); ++seed) {
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
        EXPECT_TRUE(arc.proven) << key;
    }
}

TEST(GeneratedProgramTest, theExactGraphIsTheEnumerations) {
    forEachNest(0, [](const Nest& nest) {
        expectSame(ReadNest(nest).find(DepGraph::RM_EXACT), EnumeratedNest(nest).findMemoryBased());
    });
}

TEST(GeneratedProgramTest, valueBasedArcsAreTheEnumerationsLastWrites) {
    forEachNest(0, [](const Nest& nest) {
        expectSame(ReadNest(nest).find(DepGraph::RM_VALUE_BASED), EnumeratedNest(nest).findValueBased());
    });
}

TEST(GeneratedProgramTest, quickTestsLoseNothing) {
    forEachNest(0, [](const Nest& nest) {
        const FoundArcs found = ReadNest(nest).find(DepGraph::RM_QUICK_TESTS);
        for (const auto& [key, arc] : EnumeratedNest(nest).findMemoryBased()) {
            ASSERT_EQ(found.count(key), 1U) << "missing " << key << ": " << arc;
            for (const int carrier : arc.carriers)
                EXPECT_EQ(found.at(key).arc.carriers.count(carrier), 1U) << key << ": " << arc;
        }
    });
}

TEST(GeneratedProgramTest, conditionsOfUnknownsHoldExactlyWhereTheEnumerationFindsThePair) {
    forEachNest(2, [](const Nest& nest) {
        const FoundArcs found = ReadNest(nest).find(DepGraph::RM_EXACT);
        for (long n = -2; n <= 4; ++n)
            for (long m = -2; m <= 4; ++m) {
                const EnumeratedNest enumerated(nest, {n, m});
                if (enumerated.countEvents() > 1000)
                    continue;
                const Arcs expected = enumerated.findMemoryBased();
                for (const auto& [key, arc] : expected)
                    ASSERT_EQ(found.count(key), 1U) << "missing " << key << ": " << arc;
                for (const auto& [key, arc] : found)
                    EXPECT_EQ(ConditionReader::holds(arc.condition, {{"n", n}, {"m", m}}), expected.count(key) == 1)
                        << key << ": " << arc.condition << " with n = " << n << ", m = " << m;
            }
    });
}

} // namespace
