// Ranges, tics and rectangles of a strip, apart from any painter. In: what its properties say and how large
// it is. Out: numbers to paint from.
#pragma once

#include <QRectF>
#include <QString>

namespace vistor {

/// What an axis shows, from its left or lower end to the other.
struct AxisRange {
    double low = 0;
    double high = 1;

    double length() const { return high - low; }
    bool operator==(const AxisRange&) const = default;
};

/// The visible X: it ends at the origin on a scrolling graph and begins there on the other. A length that is
/// negative or not finite counts as 0.
AxisRange visibleX(double origin, double length, bool scrolling);

/// A range that something can be painted on: finite, upright, and of some length around a single value.
AxisRange paintable(AxisRange range);

/// Places of numbers along an axis: `first` and `count` places in steps of 1, 2 or 5 times a power of ten.
struct Tics {
    double first = 0;
    double step = 1;
    int count = 0;

    double at(int index) const { return first + index * step; }
};

/// At most `most` tics (at least 2) on a range that is paintable.
Tics ticsOf(const AxisRange& range, int most);

/// The number at a tic, with as many decimals as its step needs, or `leastDecimals`, and "." as the mark;
/// very large and very small ones with an exponent.
QString ticText(const Tics& tics, int index, int leastDecimals = 0);

/// Linear from a range to pixels; the ends may stand either way round.
struct AxisMap {
    AxisMap(const AxisRange& range, double pixelLow, double pixelHigh)
        : origin(range.low), factor((pixelHigh - pixelLow) / range.length()), offset(pixelLow) {}

    /// Never beyond kFar, so that drawing stays within its number range.
    double operator()(double value) const {
        const double pixel = (value - origin) * factor + offset;
        return pixel < -kFar ? -kFar : pixel > kFar ? kFar : pixel;
    }

    static constexpr double kFar = 1e5;
    double origin;
    double factor; ///< pixels a unit
    double offset;
};

struct StripLook {
    bool numbersX = true;
    bool numbersY = true;
    bool legend = false;
    double lineHeight = 12; ///< of a number's text, logical pixels
    double widestY = 0;     ///< text width of the widest Y number
    double ratio = 1;       ///< device pixels to a logical one
};

struct StripLayout {
    QRectF room;   ///< of all of it
    QRectF frame;  ///< of the grid, on whole device pixels
    QRectF data;   ///< where the ranges' ends lie: inside the frame, so that what is extreme is seen whole
    QRectF legend; ///< empty: none
    bool numbersX = false;
    bool numbersY = false;
};

/// Numbers and legend give way, in that order, where the room is short.
StripLayout layOutStrip(const QRectF& room, const StripLook& look);

} // namespace vistor
