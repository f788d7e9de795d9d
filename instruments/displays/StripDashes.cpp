#include "instruments/displays/StripDashes.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace vistor {
namespace {

constexpr double kCellPeriods = 16; ///< of the dashes, to a cell of X
constexpr double kMostInk = 12;     ///< length of a dashed line over its cell's

class DashCutter {
public:
    explicit DashCutter(std::span<const double> dashes)
        : m_dashes(dashes), m_period(std::accumulate(dashes.begin(), dashes.end(), 0.0)) {}

    bool cuts() const { return m_period > 0; }

    /// The next line begins so far along the path.
    void begin(double distance) {
        m_down = false;
        m_dash = 0;
        m_left = m_dashes[0];
        double ahead = std::fmod(distance, m_period);
        for (; ahead >= m_left; next()) ahead -= m_left;
        m_left -= ahead;
    }

    void line(QPointF from, const QPointF& to) {
        for (double length = lengthOf(to - from); length > 0;) {
            const double part = std::min(length, m_left);
            const QPointF end = from + (to - from) * (part / length);
            if (m_dash % 2 == 0) draw(from, end);
            m_down = m_dash % 2 == 0;
            from = end;
            length -= part;
            m_left -= part;
            if (m_left <= 0) next();
        }
    }

    PathPieces pieces;

private:
    void next() {
        m_dash = (m_dash + 1) % m_dashes.size();
        m_left = m_dashes[m_dash];
    }
    void draw(const QPointF& from, const QPointF& to) {
        if (!m_down) {
            pieces.starts.push_back(pieces.points.size());
            pieces.points.push_back(from);
        }
        pieces.points.push_back(to);
    }

    std::span<const double> m_dashes;
    double m_period;
    std::size_t m_dash = 0;
    double m_left = 0; ///< of the dash
    bool m_down = false;
};

/// The line of a run in pixels, from the first point to the last one within each pixel of X. What sticks out
/// on the way there by `tall` or more becomes a peak. Places run from the edge of a cell, so that the same
/// points make the same line wherever they stand.
class LineInOrder {
public:
    LineInOrder(const AxisMap& x, const AxisMap& y, double shift, double left, double right, double tall)
        : m_x(x), m_y(y), m_shift(shift), m_left(left), m_right(right), m_tall(tall) {}

    bool block(double x0, double x1, const Extremes& y) {
        const double from = at(x0);
        const double to = at(x1);
        if (to < m_left || from > m_right) return true;
        if (std::floor(from) != std::floor(to)) return false;
        take(from, m_y(y.low));
        take(from, m_y(y.high));
        return true;
    }
    void step(double x0, double y0, double x1, double y1) {
        const double from = at(x0);
        const double to = at(x1);
        if (to < m_left || from > m_right) return;
        take(from, m_y(y0));
        take(to, m_y(y1));
    }
    void end(double x, double y) {
        if (const double place = at(x); place >= m_left && place <= m_right) take(place, m_y(y));
        flush();
    }

    std::vector<QPointF> line;
    PathPieces peaks; ///< upright, without distances

private:
    double at(double x) const { return m_x(x) + m_shift; }

    void take(double x, double y) {
        if (m_open && std::floor(x) != std::floor(m_first.x())) flush();
        if (!m_open) m_first = {x, y};
        m_open = true;
        m_last = {x, y};
        m_seen.take(y);
    }
    void flush() {
        if (!m_open) return;
        line.push_back(m_first);
        if (m_last != line.back()) line.push_back(m_last);
        const auto [low, high] = std::minmax({m_first.y(), m_last.y()}); // values: references would dangle
        if (low - m_seen.low > m_tall || m_seen.high - high > m_tall) {
            peaks.starts.push_back(peaks.points.size());
            peaks.points.insert(peaks.points.end(),
                                {QPointF(m_last.x(), m_seen.low), QPointF(m_last.x(), m_seen.high)});
        }
        m_open = false;
        m_seen = {};
    }

