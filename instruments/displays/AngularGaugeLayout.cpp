#include "instruments/displays/AngularGaugeLayout.h"

#include "instruments/Colours.h"

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr double kShadowShare = 0.022;
constexpr double kThinnestNeedle = 1.2; ///< pixels

constexpr PanelNumbers kPanel{.back = GaugeBackColour,
                              .onPage = GaugeOnPage,
                              .border = GaugeBorder,
                              .borderWidth = GaugeBorderWidth,
                              .light = GaugeBorderLight,
                              .shadow = GaugeBorderShadow};

/// A scale runs over all the values that its tics stand at, in the direction of the first of them. Tics that
/// name a scale that is not there stand on the nearest.
DialScale scaleOf(const PropertyStore& p, int index) {
    DialScale scale;
    if (index < p.integer(GaugeScales)) {
        scale.startAngle = p.number(ScaleStartAngle, index);
        scale.stopAngle = p.number(ScaleStopAngle, index);
    }
    bool found = false;
    for (int tic = 0; tic < p.integer(GaugeTics); ++tic) {
        const double start = p.number(TicStartValue, tic);
        const double stop = p.number(TicStopValue, tic);
        if (p.sectionNamed(TicScale, tic) != index || start == stop) continue;
        if (!found) {
            scale.startValue = start;
            scale.stopValue = stop;
        }
        const bool upward = scale.startValue < scale.stopValue;
        const auto [low, high] = std::minmax({start, stop, scale.startValue, scale.stopValue});
        scale.startValue = upward ? low : high;
        scale.stopValue = upward ? high : low;
        found = true;
    }
    return scale;
}

std::vector<DialSpan> spansOf(const PropertyStore& p) {
    std::vector<DialSpan> spans;
    constexpr int kMostSpans = 8; // as many as a person can tell apart; joining outlines is costly
    for (int i = 0; i < std::min(p.integer(GaugeScales), kMostSpans); ++i)
        spans.push_back({{boundedPlace(p, ScaleX, i), boundedPlace(p, ScaleY, i)},
                         usualSize(p, ScaleSize, i),
                         p.number(ScaleStartAngle, i),
                         p.number(ScaleStopAngle, i)});
    if (spans.empty()) spans.emplace_back();
    return spans;
}

QPainterPath unitOutline(const PropertyStore& p, GaugeFaceForm face) {
    if (face != GaugeFaceForm::Round) return sectorOutline(spansOf(p));
    QPainterPath circle;
    circle.addEllipse(QPointF(), 1, 1);
    return circle;
}

DialPlace placeOf(const PropertyStore& p, const QRectF& outline, double rim, const QRectF& room) {
    if (p.flag(GaugeAutomaticPlace)) return placeFor(outline.adjusted(-rim, -rim, rim, rim), room);
    const double x = std::clamp(p.number(GaugeDialX), -2.0, 3.0);
    const double y = std::clamp(p.number(GaugeDialY), -2.0, 3.0);
    const double radius = usualSize(p, GaugeDialRadius, 0, 4) * std::min(room.width(), room.height()) / 2;
    return {{room.left() + x * room.width(), room.top() + y * room.height()}, radius};
}

void layOutScales(DialLayout& layout, const PropertyStore& p) {
    const DialPlace& dial = layout.dial;
    if (p.integer(GaugeScales) == 0) layout.scales.push_back({scaleOf(p, 0), dial});
    for (int i = 0; i < p.integer(GaugeScales); ++i) {
        const QPointF offset(boundedPlace(p, ScaleX, i), boundedPlace(p, ScaleY, i));
        layout.scales.push_back(
            {scaleOf(p, i), {dial.centre + offset * dial.radius, dial.radius * usualSize(p, ScaleSize, i)}});
    }
}

NeedleForm formOf(const PropertyStore& p, int i, double radius) {
    const int shape = p.integer(NeedleForms, i);
    const double width = std::max(usualSize(p, NeedleWidth, i) * radius, kThinnestNeedle);
    return {.shape =
                shape >= 0 && shape <= int(NeedleShape::Mark) ? NeedleShape(shape) : NeedleShape::Tapered,
            .length = usualSize(p, NeedleLength, i) * radius,
            .tail = std::clamp(p.number(NeedleTail, i), 0.0, 4.0) * radius,
            .width = width,
            .tipWidth = std::min(usualSize(p, NeedleTipWidth, i) * radius, width)};
}

QPolygonF wholeOf(const QPolygonF& half) {
    QPolygonF whole = half;
    for (auto point = half.rbegin(); point != half.rend(); ++point)
        if (point->x() != 0) whole << QPointF(-point->x(), point->y());
    return whole;
}

NeedlePlace needleOf(const PropertyStore& p, int i, const ScalePlace& on) {
    NeedlePlace needle;
    needle.section = i;
    needle.on = on;
    needle.half = needleHalf(formOf(p, i, on.place.radius));
    needle.outline = wholeOf(needle.half);
    needle.colour = colourOf(p.integer(NeedleColour, i));
    needle.edge = p.flag(GaugeShading) ? colourOf(p.integer(NeedleEdgeColour, i)) : needle.colour;
    needle.shadow = p.flag(NeedleShadow, i) ? kShadowShare * on.place.radius : 0;
    return needle;
}

} // namespace

std::optional<QFont> dialFont(const PropertyStore& properties, int section, double radius) {
    return legibleFont(properties, kDialFont, section, properties.integer(GaugeFonts), radius);
}

QColor groundOf(const PropertyStore& properties, const DialLayout& layout) {
    return layout.face == GaugeFaceForm::None ? layout.style.back
                                              : colourOf(properties.integer(GaugeFaceColour));
}

ScalePlace DialLayout::scaleAt(int index) const {
    const int last = static_cast<int>(scales.size()) - 1;
    return scales[static_cast<std::size_t>(std::clamp(index, 0, last))];
}

DialLayout layOutDial(const PropertyStore& properties, const QRectF& panel, const QColor& page) {
    DialLayout layout;
    layout.panel = panel;
    layout.style = panelStyleOf(properties, kPanel, page);
    const int face = properties.integer(GaugeFace);
    layout.face = face == int(GaugeFaceForm::Round)    ? GaugeFaceForm::Round
                  : face == int(GaugeFaceForm::Sector) ? GaugeFaceForm::Sector
                                                       : GaugeFaceForm::None;
    const double rim =
        layout.face == GaugeFaceForm::None ? 0 : std::clamp(properties.number(GaugeRimWidth), 0.0, 0.5);
    const QPainterPath outline = unitOutline(properties, layout.face);
    const double spare = std::min(1.0, std::min(panel.width(), panel.height()) / 4);
    const QRectF room = panelInside(layout.style, panel).adjusted(spare, spare, -spare, -spare);
    layout.dial = placeOf(properties, outline.boundingRect(), rim, room);
    layout.rim = rim * layout.dial.radius;
    const QTransform toPlace(layout.dial.radius, 0, 0, layout.dial.radius, layout.dial.centre.x(),
                             layout.dial.centre.y());
    layout.outline = toPlace.map(outline);
    layOutScales(layout, properties);
    for (int i = 0; i < properties.integer(GaugeNeedles); ++i)
        if (!properties.flag(NeedleHidden, i))
            layout.needles.push_back(
                needleOf(properties, i, layout.scaleAt(properties.integer(NeedleScale, i))));
    return layout;
}

} // namespace vistor
