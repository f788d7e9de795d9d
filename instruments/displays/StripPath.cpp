#include "instruments/displays/StripPath.h"

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr double kLeastStep = 0.5;    ///< pixels
constexpr double kLongStep = 2.0;     ///< of which also the middle counts
constexpr double kLeastInk = 200'000; ///< pixels of line that any image may take
constexpr double kInkAPixel = 1.5;    ///< for a larger one
constexpr double kStepInk = 3;        ///< that a step costs beside its length
constexpr int kMostCells = 8192;      ///< along a step; a longer one comes from far outside
constexpr double kPassedInk = 0.1;    ///< a pixel that is not drawn again

/// The cells that a step goes through behind its start; of a short one only its end.
int cellsAlong(const QPointF& way) {
    const double reach = std::max(std::abs(way.x()), std::abs(way.y()));
    return reach < kLongStep ? 1 : 1 + static_cast<int>(reach * PathCells::kFine);
}

/// Collects a path from its newest point back.
class Thinning {
public:
    Thinning(const QSize& image, double pen, PathCells& visited)
        : m_seen(QRectF(QPointF(), QSizeF(image)).adjusted(-pen, -pen, pen, pen)),
          m_visited(visited),
          m_inkLeft(std::max(kLeastInk, kInkAPixel * image.width() * image.height())) {}

    bool full() const { return m_inkLeft <= 0; }

    void step(const QPointF& from, const QPointF& to) {
        const QPointF way = to - from;
        const double length = lengthOf(way);
        const StepPart part = partInside(m_seen, from, way);
        bool drawn = false;
        if (!part.empty()) drawn = pass(from + way * part.from, from + way * part.to, part.from > 0);
        if (drawn) m_ends.back() = m_length + part.to * length;
        m_penDown = drawn && part.to == 1;
        m_endedFresh = m_endedFresh || part.empty() || part.to < 1;
        m_length += length;
    }

    /// A path of one place alone.
    void dot(const QPointF& place) {
        if (!m_seen.contains(place) || m_visited.visit(place)) return;
        lift();
        pass(place, place, false);
        m_ends.back() = m_length;
    }
    /// No line leads from here to the next step.
    void lift() {
        m_penDown = false;
        m_endedFresh = true;
    }

    /// The path the right way round.
    PathPieces taken() const {
        PathPieces path;
        path.points.assign(m_points.rbegin(), m_points.rend());
        for (std::size_t piece = m_starts.size(); piece-- > 0;) {
            const std::size_t last = piece + 1 < m_starts.size() ? m_starts[piece + 1] : m_points.size();
            path.starts.push_back(m_points.size() - last);
            path.distances.push_back(m_length - m_ends[piece]);
        }
        return path;
    }

private:
    /// Draws a line, unless the path has been all along it.
    bool pass(const QPointF& from, const QPointF& to, bool enters) {
        const QPointF way = to - from;
        const int cells = cellsAlong(way);
        bool fresh = m_endedFresh;
        for (int cell = 1; cell <= cells; ++cell) {
            m_endedFresh = !m_visited.visit(from + way * (double(cell) / cells));
            fresh = fresh || m_endedFresh;
        }
        m_inkLeft -= fresh ? lengthOf(way) + kStepInk : lengthOf(way) * kPassedInk;
        if (!fresh) return false;
        if (!m_penDown || enters) {
            m_starts.push_back(m_points.size());
            m_ends.push_back(0);
            m_points.push_back(from);
        }
        m_points.push_back(to);
        return true;
    }

    QRectF m_seen;
    PathCells& m_visited;
    double m_inkLeft;
    double m_length = 0; ///< of the path so far, seen or not
    bool m_penDown = false;
    bool m_endedFresh = true; ///< the last step, where the path had not been
    std::vector<QPointF> m_points;
    std::vector<std::size_t> m_starts;
    std::vector<double> m_ends; ///< of the pieces, along the path
};

} // namespace

std::span<const QPointF> PathPieces::piece(std::size_t index) const {
    const std::size_t last = index + 1 < starts.size() ? starts[index + 1] : points.size();
    return std::span(points).subspan(starts[index], last - starts[index]);
}

PathCells::PathCells(const QSize& image, double perPixel)
    : m_perPixel(perPixel),
      m_width(static_cast<int>(image.width() * perPixel) + 1),
      m_height(static_cast<int>(image.height() * perPixel) + 1),
      m_cells(static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height)) {}

