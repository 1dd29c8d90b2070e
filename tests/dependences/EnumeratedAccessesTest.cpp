// SPDX-License-Identifier: MIT
#include "environment/tessel/VariableDeclaration.h"
#include "tests/dependences/Machine.h"
#include "tests/dependences/ModelOf.h"
#include "tests/dependences/ProgramGenerator.h"

#include <gtest/gtest.h>
#include <isl/aff.h>
#include <isl/map.h>
#include <isl/point.h>
#include <isl/set.h>
#include <isl/val.h>

#include <cstdlib>
#include <set>
#include <sstream>

namespace {

using namespace Kova;
using namespace Kova::Test;
using DepGraph::Access;
using DepGraph::Doubt;

/// Iterations, then the known subscripts.
using Point = std::vector<long>;
using Points = std::set<Point>;
using Values = std::map<std::string, long>;

isl::set fixed(isl::set set, const Values& values) {
    for (int i = 0; i < isl_set_dim(set.get(), isl_dim_param); ++i) {
        const std::string name = isl_set_get_dim_name(set.get(), isl_dim_param, static_cast<unsigned>(i));
        const auto value = values.find(name);
        EXPECT_NE(value, values.end()) << name;
        if (value != values.end())
            set = isl::manage(isl_set_fix_si(set.release(), isl_dim_param, static_cast<unsigned>(i),
                                             static_cast<int>(value->second)));
    }
    return set;
}

/// The access as a set of points.
isl::set pointsOf(const Access& access) {
    isl::map elements = isl::manage(isl_map_from_domain(access.domain.copy()));
    for (const std::optional<isl::pw_aff>& subscript : access.subscripts)
        if (subscript)
            elements =
                isl::manage(isl_map_flat_range_product(elements.release(), isl_map_from_pw_aff(subscript->copy())));
    return isl::manage(isl_map_wrap(elements.release())).flatten();
}

Points enumerate(const isl::set& set) {
    Points points;
    set.foreach_point([&points](const isl::point& point) {
        Point numbers;
        const int count = isl_space_dim(isl::manage(isl_point_get_space(point.get())).get(), isl_dim_set);
        for (int i = 0; i < count; ++i)
            numbers.push_back(isl::manage(isl_point_get_coordinate_val(point.get(), isl_dim_set, i)).get_num_si());
        points.insert(numbers);
    });
    return points;
}

bool holds(const isl::set& set, const Point& point) {
    isl::set rest = set;
    for (std::size_t i = 0; i < point.size(); ++i)
        rest = isl::manage(
            isl_set_fix_si(rest.release(), isl_dim_set, static_cast<unsigned>(i), static_cast<int>(point[i])));
    return !rest.is_empty();
}

Point pointOf(const Access& access, const Event& event) {
    Point point = event.iterations;
    for (std::size_t i = 0; i < access.subscripts.size(); ++i)
        if (access.subscripts[i])
            point.push_back(event.element.at(i));
    return point;
}

std::vector<long> timeOf(const Access& access, const Event& event) {
    std::vector<long> time;
    for (std::size_t i = 0; i < access.loops.size(); ++i) {
        time.push_back(access.positions[i]);
        time.push_back(event.iterations[i]);
    }
    time.push_back(access.positions.back());
    return time;
}

/// Compares what a program does with what the model says.
class Comparison {
public:
    Comparison(const ModelOf& of, const std::vector<Event>& events, const Values& values) : m_of(of), m_values(values) {
        for (const Access& access : of.model.getAccesses())
            EXPECT_TRUE(m_accesses.emplace(std::pair(access.occurrence, access.writes), &access).second);
        for (const Event& event : events)
            read(event);
        for (const auto& [key, access] : m_accesses)
            compare(*access);
    }

    [[nodiscard]] const std::string& getFault() const { return m_fault; }
    [[nodiscard]] int getExactCount() const { return m_exact; }

private:
    void fail(const Access& access, const std::string& what) {
        if (m_fault.empty())
            m_fault = m_of.wordOf(access) + (access.writes ? " w " : " r ") + what;
    }

