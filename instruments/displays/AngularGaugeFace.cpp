#include "instruments/displays/AngularGaugeFace.h"

#include "instruments/Colours.h"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr int kSmallestText = 8; ///< pixels
constexpr int kLongestText = 199;
constexpr double kClosestTics = 2.5; ///< pixels from one to the next
constexpr double kLabelGap = 0.35;   ///< between labels, share of their height

QFont fontOf(const PropertyStore& p, int index, double radius) {
    QFont font;
    const int section = std::clamp(index, 0, std::max(p.integer(GaugeFonts) - 1, 0));
    QStringList families;
    for (const int number : {int(FontFamily), int(FontSubstitute)})
        if (!p.text(number, section).isEmpty()) families << p.text(number, section).left(kLongestText);
    if (!families.isEmpty()) font.setFamilies(families);
    const double size = usualSize(p, FontSize, section, 100) / 100;
    font.setPixelSize(std::max(qRound(size * radius), kSmallestText));
    font.setBold(p.flag(FontBold, section));
    font.setItalic(p.flag(FontItalic, section));
    font.setUnderline(p.flag(FontUnderline, section));
    font.setStrikeOut(p.flag(FontStrikeOut, section));
    return font;
}

/// Lit from above: light at the top, dark at the bottom.
QBrush metal(const QRectF& bounds, const QColor& colour, bool sunken) {
    QLinearGradient light(bounds.topLeft(), bounds.bottomLeft());
    light.setColorAt(sunken ? 1 : 0, mixed(colour, Qt::white, 0.45));
    light.setColorAt(0.5, colour);
    light.setColorAt(sunken ? 0 : 1, mixed(colour, Qt::black, 0.6));
    return light;
}

QPainterPath stroked(const QPainterPath& path, double width) {
    QPainterPathStroker stroker;
    stroker.setWidth(width);
    stroker.setJoinStyle(Qt::RoundJoin);
    return stroker.createStroke(path);
}

void paintRim(QPainter& painter, const QColor& colour, bool shaded, const DialLayout& layout) {
    if (layout.rim <= 0) return;
    const QRectF bounds = layout.outline.boundingRect();
    painter.fillPath(stroked(layout.outline, 2 * layout.rim), shaded ? metal(bounds, colour, false) : colour);
    if (!shaded) return;
    painter.fillPath(stroked(layout.outline, 0.9 * layout.rim),
                     metal(bounds, mixed(colour, Qt::black, 0.35), true));
}

void paintGround(QPainter& painter, const PropertyStore& p, const DialLayout& layout) {
    if (layout.face == GaugeFaceForm::None || layout.dial.radius <= 0) return;
    const bool shaded = p.flag(GaugeShading);
    paintRim(painter, colourOf(p.integer(GaugeRimColour)), shaded, layout);
    const QColor face = colourOf(p.integer(GaugeFaceColour));
    QRadialGradient depth(layout.dial.centre, layout.dial.radius);
    depth.setColorAt(0, face);
    depth.setColorAt(0.55, mixed(face, colourOf(p.integer(GaugeFaceEdgeColour)), 0.3));
    depth.setColorAt(1, colourOf(p.integer(GaugeFaceEdgeColour)));
    painter.fillPath(layout.outline, shaded ? QBrush(depth) : QBrush(face));
}

void paintAnnular(QPainter& painter, const PropertyStore& p, const DialLayout& layout, int i) {
    const ScalePlace on = layout.scaleAt(p.integer(AnnularScale, i));
    const double from = dialAngle(on.scale, p.number(AnnularStartValue, i));
    const double to = dialAngle(on.scale, p.number(AnnularStopValue, i));
    if (from == to) return;
    const auto radius = [&](int number) { return std::clamp(usualSize(p, number, i), 0.0, 3.0); };
    QColor colour = colourOf(p.integer(AnnularColour, i));
    colour.setAlphaF(float(1 - std::clamp(p.number(AnnularTransparency, i), 0.0, 1.0)));
    painter.fillPath(ringPart(on.place, radius(AnnularInnerRadius), radius(AnnularOuterRadius), from, to),
                     colour);
}

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

