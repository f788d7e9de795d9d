// Bars and what is shaped like them. In: places in logical pixels. Out: points and outlines. "Along" runs
// with the bar's line, to the right or downwards as the screen does; "across" at right angles to it.
#pragma once

#include <QPainterPath>
#include <QPolygonF>

namespace vistor {

QPointF barPoint(bool vertical, double along, double across);

/// A bar between two places along, which may stand either way round.
struct BarSpan {
    bool vertical = true;
    double from = 0;
    double to = 0;
    double near = 0; ///< across
    double far = 0;

    double width() const { return far - near; }
    QPointF point(double along, double across) const;
    QRectF rect(double fromAlong, double toAlong) const;
};

/// How far a thermometer's bulb reaches beyond the start of a tube, and a tank's end beyond either end, for a
/// bar of this width.
double bulbReach(double width);
double tankDepth(double width);

/// The part of a bar between two places of a whole one that is rounded at both ends: corners of `depth` along
/// and `corner` across.
QPolygonF roundedPart(const BarSpan& whole, double from, double to, double depth, double corner);
/// The same of an ellipse that fills the whole bar.
QPolygonF ellipsePart(const BarSpan& whole, double from, double to);
/// A tube with its bulb before the start, as seen in the scale's direction (below 0: up or to the left). Its
/// other end is rounded or, for a column inside it, flat.
QPainterPath thermometer(const BarSpan& tube, double direction, bool roundEnd);
/// A drum on its end; `tankEnd` is the lid at `to`.
QPainterPath tank(const BarSpan& drum);
QRectF tankEnd(const BarSpan& drum);

/// A mark at a place along: its tip at `near`, or for a diamond both tips at the edges.
QPolygonF triangleMark(const BarSpan& at, double halfWidth);
QPolygonF diamondMark(const BarSpan& at, double halfWidth);

} // namespace vistor