    void read(const Event& event) {
        const auto found = m_accesses.find({event.word, event.writes});
        if (found == m_accesses.end()) {
            // The counters of loops are no data.
            if (std::string("ijkxyz").find(event.word->getVariable().getName()) == std::string::npos)
                m_fault = "no access of " + event.word->getVariable().getName();
            return;
        }
        const Access& access = *found->second;
        if (access.loops.size() != event.iterations.size() || access.subscripts.size() != event.element.size()) {
            fail(access, "has another number of loops or subscripts");
            return;
        }
        const std::vector<long> time = timeOf(access, event);
        if (!(m_time < time))
            fail(access, "is out of order");
        m_time = time;
        m_happened[&access].insert(pointOf(access, event));
    }

    void compare(const Access& access) {
        const isl::set expected = fixed(pointsOf(access), m_values);
        const Points& happened = m_happened[&access];
        if (access.assumption.doubt == Doubt::None) {
            ++m_exact;
            if (!expected.is_empty() && isl_set_is_bounded(expected.get()) != isl_bool_true)
                fail(access, "never ends");
            else if (enumerate(expected) != happened)
                fail(access, "is not exact");
            return;
        }
        for (const Point& point : happened)
            if (!holds(expected, point))
                fail(access, "is missing an iteration or element");
    }

    const ModelOf& m_of;
    const Values& m_values;
    std::map<std::pair<const void*, bool>, const Access*> m_accesses;
    std::map<const Access*, Points> m_happened;
    std::vector<long> m_time;
    std::string m_fault;
    int m_exact = 0;
};

struct Count {
    int runs = 0;
    int accesses = 0;
    int exact = 0;
    int assumed = 0;
};

constexpr long steps = 20'000;

void check(unsigned seed, ProgramGenerator::Kind kind, Count& count) {
    const std::string text = ProgramGenerator(seed, kind).write();
    const ModelOf of(text);
    ASSERT_EQ(of.reading.messages().find("error"), std::string::npos) << of.reading.messages() << text;
    for (const auto& [n, m, u] : {std::tuple(0, 0, 0), {1, 3, 2}, {4, 2, 5}, {5, 5, 1}, {-2, 4, 3}}) {
        const Values values{{"n", n}, {"m", m}, {"u", u}, {"s", 1}, {"t", 0}};
        Machine machine(steps);
        if (!machine.run(of.block, values))
            continue;
        ++count.runs;
        const Comparison comparison(of, machine.getEvents(), values);
        ASSERT_EQ(comparison.getFault(), "")
            << "seed " << seed << ", n = " << n << ", m = " << m << ", u = " << u << '\n'
            << text << of.text();
        count.exact += comparison.getExactCount();
    }
    count.accesses += static_cast<int>(of.model.getAccesses().size());
    for (const Access& access : of.model.getAccesses())
        count.assumed += access.assumption.doubt != Doubt::None ? 1 : 0;
}

/// How many programs to try: more in a longer run.
unsigned programs() {
    const char* wanted = std::getenv("KOVA_GENERATED_PROGRAMS");
    return wanted != nullptr ? static_cast<unsigned>(std::atoi(wanted)) : 200;
}

TEST(EnumeratedAccesses, OfAffineProgramsAreExact) {
    Count count;
    for (unsigned seed = 1; seed <= programs() && !HasFatalFailure(); ++seed)
        check(seed, ProgramGenerator::Kind::Affine, count);
    EXPECT_GT(count.runs, 2 * static_cast<int>(programs()));
    EXPECT_GT(count.exact, 10 * static_cast<int>(programs()));
    // What takes isl too much work is no part of the promise, but it has to be rare.
    EXPECT_LT(50 * count.assumed, count.accesses);
}

TEST(EnumeratedAccesses, OfAnyProgramAreNeverMissing) {
    Count count;
    for (unsigned seed = 1; seed <= programs() && !HasFatalFailure(); ++seed)
        check(seed, ProgramGenerator::Kind::Any, count);
    EXPECT_GT(count.runs, 2 * static_cast<int>(programs()));
    EXPECT_GT(count.assumed, static_cast<int>(programs()));
}

} // namespace
