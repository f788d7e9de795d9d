#include "instruments/displays/LinearGaugeLayout.h"

#include "instruments/Colours.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr double kPadding = 0.07;      ///< beyond what labels need, share of the thickness
constexpr double kMostMargins = 0.8;   ///< of the length
constexpr double kThinnestHalf = 0.75; ///< pixels, of a mark
constexpr double kSmallestUnit = 62;   ///< pixels; a thinner gauge has its text no smaller
constexpr double kTextZone = 0.25;     ///< of the height: text there stands beyond an upright scale's end
constexpr double kSlimmest = 2;        ///< length over thickness: a squarer gauge leaves room at its sides

/// What lies beyond the ends of a scale, in pixels.
struct Margins {
    double start = 0;
    double stop = 0;

    void widen(double atStart, double atStop) {
        start = std::max(start, atStart);
        stop = std::max(stop, atStop);
    }
};

/// The scale that a section's number means, among `count`.
std::size_t scaleIndex(int asked, std::size_t count) {
    return std::min(static_cast<std::size_t>(std::max(asked, 0)), count - 1);
}

LinearScale bareScale(const QRectF& room, bool vertical) {
    LinearScale scale;
    scale.vertical = vertical;
    const double across = vertical ? room.width() : room.height();
    const double along = vertical ? room.height() : room.width();
    scale.middle = vertical ? room.center().x() : room.center().y();
    scale.unit = std::max(std::min(across, along / kSlimmest), 0.0);
    return scale;
}

LinearScale scaleOf(const PropertyStore& p, int i, const QRectF& room) {
    LinearScale scale = bareScale(room, p.choice(LinearOrientation, i) == 1);
    scale.range = {p.number(LinearScaleMin, i), p.number(LinearScaleMax, i)};
    return scale;
}

/// A share of the length, from the left or from the bottom.
double placeAlong(const QRectF& room, bool vertical, double share) {
    return vertical ? room.bottom() - share * room.height() : room.left() + share * room.width();
}

/// `free` is the part of the room that a scale without places of its own may take.
void placeEnds(const PropertyStore& p, int i, LinearScale& scale, const QRectF& room, const QRectF& free,
               const Margins& margins) {
    double low = boundedPlace(p, LinearScaleStart, i);
    double high = boundedPlace(p, LinearScaleStop, i);
    const bool backward = p.choice(LinearDirection, i) == 1;
    const double length = scale.vertical ? free.height() : free.width();
    const bool automatic = low == high && length > 0;
    if (automatic) {
        const double taken = std::max(margins.start + margins.stop, 1e-9);
        const double fit = std::min(1.0, kMostMargins * length / taken) / length;
        low = (backward ? margins.stop : margins.start) * fit;
        high = 1 - (backward ? margins.start : margins.stop) * fit;
    }
    const QRectF& within = automatic ? free : room;
    scale.start = placeAlong(within, scale.vertical, backward ? high : low);
    scale.stop = placeAlong(within, scale.vertical, backward ? low : high);
}

/// Half of what the longest of the outermost labels of a row takes along its scale.
double labelOverhang(const PropertyStore& p, const LinearScale& scale, int tic) {
    const auto font = linearFont(p, p.sectionNamed(LinearTicFont, tic), scale.unit);
    if (!p.flag(LinearTicLabels, tic) || !font) return 0;
    const QFontMetricsF metrics(*font);
    const bool lying = scale.vertical == p.flag(LinearTicLabelsTurned, tic);
    if (!lying) return metrics.capHeight() / 2;
    const TicRun run = ticRunOf(p, kLinearTics, scale.range, tic);
    if (run.count == 0) return 0;
    const TicFormat format = ticFormat(p, kLinearTics, run, tic);
    return std::max(metrics.horizontalAdvance(format.text(run.value(0))),
                    metrics.horizontalAdvance(format.text(run.value(run.count - 1)))) /
           2;
}

/// What a band or bar of a form takes beyond its start and stop.
Margins formMargins(BandStyle form, double width) {
    if (form == BandStyle::Thermometer) return {bulbReach(width), 0};
    if (form == BandStyle::Tank) return {tankDepth(width), tankDepth(width)};
    return {};
}

