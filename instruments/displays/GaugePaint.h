// What gauges paint alike, whatever line their scales follow. In: places in logical pixels, colours, texts.
// Out: paint.
#pragma once

#include "instruments/displays/BarShapes.h"

#include <QBrush>
#include <QLineF>
#include <QString>

#include <span>

class QPainter;

namespace vistor {

/// Lit from above: light at the top, dark at the bottom; `sunken` the other way round.
QBrush metal(const QRectF& bounds, const QColor& colour, bool sunken);
/// Light across a rod of a colour, in another one at its edges.
QBrush rodLight(const BarSpan& rod, const QColor& colour, const QColor& edge);

enum class TicForm { Line, Triangle, Dot };
inline constexpr const char* kTicFormWords[] = {"Line", "Triangle", "Dot"};

/// Marks from the labels' side (first point) outwards. Those that would run together are left out.
void paintTicMarks(QPainter& painter, std::span<const QLineF> marks, int form, double width,
                   const QColor& colour);

struct TicLabel {
    QString text;
    QPointF centre;
    double turn = 0; ///< degrees clockwise
};
/// In the painter's font and pen, as many as find room beside one another. One that would be cut at the edge
/// of `room` is left out.
void paintTicLabels(QPainter& painter, std::span<const TicLabel> labels, const QRectF& room);

/// A line of text in the painter's font and pen, its capitals centred on the place's height. `before` is the
/// share of its width that lies before the place.
void paintTextAt(QPainter& painter, const QPointF& place, const QString& text, double before);

} // namespace vistor
