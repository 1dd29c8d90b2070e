// SPDX-License-Identifier: MIT
#pragma once

#include "tests/environment/analyses/lamport/NestDescription.h"

#include <algorithm>
#include <map>
#include <optional>
#include <ostream>
#include <set>
#include <tuple>

namespace Kova::Tests {

/// What an arrow says, by numbers: occurrences count from 0 as they are printed.
struct Arc {
    std::set<int> carriers;
    std::vector<std::optional<long>> distance;
    std::vector<std::string> directions;

    bool operator==(const Arc& other) const {
        return carriers == other.carriers && distance == other.distance && directions == other.directions;
    }
};

struct ArcKey {
    int source;
    int target;
    /// 1 flow, 2 anti, 4 output, 8 input.
    int kind;

    bool operator<(const ArcKey& other) const {
        return std::tie(source, target, kind) < std::tie(other.source, other.target, other.kind);
    }
};
using Arcs = std::map<ArcKey, Arc>;

inline std::ostream& operator<<(std::ostream& stream, const Arc& arc) {
    stream << "carriers";
    for (const int carrier : arc.carriers)
        stream << ' ' << carrier;
    stream << ", distance (";
    for (const std::optional<long>& distance : arc.distance)
        stream << ' ' << (distance ? std::to_string(*distance) : "*");
    stream << " ), directions (";
    for (const std::string& directions : arc.directions)
        stream << ' ' << directions;
    return stream << " )";
}

inline std::ostream& operator<<(std::ostream& stream, const ArcKey& key) {
    return stream << key.source << " -> " << key.target << " kind " << key.kind;
}

/// Runs all iterations of a nest and compares every access with every other one. Knows nothing of the analysis.
class EnumeratedNest {
public:
    explicit EnumeratedNest(const Nest& nest, std::vector<long> unknowns = {}) : m_unknowns(std::move(unknowns)) {
        std::vector<int> place;
        run(nest, place, 0);
    }

    [[nodiscard]] std::size_t countEvents() const { return m_events.size(); }

    /// Every pair of accesses to one element.
    [[nodiscard]] Arcs findMemoryBased() const { return findArcs(false); }
    /// Only pairs between which nobody writes the element.
    [[nodiscard]] Arcs findValueBased() const { return findArcs(true); }

private:
    struct Event {
        int occurrence;
        bool writes;
        std::pair<int, std::vector<long>> element;
        /// The numbers of the loops around it, as they are met in the text.
        std::vector<int> loops;
        std::vector<long> iterations;
    };
    struct Extent {
        long low;
        long high;
        bool zero;
    };

    /// @param first the number of the first occurrence in the items; @return how many there are.
    int run(const Nest& items, std::vector<int>& loops, int first) {
        int occurrences = 0;
        int loopNumber = 0;
        for (const NestItem& item : items)
            if (item.statement)
                occurrences += runStatement(*item.statement, loops, first + occurrences);
            else
                occurrences += runLoop(*item.loop, loops, first + occurrences, loopNumber++);
        return occurrences;
    }

    int runLoop(const NestLoop& loop, std::vector<int>& loops, int first, int number) {
        const long begin = evaluate(loop.first, m_counters, m_unknowns);
        const long limit = evaluate(loop.limit, m_counters, m_unknowns);
        loops.push_back(number);
        m_counters.push_back(begin);
        m_iterations.push_back(0);
        while (loop.step > 0 ? m_counters.back() <= limit : m_counters.back() >= limit) {
            run(loop.body, loops, first);
            m_counters.back() += loop.step;
            ++m_iterations.back();
        }
        loops.pop_back();
        m_counters.pop_back();
        m_iterations.pop_back();
        return count(loop.body);
    }

    static int count(const Nest& items) {
        int occurrences = 0;
        for (const NestItem& item : items)
            occurrences += item.statement ? 1 + static_cast<int>(item.statement->reads.size()) : count(item.loop->body);
        return occurrences;
    }

    int runStatement(const NestStatement& statement, const std::vector<int>& loops, int first) {
        const bool runs =
            std::all_of(statement.conditions.begin(), statement.conditions.end(), [&](const NestCondition& condition) {
                const long value = evaluate(condition.value, m_counters, m_unknowns);
                return condition.modulus == 0 ? value >= 0 : value % condition.modulus == 0;
            });
        if (runs) {
            if (statement.compound)
                record(statement.target, first, false, loops);
            for (std::size_t i = 0; i < statement.reads.size(); ++i)
                record(statement.reads[i], first + 1 + static_cast<int>(i), false, loops);
            record(statement.target, first, true, loops);
        }
        return 1 + static_cast<int>(statement.reads.size());
    }

    void record(const NestOccurrence& occurrence, int number, bool writes, const std::vector<int>& loops) {
        std::vector<long> element;
        for (const Affine& subscript : occurrence.subscripts)
            element.push_back(evaluate(subscript, m_counters, m_unknowns));
        m_events.push_back({number, writes, {occurrence.array, std::move(element)}, loops, m_iterations});
    }

    [[nodiscard]] Arcs findArcs(bool untilWritten) const {
        std::map<std::pair<int, std::vector<long>>, std::vector<const Event*>> byElement;
        for (const Event& event : m_events)
            byElement[event.element].push_back(&event);
        std::map<ArcKey, std::vector<Extent>> extents;
        Arcs arcs;
        for (const auto& [element, events] : byElement)
            for (std::size_t target = 0; target < events.size(); ++target)
                for (std::size_t source = target; source-- > 0;) {
                    add(*events[source], *events[target], arcs, extents);
                    if (untilWritten && events[source]->writes)
                        break;
                }
        for (auto& [key, arc] : arcs)
            describe(extents[key], arc);
        return arcs;
    }

    static void add(const Event& source, const Event& target, Arcs& arcs,
                    std::map<ArcKey, std::vector<Extent>>& extents) {
        if (source.occurrence == target.occurrence && source.iterations == target.iterations)
            return;
        const int kind = source.writes ? (target.writes ? 4 : 1) : (target.writes ? 2 : 8);
        const ArcKey key{source.occurrence, target.occurrence, kind};
        std::size_t common = 0;
        while (common < source.loops.size() && common < target.loops.size() &&
               source.loops[common] == target.loops[common])
            ++common;
        std::vector<Extent>& all = extents[key];
        int carrier = -1;
        for (std::size_t loop = common; loop-- > 0;)
            if (source.iterations[loop] != target.iterations[loop])
                carrier = static_cast<int>(loop) + 1;
        arcs[key].carriers.insert(carrier);
        for (std::size_t loop = 0; loop < common; ++loop) {
            const long distance = target.iterations[loop] - source.iterations[loop];
            if (all.size() <= loop)
                all.push_back({distance, distance, false});
            all[loop] = {std::min(all[loop].low, distance), std::max(all[loop].high, distance),
                         all[loop].zero || distance == 0};
        }
    }

    static void describe(const std::vector<Extent>& extents, Arc& arc) {
        for (const Extent& extent : extents) {
            arc.distance.push_back(extent.low == extent.high ? std::optional(extent.low) : std::nullopt);
            arc.directions.push_back(std::string(extent.high > 0 ? "<" : "") + (extent.zero ? "=" : "") +
                                     (extent.low < 0 ? ">" : ""));
        }
    }

    std::vector<long> m_unknowns;
    std::vector<long> m_counters;
    std::vector<long> m_iterations;
    std::vector<Event> m_events;
};

} // namespace Kova::Tests
