// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/ConditionText_p.h"
#include "environment/analyses/lamport/EliminationFacts_p.h"
#include "environment/analyses/lamport/ExactTest_p.h"
#include "environment/analyses/lamport/OperationLimit_p.h"
#include "environment/analyses/lamport/QuickFacts_p.h"
#include "environment/analyses/lamport/RelationFacts_p.h"

#include <isl/aff.h>
#include <isl/map.h>
#include <isl/set.h>

#include <algorithm>
#include <functional>

namespace DepGraph {
namespace {

/// Adds a last range dimension that may have any value.
isl::map addUnknown(isl::map elements) {
    return isl::manage(isl_map_add_dims(elements.release(), isl_dim_out, 1));
}

isl::map addSubscript(const isl::map& elements, const isl::pw_aff& function) {
    return isl::manage(isl_map_flat_range_product(elements.copy(), isl_map_from_pw_aff(function.copy())));
}

} // namespace

bool ExactTest::Key::operator==(const Key& other) const {
    return source == other.source && target == other.target && commonLoops == other.commonLoops &&
           ownLoops == other.ownLoops && inOrder == other.inOrder && ordered == other.ordered;
}

std::size_t ExactTest::KeyHash::operator()(const Key& key) const {
    const std::size_t pair = (static_cast<std::size_t>(key.source) << 32) | key.target;
    return std::hash<std::size_t>()(pair * 0x9e3779b97f4a7c15 + (key.commonLoops * 256 + key.ownLoops) * 4 +
                                    (key.inOrder ? 2 : 0) + (key.ordered ? 1 : 0));
}

ExactTest::ExactTest(isl::ctx context, const AccessShapes& shapes, Limits limits, Means means)
    : m_context(context),
      m_shapes(shapes),
      m_limits(limits),
      m_means(means),
      m_conditions(context, shapes.getUnknowns()),
      m_elements(shapes.getCount()) {}

const isl::map& ExactTest::getElements(std::size_t access, std::size_t subscripts) {
    const AccessShape& shape = m_shapes.getShape(access);
    std::vector<isl::map>& elements = m_elements[shape.number];
    if (elements.size() <= subscripts)
        elements.resize(subscripts + 1);
    isl::map& wanted = elements[subscripts];
    if (!wanted.is_null())
        return wanted;
    isl::map result = isl::manage(isl_map_from_domain(shape.domain->set.copy()));
    for (std::size_t i = 0; i < subscripts; ++i)
        result = i < shape.subscripts.size() && !shape.subscripts[i]->function.is_null()
                     ? addSubscript(result, shape.subscripts[i]->function)
                     : addUnknown(result);
    return wanted = result;
}

bool ExactTest::isSingleElement(std::size_t access) const {
    const std::vector<const SubscriptShape*>& subscripts = m_shapes.getShape(access).subscripts;
    return std::none_of(subscripts.begin(), subscripts.end(),
                        [](const SubscriptShape* subscript) { return subscript->function.is_null(); });
}

isl::map ExactTest::findMeetings(const AccessPair& pair) {
    const std::size_t subscripts =
        std::min(m_shapes.getShape(pair.source).subscripts.size(), m_shapes.getShape(pair.target).subscripts.size());
    const isl::map source = getElements(pair.source, subscripts);
    return source.apply_range(getElements(pair.target, subscripts).reverse());
}

std::optional<PairFacts> ExactTest::test(const AccessPair& pair) {
    const QuickTests tests(m_shapes.getShape(pair.source), m_shapes.getShape(pair.target), pair.commonLoops);
    if (tests.isExact() || !tests.mayMeet(Directions(pair.commonLoops, Direction::Any)))
        return describeQuickly(tests, pair);
    return lookUp(pair, tests, true);
}

std::optional<PairFacts> ExactTest::testUnordered(const AccessPair& pair) {
    const QuickTests tests(m_shapes.getShape(pair.source), m_shapes.getShape(pair.target), pair.commonLoops);
    if (!tests.mayMeet(Directions(pair.commonLoops, Direction::Any)))
        return std::nullopt;
    return tests.isExact() ? assumeAll(pair, {}, Doubt::None) : lookUp(pair, tests, false);
}

std::optional<PairFacts> ExactTest::lookUp(const AccessPair& pair, const QuickTests& tests, bool ordered) {
    const Key key{m_shapes.getShape(pair.source).number,
                  m_shapes.getShape(pair.target).number,
                  pair.commonLoops,
                  pair.ownLoops,
                  pair.inOrder,
                  ordered};
    const auto known = m_decided.find(key);
    if (known != m_decided.end())
        return known->second;
    if (m_decided.size() >= m_limits.pairs)
        return giveUp(pair, tests, ordered);
    return m_decided.emplace(key, decide(pair, tests, ordered)).first->second;
}

/// What the quick tests leave.
std::optional<PairFacts> ExactTest::giveUp(const AccessPair& pair, const QuickTests& tests, bool ordered) {
    std::optional<PairFacts> facts = ordered ? describeQuickly(tests, pair) : assumeAll(pair, {}, Doubt::WorkLimit);
    if (facts)
        facts->doubt = Doubt::WorkLimit;
    return facts;
}

std::optional<PairFacts> ExactTest::decide(const AccessPair& pair, const QuickTests& tests, bool ordered) {
    try {
        const OperationLimit limit(m_context, m_limits.operations);
        return ordered ? decideOrdered(pair, tests) : decideUnordered(pair);
    } catch (const isl::exception&) {
        return giveUp(pair, tests, ordered);
    }
}

std::optional<PairFacts> ExactTest::decideOrdered(const AccessPair& pair, const QuickTests& tests) {
    const std::vector<int> carriers = listCarriers(pair);
    if (m_means == Means::EliminationFirst) {
        EliminationFacts elimination(m_shapes.getShape(pair.source), m_shapes.getShape(pair.target), pair.commonLoops,
                                     tests);
        if (elimination.decide(carriers)) {
            std::optional<PairFacts> facts = elimination.getFacts();
            if (facts)
                facts->condition = m_conditions.describe(elimination.getUnknowns(), elimination.getConditions());
            return facts;
        }
    }
    return RelationFacts(findMeetings(pair), pair.commonLoops, tests).describe(carriers);
}

std::optional<PairFacts> ExactTest::decideUnordered(const AccessPair& pair) {
    const isl::map meetings = findMeetings(pair);
    if (meetings.is_empty())
        return std::nullopt;
    PairFacts facts = assumeAll(pair, {}, Doubt::None);
    facts.condition = describeCondition(isl::manage(isl_map_params(meetings.copy())));
    return facts;
}

} // namespace DepGraph
