// SPDX-License-Identifier: MIT
#include "visualization/depgraph/GraphFactory.h"

#include "environment/analyses/lamport/LampArrow.h"
#include "visualization/depgraph/LamportEdge.h"

namespace Kova::GUI::DepGraph {

using namespace ::DepGraph;

std::unique_ptr<LamportEdge> GraphFactory::createEdge(const Tessel::ExpressionBase* from,
                                                      const Tessel::ExpressionBase* to, const LampArrow* arrow) const {
    const ExpressionNodes::Ends ends = m_nodes.find(from, to);
    auto edge = std::make_unique<LamportEdge>(ends.from, ends.to, arrow->getType());
    QList<int> carriers;
    for (const int number : arrow->getCarriers())
        carriers.append(number);
    edge->setCarriers(carriers);
    QStringList tags;
    for (const EN_PrintModes mode :
         {PM_POPULAR_RUSSIAN, PM_DEVELOPER_ENGLISH, PM_DEVELOPER_RUSSIAN, PM_POPULAR_ENGLISH})
        tags.append(QString::fromStdString(arrow->GetTag(mode)));
    edge->setTags(tags);
    return edge;
}

} // namespace Kova::GUI::DepGraph
