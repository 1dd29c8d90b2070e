// SPDX-License-Identifier: MIT
#include "visualization/textgraph/CellPainter.h"

#include "visualization/textgraph/NodeBase.h"

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>

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

double rounded(double spacing) {
    return std::round(spacing * spacingSteps) / spacingSteps;
}

/// Of ASCII: what every font of fixed pitch has.
bool isPlain(QChar character) {
    return character >= ' ' && character <= '~';
}

/// What each character of a font of fixed pitch needs to be as wide as its cell; NaN for other fonts. Most texts of
/// programs are plain, and to measure each of them takes as long as to draw it.
double usualSpacing(const QFontMetricsF& metrics, int charWidth) {
    const double wide = metrics.horizontalAdvance(QLatin1Char('W'));
    const bool isFixed = wide == metrics.horizontalAdvance(QLatin1Char('i')) && wide == metrics.horizontalAdvance(' ');
    return isFixed ? rounded(charWidth - wide) : std::numeric_limits<double>::quiet_NaN();
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
      m_usualSpacing(usualSpacing(m_plain, charWidth)),
      // SVG files keep no letter spacing.
      m_stretches(painter.paintEngine()->type() == QPaintEngine::SVG) {
    m_painter.setFont(m_font);
}

void CellPainter::draw(const NodeBase& node) {
    drawFitted(node.getPos().x(), node.getText(), [&] { node.draw(m_painter); });
}

void CellPainter::draw(int x, int y, const QString& text) {
    drawFitted(x, text, [&] { m_painter.drawText(x, y, text); });
}

template <class Draw>
void CellPainter::drawFitted(int x, const QString& text, Draw draw) {
    const double wanted = static_cast<double>(m_charWidth) * text.size();
    if (!m_stretches) {
        setSpacing(spacingFor(text, wanted));
        draw();
        return;
    }
    // A viewer has no reason to round the font's size.
    const double plain = m_scalable.horizontalAdvance(text) * m_scale;
    const double stretch = plain > 0.0 ? wanted / plain : 1.0;
    const QTransform transform = m_painter.worldTransform();
    m_painter.translate(x, 0);
    m_painter.scale(stretch, 1.0);
    m_painter.translate(-x, 0);
    draw();
    m_painter.setWorldTransform(transform);
}

double CellPainter::spacingFor(const QString& text, double wanted) const {
    if (!std::isnan(m_usualSpacing) && std::all_of(text.begin(), text.end(), isPlain))
        return m_usualSpacing;
    const double plain = m_plain.horizontalAdvance(text);
    // What is spaced are glyphs, which may be fewer than characters.
    const double glyphs = m_spaced.horizontalAdvance(text) - plain;
    return rounded(glyphs > 0.0 ? (wanted - plain) / glyphs : 0.0);
}

void CellPainter::setSpacing(double spacing) {
    if (spacing == m_spacing)
        return;
    m_spacing = spacing;
    m_font.setLetterSpacing(QFont::AbsoluteSpacing, spacing);
    m_painter.setFont(m_font);
}

} // namespace Kova::GUI::TextGraph
