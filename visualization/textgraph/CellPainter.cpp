// SPDX-License-Identifier: MIT
#include "visualization/textgraph/CellPainter.h"

#include "visualization/textgraph/NodeBase.h"

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>

#include <cmath>

namespace Kova::GUI::TextGraph {

namespace {

constexpr int scalableSize = 1000;
/// Fonts keep spacing in fractions of a unit.
constexpr double spacingSteps = 64.0;

QFont withSpacing(QFont font, double spacing) {
    font.setLetterSpacing(QFont::AbsoluteSpacing, spacing);
    return font;
}

/// The same font so large that its hinting and the rounding of its size do not count.
QFont scalable(QFont font) {
    font.setPixelSize(scalableSize);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

/// In pixels of the device, not rounded.
double sizeIn(const QFont& font, const QPaintDevice& device) {
    return font.pixelSize() > 0 ? font.pixelSize() : font.pointSizeF() * device.logicalDpiY() / 72.0;
}

} // namespace

CellPainter::CellPainter(QPainter& painter, const QFont& font, int charWidth)
    : m_painter(painter),
      m_font(withSpacing(font, 0.0)),
      m_charWidth(charWidth),
      m_plain(m_font, painter.device()),
      m_spaced(withSpacing(font, 1.0), painter.device()),
      m_scalable(scalable(m_font)),
      m_scale(sizeIn(font, *painter.device()) / scalableSize),
      // SVG files keep no letter spacing.
      m_stretches(painter.paintEngine()->type() == QPaintEngine::SVG) {
    m_painter.setFont(m_font);
}

void CellPainter::draw(const NodeBase& node) {
    const double wanted = static_cast<double>(m_charWidth) * node.getText().size();
    if (m_stretches)
        drawStretched(node, wanted);
    else
        drawSpaced(node, wanted);
}

void CellPainter::drawSpaced(const NodeBase& node, double wanted) {
    const double plain = m_plain.horizontalAdvance(node.getText());
    // What is spaced are glyphs, which may be fewer than characters.
    const double glyphs = m_spaced.horizontalAdvance(node.getText()) - plain;
    const double exact = glyphs > 0.0 ? (wanted - plain) / glyphs : 0.0;
    const double spacing = std::round(exact * spacingSteps) / spacingSteps;
    if (spacing != m_spacing) {
        m_spacing = spacing;
        m_font.setLetterSpacing(QFont::AbsoluteSpacing, spacing);
        m_painter.setFont(m_font);
    }
    node.draw(m_painter);
}

void CellPainter::drawStretched(const NodeBase& node, double wanted) {
    // A viewer has no reason to round the font's size.
    const double plain = m_scalable.horizontalAdvance(node.getText()) * m_scale;
    const double stretch = plain > 0.0 ? wanted / plain : 1.0;
    const QTransform transform = m_painter.worldTransform();
    const int x = node.getPos().x();
    m_painter.translate(x, 0);
    m_painter.scale(stretch, 1.0);
    m_painter.translate(-x, 0);
    node.draw(m_painter);
    m_painter.setWorldTransform(transform);
}

} // namespace Kova::GUI::TextGraph
