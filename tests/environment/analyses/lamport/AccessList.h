// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/AccessModel_p.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/VariableReference.h"

#include <deque>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace Kova::Tests {

/// Accesses written down by hand, with domains and subscripts in isl's notation. Each is a word of its own.
class AccessList {
public:
    explicit AccessList(isl::ctx context) : m_context(context) {}

    [[nodiscard]] const std::vector<DepGraph::Access>& get() const { return m_accesses; }
    std::vector<DepGraph::Access>& get() { return m_accesses; }

    /// One after the other in one body of as many loops as the domain has dimensions, always the same loops.
    /// @param subscripts "?" for one of which nothing is known.
    DepGraph::Access& add(const std::string& variable, bool writes, const std::string& domain,
                          const std::vector<std::string>& subscripts = {}) {
        DepGraph::Access access;
        access.occurrence = &m_words.emplace_back(getVariable(variable));
        access.memory.variable = &getVariable(variable);
        access.writes = writes;
        access.domain = isl::set(m_context, domain);
        const std::size_t depth = access.domain.tuple_dim();
        for (std::size_t i = 0; i < depth; ++i)
            access.loops.push_back(&getLoop(i));
        access.positions.assign(depth, 0);
        access.positions.push_back(m_next++);
        for (const std::string& subscript : subscripts)
            access.subscripts.push_back(subscript == "?" ? std::nullopt
                                                         : std::optional(isl::pw_aff(m_context, subscript)));
        return m_accesses.emplace_back(std::move(access));
    }
    DepGraph::Access& read(const std::string& variable, const std::string& domain,
                           const std::vector<std::string>& subscripts = {}) {
        return add(variable, false, domain, subscripts);
    }
    DepGraph::Access& write(const std::string& variable, const std::string& domain,
                            const std::vector<std::string>& subscripts = {}) {
        return add(variable, true, domain, subscripts);
    }

    Tessel::VariableDeclaration& getVariable(const std::string& name) {
        auto& variable = m_variables[name];
        if (!variable)
            variable = std::make_unique<Tessel::VariableDeclaration>(name, nullptr);
        return *variable;
    }
    /// The number of the access that the word stands for, from 0.
    [[nodiscard]] std::size_t numberOf(const Tessel::ExpressionBase* word) const {
        std::size_t number = 0;
        while (m_accesses[number].occurrence != word)
            ++number;
        return number;
    }

private:
    Tessel::LoopStatement& getLoop(std::size_t depth) {
        while (m_loops.size() <= depth)
            m_loops.emplace_back(nullptr, nullptr, nullptr, nullptr);
        return m_loops[depth];
    }

    isl::ctx m_context;
    std::deque<Tessel::ForStatement> m_loops;
    std::deque<Tessel::VariableReference> m_words;
    std::map<std::string, std::unique_ptr<Tessel::VariableDeclaration>> m_variables;
    std::vector<DepGraph::Access> m_accesses;
    int m_next = 0;
};

/// "[-1 2] (1 *) <=": carriers, distances and directions of the common loops; then the condition and the doubt's
/// number.
inline std::string describeFound(const std::vector<int>& carriers, const std::vector<std::optional<long>>& distance,
                                 const std::vector<std::string>& directions, const std::string& condition,
                                 DepGraph::Doubt doubt) {
    std::string text = "[";
    for (const int carrier : carriers)
        text += (text.size() == 1 ? "" : " ") + std::to_string(carrier);
    text += "] (";
    for (std::size_t i = 0; i < distance.size(); ++i)
        text += (i == 0 ? "" : " ") + (distance[i] ? std::to_string(*distance[i]) : "*");
    text += ")";
    for (const std::string& direction : directions)
        text += " " + (direction.empty() ? std::string("?") : direction);
    if (!condition.empty())
        text += " if " + condition;
    if (doubt != DepGraph::Doubt::None)
        text += " doubt " + std::to_string(static_cast<int>(doubt));
    return text;
}

} // namespace Kova::Tests
