// SPDX-License-Identifier: MIT
#include "visualization/textgraph/CellPainter.h"

#include "visualization/textgraph/NodeBase.h"

#include <QPaintEngine>
#include <QPainter>

namespace Kova::GUI::TextGraph {

namespace {

QFont withSpacing(QFont font, double spacing) {
    font.setLetterSpacing(QFont::AbsoluteSpacing, spacing);
    return font;
}

} // namespace

CellPainter::CellPainter(QPainter& painter, const QFont& font, int charWidth)
    : m_painter(painter),
      m_font(withSpacing(font, 0.0)),
      m_plain(m_font, painter.device()),
      m_spaced(withSpacing(font, 1.0), painter.device()),
      m_charWidth(charWidth),
      // SVG files keep no letter spacing.
      m_stretches(painter.paintEngine()->type() == QPaintEngine::SVG) {
    m_painter.setFont(m_font);
}

void CellPainter::draw(const NodeBase& node) {
    const QString& text = node.getText();
    const double plain = m_plain.horizontalAdvance(text);
    const double wanted = static_cast<double>(m_charWidth) * text.size();
    // What is spaced are glyphs, which may be fewer than characters.
    const double glyphs = m_spaced.horizontalAdvance(text) - plain;
    if (m_stretches) {
        drawStretched(node, plain > 0.0 ? wanted / plain : 1.0);
        return;
    }
    setSpacing(glyphs > 0.0 ? (wanted - plain) / glyphs : 0.0);
    node.draw(m_painter);
}

void CellPainter::setSpacing(double spacing) {
    if (spacing == m_spacing)
        return;
    m_spacing = spacing;
    m_font.setLetterSpacing(QFont::AbsoluteSpacing, spacing);
    m_painter.setFont(m_font);
}

void CellPainter::drawStretched(const NodeBase& node, double stretch) {
    const QTransform transform = m_painter.worldTransform();
    const int x = node.getPos().x();
    m_painter.translate(x, 0);
    m_painter.scale(stretch, 1.0);
    m_painter.translate(-x, 0);
    node.draw(m_painter);
    m_painter.setWorldTransform(transform);
}

} // namespace Kova::GUI::TextGraph
