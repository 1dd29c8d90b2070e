// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/IslSpaces_p.h"
#include "environment/analyses/lamport/SwitchReach_p.h"
#include "environment/tessel/CaseStatement.h"
#include "environment/tessel/SwitchStatement.h"
#include "environment/tessel/service/Preorder.h"

namespace DepGraph {

using namespace Kova::Tessel;

namespace {

/// The labels of one switch, without those of switches inside it.
std::vector<const CaseStatement*> labelsOf(SwitchStatement& node) {
    std::vector<const CaseStatement*> labels;
    const Service::Preorder nodes(node);
    for (auto inner = nodes.begin(); inner != nodes.end();) {
        if (&*inner != &node && dynamic_cast<const SwitchStatement*>(&*inner) != nullptr) {
            inner.skipChildren();
            continue;
        }
        if (const auto* label = dynamic_cast<const CaseStatement*>(&*inner))
            labels.push_back(label);
        ++inner;
    }
    return labels;
}

} // namespace

SwitchReach::SwitchReach(Course& course, SwitchStatement& node)
    : m_course(course),
      m_node(node),
      m_entry(course.getReach()) {
    const isl::set everywhere = allVectors(course.getContext(), course.getDepth());
    m_left = {everywhere.subtract(everywhere), {}};
    if (node.getSelector() != nullptr)
        course.guarded([&] { m_selector = course.getReader().read(*node.getSelector()); });
    isl::set others = everywhere;
    for (const CaseStatement* label : labelsOf(node)) {
        if (label->isDefault()) {
            m_hasDefault = true;
            continue;
        }
        const std::optional<isl::set> values = valuesOf(*label);
        const bool isDone = values && course.guarded([&] { others = others.subtract(*values).coalesce(); });
        if (!isDone)
            return;
    }
    m_others = others;
}

std::optional<isl::set> SwitchReach::valuesOf(const CaseStatement& label) {
    std::optional<isl::set> values;
    if (!m_selector || label.getValue() == nullptr)
        return values;
    m_course.guarded([&] {
        const AffineReader::Function first = m_course.getReader().read(*label.getValue());
        const AffineReader::Function last =
            label.getLastValue() != nullptr ? m_course.getReader().read(*label.getLastValue()) : first;
        if (first && last)
            values = m_selector->ge_set(*first).intersect(m_selector->le_set(*last));
    });
    return values;
}

Reach SwitchReach::choose(const std::optional<isl::set>& values, const TesselBase* where) const {
    if (values)
        return m_course.narrowed(m_entry, *values, where);
    Reach reach = m_entry;
    reach.doubt(Doubt::Condition, where);
    return reach;
}

Reach SwitchReach::reachOf(const CaseStatement& label) {
    return choose(label.isDefault() ? m_others : valuesOf(label), &m_node);
}

void SwitchReach::leave() {
    m_left = m_course.united(m_left, m_course.getReach(), &m_node);
}

Reach SwitchReach::getAfter() {
    const Reach after = m_course.united(m_left, m_course.getReach(), &m_node);
    return m_hasDefault ? after : m_course.united(after, choose(m_others, &m_node), &m_node);
}

} // namespace DepGraph
