// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/AccessModel_p.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/VariableReference.h"
#include "tests/environment/analyses/lamport/NestDescription.h"

#include <deque>
#include <map>

namespace Kova::Tests {

/// The accesses of a described nest, written down as isl's text. The program behind them is a mere list of names.
class NestAccesses {
public:
    NestAccesses(isl::ctx context, const Nest& nest, std::size_t unknowns = 0) : m_context(context) {
        for (std::size_t i = 0; i < unknowns; ++i)
            m_prefix += (i == 0 ? "[" : ", ") + nameUnknown(i);
        m_prefix += unknowns > 0 ? "] -> " : "";
        walk(nest);
    }

    [[nodiscard]] const std::vector<DepGraph::Access>& get() const { return m_accesses; }
    std::vector<DepGraph::Access>& get() { return m_accesses; }

    /// The number of an occurrence, from 0.
    [[nodiscard]] int getNumber(const Tessel::ExpressionBase* occurrence) const { return m_numbers.at(occurrence); }

private:
    /// As a sum of iteration numbers t0, t1, ... and unknowns.
    [[nodiscard]] std::string write(const Affine& affine) const {
        std::string text = std::to_string(affine.constant);
        for (std::size_t i = 0; i < affine.counters.size(); ++i)
            text += " + " + std::to_string(affine.counters[i]) + "*(" + m_counters[i] + ")";
        for (std::size_t i = 0; i < affine.unknowns.size(); ++i)
            text += " + " + std::to_string(affine.unknowns[i]) + "*" + nameUnknown(i);
        return text;
    }

    [[nodiscard]] std::string writeVector() const {
        std::string text;
        for (std::size_t i = 0; i < m_counters.size(); ++i)
            text += (i == 0 ? "t" : ", t") + std::to_string(i);
        return "[" + text + "]";
    }

    void walk(const Nest& items) {
        m_positions.push_back(0);
        for (const NestItem& item : items)
            if (item.statement)
                addStatement(*item.statement);
            else
                walkLoop(*item.loop);
        m_positions.pop_back();
    }

    void walkLoop(const NestLoop& loop) {
        const std::string iteration = "t" + std::to_string(m_counters.size());
        const std::string first = write(loop.first);
        const std::string limit = write(loop.limit);
        m_counters.push_back(first + " + " + std::to_string(loop.step) + "*" + iteration);
        m_bounds.push_back(iteration + " >= 0 and " + m_counters.back() + (loop.step > 0 ? " <= " : " >= ") + limit);
        m_loops.push_back(&m_loopNodes.emplace_back(nullptr, nullptr, nullptr, nullptr));
        walk(loop.body);
        m_counters.pop_back();
        m_bounds.pop_back();
        m_loops.pop_back();
        ++m_positions.back();
    }

    void addStatement(const NestStatement& statement) {
        const std::size_t bounds = m_bounds.size();
        for (const NestCondition& condition : statement.conditions) {
            const std::string value = write(condition.value);
            m_bounds.push_back(condition.modulus == 0
                                   ? value + " >= 0"
                                   : "(" + value + ") mod " + std::to_string(condition.modulus) + " = 0");
        }
        // Printed first, executed last.
        const std::size_t target = m_accesses.size();
        const Tessel::ExpressionBase* name = addName(statement.target);
        if (statement.compound)
            addAccess(statement.target, *name, false);
        addAccess(statement.target, *name, true);
        for (const NestOccurrence& read : statement.reads)
            addAccess(read, *addName(read), false);
        m_accesses[target + (statement.compound ? 1 : 0)].positions.back() = m_positions.back()++;
        m_bounds.resize(bounds);
    }

    const Tessel::ExpressionBase* addName(const NestOccurrence& occurrence) {
        auto& variable = m_variables[occurrence.array];
        if (!variable)
            variable = std::make_unique<Tessel::VariableDeclaration>(nameArray(occurrence.array), nullptr);
        const Tessel::ExpressionBase* name = &m_names.emplace_back(*variable);
        m_numbers.emplace(name, static_cast<int>(m_numbers.size()));
        return name;
    }

    void addAccess(const NestOccurrence& occurrence, const Tessel::ExpressionBase& name, bool writes) {
        DepGraph::Access access;
        access.occurrence = &name;
        access.memory.variable = m_variables[occurrence.array].get();
        access.writes = writes;
        access.loops = m_loops;
        access.positions = m_positions;
        ++m_positions.back();
        std::string bounds;
        for (const std::string& bound : m_bounds)
            bounds += (bounds.empty() ? " : " : " and ") + bound;
        access.domain = isl::set(m_context, m_prefix + "{ " + writeVector() + bounds + " }");
        for (const Affine& subscript : occurrence.subscripts)
            access.subscripts.push_back(
                isl::pw_aff(m_context, m_prefix + "{ " + writeVector() + " -> [" + write(subscript) + "] }"));
        m_accesses.push_back(std::move(access));
    }

    isl::ctx m_context;
    std::string m_prefix;
    std::deque<Tessel::ForStatement> m_loopNodes;
    std::deque<Tessel::VariableReference> m_names;
    std::map<int, std::unique_ptr<Tessel::VariableDeclaration>> m_variables;
    std::map<const Tessel::ExpressionBase*, int> m_numbers;
    std::vector<DepGraph::Access> m_accesses;
    std::vector<std::string> m_counters;
    std::vector<std::string> m_bounds;
    std::vector<const Tessel::LoopStatement*> m_loops;
    std::vector<int> m_positions;
};

} // namespace Kova::Tests
