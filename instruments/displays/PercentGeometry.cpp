#include "instruments/displays/PercentGeometry.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace vistor {
namespace {

constexpr double kCornerShare = 0.18;
constexpr double kWidestCorner = 10;  ///< pixels
constexpr double kMostRings = 0.6;    ///< of the radius, several rings together
constexpr double kLeastInner = 0.004; ///< a ring that is a disc
constexpr double kLeastSweep = 5;

/// A value's weight among others, so that no sum of them overflows.
double weight(double value) {
    constexpr double kMost = std::numeric_limits<double>::max() / 1000;
    return value > 0 ? std::min(value, kMost) : 0;
}

double shareIn(const PortionRule& rule, double value, double sum) {
    if (!rule.ratio) return shareOf(rule.range, value);
    return sum > 0 ? weight(value) / sum : 0;
}

/// The width of one of `count` bars and gaps that fill `room`.
double barWidth(double room, int count, double gap) {
    return room / (count + (count - 1) * gap);
}

} // namespace

void placePortions(const PortionRule& rule, std::span<const double> values, std::span<PortionSpan> spans) {
    double sum = 0;
    for (const double value : values) sum += weight(value);
    double start = 0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const double end = std::min(start + shareIn(rule, values[i], sum), 1.0);
        spans[i] = {start, end};
        if (rule.stacked) start = end;
    }
}

double percentOf(const PortionRule& rule, double value, const PortionSpan& span) {
    if (!std::isfinite(value)) return std::numeric_limits<double>::quiet_NaN();
    if (rule.ratio) return 100 * (span.to - span.from);
    const double size = rule.range.stop / 2 - rule.range.start / 2;
    const double share = (value / 2 - rule.range.start / 2) / size;
    return size != 0 && std::isfinite(share) ? 100 * share : std::numeric_limits<double>::quiet_NaN();
}

QPainterPath PercentBar::part(double from, double to) const {
    if (round) return ringPart(place, inner, outer, startAngle + from * sweep, startAngle + to * sweep);
    const double run = line.to - line.from;
    QPainterPath path;
    path.addPolygon(roundedPart(line, line.from + from * run, line.from + to * run, corner, corner));
    path.closeSubpath();
    return path;
}

QPointF PercentBar::middle(double share) const {
    if (round) return dialPoint(place.centre, place.radius * (inner + outer) / 2, startAngle + share * sweep);
    return line.point(line.from + share * (line.to - line.from), (line.near + line.far) / 2);
}

double PercentBar::width() const {
    return round ? (outer - inner) * place.radius : line.width();
}

double PercentBar::length() const {
    if (!round) return std::abs(line.to - line.from);
    return std::abs(sweep) * std::numbers::pi / 180 * place.radius * (inner + outer) / 2;
}

QRectF PercentBar::bounds() const {
    if (!round) return line.rect(line.from, line.to);
    const double r = place.radius * outer;
    return {place.centre.x() - r, place.centre.y() - r, 2 * r, 2 * r};
}

QPointF PercentBar::holeMiddle() const {
    const double hole = holeRadius();
    const QRectF all(place.centre.x() - hole, place.centre.y() - hole, 2 * hole, 2 * hole);
    const QRectF open = all.intersected(part(0, 1).boundingRect());
    return open.isEmpty() ? place.centre : open.center();
}

std::vector<PercentBar> straightBars(const QRectF& room, bool vertical, bool backward, int count,
                                     double gap) {
    const double across = vertical ? room.width() : room.height();
    const double first = vertical ? room.left() : room.top();
    const double width = barWidth(across, count, gap);
    const double low = vertical ? room.bottom() : room.left();
    const double high = vertical ? room.top() : room.right();
    std::vector<PercentBar> bars(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const double near = first + i * width * (1 + gap);
        const bool wide = width > 4; // else straight edges on whole pixels would eat the gaps
        PercentBar& bar = bars[static_cast<std::size_t>(i)];
        bar.line = {.vertical = vertical,
                    .from = backward ? high : low,
                    .to = backward ? low : high,
                    .near = wide ? std::round(near) : near,
                    .far = wide ? std::round(near + width) : near + width};
        bar.corner = std::min(kCornerShare * width, kWidestCorner);
    }
    return bars;
}

std::vector<PercentBar> ringBars(const QRectF& room, const RingForm& form, bool backward, int count) {
    const double sweep = std::clamp(std::abs(form.sweep), kLeastSweep, 360.0) * (backward ? -1 : 1);
    const double all = std::min(form.width * (count + (count - 1) * form.gap), count > 1 ? kMostRings : 1.0);
    const double width = barWidth(all, count, form.gap);
    const QPainterPath whole =
        ringPart({{}, 1}, std::max(1 - all, kLeastInner), 1, form.startAngle, form.startAngle + sweep);
    const DialPlace place = placeFor(whole.boundingRect(), room);
    std::vector<PercentBar> bars(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        PercentBar& bar = bars[static_cast<std::size_t>(i)];
        bar.round = true;
        bar.place = place;
        bar.outer = 1 - i * width * (1 + form.gap);
        bar.inner = std::max(bar.outer - width, kLeastInner);
        bar.startAngle = form.startAngle;
        bar.sweep = sweep;
    }
    return bars;
}

} // namespace vistor
