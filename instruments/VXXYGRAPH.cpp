#include "instruments/VXXYGRAPH.h"

#include "instruments/GraphScales.h"
#include "instruments/displays/StripDisplay.h"

namespace vistor {
namespace {

constexpr QSize kNewSize(300, 260); ///< logical pixels

GraphAxes axesOf(const PropertyStore& p) {
    return {.origin = p.number(StripOrigin),
            .length = p.number(StripLength),
            .lowestY = p.number(StripMinimumY),
            .highestY = p.number(StripMaximumY)};
}

GraphScaling scalingOf(const StripDisplay& display) {
    const PropertyStore& p = display.properties();
    return {.autoX = p.flag(GraphAutoScaleX),
            .autoY = p.flag(GraphAutoScaleY),
            .fixAspect = p.flag(GraphFixAspect),
            .displayWidth = double(display.width()),
            .displayHeight = double(display.height())};
}

} // namespace

VXXYGRAPH::VXXYGRAPH(QWidget* parent)
    : GraphInstrument(Kind::XYGraph, new StripDisplay(kXYGraphTable, false), kNewSize, parent) {}

void VXXYGRAPH::followPoint(double x, double y) {
    m_x.take(x);
    PropertyStore& p = inCTRL().properties();
    const GraphData held{m_x.low, m_x.high, strip().lowestY(0), strip().highestY(0)};
    const GraphAxes axes = scaledAxes(axesOf(p), held, scalingOf(strip()));
    p.setNumber(StripMaximumY, axes.highestY);
    p.setNumber(StripMinimumY, axes.lowestY);
    showX(axes.origin, axes.length);
    p.setNumber(StripMarkerX, x);
    p.setNumber(StripMarkerY, y);
}

QString VXXYGRAPH::trackName(const PinTable& table, int track) const {
    const QString x = table.at(track, 0);
    const QString y = table.at(track, 1);
    return x.isEmpty() || y.isEmpty() ? y : y + QStringLiteral(" over ") + x;
}

QStringList VXXYGRAPH::shownLabels() const {
    return {QStringLiteral("Grid"),
            QStringLiteral("Auto Scale X"),
            QStringLiteral("Minimum X"),
            QStringLiteral("Maximum X"),
            QStringLiteral("Auto Scale Y"),
            QStringLiteral("Minimum Y"),
            QStringLiteral("Maximum Y"),
            QStringLiteral("Symbol View"),
            QStringLiteral("Show Marker"),
            QStringLiteral("Buffer Size"),
            QStringLiteral("Fix Aspect Ratio 1:1"),
            QStringLiteral("Show Numbers On X Axis"),
            QStringLiteral("Show Numbers On Y Axis")};
}

QStringList VXXYGRAPH::shownValues() const {
    const PropertyStore& p = inCTRL().properties();
    const AxisRange visible = strip().visible();
    return {choiceWord(kGridWords, p.integer(StripGrid)),
            flagWord(p.flag(GraphAutoScaleX)),
            textOfNumber(visible.low),
            textOfNumber(visible.high),
            flagWord(p.flag(GraphAutoScaleY)),
            textOfNumber(p.number(StripMinimumY)),
            textOfNumber(p.number(StripMaximumY)),
            choiceWord(kSymbolWords, p.integer(StripSymbolView)),
            flagWord(p.integer(StripShowMarker) == 1),
            textOfNumber(p.number(StripBufferSize)),
            flagWord(p.flag(GraphFixAspect)),
            flagWord(p.flag(StripShowNumbersX)),
            flagWord(p.flag(StripShowNumbersY))};
}

} // namespace vistor
