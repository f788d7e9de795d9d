#include "instruments/displays/AngularGaugeGeometry.h"

#include <QPainterPathStroker>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace vistor {
namespace {

constexpr double kMostDegrees = 3600; ///< ten turns, for a needle that goes round more than once
constexpr double kFullTurn = 360;
constexpr int kAutomaticParts = 10;
constexpr int kMostDecimals = 6;
constexpr double kSectorMargin = 0.24; ///< rounding of a sector's corners: room for a hub and for labels
constexpr double kFine = 1000; ///< outlines are joined in thousandths, which keeps their curves smooth

double bounded(double angle) {
    return std::isfinite(angle) ? std::clamp(angle, -kMostDegrees, kMostDegrees) : 0;
}

/// The toolkit's arcs run anticlockwise from three o'clock.
double arcAngle(double angle) {
    return 90 - angle;
}

QRectF around(const QPointF& centre, double radius) {
    return {centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius};
}

QPainterPath spanOutline(const DialSpan& span) {
    const double start = bounded(span.startAngle);
    const double sweep = std::clamp(bounded(span.stopAngle) - start, -kFullTurn, kFullTurn);
    const double size = span.size * kFine;
    const double margin = kSectorMargin * size;
    QPainterPath pie(span.offset * kFine);
    pie.arcTo(around(span.offset * kFine, size - margin), arcAngle(start), -sweep);
    pie.closeSubpath();
    QPainterPathStroker rounding;
    rounding.setWidth(2 * margin);
    rounding.setJoinStyle(Qt::RoundJoin);
    return pie.united(rounding.createStroke(pie));
}

bool isWholeTimes(double value, double unit) {
    const double times = value * unit;
    return std::abs(times - std::round(times)) <= 1e-6 * std::max(1.0, std::abs(times));
}

bool haveRoom(std::span<const QRectF> boxes, std::size_t stride) {
    for (std::size_t i = 0; i + stride < boxes.size(); i += stride)
        if (boxes[i].intersects(boxes[i + stride])) return false;
    return true;
}

QPolygonF arrowHalf(const NeedleForm& f) {
    const double head = std::min(2.4 * f.width, f.length);
    const double shaft = std::max(f.tipWidth, 0.3 * f.width) / 2;
    return {{{0, -f.length},
             {f.width * 0.8, -f.length + head},
             {shaft, -f.length + head},
             {shaft, f.tail},
             {0, f.tail}}};
}

QPolygonF markHalf(const NeedleForm& f) {
    const double height = std::min(2 * f.width, f.length);
    return {{{0, -f.length}, {f.width, -f.length + height}, {0, -f.length + height}}};
}

} // namespace

double dialAngle(const DialScale& scale, double value) {
    const double range = scale.stopValue / 2 - scale.startValue / 2; // halves, so that no range overflows
    const double share = (value / 2 - scale.startValue / 2) / range;
    const double start = bounded(scale.startAngle);
    if (range == 0 || std::isnan(share)) return start;
    return start + std::clamp(share, 0.0, 1.0) * (bounded(scale.stopAngle) - start);
}

QPointF dialPoint(const QPointF& centre, double radius, double angle) {
    const double turned = angle * std::numbers::pi / 180;
    return {centre.x() + radius * std::sin(turned), centre.y() - radius * std::cos(turned)};
}

QPainterPath sectorOutline(std::span<const DialSpan> spans) {
    QPainterPath outline;
    for (const DialSpan& span : spans) outline = outline.united(spanOutline(span));
    return QTransform::fromScale(1 / kFine, 1 / kFine).map(outline);
}

DialPlace placeFor(const QRectF& bounds, const QRectF& room) {
    if (bounds.isEmpty() || room.isEmpty()) return {room.center(), 0};
    const double radius = std::min(room.width() / bounds.width(), room.height() / bounds.height());
    return {room.center() - bounds.center() * radius, radius};
}

double roundStep(double range, int most) {
    const double least = std::abs(range) / std::max(most, 1);
    if (!(least > 0) || !std::isfinite(least)) return 1;
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double mantissa : {1.0, 2.0, 5.0})
        if (mantissa * power >= least * (1 - 1e-9)) return mantissa * power;
    return 10 * power;
}

