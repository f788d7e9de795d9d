// Where the parts of a dial lie. In: ranges, angles and sizes. Out: angles, points and outlines. Angles are
// degrees clockwise from the top; a dial's lengths are shares of its radius, y downwards.
#pragma once

#include <QPainterPath>
#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <QString>

#include <span>
#include <vector>

namespace vistor {

/// Values and the angles that they stand at. Either may run downwards.
struct DialScale {
    double startValue = 0;
    double stopValue = 100;
    double startAngle = -135;
    double stopAngle = 135;
};

/// The angle of a value: outside the scale that of the nearer end, for what is not a number that of the
/// start.
double dialAngle(const DialScale& scale, double value);
QPointF dialPoint(const QPointF& centre, double radius, double angle);

/// The part of a dial that a scale takes up.
struct DialSpan {
    QPointF offset; ///< of its centre from the dial's
    double size = 1;
    double startAngle = -135;
    double stopAngle = 135;
};

/// What the spans cover, rounded at the corners, with room for a hub at each centre.
QPainterPath sectorOutline(std::span<const DialSpan> spans);

struct DialPlace {
    QPointF centre;
    double radius = 0;
};
/// The largest place for a dial whose outline at radius 1 has these bounds.
DialPlace placeFor(const QRectF& bounds, const QRectF& room);

/// A ring's part between two angles, at most a full turn.
QPainterPath ringPart(const DialPlace& place, double innerRadius, double outerRadius, double fromAngle,
                      double toAngle);

enum class NeedleShape { Tapered, Bar, Lance, Arrow, Mark };

struct NeedleForm {
    NeedleShape shape = NeedleShape::Tapered;
    double length = 1;
    double tail = 0; ///< behind the centre
    double width = 0;
    double tipWidth = 0;
};
/// The right half of a needle that points up from (0, 0), beginning and ending on its axis.
QPolygonF needleHalf(const NeedleForm& form);

} // namespace vistor
