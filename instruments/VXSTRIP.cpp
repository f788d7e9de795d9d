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

void bindPlaced(Instrument& instrument) {
    if (instrument.kind() == Kind::TimeGraph)
        instrument.AssignPin(1, std::uint8_t{0}, QStringLiteral("Time"));
}

} // namespace vistor
