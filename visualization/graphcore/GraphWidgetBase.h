// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"

#include <QAbstractScrollArea>
#include <QImage>
#include <QPoint>
#include <QSize>
#include <QString>

class QAction;
class QIODevice;

namespace Kova::GUI {

/// The scrollable, zoomable base of every graph view: owns scale, scroll bars, panning, the placeholder of an empty
/// view and export to files; a subclass draws the graph.
///
/// Two coordinate spaces: graph units (the unscaled picture, origin at its top left) and viewport pixels.
class VISUALIZATION_EXPORT GraphWidgetBase : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit GraphWidgetBase(QWidget* parent = nullptr);
    ~GraphWidgetBase() override;

    /// Forgets the graph: size (0, 0), scale 1.0, export actions disabled. Overrides call the base version.
    virtual void clear();
    /// Draws the graph in graph units. The painter's transform holds scroll offset and scale on screen and is the
    /// identity on export. On screen the painter is clipped to what has to be drawn anew, so that an override may leave
    /// out what cannot touch the clip; on export it is not clipped.
    virtual void drawGraph(QPainter& painter) = 0;
    /// Called after drawGraph() on screen only, with the painter in the same state: what stays fixed to the viewport
    /// has to reset the transform.
    virtual void drawLegend(QPainter& painter);
    /// Whether there is a graph to draw.
    [[nodiscard]] virtual bool isBuilded() const = 0;
    /// Recomputes the scroll bars' pages and ranges from graph size, scale and viewport size.
    virtual void updateScrollBars();
    /// Called after every change of the scale and every resize.
    virtual void updateMap();

    /// Ignored below 0.1 and for NaN; there is no upper limit. Nothing happens when the scale stays the same.
    void setScale(double scale);
    [[nodiscard]] double getScale() const { return m_scale; }
    /// Stores the size in graph units and updates the scroll bars; the caller repaints.
    void setGraphSize(const QSize& size);
    void setGraphSize(int width, int height);
    /// The size in graph units; (-1, -1) until one was set.
    [[nodiscard]] QSize getGraphSize() const { return m_graphSize; }
    /// Whether dragging with the scroll button pans the view.
    void setMouseScroll(bool enabled);
    [[nodiscard]] bool hasMouseScroll() const { return m_mouseScroll; }
    void setMouseScrollButton(Qt::MouseButton button);
    /// Shrinks a graph larger than the viewport until it fits, as far as the scale's limit allows; enlarges nothing.
    void fitGraphToViewport();
    /// Viewport pixels to graph units, truncated.
    [[nodiscard]] QPoint screenToGraph(const QPoint& position) const;

    /// The picture at scale 1.0 on white, without the legend: what save() writes. Null when there is nothing to export
    /// or no image of that size can be made.
    [[nodiscard]] QImage renderImage();
    /// Writes the picture as SVG text, what saveSvg() writes, to a device that is open for writing or can be opened.
    /// False when there is nothing to export or the device fails.
    [[nodiscard]] bool renderSvg(QIODevice& device);

public Q_SLOTS:
    /// Writes the picture into an image file in the format of its suffix; asks for a name when it is empty. Does
    /// nothing without a graph; failures are not reported (renderImage() is for callers who want to know).
    void save(QString fileName = QString());
    /// The same as SVG.
    void saveSvg(QString fileName = QString());

Q_SIGNALS:
    /// Emitted after every effective change of the scale.
    void scaleChanged(double scale);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

    /// For the subclass's menu: children of the widget, which the subclass enables once a graph is shown.
    QAction* m_saveImageAction;
    QAction* m_saveSvgAction;

private:
    [[nodiscard]] bool canExport() const;
    void paintPlaceholder(QPainter& painter) const;
    void panTo(const QPoint& position);

    QSize m_graphSize{-1, -1};
    double m_scale = 1.0;
    bool m_mouseScroll = false;
    QPoint m_lastMousePosition;
    bool m_dragging = false;
    Qt::MouseButton m_mouseScrollButton = Qt::LeftButton;
};

} // namespace Kova::GUI