    AxisMap m_x;
    AxisMap m_y;
    double m_shift;
    double m_left;
    double m_right;
    double m_tall;
    bool m_open = false;
    QPointF m_first;
    QPointF m_last;
    Extremes m_seen; ///< of Y in the open pixel
};

/// Cuts a line at the edges of cells, and what is to be seen of it in each into dashes.
class CellCutter {
public:
    CellCutter(const QRectF& seen, double cell, std::span<const double> dashes)
        : m_seen(seen), m_cell(cell), m_dashes(dashes) {}

    void line(QPointF from, const QPointF& to) {
        for (double edge = edgeBehind(from); edge < to.x(); edge = edgeBehind(from)) {
            const QPointF way = to - from;
            const QPointF between(edge, from.y() + way.y() * ((edge - from.x()) / way.x()));
            step(from, between);
            close();
            from = between;
        }
        step(from, to);
    }
    void append(const PathPieces& more) {
        for (const std::size_t start : more.starts) pieces.starts.push_back(pieces.points.size() + start);
        pieces.points.insert(pieces.points.end(), more.points.begin(), more.points.end());
    }
    void close() {
        append(m_ink > kMostInk * m_cell ? m_open : dashed(m_open, m_dashes));
        m_open = {};
        m_ink = 0;
        m_length = 0;
        m_penDown = false;
    }

    PathPieces pieces; ///< without distances

private:
    double edgeBehind(const QPointF& place) const { return (std::floor(place.x() / m_cell) + 1) * m_cell; }

    void step(const QPointF& from, const QPointF& to) {
        const QPointF way = to - from;
        const double length = lengthOf(way);
        const StepPart part = partInside(m_seen, from, way);
        if (!part.empty()) {
            if (!m_penDown || part.from > 0) begin(from + way * part.from, m_length + length * part.from);
            m_open.points.push_back(from + way * part.to);
            m_ink += length * (part.to - part.from);
        }
        m_penDown = !part.empty() && part.to == 1;
        m_length += length;
    }
    void begin(const QPointF& place, double distance) {
        m_open.starts.push_back(m_open.points.size());
        m_open.distances.push_back(distance);
        m_open.points.push_back(place);
    }

    QRectF m_seen;
    double m_cell;
    std::span<const double> m_dashes;
    PathPieces m_open;   ///< of the cell
    double m_length = 0; ///< in it so far, seen or not
    double m_ink = 0;    ///< of that, what is seen
    bool m_penDown = false;
};

} // namespace

PathPieces dashed(const PathPieces& path, std::span<const double> dashes) {
    DashCutter cutter(dashes);
    if (!cutter.cuts()) return path;
    for (std::size_t p = 0; p < path.count(); ++p) {
        const auto piece = path.piece(p);
        cutter.begin(path.distances[p]);
        for (std::size_t i = 0; i + 1 < piece.size(); ++i) cutter.line(piece[i], piece[i + 1]);
    }
    return cutter.pieces;
}

PathPieces dashedInOrder(const TraceRing& ring, const PointRun& run, const AxisMap& x, const AxisMap& y,
                         const QSize& image, double pen, std::span<const double> dashes) {
    const double period = std::accumulate(dashes.begin(), dashes.end(), 0.0);
    const double cell =
        std::max(std::ceil(kCellPeriods * period), 1.0); // whole pixels: so cells hold whole ones
    const double past = std::fmod(x.origin * x.factor - x.offset, cell);
    const double shift = std::isfinite(past) ? past : 0;
    const QRectF seen = QRectF(QPointF(shift, 0), QSizeF(image)).adjusted(-pen, -pen, pen, pen);
    LineInOrder walker(x, y, shift, std::floor(seen.left() / cell) * cell, seen.right(), 2 * pen);
    ring.walk(run, walker);
    if (walker.line.empty()) return {};
    CellCutter cutter(seen, cell, dashes);
    if (walker.line.size() == 1) walker.line.push_back(walker.line.front() + QPointF(0, 0.01)); // a dot
    for (std::size_t i = 0; i + 1 < walker.line.size(); ++i) cutter.line(walker.line[i], walker.line[i + 1]);
    cutter.close();
    cutter.append(walker.peaks);
    for (QPointF& point : cutter.pieces.points) point.rx() -= shift;
    return std::move(cutter.pieces);
}

} // namespace vistor
