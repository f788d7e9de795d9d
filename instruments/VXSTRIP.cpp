#include "instruments/VXSTRIP.h"

#include "instruments/displays/StripDisplay.h"

namespace vistor {
namespace {

constexpr QSize kNewSize(400, 220); ///< logical pixels

} // namespace

VXSTRIP::VXSTRIP(QWidget* parent)
    : GraphInstrument(Kind::TimeGraph, new StripDisplay(kStripTable, true), kNewSize, parent) {}

void VXSTRIP::followPoint(double x, double) {
    showX(x);
    if (inCTRL().properties().flag(GraphAutoScaleY)) scaleYToPoints();
}

QStringList VXSTRIP::shownLabels() const {
    return {QStringLiteral("Time Along X Axis"),
            QStringLiteral("Auto Scale Y"),
            QStringLiteral("Minimum Y"),
            QStringLiteral("Maximum Y"),
            QStringLiteral("Grid"),
            QStringLiteral("Line Style"),
            QStringLiteral("Symbol View"),
            QStringLiteral("Show Numbers On X And Y")};
}

QStringList VXSTRIP::shownValues() const {
    const PropertyStore& p = inCTRL().properties();
    return {textOfNumber(p.number(StripLength)),
            flagWord(p.flag(GraphAutoScaleY)),
            textOfNumber(p.number(StripMinimumY)),
            textOfNumber(p.number(StripMaximumY)),
            choiceWord(kGridWords, p.integer(StripGrid)),
            choiceWord(kLineStyleWords, p.integer(StripLineStyle)),
            choiceWord(kSymbolWords, p.integer(StripSymbolView)),
            flagWord(p.flag(StripShowNumbersX))};
}

void bindPlaced(Instrument& instrument) {
    if (instrument.kind() == Kind::TimeGraph)
        instrument.AssignPin(1, std::uint8_t{0}, QStringLiteral("Time"));
}

} // namespace vistor
