#include "instruments/displays/StripAxes.h"

#include <QTransform>

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr double kLeastPlot = 44; ///< logical pixels of grid that numbers may not take
constexpr double kTextGap = 6;    ///< between numbers and grid

double finiteOr(double value, double otherwise) {
    return std::isfinite(value) ? value : otherwise;
}

/// 1, 2 or 5 times a power of ten, at least `least`.
double roundStep(double least) {
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    for (const double digit : {1.0, 2.0, 5.0})
        if (digit * power >= least * (1 - 1e-9)) return digit * power;
    return 10 * power;
}

/// The power of ten of a number's first digit.
int placeOf(double number) {
    return static_cast<int>(std::floor(std::log10(number) + 1e-9));
}

/// Grown to whole device pixels, so that the grid's picture is copied and not scaled.
QRectF onPixels(const QRectF& frame, double ratio) {
    const QRect pixels = QTransform::fromScale(ratio, ratio).mapRect(frame).toAlignedRect();
    return {pixels.x() / ratio, pixels.y() / ratio, pixels.width() / ratio, pixels.height() / ratio};
}

int decimalsOf(double step) {
    return std::max(0, -placeOf(step));
}

} // namespace

AxisRange visibleX(double origin, double length, bool scrolling) {
    const double reach = std::isfinite(length) && length > 0 ? length : 0;
    const double at = finiteOr(origin, 0);
    return scrolling ? AxisRange{at - reach, at} : AxisRange{at, at + reach};
}

AxisRange paintable(AxisRange range) {
    constexpr double kLargest = 1e300; // so that neither length nor tics overflow
    range.low = std::clamp(finiteOr(range.low, 0), -kLargest, kLargest);
    range.high = std::clamp(finiteOr(range.high, 0), -kLargest, kLargest);
    if (range.low > range.high) std::swap(range.low, range.high);
    constexpr double kLeastShare = 1e-9; // beyond that, doubles have too few digits to tell pixels apart
    const double size = std::max(std::abs(range.low), std::abs(range.high));
    if (range.length() > size * kLeastShare && range.length() > 1e-290) return range;
    const double reach = size > 0 ? size * 0.05 : 1;
    return {range.low - reach, range.high + reach};
}

Tics ticsOf(const AxisRange& range, int most) {
    Tics tics;
    tics.step = roundStep(range.length() / std::max(most - 1, 1));
    constexpr double kSlack = 1e-6; // of a step, for ends that are a tic but for rounding
    const double firstStep = std::ceil(range.low / tics.step - kSlack);
    const double lastStep = std::floor(range.high / tics.step + kSlack);
    tics.first = firstStep * tics.step;
    tics.count = static_cast<int>(std::clamp(lastStep - firstStep + 1, 0.0, double(std::max(most, 2))));
    return tics;
}

QString ticText(const Tics& tics, int index, int leastDecimals) {
    double value = tics.at(index);
    if (std::abs(value) < tics.step * 1e-6) value = 0; // not "-0"
    const double largest = std::max(std::abs(tics.first), std::abs(tics.at(tics.count - 1)));
    constexpr double kPlainBelow = 1e7;
    constexpr double kPlainStep = 0.99e-5;
    if (largest < kPlainBelow && tics.step > kPlainStep)
        return QString::number(value, 'f', std::max(decimalsOf(tics.step), leastDecimals));
    const int digits = placeOf(largest > 0 ? largest : tics.step) - placeOf(tics.step) + 1;
    return QString::number(value, 'g', std::clamp(digits, 1, 15));
}

StripLayout layOutStrip(const QRectF& room, const StripLook& look) {
    StripLayout layout;
    layout.room = room;
    const double margin = std::clamp(std::min(room.width(), room.height()) * 0.03, 2.0, 10.0);
    QRectF frame = room.adjusted(margin, margin, -margin, -margin);
    const double left = look.widestY + kTextGap;
    const double below = look.lineHeight + kTextGap / 2;
    layout.numbersX = look.numbersX && frame.height() - below >= kLeastPlot;
    layout.numbersY = look.numbersY && frame.width() - left >= 2 * kLeastPlot;
    if (layout.numbersY) frame.setLeft(frame.left() + left);
    if (layout.numbersX) frame.setBottom(frame.bottom() - below);
    if (layout.numbersX) frame.setRight(frame.right() - look.lineHeight / 2); // half of the last number
    const double band = look.lineHeight + kTextGap;
    if (look.legend && frame.height() - band >= 2 * kLeastPlot) {
        layout.legend = QRectF(frame.left(), frame.top(), frame.width(), look.lineHeight);
        frame.setTop(frame.top() + band);
    }
    if (layout.numbersY && !look.legend)
        frame.setTop(frame.top() + look.lineHeight / 4); // the topmost number
    layout.frame = frame.isValid() ? onPixels(frame, look.ratio) : QRectF(room.topLeft(), QSizeF(1, 1));
    const double inset = std::min(4.0, std::min(layout.frame.width(), layout.frame.height()) / 8);
    layout.data = layout.frame.adjusted(inset, inset, -inset, -inset);
    return layout;
}

} // namespace vistor
