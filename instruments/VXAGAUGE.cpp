#include "instruments/VXAGAUGE.h"

#include "instruments/displays/AngularGaugeDisplay.h"

namespace vistor {

VXAGAUGE::VXAGAUGE(QWidget* parent) : Instrument(Kind::AngularGauge, new AngularGaugeDisplay, parent) {}

} // namespace vistor