double partOfStep(double step) {
    struct Division {
        double mantissa;
        double parts;
    };
    constexpr Division kDivisions[] = {{1.5, 3}, {2, 4}, {3, 3}, {4, 4}, {6, 3}, {8, 4}};
    const double mantissa = step / std::pow(10, std::floor(std::log10(step) + 1e-9));
    for (const Division& d : kDivisions)
        if (std::abs(mantissa - d.mantissa) < 1e-6) return step / d.parts;
    return step / 5;
}

TicRun ticRun(double start, double stop, double step) {
    const double range = std::abs(stop - start);
    if (!(range > 0) || !std::isfinite(range)) return {start, 1, std::isfinite(start) ? 1 : 0};
    double size = std::abs(step);
    if (!(size > 0) || !std::isfinite(size) || !(range / size < kMostTics))
        size = roundStep(range, kAutomaticParts);
    const int count = std::min(static_cast<int>(range / size + 1e-6) + 1, kMostTics);
    return {start, stop < start ? -size : size, count};
}

int labelDecimals(const TicRun& run, double divisor) {
    double unit = 1;
    for (int decimals = 0; decimals < kMostDecimals; ++decimals, unit *= 10)
        if (isWholeTimes(run.start / divisor, unit) && isWholeTimes(run.step / divisor, unit))
            return decimals;
    return kMostDecimals;
}

QString labelText(double value, int decimals) {
    constexpr double kPlainBelow = 1e9;
    if (std::abs(value) >= kPlainBelow) return QString::number(value, 'g', 4);
    const double smallest = 0.5 * std::pow(10, -decimals);
    return QString::number(std::abs(value) < smallest ? 0.0 : value, 'f', decimals);
}

std::vector<int> labelsWithRoom(std::span<const QRectF> boxes) {
    constexpr std::array<std::size_t, 9> kStrides{1, 2, 5, 10, 20, 50, 100, 200, 500};
    const auto* const stride =
        std::find_if(kStrides.begin(), kStrides.end(), [boxes](std::size_t s) { return haveRoom(boxes, s); });
    const std::size_t every = stride == kStrides.end() ? boxes.size() : *stride;
    std::vector<int> shown;
    for (std::size_t i = 0; i < boxes.size(); i += every) shown.push_back(static_cast<int>(i));
    const auto last = [&] { return static_cast<std::size_t>(shown.back()); };
    while (shown.size() > 1 && boxes[last()].intersects(boxes[0])) shown.pop_back();
    return shown;
}

QPainterPath ringPart(const DialPlace& place, double innerRadius, double outerRadius, double fromAngle,
                      double toAngle) {
    const double from = bounded(fromAngle);
    const double sweep = std::clamp(bounded(toAngle) - from, -kFullTurn, kFullTurn);
    const double inner = place.radius * std::min(innerRadius, outerRadius);
    const double outer = place.radius * std::max(innerRadius, outerRadius);
    QPainterPath path;
    path.arcMoveTo(around(place.centre, outer), arcAngle(from));
    path.arcTo(around(place.centre, outer), arcAngle(from), -sweep);
    path.arcTo(around(place.centre, inner), arcAngle(from + sweep), sweep);
    path.closeSubpath();
    return path;
}

QPolygonF needleHalf(const NeedleForm& f) {
    switch (f.shape) {
    case NeedleShape::Bar:
        return {{{0, -f.length}, {f.width / 2, -f.length}, {f.width / 2, f.tail}, {0, f.tail}}};
    case NeedleShape::Lance:
        return {{{0, -f.length},
                 {f.width / 2, -0.3 * f.length},
                 {f.tipWidth, 0},
                 {f.tipWidth, f.tail},
                 {0, f.tail}}};
    case NeedleShape::Arrow:
        return arrowHalf(f);
    case NeedleShape::Mark:
        return markHalf(f);
    case NeedleShape::Tapered:
        break;
    }
    return {{{0, -f.length},
             {f.tipWidth / 2, -f.length},
             {f.width / 2, 0},
             {0.4 * f.width, f.tail},
             {0, f.tail}}};
}

} // namespace vistor
