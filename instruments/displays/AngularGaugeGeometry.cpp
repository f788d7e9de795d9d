#include "instruments/displays/AngularGaugeGeometry.h"

#include "instruments/displays/ScaleTics.h"

#include <QPainterPathStroker>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace vistor {
namespace {

constexpr double kMostDegrees = 3600; ///< ten turns, for a needle that goes round more than once
constexpr double kFullTurn = 360;
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
    const double start = bounded(scale.startAngle);
    const double share = shareOf({scale.startValue, scale.stopValue}, value);
    return start + share * (bounded(scale.stopAngle) - start);
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
