#include "instruments/displays/SegmentGeometry.h"

#include <QPolygonF>
#include <QTransform>

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr double kDigitShape = 0.56; ///< width over height
constexpr double kPointShare = 1.2;  ///< diameter over the bar's thickness

QPolygonF horizontalBar(double from, double to, double y, const SegmentShape& s) {
    const double half = s.bar / 2;
    const double a = from + s.gap;
    const double b = to - s.gap;
    return QPolygonF({{a, y},
                      {a + half, y - half},
                      {b - half, y - half},
                      {b, y},
                      {b - half, y + half},
                      {a + half, y + half}});
}

QPolygonF verticalBar(double x, double from, double to, const SegmentShape& s) {
    const double half = s.bar / 2;
    const double a = from + s.gap;
    const double b = to - s.gap;
    return QPolygonF({{x, a},
                      {x + half, a + half},
                      {x + half, b - half},
                      {x, b},
                      {x - half, b - half},
                      {x - half, a + half}});
}

/// From an outer corner of a quarter to the corner at the centre.
QPolygonF diagonalBar(QPointF outer, QPointF inner, const SegmentShape& s) {
    const double x =
        std::copysign(std::min(s.bar * 0.75, std::abs(inner.x() - outer.x())), inner.x() - outer.x());
    const double y =
        std::copysign(std::min(s.bar * 1.2, std::abs(inner.y() - outer.y())), inner.y() - outer.y());
    return QPolygonF({outer,
                      {outer.x() + x, outer.y()},
                      {inner.x(), inner.y() - y},
                      inner,
                      {inner.x() - x, inner.y()},
                      {outer.x(), outer.y() + y}});
}

QPolygonF quarterBar(int column, int row, const SegmentShape& s) {
    const double away = s.bar + s.gap;        // from the outer edges
    const double near = s.bar / 2 + s.gap;    // from the centre lines
    const double side = column == 0 ? -1 : 1; // of the centre
    const double part = row == 0 ? -1 : 1;
    const QPointF centre(s.width / 2, s.height / 2);
    const QPointF outer(centre.x() + side * (s.width / 2 - away), centre.y() + part * (s.height / 2 - away));
    return diagonalBar(outer, {centre.x() + side * near, centre.y() + part * near}, s);
}

/// The upright shape of one segment.
QPolygonF uprightBar(int segment, const SegmentShape& s) {
    const double half = s.bar / 2;
    const double left = half;
    const double right = s.width - half;
    const double top = half;
    const double bottom = s.height - half;
    const double middle = s.height / 2;
    const double centre = s.width / 2;
    switch (segment) {
    case SegA:
        return horizontalBar(left, right, top, s);
    case SegB:
        return verticalBar(right, top, middle, s);
    case SegC:
        return verticalBar(right, middle, bottom, s);
    case SegD:
        return horizontalBar(left, right, bottom, s);
    case SegE:
        return verticalBar(left, middle, bottom, s);
    case SegF:
        return verticalBar(left, top, middle, s);
    case SegG1:
        return horizontalBar(left, s.fourteen ? centre : right, middle, s);
    case SegG2:
        return horizontalBar(s.fourteen ? centre : left, right, middle, s);
    case SegH:
        return quarterBar(0, 0, s);
    case SegI:
        return verticalBar(centre, top + half, middle, s);
    case SegJ:
        return quarterBar(1, 0, s);
    case SegK:
        return quarterBar(0, 1, s);
    case SegL:
        return verticalBar(centre, middle, bottom - half, s);
    default:
        return quarterBar(1, 1, s);
    }
}

} // namespace

QPainterPath segmentPath(const SegmentShape& shape, std::uint16_t segments) {
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (int i = 0; i < kSegmentCount; ++i) {
        if ((segments & (1 << i)) == 0) continue;
        path.addPolygon(uprightBar(1 << i, shape));
        path.closeSubpath();
    }
    if ((segments & SegPoint) != 0) {
        const double size = shape.bar * kPointShare;
        path.addEllipse(QRectF(shape.width + (shape.spacing - size) / 2, shape.height - size, size, size));
    }
    const double shear = shape.height > 0 ? shape.lean / shape.height : 0;
    return QTransform(1, 0, -shear, 1, shape.lean, 0).map(path);
}

RowLayout rowLayout(const RowStyle& style, const QRectF& room) {
    const double slant = std::tan(style.slantDegrees * M_PI / 180);
    const double pitch = 1 + style.spacingShare;                      // in digit widths
    const double widths = style.digits * pitch + slant / kDigitShape; // of the row
    const double height = std::min(room.height(), room.width() / widths / kDigitShape);
    RowLayout layout;
    SegmentShape& shape = layout.shape;
    shape.height = std::max(height, 0.0);
    shape.width = shape.height * kDigitShape;
    shape.bar = shape.width * style.barShare;
    shape.gap = shape.bar * style.gapShare / 2;
    shape.lean = shape.height * slant;
    shape.spacing = shape.width * style.spacingShare;
    shape.fourteen = style.fourteen;
    layout.pitch = shape.width * pitch;
    const QSizeF size(shape.width * widths, shape.height);
    layout.bounds = QRectF(room.center() - QPointF(size.width() / 2, size.height() / 2), size);
    layout.left = layout.bounds.left() + shape.width * style.spacingShare / 2;
    layout.top = layout.bounds.top();
    return layout;
}

} // namespace vistor
