// Where the portions of a percentage bar lie. In: values, places in logical pixels. Out: shares and outlines.
#pragma once

#include "instruments/displays/AngularGaugeGeometry.h"
#include "instruments/displays/BarShapes.h"
#include "instruments/displays/ScaleTics.h"

#include <span>

namespace vistor {

/// How values become parts of a bar.
struct PortionRule {
    ValueRange range;   ///< nothing and all of the bar
    bool ratio = false; ///< each value is a part of their sum instead
    bool stacked = true;
};

/// Shares of a bar, 0 at its start to 1.
struct PortionSpan {
    double from = 0;
    double to = 0;

    bool operator==(const PortionSpan&) const = default;
};

/// Writes a span for each value. Stacked ones begin where the one before ends and fill the bar at most; what
/// is negative, below the range or not a number takes nothing. `spans` is as long as `values`.
void placePortions(const PortionRule& rule, std::span<const double> values, std::span<PortionSpan> spans);

/// What a portion amounts to in hundredths, beyond the bar's ends too; not a number where its value is none.
double percentOf(const PortionRule& rule, double value, const PortionSpan& span);

/// One bar, straight or bent to a ring.
struct PercentBar {
    bool round = false;
    BarSpan line; ///< of a straight one
    double corner = 0;
    DialPlace place;  ///< of a ring
    double inner = 0; ///< shares of its radius
    double outer = 1;
    double startAngle = 0;
    double sweep = 360; ///< negative: anticlockwise

    QPainterPath part(double from, double to) const;
    QPointF middle(double share) const;
    double width() const;
    double length() const; ///< along its middle
    QRectF bounds() const;
    /// The middle of the room inside a ring, and how far it reaches to either side.
    QPointF holeMiddle() const;
    double holeRadius() const { return inner * place.radius; }
};

/// `count` bars beside one another across `room`, with gaps of a share of their width.
std::vector<PercentBar> straightBars(const QRectF& room, bool vertical, bool backward, int count, double gap);

struct RingForm {
    double startAngle = 0;
    double sweep = 360;
    double width = 0.26; ///< share of the radius
    double gap = 0.2;
};
/// `count` rings inside one another, the first outermost.
std::vector<PercentBar> ringBars(const QRectF& room, const RingForm& form, bool backward, int count);

} // namespace vistor
