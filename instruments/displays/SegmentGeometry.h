// Shapes of the segments of a slanted digit and places of a row of digits. In: sizes in logical pixels. Out:
// paths and offsets.
#pragma once

#include "instruments/displays/SegmentCells.h"

#include <QPainterPath>
#include <QRectF>

namespace vistor {

/// One digit: upright box, bars and how far the top leans to the right.
struct SegmentShape {
    double width = 0;
    double height = 0;
    double bar = 0; ///< thickness
    double gap = 0; ///< between two bars
    double lean = 0;
    double spacing = 0;    ///< to the next digit; the point stands in its middle
    bool fourteen = false; ///< the middle bar is two halves
};

/// All bars of a set as one path, in a box from (0, 0) to (width + lean, height); the point stands to the
/// right of it.
QPainterPath segmentPath(const SegmentShape& shape, std::uint16_t segments);

/// How a row of digits fills a rectangle.
struct RowStyle {
    int digits = 6;
    double slantDegrees = 8;
    double barShare = 0.16;     ///< of a digit's width
    double spacingShare = 0.34; ///< between two digits, of a digit's width; holds the point
    double gapShare = 0.14;     ///< of a bar's thickness
    bool fourteen = false;
};

struct RowLayout {
    SegmentShape shape;
    double left = 0; ///< of the first digit
    double top = 0;
    double pitch = 0; ///< from digit to digit
    QRectF bounds;    ///< of the whole row
};

/// The largest row that fits, centred.
RowLayout rowLayout(const RowStyle& style, const QRectF& room);

} // namespace vistor
