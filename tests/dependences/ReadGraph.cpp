// SPDX-License-Identifier: MIT
#include "tests/dependences/ReadGraph.h"

#include "environment/analyses/lamport/AccessText_p.h"
#include "environment/tessel/MemberExpression.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/SubscriptExpression.h"
#include "environment/tessel/VariableReference.h"
#include "environment/tessel/service/Preorder.h"

#include <stdexcept>

namespace Kova::Tests {

using namespace Tessel;
using namespace DepGraph;

namespace {

/// The whole access that a word stands for.
std::string writeAccess(const ExpressionBase& occurrence) {
    const TesselBase* top = &occurrence;
    for (const TesselBase* parent = top->getParent(); parent != nullptr && parent->getChild(0) == top;
         parent = top->getParent()) {
        if (dynamic_cast<const SubscriptExpression*>(parent) == nullptr &&
            dynamic_cast<const MemberExpression*>(parent) == nullptr)
            break;
        top = parent;
    }
    return printShort(*top);
}

std::string nameDoubt(Doubt doubt) {
    switch (doubt) {
    case Doubt::None:
        return "nothing";
    case Doubt::NotRefined:
        return "not refined";
    case Doubt::Subscript:
        return "subscript";
    case Doubt::Pointer:
        return "pointer";
    case Doubt::Member:
        return "member";
    case Doubt::Bounds:
        return "bounds";
    case Doubt::Condition:
        return "condition";
    case Doubt::Jump:
        return "jump";
    case Doubt::Call:
        return "call";
    case Doubt::Opaque:
        return "opaque";
    case Doubt::QuickTest:
        return "quick test";
    case Doubt::WorkLimit:
        return "work limit";
    }
    return "?";
}

std::string nameKind(EN_DepType type) {
    return type == DT_FLOW ? "flow" : type == DT_ANTI ? "anti" : type == DT_OUTPUT ? "output" : "input";
}

} // namespace

ReadGraph::ReadGraph(const std::string& text, EN_RefineMethod method, bool withInput) : m_reading(text) {
    if (m_reading.result != Frontends::CFrontend::Result::Complete)
        throw std::runtime_error(m_reading.messages());
    for (std::size_t i = 0; i < m_reading.unit().getChildCount(); ++i) {
        const auto* function = dynamic_cast<const SubroutineDeclaration*>(m_reading.unit().getChild(i));
        if (function != nullptr && function->hasImplementation())
            m_body = function->getBody();
    }
    m_graph.Build(*m_body, BP_DEFAULT, withInput);
    m_graph.Refine(method);
}

std::string ReadGraph::name(const ExpressionBase& occurrence) const {
    const SourceRange& place = occurrence.getSourceRange();
    const std::string text = writeAccess(occurrence);
    int number = 1;
    for (const TesselBase& node : Service::Preorder(*m_body)) {
        if (&node == &occurrence)
            break;
        const auto* other = dynamic_cast<const VariableReference*>(&node);
        if (other != nullptr && other->getSourceRange().beginLine == place.beginLine && writeAccess(*other) == text)
            ++number;
    }
    return std::to_string(place.beginLine) + ":" + text + (number > 1 ? "#" + std::to_string(number) : "");
}

std::string ReadGraph::describe(const DependenceFacts& facts) const {
    std::string text = nameKind(facts.type) + " " + name(*facts.source) + " -> " + name(*facts.target) + " by";
    for (const int carrier : facts.carriers)
        text += " " + std::to_string(carrier);
    text += " (";
    for (std::size_t loop = 0; loop < facts.distance.size(); ++loop) {
        const std::string direction = facts.directions[loop].empty() ? "?" : facts.directions[loop];
        text += (loop == 0 ? "" : ", ") + (facts.distance[loop] ? std::to_string(*facts.distance[loop]) : direction);
    }
    text += ")" + (facts.condition.empty() ? "" : " if " + facts.condition);
    if (facts.assumption.doubt != Doubt::None)
        text += " assumed: " + nameDoubt(facts.assumption.doubt);
    return text + "\n";
}

std::string ReadGraph::describe() const {
    std::string text;
    for (const LampArrow* arrow : m_graph.getArrows())
        text += describe(arrow->getFacts());
    return text;
}

std::string ReadGraph::describe(const std::string& variable) const {
    std::string text;
    for (const LampArrow* arrow : m_graph.getArrows())
        if (static_cast<const VariableReference*>(arrow->getSource())->getVariable().getName() == variable)
            text += describe(arrow->getFacts());
    return text;
}

} // namespace Kova::Tests
