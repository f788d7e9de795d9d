#include "instruments/displays/StripPath.h"

#include <QRectF>

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr double kLeastStep = 0.5;    ///< pixels
constexpr double kLongStep = 2.0;     ///< is drawn even where the path has been
constexpr double kInkLimit = 200'000; ///< pixels of line
constexpr double kStepInk = 3;        ///< that a step costs beside its length
constexpr double kCellsAPixel = 2;

double lengthOf(const QPointF& step) {
    return std::hypot(step.x(), step.y());
}

/// The places that a path has been at.
class Visited {
public:
    Visited(const QSize& image, double cellsAPixel)
        : m_cellsAPixel(cellsAPixel),
          m_width(static_cast<int>(image.width() * cellsAPixel) + 1),
          m_height(static_cast<int>(image.height() * cellsAPixel) + 1),
          m_cells(static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height)) {}

    /// Answers whether it has been there before; outside the image, no.
    bool visit(const QPointF& place) {
        const int x = static_cast<int>(std::floor(place.x() * m_cellsAPixel));
        const int y = static_cast<int>(std::floor(place.y() * m_cellsAPixel));
        if (x < 0 || y < 0 || x >= m_width || y >= m_height) return false;
        auto cell = m_cells[static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) +
                            static_cast<std::size_t>(x)];
        const bool before = cell;
        cell = true;
        return before;
    }

private:
    double m_cellsAPixel;
    int m_width;
    int m_height;
    std::vector<bool> m_cells;
};

/// Both ends lie beyond the same edge.
bool outside(const QPointF& a, const QPointF& b, const QSize& image) {
    constexpr double kPen = 12; // half of the widest line and some
    return (a.x() < -kPen && b.x() < -kPen) || (a.y() < -kPen && b.y() < -kPen) ||
           (a.x() > image.width() + kPen && b.x() > image.width() + kPen) ||
           (a.y() > image.height() + kPen && b.y() > image.height() + kPen);
}

void penTo(PathPieces& path, bool down, const QPointF& from, const QPointF& to) {
    if (!down) {
        path.starts.push_back(path.points.size());
        path.points.push_back(from);
    }
    path.points.push_back(to);
}

} // namespace

std::span<const QPointF> PathPieces::piece(std::size_t index) const {
    const std::size_t last = index + 1 < starts.size() ? starts[index + 1] : points.size();
    return std::span(points).subspan(starts[index], last - starts[index]);
}

PathPieces thinnedPath(const TraceRing& ring, const AxisMap& x, const AxisMap& y, const QSize& image) {
    PathPieces path;
    if (ring.size() == 0) return path;
    Visited visited(image, kCellsAPixel);
    const auto place = [&](std::size_t index) { return QPointF(x(ring.x(index)), y(ring.y(index))); };
    QPointF last = place(ring.size() - 1);
    bool wasThere = visited.visit(last);
    bool down = false;
    double ink = 0;
    for (std::size_t i = ring.size() - 1; i-- > 0 && ink < kInkLimit;) {
        const QPointF next = place(i);
        const QPointF way = next - last;
        if (std::abs(way.x()) < kLeastStep && std::abs(way.y()) < kLeastStep) continue;
        const double step = lengthOf(way);
        const bool isThere = visited.visit(next);
        const bool drawn = !outside(last, next, image) && !(wasThere && isThere && step < kLongStep);
        if (drawn) {
            penTo(path, down, last, next);
            ink += std::min(step, double(image.width() + image.height())) + kStepInk;
        }
        down = drawn;
        wasThere = isThere;
        last = next;
    }
    if (path.starts.empty()) penTo(path, false, last, last);
    return path;
}

PathPieces dashed(const PathPieces& path, std::span<const double> dashes) {
    PathPieces cut;
    std::size_t dash = 0;
    double left = dashes[0];
    for (std::size_t p = 0; p < path.count(); ++p) {
        const auto piece = path.piece(p);
        bool down = false;
        for (std::size_t i = 0; i + 1 < piece.size(); ++i) {
            QPointF from = piece[i];
            double step = std::min(lengthOf(piece[i + 1] - from), kInkLimit);
            while (step > 0) {
                const double part = std::min(step, left);
                const QPointF to = from + (piece[i + 1] - from) * (part / step);
                if (dash % 2 == 0) penTo(cut, down, from, to);
                down = dash % 2 == 0;
                from = to;
                step -= part;
                left -= part;
                if (left > 0) continue;
                dash = (dash + 1) % dashes.size();
                left = dashes[dash];
            }
        }
    }
    return cut;
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
    Visited visited(image, 1 / spacing);
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const QPointF place(x(ring.x(i)), y(ring.y(i)));
        if (inside.contains(place) && !visited.visit(place)) places.push_back(place);
    }
    return places;
}

} // namespace vistor
