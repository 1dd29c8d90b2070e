// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/TranslationUnit.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/service/Preorder.h"
#include "tests/frontends/c/Reading.h"

#include <stdexcept>

namespace Kova::Test {

/// The body of the first function of a C text that has one, and what is found in it.
class FirstBody {
public:
    explicit FirstBody(const std::string& text) : m_reading(text) {
        for (Tessel::TesselBase& node : Tessel::Service::Preorder(m_reading.unit())) {
            const auto* function = dynamic_cast<const Tessel::SubroutineDeclaration*>(&node);
            if (m_body == nullptr && function != nullptr && function->hasImplementation())
                m_body = function->getBody();
        }
        if (m_body == nullptr)
            throw std::runtime_error(m_reading.messages());
    }

    [[nodiscard]] Tessel::BlockStatement& get() const { return *m_body; }
    [[nodiscard]] Tessel::TranslationUnit& unit() const { return m_reading.unit(); }

    /// All nodes of a class below the body, in the order in which they are printed.
    template <class Node>
    [[nodiscard]] std::vector<Node*> findAll() const {
        std::vector<Node*> found;
        for (Tessel::TesselBase& node : Tessel::Service::Preorder(*m_body))
            if (auto* one = dynamic_cast<Node*>(&node))
                found.push_back(one);
        return found;
    }
    /// The variable of a name, the first one of the file.
    [[nodiscard]] const Tessel::VariableDeclaration& findVariable(const std::string& name) const {
        for (Tessel::TesselBase& node : Tessel::Service::Preorder(m_reading.unit()))
            if (const auto* variable = dynamic_cast<const Tessel::VariableDeclaration*>(&node);
                variable != nullptr && variable->getName() == name)
                return *variable;
        throw std::runtime_error("no variable " + name);
    }

private:
    Reading m_reading;
    Tessel::BlockStatement* m_body = nullptr;
};

} // namespace Kova::Test
