#include "instruments/displays/LinearGaugeFace.h"

#include "instruments/Colours.h"
#include "instruments/displays/FittedText.h"
#include "instruments/displays/GaugePaint.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr double kGlassEdge = 0.28; ///< how much lighter a vessel's outline is than its colour
constexpr double kMajorWidth = 0.015;
constexpr double kMinorWidth = 0.01;

void paintVessel(QPainter& painter, const QPainterPath& path, const BarSpan& span, const QColor& colour,
                 bool shaded) {
    const QColor rim = mixed(colour, Qt::white, kGlassEdge);
    painter.setPen(QPen(rim, std::clamp(span.width() * 0.06, 1.0, 3.0)));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(path.simplified());
    painter.fillPath(path, shaded ? rodLight(span, mixed(colour, Qt::white, 0.12), colour) : QBrush(colour));
}

void paintTank(QPainter& painter, const BarSpan& span, const QColor& colour, bool shaded) {
    paintVessel(painter, tank(span), span, colour, shaded);
    painter.setPen(QPen(mixed(colour, Qt::white, kGlassEdge), std::clamp(span.width() * 0.03, 1.0, 2.0)));
    painter.setBrush(mixed(colour, Qt::white, 0.1));
    painter.drawEllipse(tankEnd(span));
}

void paintBand(QPainter& painter, const PropertyStore& p, const LinearLayout& layout, int i) {
    const BarSpan span = bandSpan(p, layout.scaleAt(p.sectionNamed(LinearBandScale, i)), i);
    if (span.from == span.to || span.width() <= 0) return;
    const QColor colour = colourOf(p.integer(LinearBandColour, i));
    const bool shaded = p.flag(LinearShading);
    switch (BandStyle(p.choice(LinearBandStyle, i))) {
    case BandStyle::Ellipse:
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawPolygon(ellipsePart(span, span.from, span.to));
        break;
    case BandStyle::Thermometer:
        paintVessel(painter, thermometer(span, span.to - span.from, true), span, colour, shaded);
        break;
    case BandStyle::Tank:
        paintTank(painter, span, colour, shaded);
        break;
    case BandStyle::Rectangle:
    case BandStyle::UserDefined:
        painter.fillRect(span.rect(span.from, span.to), colour);
        break;
    }
}

/// On whole pixels, so that all tics of a row are equally sharp.
double sharpPlace(double along, double width) {
    return std::round(along - width / 2) + width / 2;
}

void paintMarks(QPainter& painter, const PropertyStore& p, const QColor& ground, const LinearScale& scale,
                const TicRun& run, int i) {
    const double near = scale.across(boundedPlace(p, LinearTicNear, i));
    const double far = scale.across(boundedPlace(p, LinearTicFar, i));
    const double share = p.flag(LinearTicLabels, i) ? kMajorWidth : kMinorWidth;
    const double width = std::max(std::round(share * scale.unit), 1.0);
    std::vector<QLineF> marks;
    for (int tic = 0; tic < run.count; ++tic) {
        const double along = sharpPlace(scale.along(run.value(tic)), width);
        marks.emplace_back(scale.point(along, near), scale.point(along, far));
    }
    const int form = p.integer(LinearTicShape, i);
    const double size = form == int(TicForm::Line) ? width : 2 * width;
    paintTicMarks(painter, marks, form, size, legibleOn(colourOf(p.integer(LinearTicColour, i)), ground));
}

/// Labels end or begin at their place, so that they never run into their tics. -1: they lie before it.
double sideOf(const PropertyStore& p, int i) {
    const double place = boundedPlace(p, LinearTicLabelPlace, i);
    const double tics = (boundedPlace(p, LinearTicNear, i) + boundedPlace(p, LinearTicFar, i)) / 2;
    return place < tics ? -1 : 1;
}

/// From the labels' place to the edge that they grow to.
double roomBeside(const QRectF& room, const LinearScale& scale, double across, double side) {
    const double low = scale.vertical ? room.left() : room.top();
    const double high = scale.vertical ? room.right() : room.bottom();
    return (side < 0 ? across - low : high - across) - 2;
}

