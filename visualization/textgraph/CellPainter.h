// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QFontMetricsF>

class QPainter;

namespace Kova::GUI::TextGraph {

class NodeBase;

/// Draws nodes so that their texts are exactly as wide as their cells, whatever the advances of the font are:
/// characters of fixed pitch need not be a whole number of units wide, and those that the font lacks come from other
/// fonts.
class CellPainter {
public:
    /// Sets the painter's font to `font`, whose characters get cells of `charWidth` units.
    CellPainter(QPainter& painter, const QFont& font, int charWidth);
    void draw(const NodeBase& node);

private:
    void setSpacing(double spacing);
    void drawStretched(const NodeBase& node, double stretch);

    QPainter& m_painter;
    QFont m_font;
    QFontMetricsF m_plain;
    QFontMetricsF m_spaced;
    int m_charWidth;
    double m_spacing = 0.0;
    bool m_stretches;
};

} // namespace Kova::GUI::TextGraph
