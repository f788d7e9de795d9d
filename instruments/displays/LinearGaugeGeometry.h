// Where values stand on a straight scale. In: ranges and places in logical pixels. Out: points. "Along" and
// "across" are those of bars.
#pragma once

#include "instruments/displays/BarShapes.h"
#include "instruments/displays/ScaleTics.h"

namespace vistor {

struct LinearScale {
    ValueRange range;
    bool vertical = true;
    double start = 0; ///< along, where the range's start stands
    double stop = 0;
    double middle = 0; ///< across, the place of share 0.5
    double unit = 0;   ///< pixels of the share 1 across

    /// Where a value stands; outside the range the nearer end, for what is not a number the start.
    double along(double value) const;
    /// A share of the thickness, on whole pixels so that straight edges are sharp.
    double across(double share) const;
    QPointF point(double along, double across) const;
    QRectF rect(double fromAlong, double toAlong, double fromAcross, double toAcross) const;
};

} // namespace vistor
