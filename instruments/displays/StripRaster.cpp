#include "instruments/displays/StripRaster.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vistor {
namespace {

constexpr int kOpaque = 256; ///< coverage of a pixel by one column

QRgb blended(QRgb under, QRgb over, int share) {
    const auto channel = [&](int shift) {
        const int from = (under >> shift) & 0xFF;
        const int to = (over >> shift) & 0xFF;
        return static_cast<QRgb>(from + (((to - from) * share) >> 8)) << shift;
    };
    return 0xFF000000U | channel(16) | channel(8) | channel(0);
}

/// Rounds down, at a third of the library's price.
std::ptrdiff_t floorOf(double value) {
    const auto whole = static_cast<std::ptrdiff_t>(value);
    return whole - (value < static_cast<double>(whole) ? 1 : 0);
}

/// The line from one place to another right of it, x in columns.
void takeStep(const QPointF& from, const QPointF& to, std::span<ColumnSpan> spans, PointRun& touched) {
    const std::ptrdiff_t fromColumn = floorOf(from.x());
    const std::ptrdiff_t toColumn = floorOf(to.x());
    const auto count = static_cast<std::ptrdiff_t>(spans.size());
    if (toColumn < 0 || fromColumn >= count) return;
    const auto begin = static_cast<std::size_t>(std::max<std::ptrdiff_t>(fromColumn, 0));
    const auto end = static_cast<std::size_t>(std::min(toColumn + 1, count));
    touched = {std::min(touched.first, begin), std::max(touched.last, end)};
    if (fromColumn >= 0) spans[begin].take(from.y());
    if (toColumn < count) spans[end - 1].take(to.y());
    if (fromColumn == toColumn) return;
    const double slope = (to.y() - from.y()) / (to.x() - from.x());
    const auto edge = [&](std::size_t column) {
        return from.y() + (static_cast<double>(column) - from.x()) * slope;
    };
    if (fromColumn < 0) spans[begin].take(edge(begin));
    for (std::size_t c = begin + 1; c < end; ++c) {
        const double height = edge(c);
        spans[c - 1].take(height);
        spans[c].take(height);
    }
    if (toColumn >= count) spans[end - 1].take(edge(end));
}

/// Puts a run into columns. Stretches that lie in one column, or beyond either edge, are done at one go.
class ColumnWalker {
public:
    ColumnWalker(const AxisMap& x, const AxisMap& y, int perPixel, std::span<ColumnSpan> spans)
        : m_columns(x), m_rows(y), m_spans(spans) {
        m_columns.factor *= perPixel;
        m_columns.offset *= perPixel;
    }

    bool block(double x0, double x1, const Extremes& y) {
        if (x1 < m_edge) {
            m_open.take(y);
            return true;
        }
        close();
        const double from = m_columns(x0);
        const double to = m_columns(x1);
        const std::ptrdiff_t first = floorOf(from);
        const std::ptrdiff_t last = floorOf(to);
        if (last < 0 || first >= count()) return true;
        if (first != last && (last > first + 1 || to - from > kFinest)) return false;
        take(first, y);
        if (last != first) take(last, y);
        open(last);
        return true;
    }
    void step(double x0, double y0, double x1, double y1) {
        if (x1 < m_edge) return m_open.take(y1);
        close();
        const QPointF from(m_columns(x0), m_rows(y0));
        const QPointF to(m_columns(x1), m_rows(y1));
        takeStep(from, to, m_spans, m_touched);
        open(floorOf(to.x()));
    }
    void end(double x, double y) {
        close();
        take(floorOf(m_columns(x)), {y, y});
    }

    PointRun touched() const { return m_touched.first < m_touched.last ? m_touched : PointRun{}; }

private:
    /// Of a column: what is shorter may count for both that it touches.
    static constexpr double kFinest = 0.25;

    std::ptrdiff_t count() const { return static_cast<std::ptrdiff_t>(m_spans.size()); }
    void take(std::ptrdiff_t column, const Extremes& y) {
        if (column < 0 || column >= count()) return;
        const auto at = static_cast<std::size_t>(column);
        m_spans[at].take(m_rows(y.low));
        m_spans[at].take(m_rows(y.high));
        m_touched = {std::min(m_touched.first, at), std::max(m_touched.last, at + 1)};
    }

    /// The next steps end in this column as long as they end before its edge.
    void open(std::ptrdiff_t column) {
        if (column < 0 || column >= count()) return;
        m_column = column;
        m_edge = m_columns.origin + (static_cast<double>(column + 1) - m_columns.offset) / m_columns.factor;
    }
    void close() {
        if (!m_open.empty()) take(m_column, m_open);
        m_open = {};
        m_edge = -std::numeric_limits<double>::infinity();
    }

    AxisMap m_columns;
    AxisMap m_rows;
    std::span<ColumnSpan> m_spans;
    PointRun m_touched{m_spans.size(), 0};
    std::ptrdiff_t m_column = 0; ///< the open one
    double m_edge = -std::numeric_limits<double>::infinity();
    Extremes m_open; ///< of Y in it
};

} // namespace

PointRun columnSpans(const TraceRing& ring, const PointRun& run, const AxisMap& x, const AxisMap& y,
                     int perPixel, std::span<ColumnSpan> spans) {
    ColumnWalker walker(x, y, perPixel, spans);
    ring.walk(run, walker);
    return walker.touched();
}

StripRaster::StripRaster(QImage& image, const QRect& clip, double ratio)
    : m_image(image), m_clip(clip & image.rect()), m_perPixel(ratio > 1.5 ? 2 : 4) {
    const std::size_t columns =
        static_cast<std::size_t>(std::max(m_clip.right() + 1, 0)) * static_cast<std::size_t>(m_perPixel);
    m_line.resize(columns);
    m_stroke.resize(columns);
    m_coverage.resize(static_cast<std::size_t>(image.height()) + 2);
}

