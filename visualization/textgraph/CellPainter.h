// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"

#include <QFont>
#include <QFontMetricsF>

class QPainter;

namespace Kova::GUI::TextGraph {

class NodeBase;

/// Draws texts so that they are exactly as wide as their cells, whatever the advances of the font are: characters of
/// fixed pitch need not be a whole number of units wide, and those that the font lacks come from other fonts.
class VISUALIZATION_EXPORT CellPainter {
public:
    /// Sets the painter's font to `font`, whose characters get cells of `charWidth` units.
    CellPainter(QPainter& painter, const QFont& font, int charWidth);
    void draw(const NodeBase& node);
    /// Draws a text whose base line starts at (x, y).
    void draw(int x, int y, const QString& text);

private:
    template <class Draw>
    void drawFitted(int x, const QString& text, Draw draw);
    [[nodiscard]] double spacingFor(const QString& text, double wanted) const;
    void setSpacing(double spacing);

    QPainter& m_painter;
    QFont m_font;
    int m_charWidth;
    QFontMetricsF m_plain;
    QFontMetricsF m_spaced;
    QFontMetricsF m_scalable;
    double m_scale;
    /// What plain characters need when all of them are equally wide, else NaN.
    double m_usualSpacing;
    double m_spacing = 0.0;
    bool m_stretches;
};

} // namespace Kova::GUI::TextGraph
