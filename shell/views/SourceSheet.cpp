// SPDX-License-Identifier: MIT
#include "shell/views/SourceSheet.h"

#include "visualization/sourceselector/SourceSelector.h"

#include <QAction>
#include <QPainter>

#include <cmath>

namespace Kova::Shell {

SourceSheet::SourceSheet(const GUI::SourceSelector& selector, QWidget* parent)
    : GraphWidgetBase(parent),
      m_selector(selector) {
    setMouseScroll(true);
}

void SourceSheet::update() {
    clear();
    if (isBuilded()) {
        // The last line's descenders hang below the text's own height.
        setGraphSize(m_selector.getTextSize() + QSize(0, QFontMetrics(m_selector.getFont()).descent()));
        m_saveImageAction->setEnabled(true);
        m_saveSvgAction->setEnabled(true);
    }
    viewport()->update();
}

bool SourceSheet::isBuilded() const {
    return m_selector.getText().getLineCount() > 0;
}

void SourceSheet::drawGraph(QPainter& painter) {
    const int count = m_selector.getText().getLineCount();
    int first = 0;
    int end = count;
    if (painter.hasClipping()) {
        const double height = QFontMetrics(m_selector.getFont()).height();
        const QRectF seen = painter.clipBoundingRect();
        first = std::max(0, static_cast<int>(std::floor(seen.top() / height)) - 1);
        end = std::min(count, static_cast<int>(std::ceil(seen.bottom() / height)) + 1);
    }
    m_selector.drawLines(painter, first, end);
}

} // namespace Kova::Shell
