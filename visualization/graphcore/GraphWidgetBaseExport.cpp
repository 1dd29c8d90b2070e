// SPDX-License-Identifier: MIT
// Export to files: the part of the widget that has nothing to do with the screen.
#include "visualization/graphcore/GraphWidgetBase.h"

#include <QFileDialog>
#include <QIODevice>
#include <QPainter>
#include <QSvgGenerator>

namespace Kova::GUI {

namespace {

/// The resolution of the screen's fonts makes labels as large as in an image, and the view box lets programs show one
/// graph unit as one of their pixels, whatever they take a millimetre for.
bool paintSvg(GraphWidgetBase& widget, QSvgGenerator& generator) {
    generator.setResolution(widget.logicalDpiY());
    generator.setSize(widget.getGraphSize());
    generator.setViewBox(QRect(QPoint(0, 0), widget.getGraphSize()));
    generator.setTitle(GraphWidgetBase::tr("Graph Visualization"));
    QPainter painter;
    if (!painter.begin(&generator))
        return false;
    widget.drawGraph(painter);
    return painter.end();
}

QString orAskForName(QWidget* parent, const QString& fileName, const QString& filter) {
    if (!fileName.isEmpty())
        return fileName;
    return QFileDialog::getSaveFileName(parent, GraphWidgetBase::tr("Save As"), QString(), filter);
}

} // namespace

bool GraphWidgetBase::canExport() const {
    return isBuilded() && m_graphSize.width() > 0 && m_graphSize.height() > 0;
}

QImage GraphWidgetBase::renderImage() {
    if (!canExport())
        return {};
    QImage image(m_graphSize, QImage::Format_RGB32);
    if (image.isNull())
        return image;
    image.fill(0xffffff);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    drawGraph(painter);
    return image;
}

bool GraphWidgetBase::renderSvg(QIODevice& device) {
    if (!canExport())
        return false;
    QSvgGenerator generator;
    generator.setOutputDevice(&device);
    return paintSvg(*this, generator);
}

void GraphWidgetBase::save(QString fileName) {
    if (!canExport())
        return;
    fileName = orAskForName(this, fileName, tr("Images (*.png *.xpm)"));
    if (fileName.isEmpty())
        return;
    const QImage image = renderImage();
    if (!image.isNull())
        image.save(fileName);
}

void GraphWidgetBase::saveSvg(QString fileName) {
    if (!canExport())
        return;
    fileName = orAskForName(this, fileName, tr("SVG files (*.svg)"));
    if (fileName.isEmpty())
        return;
    QSvgGenerator generator;
    generator.setFileName(fileName);
    paintSvg(*this, generator);
}

} // namespace Kova::GUI
