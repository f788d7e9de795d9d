#include "instruments/displays/AngularGaugeTics.h"

#include "instruments/Colours.h"
#include "instruments/displays/GaugePaint.h"
#include "instruments/displays/GaugeTics.h"

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

void paintMarks(QPainter& painter, const PropertyStore& p, const TicRow& row, int i) {
    const double radius = row.on.place.radius;
    const double inner = std::min(usualSize(p, TicInnerRadius, i), 3.0) * radius;
    const double outer = std::min(usualSize(p, TicOuterRadius, i), 3.0) * radius;
    const double width = std::max(std::min(usualSize(p, TicWidth, i), 1.0) * radius, 1.0);
    std::vector<QLineF> marks;
    for (int tic = 0; tic < row.run.count; ++tic) marks.emplace_back(row.at(inner, tic), row.at(outer, tic));
    paintTicMarks(painter, marks, p.integer(TicShape, i), width, colourOf(p.integer(TicColour, i)));
}

void paintLabels(QPainter& painter, const PropertyStore& p, const TicRow& row, int i) {
    const auto font = dialFont(p, p.integer(TicFont, i), row.on.place.radius);
    if (!font) return;
    painter.setFont(*font);
    painter.setPen(colourOf(p.integer(TicLabelColour, i)));
    const double radius = std::min(usualSize(p, TicLabelRadius, i), 3.0) * row.on.place.radius;
    const std::vector<QString> texts = ticTexts(p, kTics, row.run, i);
    const bool turned = p.flag(TicLabelsTurned, i);
    std::vector<TicLabel> labels;
    for (int tic = 0; tic < row.run.count; ++tic)
        labels.push_back(
            {texts[static_cast<std::size_t>(tic)], row.at(radius, tic), turned ? turnOf(row.angle(tic)) : 0});
    paintTicLabels(painter, labels);
}

} // namespace

void paintTics(QPainter& painter, const PropertyStore& properties, const DialLayout& layout, int section) {
    TicRow row;
    row.on = layout.scaleAt(properties.integer(TicScale, section));
    const DialScale& scale = row.on.scale;
    row.run = ticRunOf(properties, kTics, {scale.startValue, scale.stopValue}, section);
    paintMarks(painter, properties, row, section);
    if (properties.flag(TicLabels, section)) paintLabels(painter, properties, row, section);
}

} // namespace vistor