/// Smaller where a label would not fit between its place and the edge of the room; none where none would.
std::optional<QFont> fittedFont(QFont font, const std::vector<QString>& texts, double room) {
    for (const QString& text : texts) {
        const auto fitted = fontToFit(font, text, room);
        if (!fitted) return {};
        font = *fitted;
    }
    return font;
}

/// Every 10th, 100th ... tic of a row whose labels stand so close that no more could find room.
TicRun withoutCrowd(const TicRun& run, const LinearScale& scale, double height) {
    if (run.count < 2) return run;
    const double spacing = std::abs(scale.along(run.value(1)) - scale.along(run.value(0)));
    int every = 1;
    while (every < run.count && spacing * 5 * every < height) every *= 10;
    return {run.start, run.step * every, (run.count + every - 1) / every};
}

void paintLabels(QPainter& painter, const PropertyStore& p, const LinearLayout& layout,
                 const LinearScale& scale, const TicRun& all, int i) {
    auto font = linearFont(p, p.sectionNamed(LinearTicFont, i), scale.unit);
    if (!font) return;
    const TicRun run = withoutCrowd(all, scale, QFontMetricsF(*font).capHeight());
    const TicFormat format = ticFormat(p, kLinearTics, all, i);
    std::vector<QString> texts;
    for (int tic = 0; tic < run.count; ++tic) texts.push_back(format.text(run.value(tic)));
    const double across = scale.across(boundedPlace(p, LinearTicLabelPlace, i));
    const double side = sideOf(p, i);
    const bool turned = p.flag(LinearTicLabelsTurned, i);
    const bool beside = scale.vertical != turned; // their length runs across the scale
    if (beside) font = fittedFont(*font, texts, roomBeside(layout.room, scale, across, side));
    if (!font) return;
    painter.setFont(*font);
    painter.setPen(legibleOn(colourOf(p.integer(LinearTicLabelColour, i)), layout.style.back));
    const QFontMetricsF metrics(*font);
    std::vector<TicLabel> labels;
    for (int tic = 0; tic < run.count; ++tic) {
        const QString& text = texts[static_cast<std::size_t>(tic)];
        const double half = (beside ? metrics.horizontalAdvance(text) : metrics.capHeight()) / 2;
        labels.push_back(
            {text, scale.point(scale.along(run.value(tic)), across + side * half), turned ? -90.0 : 0.0});
    }
    paintTicLabels(painter, labels, layout.room);
}

void paintTics(QPainter& painter, const PropertyStore& p, const LinearLayout& layout, int i) {
    const LinearScale scale = layout.scaleAt(p.sectionNamed(LinearTicScale, i));
    const TicRun run = ticRunOf(p, kLinearTics, scale.range, i);
    paintMarks(painter, p, layout.style.back, scale, run, i);
    if (p.flag(LinearTicLabels, i)) paintLabels(painter, p, layout, scale, run, i);
}

void paintCaption(QPainter& painter, const PropertyStore& p, const LinearLayout& layout, int i) {
    const QString text = p.text(LinearCaptionText, i).left(kLongestText);
    const auto font = linearFont(p, p.sectionNamed(LinearCaptionFont, i), layout.unit);
    if (text.isEmpty() || !font) return;
    painter.setFont(*font);
    painter.setPen(legibleOn(colourOf(p.integer(LinearCaptionColour, i)), layout.style.back));
    const QPointF place = linearTextPlace(layout.room, boundedPlace(p, LinearCaptionX, i),
                                          boundedPlace(p, LinearCaptionY, i), *font);
    paintTextAt(painter, place, text, 0.5);
}

} // namespace

void paintLinearFace(QPainter& painter, const PropertyStore& properties, const LinearLayout& layout) {
    paintPanel(painter, layout.style, layout.panel);
    painter.setClipRect(layout.room);
    for (int i = 0; i < properties.integer(LinearBands); ++i) paintBand(painter, properties, layout, i);
    // The first row, with the labels, lies above the finer ones.
    for (int i = properties.integer(LinearTics) - 1; i >= 0; --i) paintTics(painter, properties, layout, i);
    for (int i = 0; i < properties.integer(LinearCaptions); ++i) paintCaption(painter, properties, layout, i);
}

} // namespace vistor
