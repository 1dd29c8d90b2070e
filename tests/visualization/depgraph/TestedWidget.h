// SPDX-License-Identifier: MIT
#pragma once

#include "tests/visualization/depgraph/SampleBlock.h"
#include "tests/visualization/graphcore/ObservedWidget.h"
#include "visualization/depgraph/DepGraphWidget.h"
#include "visualization/depgraph/LamportEdge.h"
#include "visualization/textgraph/GraphNodeBase.h"

#include <QMenu>
#include <QStringList>

/// A widget that lets tests look inside.
class TestedWidget : public ObservedWidget<Kova::GUI::DepGraph::DepGraphWidget> {
public:
    using DepGraphWidget::edgePolygons;
    using DepGraphWidget::heldNode;
    using DepGraphWidget::menu;

    [[nodiscard]] const Kova::GUI::DepGraph::LamportEdge& edge(int index) const {
        return getEdges().at(index)->cast_to<Kova::GUI::DepGraph::LamportEdge>();
    }
    [[nodiscard]] const Kova::GUI::TextGraph::NodeBase& node(int line, int index) const {
        return *getLines().at(line).nodes.at(index);
    }
    [[nodiscard]] QStringList textOf(int line) const {
        QStringList texts;
        for (const Kova::GUI::TextGraph::NodeBase* word : getLines().at(line).nodes)
            texts.append(word->getText());
        return texts;
    }
    [[nodiscard]] QList<bool> visibleEdges() const {
        QList<bool> visible;
        for (const Kova::GUI::TextGraph::EdgeBase* shown : getEdges())
            visible.append(shown->isVisible());
        return visible;
    }
    /// The action of an entry of the menu or, as "Variables/a", of a submenu. Null when there is none.
    [[nodiscard]] QAction* entry(const QString& path) {
        const QMenu* in = &menu();
        QAction* found = nullptr;
        for (const QString& text : path.split('/')) {
            found = nullptr;
            for (QAction* action : in->actions())
                if (action->text() == text)
                    found = action;
            if (found == nullptr || found->menu() == nullptr)
                break;
            in = found->menu();
        }
        return found;
    }

    void build(const SampleBlock& sample) { onNewGraph(sample.graph().get(), sample.block.get()); }
};
