#include "instruments/displays/PercentLayout.h"

#include "instruments/Colours.h"
#include "instruments/displays/GaugePaint.h"

#include <QFontMetricsF>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr double kPadding = 0.13; ///< share of the smaller side
constexpr double kWidestPadding = 16;
constexpr double kEdgeShade = 0.26;
constexpr int kSmallestText = 7;
constexpr double kTextRoom = 0.88; ///< of what a text has to fit into

QRectF roomFor(const PropertyStore& p, const PanelStyle& style, const QRectF& panel, bool round,
               bool vertical) {
    const QRectF inside = panelInside(style, panel);
    const double pad = std::min(kPadding * std::min(inside.width(), inside.height()), kWidestPadding);
    const QRectF room = inside.adjusted(pad, pad, -pad, -pad);
    const double share = std::min(usualSize(p, PercentBarWidth, 0, 1), 1.0);
    if (round || share >= 1) return room;
    const double spare = (vertical ? room.width() : room.height()) * (1 - share) / 2;
    return vertical ? room.adjusted(spare, 0, -spare, 0) : room.adjusted(0, spare, 0, -spare);
}

double boundedAngle(double angle) {
    return std::isfinite(angle) ? std::remainder(angle, 360) : 0;
}

std::vector<PercentBar> barsOf(const PropertyStore& p, const PanelStyle& style, const QRectF& panel) {
    const bool round = p.choice(PercentDisplayMode) == 1;
    const bool vertical = p.choice(PercentOrientation) == 1;
    const bool backward = p.choice(PercentDirection) == 1;
    const bool several = p.choice(PercentLayout) == int(PortionLayout::SideBySide);
    const int count = several ? std::max(p.integer(PercentPortions), 1) : 1;
    const double asked = p.number(PercentGap);
    const double gap = std::isfinite(asked) ? std::clamp(asked, 0.0, 2.0) : 0;
    const QRectF room = roomFor(p, style, panel, round, vertical);
    if (!round) return straightBars(room, vertical, backward, count, gap);
    const double sweep = p.number(PercentSweep);
    return ringBars(room,
                    {.startAngle = boundedAngle(p.number(PercentStartAngle)),
                     .sweep = std::isfinite(sweep) && sweep != 0 ? sweep : 360,
                     .width = usualSize(p, PercentRingWidth, 0, 1),
                     .gap = gap},
                    backward, count);
}

QBrush ringLight(const PercentBar& bar, const QColor& colour, const QColor& edge) {
    const double radius = std::max(bar.place.radius * bar.outer, 0.1);
    const double start = bar.inner / bar.outer;
    QRadialGradient light(bar.place.centre, radius);
    light.setColorAt(start, edge);
    light.setColorAt(start + (1 - start) * 0.6, mixed(colour, Qt::white, 0.15));
    light.setColorAt(1, edge);
    return light;
}

QBrush fillOf(const PercentBar& bar, const QColor& colour, bool shaded) {
    if (!shaded) return colour;
    const QColor edge = mixed(colour, Qt::black, kEdgeShade);
    return bar.round ? ringLight(bar, colour, edge) : rodLight(bar.line, colour, edge);
}

void layOutPortions(PercentPlan& plan, const PropertyStore& p) {
    const int count = p.integer(PercentPortions);
    for (int i = 0; i < count; ++i) {
        const int section = portionAt(i, count);
        const QColor colour = colourOf(p.integer(PortionColour, section));
        plan.portions.push_back(
            {.fill = fillOf(plan.barOf(static_cast<std::size_t>(i)), colour, p.flag(PercentShading)),
             .colour = colour,
             .textColour = colourOf(p.integer(PortionTextColour, section)),
             .text = PortionTextForm(p.choice(PortionText, section)),
             .name = p.text(PortionName, section).left(kLongestText)});
    }
}

