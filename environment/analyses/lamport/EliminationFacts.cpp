// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/EliminationFacts_p.h"

#include <algorithm>

namespace DepGraph {
namespace {

void collectUnknowns(const LinearForm& form, std::vector<int>& unknowns) {
    for (const auto& entry : form.unknowns)
        unknowns.push_back(entry.first);
}

void collectUnknowns(const AccessShape& shape, std::vector<int>& unknowns) {
    for (const DomainPart& part : *shape.domain->parts)
        for (const DomainConstraint& constraint : part)
            collectUnknowns(constraint.form, unknowns);
    for (const SubscriptShape* subscript : shape.subscripts)
        if (subscript->form)
            collectUnknowns(*subscript->form, unknowns);
}

} // namespace

EliminationFacts::EliminationFacts(const AccessShape& source, const AccessShape& target, std::size_t commonLoops,
                                   const QuickTests& tests)
    : m_source(source),
      m_target(target),
      m_commonLoops(commonLoops),
      m_tests(tests),
      m_sourceLoops(source.domain->ranges.size()),
      m_loops(m_sourceLoops + target.domain->ranges.size()),
      m_collector(commonLoops) {}

bool EliminationFacts::decide(const std::vector<int>& carriers) {
    return readSystems() &&
           std::all_of(carriers.begin(), carriers.end(), [this](int carrier) { return decideCarrier(carrier); });
}

std::optional<PairFacts> EliminationFacts::getFacts() const {
    if (m_carriers.empty())
        return std::nullopt;
    PairFacts facts;
    facts.carriers = m_carriers;
    m_collector.writeTo(facts);
    return facts;
}

bool EliminationFacts::readSystems() {
    if (!m_source.domain->parts || !m_target.domain->parts)
        return false;
    const std::size_t subscripts = std::min(m_source.subscripts.size(), m_target.subscripts.size());
    for (std::size_t i = 0; i < subscripts; ++i)
        for (const SubscriptShape* subscript : {m_source.subscripts[i], m_target.subscripts[i]})
            if (!subscript->function.is_null() && !subscript->form)
                return false;
    collectUnknowns(m_source, m_unknowns);
    collectUnknowns(m_target, m_unknowns);
    std::sort(m_unknowns.begin(), m_unknowns.end());
    m_unknowns.erase(std::unique(m_unknowns.begin(), m_unknowns.end()), m_unknowns.end());
    for (const DomainPart& source : *m_source.domain->parts)
        for (const DomainPart& target : *m_target.domain->parts)
            m_systems.push_back(makeSystem(source, target));
    return true;
}

LinearSystem EliminationFacts::makeSystem(const DomainPart& source, const DomainPart& target) const {
    LinearSystem system(m_loops + m_unknowns.size());
    const std::size_t subscripts = std::min(m_source.subscripts.size(), m_target.subscripts.size());
    for (std::size_t i = 0; i < subscripts; ++i) {
        const std::optional<LinearForm>& one = m_source.subscripts[i]->form;
        const std::optional<LinearForm>& other = m_target.subscripts[i]->form;
        if (!one || !other)
            continue;
        LinearSystem::Row row = makeRow(&*one, &*other);
        row.equality = true;
        system.add(std::move(row));
    }
    for (const DomainConstraint& constraint : source) {
        LinearSystem::Row row = makeRow(&constraint.form, nullptr);
        row.equality = constraint.equality;
        system.add(std::move(row));
    }
    const LinearForm none{0, std::vector<long>(m_sourceLoops, 0), {}};
    for (const DomainConstraint& constraint : target) {
        LinearSystem::Row row = makeRow(&none, &constraint.form);
        for (long& factor : row.factors)
            factor = -factor;
        row.constant = -row.constant;
        row.equality = constraint.equality;
        system.add(std::move(row));
    }
    return system;
}

/// source - target
LinearSystem::Row EliminationFacts::makeRow(const LinearForm* source, const LinearForm* target) const {
    LinearSystem::Row row{std::vector<long>(m_loops + m_unknowns.size(), 0), source->constant, false};
    std::copy(source->iterations.begin(), source->iterations.end(), row.factors.begin());
    const auto place = [&](int unknown) -> long& {
        const auto number = std::lower_bound(m_unknowns.begin(), m_unknowns.end(), unknown) - m_unknowns.begin();
        return row.factors[m_loops + static_cast<std::size_t>(number)];
    };
    for (const auto& [unknown, factor] : source->unknowns)
        place(unknown) += factor;
    if (target == nullptr)
        return row;
    row.constant -= target->constant;
    for (std::size_t i = 0; i < target->iterations.size(); ++i)
        row.factors[m_sourceLoops + i] = -target->iterations[i];
    for (const auto& [unknown, factor] : target->unknowns)
        place(unknown) -= factor;
    return row;
}

/// Keeps the iterations that have the given directions.
void EliminationFacts::cut(LinearSystem& system, const Directions& directions) const {
    for (std::size_t loop = 0; loop < directions.size(); ++loop) {
        if (directions[loop] == Direction::Any)
            continue;
        LinearSystem::Row row{std::vector<long>(system.countVariables(), 0), 0, true};
        row.factors[loop] = -1;
        row.factors[m_sourceLoops + loop] = 1;
        if (directions[loop] == Direction::Later) {
            row.constant = -1;
            row.equality = false;
        }
        system.add(std::move(row));
    }
}

bool EliminationFacts::decideCarrier(int carrier) {
    const Directions directions = getDirections(carrier, m_commonLoops);
    if (!m_tests.mayMeet(directions))
        return true;
    bool meets = false;
    for (LinearSystem system : m_systems) {
        cut(system, directions);
        LinearSystem condition = system;
        condition.eliminate(0, m_loops);
        LinearSystem existence = condition;
        existence.eliminate(m_loops, m_loops + m_unknowns.size());
        if (!existence.isSolved())
            return false;
        if (existence.isContradictory())
            continue;
        meets = true;
        m_conditions.push_back(condition.getRows());
        if (!addDistances(system, directions))
            return false;
    }
    if (meets)
        m_carriers.push_back(carrier);
    return true;
}

bool EliminationFacts::addDistances(const LinearSystem& system, const Directions& directions) {
    for (std::size_t loop = 0; loop < m_commonLoops; ++loop) {
        IterationRange range = m_tests.findDistances(loop, directions[loop]).value_or(IterationRange{0, -1});
        if (range.low != range.high) {
            LinearSystem distance = system;
            distance.addDifference(loop, m_sourceLoops + loop);
            distance.eliminate(0, m_loops + m_unknowns.size());
            if (!distance.isSolved())
                return false;
            range = distance.findRange(m_loops + m_unknowns.size());
        }
        m_collector.add(loop, range, range.low <= 0 && range.high >= 0);
    }
    return true;
}

} // namespace DepGraph
