// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"

#include <QPaintDevice>
#include <QRectF>

#include <memory>

namespace Kova::GUI {

/// A paint device that draws nothing and notes which part of the plane would be drawn on: the way to know the extent of
/// an item whose painting only the item itself knows.
///
/// The result holds everything, and is somewhat larger: strokes count with their longest possible corners, text with
/// room for glyphs that reach out of their places or are shaped otherwise at another scale.
class VISUALIZATION_EXPORT PaintExtent : public QPaintDevice {
public:
    /// Fonts get the sizes that they have on `model`.
    explicit PaintExtent(const QPaintDevice& model);
    ~PaintExtent() override;
    PaintExtent(const PaintExtent&) = delete;
    PaintExtent& operator=(const PaintExtent&) = delete;
    PaintExtent(PaintExtent&&) = delete;
    PaintExtent& operator=(PaintExtent&&) = delete;

    /// What was drawn on since the last reset(), in the coordinates of the untransformed device; null when nothing was.
    [[nodiscard]] QRectF bounds() const;
    void reset();

    [[nodiscard]] QPaintEngine* paintEngine() const override;

protected:
    int metric(PaintDeviceMetric metric) const override;

private:
    class Engine;
    std::unique_ptr<Engine> m_engine;
    int m_dpiX;
    int m_dpiY;
};

/// As large as any bounds(): for what has no extent of its own, such as lines whose width does not scale.
[[nodiscard]] VISUALIZATION_EXPORT QRectF unboundedExtent();

} // namespace Kova::GUI
