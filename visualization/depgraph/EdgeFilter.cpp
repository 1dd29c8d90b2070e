// SPDX-License-Identifier: MIT
#include "visualization/depgraph/EdgeFilter.h"

#include "visualization/depgraph/LamportEdge.h"
#include "visualization/textgraph/EdgesList.h"
#include "visualization/textgraph/GraphNodeBase.h"

#include <QMap>

#include <algorithm>

namespace Kova::GUI::DepGraph {

using namespace ::DepGraph;
using TextGraph::EdgeBase;

namespace {

/// In the order of the kinds' actions.
constexpr int kindBits[] = {DT_FLOW, DT_ANTI, DT_OUTPUT, DT_INPUT};
constexpr int allKinds = DT_FLOW | DT_ANTI | DT_OUTPUT | DT_INPUT;
constexpr int withinIteration = -1;

template <class T>
void setShown(QSet<T>& shown, const T& choice, bool show) {
    if (show)
        shown.insert(choice);
    else
        shown.remove(choice);
}

} // namespace

EdgeFilter::EdgeFilter(QObject* parent)
    : QObject(parent),
      m_typeMask(allKinds),
      m_varsMenu(tr("Variables"), tr("All")),
      m_carriersMenu(tr("Carriers"), tr("All")) {
    for (const QString& text : {tr("Flow"), tr("Anti"), tr("Output"), tr("Input")}) {
        QAction* action = makeCheckedAction(text, this);
        // Toggles, whatever has changed: nothing else about these actions may change from now on.
        connect(action, &QAction::changed, this, &EdgeFilter::typeFilterChanged);
        m_kindActions.append(action);
    }
    connect(&m_varsMenu.allAction(), &QAction::changed, this, &EdgeFilter::allVarsChanged);
    connect(&m_carriersMenu.allAction(), &QAction::changed, this, &EdgeFilter::allCarriersChanged);
}

QList<QAction*> EdgeFilter::getActions() {
    return m_kindActions + QList<QAction*>{m_varsMenu.menu().menuAction(), m_carriersMenu.menu().menuAction()};
}

void EdgeFilter::setGraph(const TextGraph::EdgesList& edges) {
    createVarActions(edges);
    createCarrierActions(edges);
    Q_EMIT filterChanged();
}

void EdgeFilter::createVarActions(const TextGraph::EdgesList& edges) {
    m_varsMenu.clear();
    QMap<QString, bool> texts;
    for (const EdgeBase* edge : edges) {
        const auto& dependence = edge->cast_to<LamportEdge>();
        texts.insert(dependence.getFrom()->getText(), true);
        texts.insert(dependence.getTo()->getText(), true);
    }
    const QStringList inOrder = texts.keys();
    m_vars = QSet<QString>(inOrder.begin(), inOrder.end());
    for (QAction* action : m_varsMenu.fill(inOrder))
        connect(action, &QAction::changed, this, &EdgeFilter::varFilterChanged);
}

void EdgeFilter::createCarrierActions(const TextGraph::EdgesList& edges) {
    m_carriersMenu.clear();
    QMap<int, QString> texts{{withinIteration, tr("LID")}};
    for (const EdgeBase* edge : edges) {
        for (const int number : edge->cast_to<LamportEdge>().getCarriers()) {
            if (!texts.contains(number))
                texts.insert(number, QString::number(number));
        }
    }
    const QList<int> numbers = texts.keys();
    m_carriers = QSet<int>(numbers.begin(), numbers.end());
    for (QAction* action : m_carriersMenu.fill(texts.values()))
        connect(action, &QAction::changed, this, &EdgeFilter::carrierFilterChanged);
}

bool EdgeFilter::filterEdge(const LamportEdge* edge) const {
    if ((edge->getType() & m_typeMask) == 0)
        return false;
    if (!m_vars.contains(edge->getFrom()->getText()) || !m_vars.contains(edge->getTo()->getText()))
        return false;
    return std::any_of(m_carriers.begin(), m_carriers.end(), [edge](int number) { return edge->hasCarrier(number); });
}

void EdgeFilter::addRemoveFilter(int bit) {
    constexpr int lowByte = 0xff;
    m_typeMask ^= bit & lowByte;
}

void EdgeFilter::typeFilterChanged() {
    const int index = m_kindActions.indexOf(qobject_cast<QAction*>(sender()));
    if (index != -1)
        addRemoveFilter(kindBits[index]);
    Q_EMIT filterChanged();
}

void EdgeFilter::varFilterChanged() {
    if (const auto* action = qobject_cast<QAction*>(sender()))
        setShown(m_vars, action->text(), action->isChecked());
    Q_EMIT filterChanged();
}

void EdgeFilter::carrierFilterChanged() {
    if (const auto* action = qobject_cast<QAction*>(sender())) {
        const QString text = action->text();
        setShown(m_carriers, text == tr("LID") ? withinIteration : text.toInt(), action->isChecked());
    }
    Q_EMIT filterChanged();
}

void EdgeFilter::allVarsChanged() {
    m_varsMenu.followAll();
}

void EdgeFilter::allCarriersChanged() {
    m_carriersMenu.followAll();
}

} // namespace Kova::GUI::DepGraph
