// Paints lines straight into an image, column by column. In: runs of points and maps to pixels, or pixels.
// Out: antialiased pixels. A general line painter takes a hundred times as long for a noisy trace, since it
// cuts every stroke into polygons first.
#pragma once

#include "instruments/displays/StripAxes.h"
#include "instruments/displays/StripTraces.h"

#include <QImage>
#include <QPointF>

#include <array>
#include <span>
#include <vector>

namespace vistor {

/// From where to where a line reaches within one column, downward in pixels; empty when top is below bottom.
struct ColumnSpan {
    float top = std::numeric_limits<float>::infinity();
    float bottom = -std::numeric_limits<float>::infinity();

    bool empty() const { return top > bottom; }
    void take(double y) {
        top = std::min(top, static_cast<float>(y));
        bottom = std::max(bottom, static_cast<float>(y));
    }
};

/// What of a run lies in each of the columns 0 to spans.size(), which are 1 / `perPixel` pixels wide: all its
/// points, and the line from each point to the next. Points outside the columns count only for the lines that
/// enter. Answers the columns touched, the last one not among them.
PointRun columnSpans(const TraceRing& ring, const PointRun& run, const AxisMap& x, const AxisMap& y,
                     int perPixel, std::span<ColumnSpan> spans);

struct RasterStroke {
    QRgb colour = 0;
    double width = 1.5; ///< image pixels
};

class StripRaster {
public:
    /// The image is of format RGB32 and outlives the painter; `ratio` of its pixels are a logical one.
    /// Nothing is painted outside `clip`.
    StripRaster(QImage& image, const QRect& clip, double ratio);

    /// The maps lead to image pixels.
    void paintRun(const TraceRing& ring, const PointRun& run, const AxisMap& x, const AxisMap& y,
                  const RasterStroke& stroke);
    /// A line through image pixels in any direction.
    void paintLine(std::span<const QPointF> points, const RasterStroke& stroke);

private:
    PointRun takeLine(std::span<const QPointF> points);
    void paintTouched(const PointRun& touched, const RasterStroke& stroke);
    PointRun widen(const PointRun& touched, double radius);
    void paintColumn(int column, QRgb colour);

    QImage& m_image;
    QRect m_clip;
    int m_perPixel; ///< columns that a pixel is cut into
    std::vector<ColumnSpan> m_line;
    std::vector<ColumnSpan> m_stroke;
    std::vector<int> m_coverage; ///< differences of coverage from row to row
};

} // namespace vistor