TicRow ticRow(const PropertyStore& p, const DialLayout& layout, int i) {
    TicRow row;
    row.on = layout.scaleAt(p.integer(TicScale, i));
    double start = p.number(TicStartValue, i);
    double stop = p.number(TicStopValue, i);
    if (start == stop) {
        start = row.on.scale.startValue;
        stop = row.on.scale.stopValue;
    }
    row.run = ticRun(start, stop, p.number(TicStep, i), !p.flag(TicLabels, i));
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
    painter.setFont(fontOf(p, p.integer(TicFont, i), row.on.place.radius));
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

void paintTics(QPainter& painter, const PropertyStore& p, const DialLayout& layout, int i) {
    const TicRow row = ticRow(p, layout, i);
    const QColor colour = colourOf(p.integer(TicColour, i));
    const int form = p.integer(TicShape, i);
    if (ticDistance(row) >= kClosestTics) {
        if (form == int(TicForm::Triangle))
            paintTriangles(painter, row, colour);
        else if (form == int(TicForm::Dot))
            paintDots(painter, row, colour);
        else
            paintLines(painter, row, colour);
    }
    if (p.flag(TicLabels, i)) paintLabels(painter, p, row, i);
}

void paintCaption(QPainter& painter, const PropertyStore& p, const DialLayout& layout, int i) {
    const QString text = p.text(CaptionText, i).left(kLongestText);
    if (text.isEmpty()) return;
    const DialPlace& dial = layout.dial;
    painter.setFont(fontOf(p, p.integer(CaptionFont, i), dial.radius));
    painter.setPen(colourOf(p.integer(CaptionColour, i)));
    const QFontMetricsF metrics(painter.font());
    const int alignment = p.integer(CaptionAlignment, i);
    const double before = alignment == 1 ? 0 : alignment == 2 ? 1 : 0.5;
    const QPointF place(boundedPlace(p, CaptionX, i), boundedPlace(p, CaptionY, i));
    const QPointF start(-before * metrics.horizontalAdvance(text), metrics.capHeight() / 2);
    painter.drawText(dial.centre + place * dial.radius + start, text);
}

DialPlace hubPlace(const PropertyStore& p, const DialLayout& layout, int i) {
    const DialPlace place = layout.scaleAt(p.integer(HubScale, i)).place;
    return {place.centre, std::min(usualSize(p, HubRadius, i), 2.0) * place.radius};
}

QRectF boundsOf(const DialPlace& disc) {
    return {disc.centre.x() - disc.radius, disc.centre.y() - disc.radius, 2 * disc.radius, 2 * disc.radius};
}

} // namespace

void paintFace(QPainter& painter, const PropertyStore& properties, const DialLayout& layout) {
    paintPanel(painter, layout.style, layout.panel);
    painter.setClipRect(panelInside(layout.style, layout.panel));
    paintGround(painter, properties, layout);
    for (int i = 0; i < properties.integer(GaugeAnnulars); ++i) paintAnnular(painter, properties, layout, i);
    // The first row, with the labels, lies above the finer ones.
    for (int i = properties.integer(GaugeTics) - 1; i >= 0; --i) paintTics(painter, properties, layout, i);
    for (int i = 0; i < properties.integer(GaugeCaptions); ++i) paintCaption(painter, properties, layout, i);
}

QRectF hubBounds(const PropertyStore& properties, const DialLayout& layout) {
    QRectF bounds;
    for (int i = 0; i < properties.integer(GaugeHubs); ++i)
        bounds = bounds.united(boundsOf(hubPlace(properties, layout, i)));
    return bounds.intersected(layout.panel);
}

void paintHubs(QPainter& painter, const PropertyStore& properties, const DialLayout& layout) {
    painter.setPen(Qt::NoPen);
    for (int i = 0; i < properties.integer(GaugeHubs); ++i) {
        const DialPlace hub = hubPlace(properties, layout, i);
        const QColor colour = colourOf(properties.integer(HubColour, i));
        const bool shaded = properties.flag(GaugeShading);
        painter.setBrush(shaded ? metal(boundsOf(hub), mixed(colour, Qt::black, 0.25), false)
                                : QBrush(colour));
        painter.drawEllipse(hub.centre, hub.radius, hub.radius);
        if (!shaded) continue;
        painter.setBrush(metal(boundsOf(hub), colour, true));
        painter.drawEllipse(hub.centre, 0.88 * hub.radius, 0.88 * hub.radius);
    }
}

} // namespace vistor
