// Lines in dashes that run along them. In: pieces of a path, or points of a run in the order of X. Out: the
// dashes as pieces in image pixels.
#pragma once

#include "instruments/displays/StripPath.h"

namespace vistor {

/// Cuts pieces into dashes, on, off, on ... in pixels along the path from its start, so that they stay in
/// their places while it grows. The pieces that result have no distances.
PathPieces dashed(const PathPieces& path, std::span<const double> dashes);

/// A run whose X never falls, in dashes along its line. They begin anew in every cell of X, so that they stay
/// on their data while those scroll. Where a line goes up and down so often within a cell that its dashes
/// would run together it is solid, and so is what sticks out by twice `pen` or more within a pixel: nothing
/// is lost in a gap.
PathPieces dashedInOrder(const TraceRing& ring, const PointRun& run, const AxisMap& x, const AxisMap& y,
                         const QSize& image, double pen, std::span<const double> dashes);

} // namespace vistor
