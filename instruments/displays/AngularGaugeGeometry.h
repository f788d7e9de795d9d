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

/// The tics of a section: values start, start + step, ... `count` of them, at most kMostTics.
struct TicRun {
    double start = 0;
    double step = 1; ///< negative on a run downwards
    int count = 0;

    double value(int tic) const { return start + tic * step; }
};
inline constexpr int kMostTics = 1000;

/// Tics from start to stop. A step that is 0 or would make too many tics gives way to a round one.
TicRun ticRun(double start, double stop, double step);
/// The step of a finer row of tics between those of `step`: a third, a quarter or a fifth, so that it is
/// round.
double partOfStep(double step);
/// The smallest of 1, 2 and 5 times a power of ten that cuts the range into at most `most` parts.
double roundStep(double range, int most);

/// The fewest decimals, up to 6, that tell the tics of a run apart when divided by `divisor`.
int labelDecimals(const TicRun& run, double divisor);
QString labelText(double value, int decimals);
/// Which labels find room, by their boxes in order: every one, every 2nd, 5th, 10th ... A label that meets
/// the first one at the end of a full turn is left out.
std::vector<int> labelsWithRoom(std::span<const QRectF> boxes);

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
