// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"
#include "visualization/graphcore/GenericGraphWidgetBase.h"

#include <string>
#include <utility>
#include <vector>

class CallGraph;

namespace Kova::Tessel {
class ProgramUnit;
class StatementBase;
class SubroutineDeclaration;
} // namespace Kova::Tessel

namespace Kova::GUI::CallGraph {

/// Shows which procedures of a program, a subroutine or a statement call which: a node a procedure, an edge a pair of
/// caller and callee with the calls as its tool tip.
///
/// What cannot be shown leaves the widget empty, or as far as it got, with a line on the console "CallGraphVisual". The
/// widget refers to procedures only, which must live while they are shown.
class VISUALIZATION_EXPORT CallGraphWidget : public GenericGraph::GenericGraphWidgetBase {
    Q_OBJECT

public:
    explicit CallGraphWidget(QWidget* parent = nullptr);

    /// Each entry replaces the whole picture.
    void onNewProgram(Tessel::ProgramUnit& program);
    void onNewSubroutine(Tessel::SubroutineDeclaration& subroutine);
    void onNewStatement(Tessel::StatementBase& statement);

    void visualize(const ::CallGraph& graph);
    /// Empties the view.
    void clearGraph();
    void clear() override;

    [[nodiscard]] bool isHidingOrphans() const { return m_hideOrphans; }

public Q_SLOTS:
    /// Hides or shows the procedures that neither call nor are called, and lays the picture out again; nothing when
    /// that is so already.
    void setHideOrphans(bool hide);

protected:
    /// Procedures are numbered in the order of the graph's entries; an edge is a pair of caller's and callee's numbers,
    /// the callee's being the number of procedures when it has no entry. All vectors are appended to.
    /// @param edgeCalls receives the calls of each edge as program text.
    static void callGraphToLists(const ::CallGraph& graph, std::vector<std::string>& names,
                                 std::vector<std::pair<int, int>>& edges,
                                 std::vector<Tessel::SubroutineDeclaration*>& declarations,
                                 std::vector<std::vector<std::string>>& edgeCalls);

    /// Builds the picture of lists as callGraphToLists() gives them; the view must be empty. An edge with one number
    /// out of range is left out; one with both out of range ends it with a line on the console. Declarations may be
    /// null.
    void showLists(const std::vector<std::string>& names, const std::vector<std::pair<int, int>>& edges,
                   const std::vector<Tessel::SubroutineDeclaration*>& declarations,
                   const std::vector<std::vector<std::string>>& edgeCalls);

    /// Makes the nodes without any edge invisible or visible.
    void hideOrphans(bool hide);
    void layOut();

private:
    [[nodiscard]] bool createEdges(const std::vector<std::pair<int, int>>& edges,
                                   const std::vector<std::vector<std::string>>& edgeCalls);

    QAction* m_hideOrphansAction;
    bool m_hideOrphans = false;
};

} // namespace Kova::GUI::CallGraph