std::size_t PathCells::cellOf(const QPointF& place) const {
    const double x = place.x() * m_perPixel;
    const double y = place.y() * m_perPixel;
    if (!(x >= 0 && y >= 0 && x < m_width && y < m_height)) return m_cells.size();
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) + static_cast<std::size_t>(x);
}

bool PathCells::visited(const QPointF& place) const {
    const std::size_t cell = cellOf(place);
    return cell < m_cells.size() && m_cells[cell];
}

bool PathCells::visit(const QPointF& place) {
    const std::size_t cell = cellOf(place);
    if (cell == m_cells.size()) return false;
    const bool before = m_cells[cell];
    m_cells[cell] = true;
    return before;
}

void visitAlong(std::span<const QPointF> line, PathCells& visited) {
    for (std::size_t i = 0; i + 1 < line.size(); ++i) {
        const QPointF way = line[i + 1] - line[i];
        const int cells = std::min(cellsAlong(way), kMostCells);
        for (int cell = 1; cell <= cells; ++cell) visited.visit(line[i] + way * (double(cell) / cells));
    }
}

PathPieces unvisitedParts(std::span<const QPointF> line, const PathCells& visited) {
    PathPieces parts;
    bool penDown = false;
    for (std::size_t i = 0; i + 1 < line.size(); ++i) {
        const QPointF way = line[i + 1] - line[i];
        const int cells = cellsAlong(way);
        bool fresh = cells > kMostCells;
        for (int cell = 1; cell <= cells && !fresh; ++cell)
            fresh = !visited.visited(line[i] + way * (double(cell) / cells));
        if (fresh && !penDown) {
            parts.starts.push_back(parts.points.size());
            parts.points.push_back(line[i]);
        }
        if (fresh) parts.points.push_back(line[i + 1]);
        penDown = fresh;
    }
    return parts;
}

PathPieces thinnedPath(const TraceRing& ring, const AxisMap& x, const AxisMap& y, const QSize& image,
                       double pen, PathCells& visited) {
    const auto place = [&](std::size_t index) { return QPointF(x(ring.x(index)), y(ring.y(index))); };
    Thinning thinning(image, pen, visited);
    for (std::size_t number = 0; number <= ring.gapCount() && !thinning.full(); ++number) {
        const PointRun stretch = ring.stretch(number);
        if (stretch.first == stretch.last) continue;
        QPointF last = place(stretch.last - 1);
        bool moved = false;
        for (std::size_t i = stretch.last - 1; i-- > stretch.first && !thinning.full();) {
            const QPointF next = place(i);
            if (std::abs(next.x() - last.x()) < kLeastStep && std::abs(next.y() - last.y()) < kLeastStep)
                continue;
            thinning.step(last, next);
            last = next;
            moved = true;
        }
        if (!moved) thinning.dot(last);
        thinning.lift();
    }
    return thinning.taken();
}

std::vector<QPointF> symbolPlacesInOrder(const TraceRing& ring, const PointRun& run, const AxisMap& x,
                                         const AxisMap& y, const QSize& image, double spacing) {
    std::vector<QPointF> places;
    const double stretch = spacing / x.factor;
    const double left = x.origin - (x.offset + spacing) / x.factor;
    std::size_t guess = 0;
    for (std::size_t i = ring.firstFrom(run.first, run.last, left, 0); i < run.last;) {
        const double at = ring.x(i);
        places.emplace_back(x(at), y(ring.y(i)));
        if (places.back().x() > image.width() + spacing) break;
        const double nextStretch = (std::floor(at / stretch) + 1) * stretch;
        const std::size_t next = ring.firstFrom(i + 1, run.last, nextStretch, guess);
        guess = next - i - 1;
        i = next;
    }
    return places;
}

std::vector<QPointF> symbolPlaces(const TraceRing& ring, const AxisMap& x, const AxisMap& y,
                                  const QSize& image, double spacing) {
    std::vector<QPointF> places;
    const QRectF inside{QPointF(), QSizeF(image)};
    PathCells visited(image, 1 / spacing);
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const QPointF place(x(ring.x(i)), y(ring.y(i)));
        if (inside.contains(place) && !visited.visit(place)) places.push_back(place);
    }
    return places;
}

} // namespace vistor
