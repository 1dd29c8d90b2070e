// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/ConditionTable_p.h"
#include "environment/analyses/lamport/PairFacts_p.h"
#include "environment/analyses/lamport/QuickTests_p.h"

namespace DepGraph {

/// Where two accesses meet, found by isl for all values of the unknowns where the quick tests leave it open.
class ExactTest final : public PairTest {
public:
    /// Elimination of iteration numbers finds the same as isl in less time.
    enum class Means { EliminationFirst, IslAlone };
    struct Limits {
        /// What isl may spend on one pair.
        unsigned long operations = 1'000'000;
        /// How many pairs of different shape may be looked into in all.
        std::size_t pairs = 100'000;
    };

    /// @param shapes kept by reference.
    ExactTest(isl::ctx context, const AccessShapes& shapes, Limits limits, Means means = Means::EliminationFirst);

    [[nodiscard]] std::optional<PairFacts> test(const AccessPair& pair) override;
    [[nodiscard]] std::optional<PairFacts> testUnordered(const AccessPair& pair) override;

    /// From the iterations of the access to the values of the subscripts, as many as wanted: what is not known of
    /// them, and those that it does not have, may have any value.
    [[nodiscard]] const isl::map& getElements(std::size_t access, std::size_t subscripts);
    /// Whether all its subscripts are known, so that it touches one element in each iteration.
    [[nodiscard]] bool isSingleElement(std::size_t access) const;

private:
    struct Key {
        std::uint32_t source;
        std::uint32_t target;
        std::size_t commonLoops;
        std::size_t ownLoops;
        bool inOrder;
        bool ordered;

        bool operator==(const Key& other) const;
    };
    struct KeyHash {
        std::size_t operator()(const Key& key) const;
    };

    [[nodiscard]] isl::map findMeetings(const AccessPair& pair);
    [[nodiscard]] std::optional<PairFacts> decide(const AccessPair& pair, const QuickTests& tests, bool ordered);
    [[nodiscard]] static std::optional<PairFacts> giveUp(const AccessPair& pair, const QuickTests& tests, bool ordered);
    [[nodiscard]] std::optional<PairFacts> decideOrdered(const AccessPair& pair, const QuickTests& tests);
    [[nodiscard]] std::optional<PairFacts> decideUnordered(const AccessPair& pair);
    [[nodiscard]] std::optional<PairFacts> lookUp(const AccessPair& pair, const QuickTests& tests, bool ordered);

    isl::ctx m_context;
    const AccessShapes& m_shapes;
    Limits m_limits;
    Means m_means;
    ConditionTable m_conditions;
    /// For each shape the elements by the number of subscripts wanted.
    std::vector<std::vector<isl::map>> m_elements;
    // What isl has decided; looked up, never walked.
    std::unordered_map<Key, std::optional<PairFacts>, KeyHash> m_decided;
};

} // namespace DepGraph
