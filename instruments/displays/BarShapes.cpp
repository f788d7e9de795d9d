#include "instruments/displays/BarShapes.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace vistor {
namespace {

constexpr double kBulbShare = 0.85;  ///< its radius, of the tube's width
constexpr double kBulbOverlap = 0.8; ///< how far its centre lies before the tube, in radii
constexpr double kTankShare = 0.17;
constexpr int kCurveSteps = 12; ///< of a quarter turn

/// Half the width of a rounded bar at a place `inside` its nearer end.
double halfWidthAt(double inside, double half, double depth, double corner) {
    if (inside >= depth || depth <= 0) return half;
    const double left = (depth - std::max(inside, 0.0)) / depth;
    return half - corner + corner * std::sqrt(std::max(1 - left * left, 0.0));
}

/// Places along a rounded bar from one end to the other, close together where it curves.
std::vector<double> curvePlaces(double length, double depth) {
    std::vector<double> places;
    for (int i = 0; i <= kCurveSteps; ++i) {
        const double turn = i * std::acos(0.0) / kCurveSteps;
        places.push_back(depth * (1 - std::cos(turn)));
    }
    for (int i = kCurveSteps; i >= 0; --i) places.push_back(length - places[static_cast<std::size_t>(i)]);
    return places;
}

} // namespace

QPointF barPoint(bool vertical, double along, double across) {
    return vertical ? QPointF(across, along) : QPointF(along, across);
}

QPointF BarSpan::point(double along, double across) const {
    return barPoint(vertical, along, across);
}

QRectF BarSpan::rect(double fromAlong, double toAlong) const {
    return QRectF(point(fromAlong, near), point(toAlong, far)).normalized();
}

double bulbReach(double width) {
    return kBulbShare * width * (1 + kBulbOverlap);
}

double tankDepth(double width) {
    return kTankShare * width;
}

QPolygonF roundedPart(const BarSpan& whole, double from, double to, double depth, double corner) {
    const double length = std::abs(whole.to - whole.from);
    const double sign = whole.to < whole.from ? -1 : 1;
    const auto inside = [&](double place) { return std::clamp((place - whole.from) * sign, 0.0, length); };
    const auto [low, high] = std::minmax({inside(from), inside(to)}); // values: the others would be gone
    const double reach = std::min(depth, length / 2);
    const double half = whole.width() / 2;
    const double middle = whole.near + half;
    QPolygonF nearSide;
    QPolygonF farSide;
    for (const double asked : curvePlaces(length, reach)) {
        const double place = std::clamp(asked, low, high);
        const double width = halfWidthAt(std::min(place, length - place), half, reach, corner);
        nearSide << whole.point(whole.from + sign * place, middle - width);
        farSide << whole.point(whole.from + sign * place, middle + width);
    }
    std::reverse(farSide.begin(), farSide.end());
    return nearSide + farSide;
}

QPolygonF ellipsePart(const BarSpan& whole, double from, double to) {
    return roundedPart(whole, from, to, std::abs(whole.to - whole.from) / 2, whole.width() / 2);
}

QPainterPath thermometer(const BarSpan& tube, double direction, bool roundEnd) {
    const double sign = direction < 0 ? -1 : 1;
    const double radius = kBulbShare * tube.width();
    const double centre = tube.from - sign * radius * kBulbOverlap;
    const double middle = (tube.near + tube.far) / 2;
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addEllipse(tube.point(centre, middle), radius, radius);
    const double round = roundEnd ? tube.width() / 2 : 0;
    path.addRoundedRect(tube.rect(centre, tube.to), round, round);
    return path;
}

QRectF tankEnd(const BarSpan& drum) {
    const double depth = tankDepth(drum.width());
    return drum.rect(drum.to - depth, drum.to + depth);
}

QPainterPath tank(const BarSpan& drum) {
    const double depth = tankDepth(drum.width());
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addEllipse(drum.rect(drum.from - depth, drum.from + depth));
    path.addRect(drum.rect(drum.from, drum.to));
    path.addEllipse(tankEnd(drum));
    return path;
}

QPolygonF triangleMark(const BarSpan& at, double halfWidth) {
    return {{at.point(at.from, at.near), at.point(at.from - halfWidth, at.far),
             at.point(at.from + halfWidth, at.far)}};
}

QPolygonF diamondMark(const BarSpan& at, double halfWidth) {
    const double middle = (at.near + at.far) / 2;
    return {{at.point(at.from, at.near), at.point(at.from - halfWidth, middle), at.point(at.from, at.far),
             at.point(at.from + halfWidth, middle)}};
}

} // namespace vistor
