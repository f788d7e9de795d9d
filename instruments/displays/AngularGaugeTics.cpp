#include "instruments/displays/AngularGaugeTics.h"

#include "instruments/Colours.h"
#include "instruments/displays/GaugePaint.h"
#include "instruments/displays/GaugeTics.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr TicNumbers kTics{.count = GaugeTics,
                           .scale = TicScale,
                           .labels = TicLabels,
                           .start = TicStartValue,
                           .stop = TicStopValue,
                           .step = TicStep,
                           .divisor = TicLabelDivisor,
                           .decimals = TicDecimals};

/// One section of tics on its scale.
struct TicRow {
    ScalePlace on;
    TicRun run;

    double angle(int tic) const { return dialAngle(on.scale, run.value(tic)); }
    QPointF at(double radius, int tic) const { return dialPoint(on.place.centre, radius, angle(tic)); }
};

/// Along the dial, but never upside down.
double turnOf(double angle) {
    const double turned = std::remainder(angle, 360);
    return std::abs(turned) > 90 ? turned + 180 : turned;
}

void paintMarks(QPainter& painter, const PropertyStore& p, const DialLayout& layout, const TicRow& row,
                int i) {
    const double radius = row.on.place.radius;
    const double inner = std::min(usualSize(p, TicInnerRadius, i), 3.0) * radius;
    const double outer = std::min(usualSize(p, TicOuterRadius, i), 3.0) * radius;
    const double width = std::max(std::min(usualSize(p, TicWidth, i), 1.0) * radius, 1.0);
    std::vector<QLineF> marks;
    for (int tic = 0; tic < row.run.count; ++tic) marks.emplace_back(row.at(inner, tic), row.at(outer, tic));
    paintTicMarks(painter, marks, p.integer(TicShape, i), width,
                  legibleOn(colourOf(p.integer(TicColour, i)), groundOf(p, layout)));
}

/// To where numbers inside a row may reach: the nearest tics beyond their place.
double labelLimit(const PropertyStore& p, const TicRow& row, int i) {
    const double place = std::min(usualSize(p, TicLabelRadius, i), 3.0);
    double limit = HUGE_VAL;
    for (int other = 0; other < p.integer(GaugeTics); ++other) {
        const double inner =
            std::min({usualSize(p, TicInnerRadius, other), usualSize(p, TicOuterRadius, other), 3.0});
        if (p.integer(TicScale, other) == p.integer(TicScale, i) && inner > place)
            limit = std::min(limit, inner);
    }
    return limit * row.on.place.radius;
}

/// How far from the centre a box may stand so that no corner of it lies beyond `limit`.
double farthestPlace(double limit, const QSizeF& box, double degrees) {
    const double angle = degrees * M_PI / 180;
    const double a = box.width() / 2;
    const double b = box.height() / 2;
    const double toCorner = std::abs(std::sin(angle)) * a + std::abs(std::cos(angle)) * b;
    return -toCorner + std::sqrt(std::max(toCorner * toCorner - a * a - b * b + limit * limit, 0.0));
}

/// The numbers of a row at their places, or nearer to the centre where they would run into tics.
std::vector<TicLabel> labelsOf(const PropertyStore& p, const TicRow& row, int i, const QFont& font) {
    const QFontMetricsF metrics(font);
    const double gap = 0.3 * metrics.capHeight();
    const double radius = std::min(usualSize(p, TicLabelRadius, i), 3.0) * row.on.place.radius;
    const double limit = labelLimit(p, row, i);
    const std::vector<QString> texts = ticTexts(p, kTics, row.run, i);
    const bool turned = p.flag(TicLabelsTurned, i);
    std::vector<TicLabel> labels;
    for (int tic = 0; tic < row.run.count; ++tic) {
        const QString& text = texts[static_cast<std::size_t>(tic)];
        const QSizeF box(metrics.horizontalAdvance(text), metrics.capHeight());
        const double angle = row.angle(tic);
        const double most =
            std::isfinite(limit) ? farthestPlace(limit - gap, box, turned ? 0 : angle) : radius;
        labels.push_back(
            {text, row.at(std::min(radius, std::max(most, 0.0)), tic), turned ? turnOf(angle) : 0});
    }
    return labels;
}

/// Smaller where long numbers would move far from their tics.
QFont fittedFont(const PropertyStore& p, const TicRow& row, int i, QFont font) {
    constexpr int kSmallest = 8;
    constexpr double kWidest = 0.4; ///< of the way from the centre to the tics
    const double room = labelLimit(p, row, i) * kWidest;
    if (!std::isfinite(room)) return font;
    double widest = 0;
    for (const QString& text : ticTexts(p, kTics, row.run, i))
        widest = std::max(widest, QFontMetricsF(font).horizontalAdvance(text));
    if (widest > room)
        font.setPixelSize(
            std::max(int(font.pixelSize() * room / widest), std::min(kSmallest, font.pixelSize())));
    return font;
}

void paintLabels(QPainter& painter, const PropertyStore& p, const DialLayout& layout, const TicRow& row,
                 int i) {
    const auto font = dialFont(p, p.integer(TicFont, i), row.on.place.radius);
    if (!font) return;
    const QFont fitted = fittedFont(p, row, i, *font);
    painter.setFont(fitted);
    painter.setPen(legibleOn(colourOf(p.integer(TicLabelColour, i)), groundOf(p, layout)));
    paintTicLabels(painter, labelsOf(p, row, i, fitted), panelInside(layout.style, layout.panel));
}

} // namespace

void paintTics(QPainter& painter, const PropertyStore& properties, const DialLayout& layout, int section) {
    TicRow row;
    row.on = layout.scaleAt(properties.integer(TicScale, section));
    const DialScale& scale = row.on.scale;
    row.run = ticRunOf(properties, kTics, {scale.startValue, scale.stopValue}, section);
    paintMarks(painter, properties, layout, row, section);
    if (properties.flag(TicLabels, section)) paintLabels(painter, properties, layout, row, section);
}

} // namespace vistor
