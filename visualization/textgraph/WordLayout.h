// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"
#include "visualization/textgraph/CellSize.h"
#include "visualization/textgraph/NodesLine.h"
#include "visualization/textgraph/ProgramText.h"

#include <QFontMetrics>
#include <QHash>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>

#include <functional>

namespace Kova::GUI::TextGraph {

/// Places the words of a program text on lines: the layout of all views over text. Every character takes a cell of the
/// font's average width; lines are the font's height + 1 apart, the first one is that far from the top.
class VISUALIZATION_EXPORT WordLayout {
public:
    /// Makes the node of a word, not null; the layout sets its rectangle, and the owner of the lines owns it.
    using MakeNode = std::function<NodeBase*(const QPoint& pos, const QString& text, const Tessel::TesselBase* object)>;

    /// Adds lines below those of the list, which has to outlive the layout. What a MakeNode throws passes on; lines and
    /// nodes that were made so far stay in the list.
    WordLayout(const QFont& font, QList<NodesLine>& lines);

    /// A line for each printed line, a node for each word. Blank words only take their room; the others are followed by
    /// half a cell.
    void addWords(const ProgramLines& text, const MakeNode& makeNode);
    /// A line for each printed line, with one node for its first word behind the word's leading blanks, which take a
    /// cell each.
    void addStatements(const ProgramLines& text, const MakeNode& makeNode);
    /// One more line with one node, which is moved there: below all others, at a column counted from 0.
    void addLine(NodeBase& node, int column);

    /// The largest right end of a node that was placed, and the y of the list's last line + the font's height - 1; 0
    /// for what there is none of.
    [[nodiscard]] QSize getSize() const;

private:
    [[nodiscard]] NodesLine& openLine();
    void place(NodesLine& line, NodeBase& node);
    [[nodiscard]] const QRect& rectOf(const QString& text);
    [[nodiscard]] int blankWidth(const QString& blanks);

    QFontMetrics m_metrics;
    CellSize m_cell;
    QList<NodesLine>& m_lines;
    int m_rightEnd = 0;
    // Programs repeat their words, and measuring text is slow.
    QHash<QString, QRect> m_rects;
    QHash<QString, int> m_blanks;
};

} // namespace Kova::GUI::TextGraph