double spanWidth(const PropertyStore& p, const LinearScale& scale, int near, int far, int section) {
    return std::abs(boundedPlace(p, far, section) - boundedPlace(p, near, section)) * scale.unit;
}

std::vector<Margins> marginsOf(const PropertyStore& p, const std::vector<LinearScale>& scales) {
    std::vector<Margins> margins(scales.size());
    for (std::size_t i = 0; i < scales.size(); ++i)
        margins[i].widen(kPadding * scales[i].unit, kPadding * scales[i].unit);
    const auto widen = [&](int scaleNumber, const auto& taken) {
        const std::size_t i = scaleIndex(scaleNumber, scales.size());
        const Margins more = taken(scales[i]);
        margins[i].widen(more.start + kPadding * scales[i].unit, more.stop + kPadding * scales[i].unit);
    };
    for (int tic = 0; tic < p.integer(LinearTics); ++tic)
        widen(p.sectionNamed(LinearTicScale, tic), [&](const LinearScale& scale) {
            const double overhang = labelOverhang(p, scale, tic);
            return Margins{overhang, overhang};
        });
    for (int band = 0; band < p.integer(LinearBands); ++band)
        widen(p.sectionNamed(LinearBandScale, band), [&](const LinearScale& scale) {
            return formMargins(BandStyle(p.choice(LinearBandStyle, band)),
                               spanWidth(p, scale, LinearBandNear, LinearBandFar, band));
        });
    return margins;
}

/// What lines of text at the top and the bottom leave for upright scales.
class TextFreeRoom {
public:
    explicit TextFreeRoom(const QRectF& room) : m_whole(room), m_left(room) {}

    void take(double yShare, const std::optional<QFont>& font) {
        if (!font) return;
        const double half = QFontMetricsF(*font).capHeight() / 2;
        const double middle = linearTextPlace(m_whole, 0, yShare, *font).y();
        if (yShare < kTextZone) m_left.setTop(std::max(m_left.top(), middle + half));
        if (yShare > 1 - kTextZone) m_left.setBottom(std::min(m_left.bottom(), middle - half));
    }
    QRectF left() const { return m_left; }

private:
    QRectF m_whole;
    QRectF m_left;
};

QRectF uprightRoom(const LinearLayout& layout, const PropertyStore& p) {
    TextFreeRoom room(layout.room);
    for (int i = 0; i < p.integer(LinearCaptions); ++i)
        if (!p.text(LinearCaptionText, i).isEmpty())
            room.take(boundedPlace(p, LinearCaptionY, i),
                      linearFont(p, p.sectionNamed(LinearCaptionFont, i), layout.unit));
    for (int i = 0; i < p.integer(LinearPointers); ++i)
        if (p.flag(LinearPointerNumber, i) && !p.flag(LinearPointerHidden, i))
            room.take(boundedPlace(p, LinearNumberY, i),
                      linearFont(p, p.sectionNamed(LinearNumberFont, i), layout.unit));
    return room.left();
}

void layOutScales(LinearLayout& layout, const PropertyStore& p) {
    for (int i = 0; i < p.integer(LinearScales); ++i) layout.scales.push_back(scaleOf(p, i, layout.room));
    if (layout.scales.empty()) return;
    const std::vector<Margins> margins = marginsOf(p, layout.scales);
    const QRectF upright = uprightRoom(layout, p);
    for (int i = 0; i < p.integer(LinearScales); ++i) {
        const auto at = static_cast<std::size_t>(i);
        LinearScale& scale = layout.scales[at];
        placeEnds(p, i, scale, layout.room, scale.vertical ? upright : layout.room, margins[at]);
    }
}