/// The line's spans grown by a disc of that radius, in whole pixels of columns.
PointRun StripRaster::widen(const PointRun& touched, double radius) {
    const auto reach = static_cast<std::size_t>(radius * m_perPixel);
    const auto perPixel = static_cast<std::size_t>(m_perPixel);
    const PointRun grown{(touched.first - std::min(reach, touched.first)) / perPixel * perPixel,
                         std::min((touched.last + reach) / perPixel * perPixel + perPixel, m_stroke.size())};
    std::fill(m_stroke.begin() + static_cast<std::ptrdiff_t>(grown.first),
              m_stroke.begin() + static_cast<std::ptrdiff_t>(grown.last), ColumnSpan{});
    const auto put = [this](std::size_t to, const ColumnSpan& from, float height) {
        ColumnSpan& span = m_stroke[to];
        span.top = std::min(span.top, from.top - height);
        span.bottom = std::max(span.bottom, from.bottom + height);
    };
    for (std::size_t k = 0; k <= reach; ++k) {
        const double away = static_cast<double>(k) / m_perPixel;
        const auto height = static_cast<float>(std::sqrt(radius * radius - away * away));
        const std::size_t skipped = k > touched.first ? k - touched.first : 0;
        for (std::size_t c = touched.first + skipped; c < touched.last; ++c) put(c - k, m_line[c], height);
        const std::size_t last = std::min(touched.last, m_stroke.size() - std::min(k, m_stroke.size()));
        for (std::size_t c = touched.first; c < last; ++c) put(c + k, m_line[c], height);
    }
    return grown;
}

void StripRaster::paintColumn(int column, QRgb colour) {
    const double top = m_clip.top();
    const double bottom = m_clip.bottom() + 1;
    int first = m_clip.bottom() + 1;
    int last = m_clip.top();
    for (int part = 0; part < m_perPixel; ++part) {
        const ColumnSpan& span = m_stroke[static_cast<std::size_t>(column * m_perPixel + part)];
        if (span.empty() || span.top >= bottom || span.bottom <= top) continue;
        const auto fixed = [&](float y) {
            return static_cast<int>(std::clamp<double>(y, top, bottom) * kOpaque);
        };
        const int from = fixed(span.top);
        const int to = fixed(span.bottom);
        int* const start = &m_coverage[static_cast<std::size_t>(from / kOpaque)];
        int* const end = &m_coverage[static_cast<std::size_t>(to / kOpaque)];
        start[0] += kOpaque - from % kOpaque;
        start[1] += from % kOpaque;
        end[0] -= kOpaque - to % kOpaque;
        end[1] -= to % kOpaque;
        first = std::min(first, from / kOpaque);
        last = std::max(last, to / kOpaque + 1);
    }
    const qsizetype stride = m_image.bytesPerLine() / qsizetype(sizeof(QRgb));
    QRgb* const pixels = reinterpret_cast<QRgb*>(m_image.bits()) + column;
    const int full = kOpaque * m_perPixel;
    for (int row = first, covered = 0; row <= last; ++row) {
        covered += std::exchange(m_coverage[static_cast<std::size_t>(row)], 0);
        if (covered == 0) continue; // always so in the rows behind the last one
        QRgb& pixel = pixels[row * stride];
        pixel = covered == full ? colour : blended(pixel, colour, covered / m_perPixel);
    }
}

void StripRaster::paintTouched(const PointRun& touched, const RasterStroke& stroke) {
    const PointRun grown = widen(touched, std::max(stroke.width, 0.5) / 2);
    std::fill(m_line.begin() + static_cast<std::ptrdiff_t>(touched.first),
              m_line.begin() + static_cast<std::ptrdiff_t>(touched.last), ColumnSpan{});
    const auto perPixel = static_cast<std::size_t>(m_perPixel);
    const int last = static_cast<int>(grown.last / perPixel);
    for (int c = std::max(static_cast<int>(grown.first / perPixel), m_clip.left()); c < last; ++c)
        paintColumn(c, stroke.colour | 0xFF000000U);
}

void StripRaster::paintRun(const TraceRing& ring, const PointRun& run, const AxisMap& x, const AxisMap& y,
                           const RasterStroke& stroke) {
    if (m_clip.isEmpty()) return;
    const PointRun touched = columnSpans(ring, run, x, y, m_perPixel, m_line);
    if (touched.first == touched.last) return;
    paintTouched(touched, stroke);
}

void StripRaster::paintLine(std::span<const QPointF> points, const RasterStroke& stroke) {
    if (m_clip.isEmpty() || points.empty()) return;
    for (std::size_t first = 0, last = 0; last + 1 < points.size(); first = last) {
        // As far as X does not turn: a column holds one stretch of the line only.
        double direction = 0;
        for (; last + 1 < points.size(); ++last) {
            const double step = points[last + 1].x() - points[last].x();
            if (step * direction < 0) break;
            if (step != 0) direction = step;
        }
        const PointRun touched = takeLine(points.subspan(first, last - first + 1));
        if (touched.first < touched.last) paintTouched(touched, stroke);
    }
}

PointRun StripRaster::takeLine(std::span<const QPointF> points) {
    PointRun touched{m_line.size(), 0};
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        const bool rightward = points[i].x() <= points[i + 1].x();
        const QPointF& left = points[rightward ? i : i + 1];
        const QPointF& right = points[rightward ? i + 1 : i];
        takeStep({left.x() * m_perPixel, left.y()}, {right.x() * m_perPixel, right.y()}, m_line, touched);
    }
    return touched;
}

} // namespace vistor
