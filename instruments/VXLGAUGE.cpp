#include "instruments/VXLGAUGE.h"

#include "instruments/displays/LinearGaugeDisplay.h"

namespace vistor {
VXLGAUGE::VXLGAUGE(QWidget* parent) : Instrument(Kind::LinearGauge, new LinearGaugeDisplay, parent) {}

} // namespace vistor
