#include "instruments/displays/GaugePaint.h"

#include "instruments/Colours.h"
#include "instruments/displays/ScaleTics.h"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr double kClosestTics = 2.5; ///< pixels from one to the next
constexpr double kLabelGap = 0.35;   ///< between labels, share of their height

void paintLines(QPainter& painter, std::span<const QLineF> marks, double width, const QColor& colour) {
    painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::FlatCap));
    for (const QLineF& mark : marks) painter.drawLine(mark);
}

void paintTriangles(QPainter& painter, std::span<const QLineF> marks, double width, const QColor& colour) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    for (const QLineF& mark : marks) {
        if (mark.isNull()) continue;
        const QLineF across = mark.normalVector().unitVector();
        const QPointF aside = QPointF(across.dx(), across.dy()) * width;
        const QPointF corners[] = {mark.p1(), mark.p2() + aside, mark.p2() - aside};
        painter.drawConvexPolygon(corners, 3);
    }
}

void paintDots(QPainter& painter, std::span<const QLineF> marks, double width, const QColor& colour) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    const double radius = std::max(width, 1.0);
    for (const QLineF& mark : marks) painter.drawEllipse(mark.center(), radius, radius);
}

/// The upright box of one that is turned, degrees.
QRectF boxAround(const QPointF& centre, const QSizeF& size, double turn) {
    const double along = std::abs(std::cos(turn * M_PI / 180));
    const double across = std::abs(std::sin(turn * M_PI / 180));
    const QSizeF box(size.width() * along + size.height() * across,
                     size.width() * across + size.height() * along);
    return {centre - QPointF(box.width() / 2, box.height() / 2), box};
}

} // namespace

QBrush metal(const QRectF& bounds, const QColor& colour, bool sunken) {
    QLinearGradient light(bounds.topLeft(), bounds.bottomLeft());
    light.setColorAt(sunken ? 1 : 0, mixed(colour, Qt::white, 0.45));
    light.setColorAt(0.5, colour);
    light.setColorAt(sunken ? 0 : 1, mixed(colour, Qt::black, 0.6));
    return light;
}

QBrush rodLight(const BarSpan& rod, const QColor& colour, const QColor& edge) {
    QLinearGradient light(rod.point(0, rod.near), rod.point(0, rod.far));
    light.setColorAt(0, edge);
    light.setColorAt(0.36, mixed(colour, Qt::white, 0.18));
    light.setColorAt(0.6, colour);
    light.setColorAt(1, edge);
    return light;
}

void paintTicMarks(QPainter& painter, std::span<const QLineF> marks, int form, double width,
                   const QColor& colour) {
    if (marks.size() > 1 && QLineF(marks[0].p2(), marks[1].p2()).length() < kClosestTics) return;
    if (form == int(TicForm::Triangle))
        paintTriangles(painter, marks, width, colour);
    else if (form == int(TicForm::Dot))
        paintDots(painter, marks, width, colour);
    else
        paintLines(painter, marks, width, colour);
}

void paintTicLabels(QPainter& painter, std::span<const TicLabel> labels, const QRectF& room) {
    const QFontMetricsF metrics(painter.font());
    const double height = metrics.capHeight();
    std::vector<QRectF> boxes;
    for (const TicLabel& label : labels) {
        const double width = metrics.horizontalAdvance(label.text) + kLabelGap * height;
        boxes.push_back(boxAround(label.centre, {width, 1.2 * height}, label.turn));
    }
    for (const int shown : labelsWithRoom(boxes)) {
        const TicLabel& label = labels[static_cast<std::size_t>(shown)];
        const QSizeF size(metrics.horizontalAdvance(label.text), height);
        if (!room.contains(boxAround(label.centre, size, label.turn))) continue;
        painter.save();
        painter.translate(label.centre);
        painter.rotate(label.turn);
        paintTextAt(painter, {}, label.text, 0.5);
        painter.restore();
    }
}

void paintTextAt(QPainter& painter, const QPointF& place, const QString& text, double before) {
    const QFontMetricsF metrics(painter.font());
    const QPointF start(-before * metrics.horizontalAdvance(text), metrics.capHeight() / 2);
    painter.drawText(place + start, text);
}

} // namespace vistor
