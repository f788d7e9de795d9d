#include "instruments/VXLED.h"

#include "instruments/displays/LedDisplay.h"

namespace vistor {
VXLED::VXLED(QWidget* parent) : Instrument(Kind::Led, new LedDisplay, parent) {}

} // namespace vistor
