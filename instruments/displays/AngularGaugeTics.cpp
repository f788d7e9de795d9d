#include "instruments/displays/AngularGaugeTics.h"

#include "instruments/Colours.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr double kClosestTics = 2.5; ///< pixels from one to the next
constexpr double kLabelGap = 0.35;   ///< between labels, share of their height

/// One section of tics on its scale.
struct TicRow {
    ScalePlace on;
    TicRun run;
    double inner = 0;
    double outer = 0;
    double width = 0;

    double angle(int tic) const { return dialAngle(on.scale, run.value(tic)); }
    QPointF at(double radius, int tic) const { return dialPoint(on.place.centre, radius, angle(tic)); }
};

struct TicRange {
    double start;
    double stop;
};

TicRange ticRange(const PropertyStore& p, const DialScale& scale, int i) {
    const TicRange range{p.number(TicStartValue, i), p.number(TicStopValue, i)};
    return range.start == range.stop ? TicRange{scale.startValue, scale.stopValue} : range;
}

/// The step of a row that does not tell its own: round where it is labelled, else a part of the step of the
/// labelled row on the same scale.
double automaticStep(const PropertyStore& p, const DialScale& scale, int i) {
    if (p.flag(TicLabels, i)) return 0;
    int labelled = 0;
    const int tics = p.integer(GaugeTics);
    while (labelled < tics &&
           (!p.flag(TicLabels, labelled) || p.integer(TicScale, labelled) != p.integer(TicScale, i)))
        ++labelled;
    const TicRange range = ticRange(p, scale, labelled < tics ? labelled : i);
    const double step = labelled < tics ? p.number(TicStep, labelled) : 0;
    return partOfStep(std::abs(ticRun(range.start, range.stop, step).step));
}

TicRow ticRow(const PropertyStore& p, const DialLayout& layout, int i) {
    TicRow row;
    row.on = layout.scaleAt(p.integer(TicScale, i));
    const TicRange range = ticRange(p, row.on.scale, i);
    const double step = p.number(TicStep, i);
    row.run = ticRun(range.start, range.stop, step != 0 ? step : automaticStep(p, row.on.scale, i));
    const double radius = row.on.place.radius;
    row.inner = std::min(usualSize(p, TicInnerRadius, i), 3.0) * radius;
    row.outer = std::min(usualSize(p, TicOuterRadius, i), 3.0) * radius;
    row.width = std::max(std::min(usualSize(p, TicWidth, i), 1.0) * radius, 1.0);
    return row;
}

/// How far apart neighbours stand at the outer end, in pixels.
double ticDistance(const TicRow& row) {
    if (row.run.count < 2) return kClosestTics;
    const QPointF between = row.at(row.outer, 1) - row.at(row.outer, 0);
    return std::hypot(between.x(), between.y());
}

void paintLines(QPainter& painter, const TicRow& row, const QColor& colour) {
    painter.setPen(QPen(colour, row.width, Qt::SolidLine, Qt::FlatCap));
    for (int tic = 0; tic < row.run.count; ++tic)
        painter.drawLine(row.at(row.inner, tic), row.at(row.outer, tic));
}

void paintTriangles(QPainter& painter, const TicRow& row, const QColor& colour) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    for (int tic = 0; tic < row.run.count; ++tic) {
        const QPointF aside = dialPoint({}, row.width, row.angle(tic) + 90);
        const QPointF base = row.at(row.outer, tic);
        const QPointF corners[] = {row.at(row.inner, tic), base + aside, base - aside};
        painter.drawConvexPolygon(corners, 3);
    }
}

void paintDots(QPainter& painter, const TicRow& row, const QColor& colour) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    const double radius = std::max(row.width, 1.0);
    for (int tic = 0; tic < row.run.count; ++tic)
        painter.drawEllipse(row.at((row.inner + row.outer) / 2, tic), radius, radius);
}

struct Label {
    QString text;
    QPointF centre;
    double angle = 0;
};

std::vector<Label> labelsOf(const PropertyStore& p, const TicRow& row, int i) {
    const double asked = p.number(TicLabelDivisor, i);
    const double divisor = asked != 0 && std::isfinite(asked) ? asked : 1;
    const int decimals = p.integer(TicDecimals, i) < 0 ? labelDecimals(row.run, divisor)
                                                       : std::min(p.integer(TicDecimals, i), 6);
    const double radius = std::min(usualSize(p, TicLabelRadius, i), 3.0) * row.on.place.radius;
    std::vector<Label> labels;
    for (int tic = 0; tic < row.run.count; ++tic)
        labels.push_back(
            {labelText(row.run.value(tic) / divisor, decimals), row.at(radius, tic), row.angle(tic)});
    return labels;
}

/// Along the dial, but never upside down.
double turnOf(double angle) {
    const double turned = std::remainder(angle, 360);
    return std::abs(turned) > 90 ? turned + 180 : turned;
}

void paintLabels(QPainter& painter, const PropertyStore& p, const TicRow& row, int i) {
    const auto font = dialFont(p, p.integer(TicFont, i), row.on.place.radius);
    if (!font) return;
    painter.setFont(*font);
    painter.setPen(colourOf(p.integer(TicLabelColour, i)));
    const QFontMetricsF metrics(painter.font());
    const double height = metrics.capHeight();
    const std::vector<Label> labels = labelsOf(p, row, i);
    std::vector<QRectF> boxes;
    for (const Label& label : labels) {
        const double width = metrics.horizontalAdvance(label.text) + kLabelGap * height;
        boxes.emplace_back(label.centre.x() - width / 2, label.centre.y() - 0.6 * height, width,
                           1.2 * height);
    }
    for (const int shown : labelsWithRoom(boxes)) {
        const Label& label = labels[static_cast<std::size_t>(shown)];
        const QPointF start(-metrics.horizontalAdvance(label.text) / 2, height / 2);
        painter.save();
        painter.translate(label.centre);
        if (p.flag(TicLabelsTurned, i)) painter.rotate(turnOf(label.angle));
        painter.drawText(start, label.text);
        painter.restore();
    }
}

} // namespace

void paintTics(QPainter& painter, const PropertyStore& properties, const DialLayout& layout, int section) {
    const TicRow row = ticRow(properties, layout, section);
    const QColor colour = colourOf(properties.integer(TicColour, section));
    const int form = properties.integer(TicShape, section);
    if (ticDistance(row) >= kClosestTics) {
        if (form == int(TicForm::Triangle))
            paintTriangles(painter, row, colour);
        else if (form == int(TicForm::Dot))
            paintDots(painter, row, colour);
        else
            paintLines(painter, row, colour);
    }
    if (properties.flag(TicLabels, section)) paintLabels(painter, properties, row, section);
}

} // namespace vistor
