// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/DependenceTypes.h"
#include "visualization/VisualizationExport.h"
#include "visualization/depgraph/EdgeFilter.h"
#include "visualization/textgraph/ProgramText.h"
#include "visualization/textgraph/TextGraphWidgetBase.h"

#include <QList>

class QActionGroup;

namespace DepGraph {
class LamportGraph;
}

namespace Kova::Tessel {
class BlockStatement;
}

namespace Kova::GUI::DepGraph {

class GraphFactory;

/// Shows the dependences of a block over the block's own text: each occurrence of a variable that takes part in one is
/// a node, each dependence an arrow in the colour of its kind with a hint in one of four wordings. The menu filters
/// them.
///
/// The widget refers to the block's tree no longer than an entry takes. What the factory throws (NodeAlreadyExist,
/// NodeNotFound) passes on and leaves the view half built.
class VISUALIZATION_EXPORT DepGraphWidget : public TextGraph::TextGraphWidgetBase {
    Q_OBJECT

public:
    explicit DepGraphWidget(QWidget* parent = nullptr);

    [[nodiscard]] bool filterEdge(const TextGraph::EdgeBase* edge) override;

    /// Each entry replaces the whole picture; null empties the view. This one analyses the block exactly, with input
    /// dependences.
    virtual void onNewBlock(Tessel::BlockStatement* block);
    /// @param flag whether there are to be input dependences.
    virtual void onNewBlockEx(Tessel::BlockStatement* block, bool flag, ::DepGraph::EN_RefineMethod method);
    /// Shows a graph of the block, which stays the caller's: edges are in the order of the graph's arrows.
    virtual void onNewGraph(::DepGraph::LamportGraph* graph, Tessel::BlockStatement* block);

    /// Its filterChanged() comes after the edges were shown or hidden.
    [[nodiscard]] EdgeFilter& getFilter() { return m_filter; }

public Q_SLOTS:
    /// Shows and hides edges as the filter says.
    void edgeFilterChanged();
    /// Chooses the wording of the hints by its action.
    void hintsFormChanged(QAction* action);

private:
    void createActions();
    void createMenu();
    void clearView();
    void visualize(const ::DepGraph::LamportGraph& graph, Tessel::BlockStatement& block);
    void buildGraph(const ::DepGraph::LamportGraph& graph, const TextGraph::ProgramLines& text);
    void convertTextToNodes(const TextGraph::ProgramLines& text, GraphFactory& factory);
    void convertLamportToEdges(const ::DepGraph::LamportGraph& graph, const GraphFactory& factory);
    void updateEdgesHints(int index);

    /// "Popular Russian", "Developer English", "Developer Russian", "Popular English": as tags are numbered.
    QList<QAction*> m_hintForms;
    QActionGroup* m_hintFormGroup = nullptr;
    EdgeFilter m_filter;
};

} // namespace Kova::GUI::DepGraph