/// What a portion may have to say at most, usually: fonts are fitted to it, so that they do not change with
/// every value.
QString usualText(const PercentPlan& plan, const PortionStyle& portion) {
    if (portion.text == PortionTextForm::None) return {};
    if (portion.text == PortionTextForm::Name) return portion.name;
    if (portion.text == PortionTextForm::Percent) return QStringLiteral("100 %");
    const auto text = [&](double end) {
        return std::isfinite(end) ? labelText(end, plan.decimals) + plan.unit : QString();
    };
    const QString low = text(plan.rule.range.start);
    const QString high = text(plan.rule.range.stop);
    return low.size() > high.size() ? low : high;
}

double widestText(const PercentPlan& plan, const QFont& font) {
    const QFontMetricsF metrics(font);
    double widest = 0;
    for (const PortionStyle& portion : plan.portions)
        widest = std::max(widest, metrics.horizontalAdvance(usualText(plan, portion)));
    return widest;
}

std::optional<QFont> fontFor(const PercentPlan& plan, const PropertyStore& p) {
    const PercentBar& bar = plan.bars.back(); // the innermost ring
    const double lines = plan.textInHole() ? std::max(double(plan.portions.size()), 1.0) : 1;
    const double onBar = bar.round ? 0.42 * bar.width() : bar.width();
    const double unit = plan.textInHole() ? bar.holeRadius() * (lines > 1 ? 2 / lines : 1) : onBar;
    const auto font = legibleFont(p, kPercentFont, 0, 1, unit);
    if (!font) return {};
    const double holeRoom = bar.holeRadius() * (lines > 2 ? 1.4 : 1.75);
    const bool lying = !bar.round && !bar.line.vertical;
    const double room = plan.textInHole() ? holeRoom : lying ? bar.length() : bar.width();
    return fittedTo(*font, widestText(plan, *font), room);
}

} // namespace

QColor PortionStyle::onPortion() const {
    return legibleOn(textColour, colour);
}

std::optional<QFont> fittedTo(QFont font, double textWidth, double room) {
    if (textWidth <= kTextRoom * room) return font;
    const int pixels = static_cast<int>(font.pixelSize() * std::max(kTextRoom * room, 0.0) / textWidth);
    if (pixels < kSmallestText) return {};
    font.setPixelSize(pixels);
    return font;
}

bool PercentPlan::textInHole() const {
    constexpr double kLeastHole = 0.35; ///< share of the radius
    return round() && bars.back().inner >= kLeastHole;
}

PercentPlan layOutPercent(const PropertyStore& properties, const QRectF& panel, const QColor& page) {
    PercentPlan plan;
    plan.panel = panel;
    plan.style = panelStyleOf(properties, kPercentPanel, page);
    plan.rule = {.range = {properties.number(PercentMin), properties.number(PercentMax)},
                 .ratio = properties.choice(PercentPercentMode) == 1,
                 .stacked = properties.choice(PercentLayout) == int(PortionLayout::Stacked)};
    plan.bars = barsOf(properties, plan.style, panel);
    layOutPortions(plan, properties);
    plan.track = colourOf(properties.integer(PercentTrackColour));
    plan.textColour = colourOf(properties.integer(PercentTextColour));
    const ValueRange& range = plan.rule.range;
    plan.decimals = labelDecimals({range.start, roundStep(range.stop - range.start, 100), 2}, 1);
    plan.unit = properties.text(PercentUnit).left(kLongestText);
    plan.font = fontFor(plan, properties);
    return plan;
}

QString portionText(const PercentPlan& plan, std::size_t portion, double value, const PortionSpan& span) {
    const QString nothing = QStringLiteral("–");
    switch (plan.portions[portion].text) {
    case PortionTextForm::None:
        return {};
    case PortionTextForm::Name:
        return plan.portions[portion].name;
    case PortionTextForm::Value:
        return std::isfinite(value) ? labelText(value, plan.decimals) + plan.unit : nothing;
    case PortionTextForm::Percent:
        break;
    }
    const double percent = percentOf(plan.rule, value, span);
    return std::isfinite(percent) ? labelText(percent, 0) + QStringLiteral(" %") : nothing;
}

} // namespace vistor
