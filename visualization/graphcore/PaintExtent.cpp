// SPDX-License-Identifier: MIT
#include "visualization/graphcore/PaintExtent.h"

#include "visualization/graphcore/StrokeMargin.h"

#include <QFontMetricsF>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>

#include <limits>
#include <optional>

namespace Kova::GUI {

namespace {

/// Far beyond every coordinate, and still exact as a number of units.
constexpr double farAway = 1.0e9;
/// The device itself is that large, so that painters do not clip.
constexpr int deviceSize = 1 << 24;

} // namespace

QRectF unboundedExtent() {
    return {-farAway, -farAway, 2.0 * farAway, 2.0 * farAway};
}

class PaintExtent::Engine : public QPaintEngine {
public:
    Engine() : QPaintEngine(AllFeatures) {}

    QRectF bounds;

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    [[nodiscard]] Type type() const override { return User; }

    void drawPath(const QPainterPath& path) override { addStroked(path.controlPointRect()); }
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode) override {
        QRectF extent(points[0], QSizeF(0.0, 0.0));
        for (int i = 1; i < count; ++i) {
            extent.setLeft(qMin(extent.left(), points[i].x()));
            extent.setRight(qMax(extent.right(), points[i].x()));
            extent.setTop(qMin(extent.top(), points[i].y()));
            extent.setBottom(qMax(extent.bottom(), points[i].y()));
        }
        addStroked(extent);
    }
    void drawPolygon(const QPoint* points, int count, PolygonDrawMode mode) override {
        QPaintEngine::drawPolygon(points, count, mode);
    }
    void drawPixmap(const QRectF& target, const QPixmap&, const QRectF&) override { add(target); }
    void drawTextItem(const QPointF& position, const QTextItem& item) override {
        const QFontMetricsF metrics(item.font());
        const QRectF advance(0.0, -item.ascent(), item.width(), item.ascent() + item.descent());
        const double room = 2.0 + metrics.height() * 0.25;
        const QRectF ink = advance.united(metrics.boundingRect(item.text()));
        add(ink.translated(position).adjusted(-room, -room, room, room));
    }

private:
    void addStroked(const QRectF& extent) {
        const QPen pen = painter()->pen();
        if (pen.style() == Qt::NoPen) {
            add(extent);
            return;
        }
        const std::optional<double> margin = strokeMargin(pen);
        if (margin)
            add(extent.adjusted(-*margin, -*margin, *margin, *margin));
        else
            bounds = unboundedExtent();
    }
    void add(const QRectF& extent) {
        // A united rectangle would ignore one of no width or height, which still has a stroke and is drawn.
        const QRectF mapped = painter()->combinedTransform().mapRect(extent.adjusted(-1.0, -1.0, 1.0, 1.0));
        bounds = bounds.isNull() ? mapped : bounds.united(mapped);
    }
};

PaintExtent::PaintExtent(const QPaintDevice& model)
    : m_engine(std::make_unique<Engine>()),
      m_dpiX(model.logicalDpiX()),
      m_dpiY(model.logicalDpiY()) {}

PaintExtent::~PaintExtent() = default;

QRectF PaintExtent::bounds() const {
    return m_engine->bounds;
}

void PaintExtent::reset() {
    m_engine->bounds = QRectF();
}

QPaintEngine* PaintExtent::paintEngine() const {
    return m_engine.get();
}

int PaintExtent::metric(PaintDeviceMetric metric) const {
    switch (metric) {
    case PdmWidth:
    case PdmHeight:
        return deviceSize;
    case PdmDpiX:
    case PdmPhysicalDpiX:
        return m_dpiX;
    case PdmDpiY:
    case PdmPhysicalDpiY:
        return m_dpiY;
    case PdmWidthMM:
    case PdmHeightMM:
        return deviceSize;
    case PdmNumColors:
        return std::numeric_limits<int>::max();
    case PdmDepth:
        return 32;
    case PdmDevicePixelRatio:
        return 1;
    default:
        return QPaintDevice::metric(metric);
    }
}

} // namespace Kova::GUI