PointerPlace pointerOf(const PropertyStore& p, int i, const LinearScale& on) {
    PointerPlace pointer;
    pointer.section = i;
    pointer.on = on;
    pointer.style = PointerStyle(p.choice(LinearPointerStyle, i));
    pointer.form = BandStyle(p.choice(LinearBarForm, i));
    pointer.base = p.flag(LinearPointerFromBase, i) ? on.along(p.number(LinearPointerBase, i)) : on.start;
    pointer.near = on.across(boundedPlace(p, LinearPointerNear, i));
    pointer.far = on.across(boundedPlace(p, LinearPointerFar, i));
    if (pointer.style == PointerStyle::Bar && pointer.near > pointer.far)
        std::swap(pointer.near, pointer.far);
    pointer.halfWidth = std::max(usualSize(p, LinearPointerWidth, i) * on.unit / 2, kThinnestHalf);
    if (pointer.style == PointerStyle::Line)
        pointer.halfWidth = std::max(pointer.halfWidth / 4, kThinnestHalf);
    pointer.colour = colourOf(p.integer(LinearPointerColour, i));
    pointer.edge = p.flag(LinearShading) ? colourOf(p.integer(LinearPointerEdgeColour, i)) : pointer.colour;
    return pointer;
}

void layOutNumber(LinearLayout& layout, const PropertyStore& p, int i) {
    const auto font = linearFont(p, p.sectionNamed(LinearNumberFont, i), layout.unit);
    if (!p.flag(LinearPointerNumber, i) || !font) return;
    layout.numbers.push_back(
        {.section = i,
         .at = linearTextPlace(layout.room, boundedPlace(p, LinearNumberX, i),
                               boundedPlace(p, LinearNumberY, i), *font),
         .font = *font,
         .colour = legibleOn(colourOf(p.integer(LinearNumberColour, i)), layout.style.back),
         .room = layout.room,
         .decimals = std::clamp(p.integer(LinearNumberDecimals, i), 0, 6),
         .unit = p.text(LinearNumberUnit, i).left(kLongestText)});
}

void layOutPointers(LinearLayout& layout, const PropertyStore& p) {
    for (int i = 0; i < p.integer(LinearPointers); ++i) {
        if (p.flag(LinearPointerHidden, i)) continue;
        layout.pointers.push_back(pointerOf(p, i, layout.scaleAt(p.sectionNamed(LinearPointerScale, i))));
        layOutNumber(layout, p, i);
    }
    std::stable_partition(layout.pointers.begin(), layout.pointers.end(),
                          [](const PointerPlace& pointer) { return pointer.style == PointerStyle::Bar; });
}

} // namespace

std::optional<QFont> linearFont(const PropertyStore& properties, int section, double unit) {
    return legibleFont(properties, kLinearFont, section, properties.integer(LinearFonts),
                       std::max(unit, kSmallestUnit));
}

QPointF linearTextPlace(const QRectF& room, double xShare, double yShare, const QFont& font) {
    constexpr double kEdge = 2; // pixels
    const QFontMetricsF metrics(font);
    const double above = metrics.capHeight() / 2 + kEdge;
    const double below = metrics.capHeight() / 2 + metrics.descent();
    const double wanted = room.top() + yShare * room.height();
    const double middle = std::max(std::min(wanted, room.bottom() - below), room.top() + above);
    return {room.left() + xShare * room.width(), middle};
}

BarSpan bandSpan(const PropertyStore& p, const LinearScale& scale, int section) {
    const double start = p.number(LinearBandStartValue, section);
    const double stop = p.number(LinearBandStopValue, section);
    const double near = scale.across(boundedPlace(p, LinearBandNear, section));
    const double far = scale.across(boundedPlace(p, LinearBandFar, section));
    return {.vertical = scale.vertical,
            .from = start == stop ? scale.start : scale.along(start),
            .to = start == stop ? scale.stop : scale.along(stop),
            .near = std::min(near, far),
            .far = std::max(near, far)};
}

LinearScale LinearLayout::scaleAt(int index) const {
    if (!scales.empty()) return scales[scaleIndex(index, scales.size())];
    LinearScale scale = bareScale(room, true);
    scale.start = room.bottom();
    scale.stop = room.top();
    return scale;
}

LinearLayout layOutLinearGauge(const PropertyStore& properties, const QRectF& panel, const QColor& page) {
    LinearLayout layout;
    layout.panel = panel;
    layout.style = panelStyleOf(properties, kLinearPanel, page);
    layout.room = panelInside(layout.style, panel);
    layout.unit = bareScale(layout.room, layout.room.height() > layout.room.width()).unit;
    layOutScales(layout, properties);
    layOutPointers(layout, properties);
    return layout;
}

} // namespace vistor
