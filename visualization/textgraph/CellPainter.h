// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"

#include <QFont>
#include <QFontMetricsF>

class QPainter;

namespace Kova::GUI::TextGraph {

class NodeBase;

/// Draws nodes so that their texts are exactly as wide as their cells, whatever the advances of the font are:
/// characters of fixed pitch need not be a whole number of units wide, and those that the font lacks come from other
/// fonts.
class VISUALIZATION_EXPORT CellPainter {
public:
    /// Sets the painter's font to `font`, whose characters get cells of `charWidth` units.
    CellPainter(QPainter& painter, const QFont& font, int charWidth);
    void draw(const NodeBase& node);

private:
    void drawSpaced(const NodeBase& node, double wanted);
    void drawStretched(const NodeBase& node, double wanted);

    QPainter& m_painter;
    QFont m_font;
    int m_charWidth;
    QFontMetricsF m_plain;
    QFontMetricsF m_spaced;
    QFontMetricsF m_scalable;
    double m_scale;
    double m_spacing = 0.0;
    bool m_stretches;
};

} // namespace Kova::GUI::TextGraph
