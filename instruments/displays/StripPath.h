// Thins a path that may go anywhere to what its picture needs. In: the points of a trace. Out: pieces of line
// in image pixels, so few that painting them ends in bounded time.
#pragma once

#include "instruments/displays/StripAxes.h"
#include "instruments/displays/StripTraces.h"

#include <QPointF>
#include <QRectF>
#include <QSize>

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

namespace vistor {

// Inline, since a picture takes a million steps.

inline double lengthOf(const QPointF& step) {
    return std::sqrt(step.x() * step.x() + step.y() * step.y());
}

/// The part of a step that lies in a rectangle, as shares of its length.
struct StepPart {
    double from = 0;
    double to = 1;

    bool empty() const { return from >= to; }
};

/// Leaves of a part what lies on one side of an edge: where `start` + share * `way` is not negative.
inline void cut(StepPart& part, double start, double way) {
    if (start < 0 && start + way < 0) part.to = part.from;
    if (start < 0 && way > 0) part.from = std::max(part.from, -start / way);
    if (start + way < 0 && way < 0) part.to = std::min(part.to, -start / way);
}

inline StepPart partInside(const QRectF& room, const QPointF& from, const QPointF& way) {
    StepPart part;
    if (room.contains(from) && room.contains(from + way)) return part;
    cut(part, from.x() - room.left(), way.x());
    cut(part, room.right() - from.x(), -way.x());
    cut(part, from.y() - room.top(), way.y());
    cut(part, room.bottom() - from.y(), -way.y());
    return part;
}

/// Lines from point to point; each piece is one of them.
struct PathPieces {
    std::vector<QPointF> points;
    std::vector<std::size_t> starts; ///< of the pieces, in `points`
    std::vector<double> distances;   ///< of the pieces' starts from the path's, in pixels along it

    std::size_t count() const { return starts.size(); }
    std::span<const QPointF> piece(std::size_t index) const;
};

/// The squares of an image that paths have been in.
class PathCells {
public:
    static constexpr double kFine = 2; ///< squares a pixel that tell apart what the eye does

    PathCells(const QSize& image, double perPixel);
    /// Outside the image nothing has been visited, and nothing is.
    bool visited(const QPointF& place) const;
    /// Answers whether it has been there before.
    bool visit(const QPointF& place);

private:
    std::size_t cellOf(const QPointF& place) const;

    double m_perPixel;
    int m_width;
    int m_height;
    std::vector<bool> m_cells;
};

/// Marks all squares along a line.
void visitAlong(std::span<const QPointF> line, PathCells& visited);
/// The steps of a line that lead anywhere new. The parts have no distances.
PathPieces unvisitedParts(std::span<const QPointF> line, const PathCells& visited);

/// Steps too short to see are left out, so are those over pixels that newer ones went over, and what lies
/// further than `pen` outside the image. Where more ink has been used than the image takes, the older rest is
/// left out. The oldest point stands first. `visited`, kFine squares a pixel, tells of newer paths and learns
/// of this one.
PathPieces thinnedPath(const TraceRing& ring, const AxisMap& x, const AxisMap& y, const QSize& image,
                       double pen, PathCells& visited);

/// Places for symbols `spacing` image pixels apart or more, and the same ones while the data scroll: where X
/// is in order, one point in each stretch of X; else the oldest point in each square of the image.
std::vector<QPointF> symbolPlacesInOrder(const TraceRing& ring, const PointRun& run, const AxisMap& x,
                                         const AxisMap& y, const QSize& image, double spacing);
std::vector<QPointF> symbolPlaces(const TraceRing& ring, const AxisMap& x, const AxisMap& y,
                                  const QSize& image, double spacing);

} // namespace vistor
