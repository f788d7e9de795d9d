#include "instruments/VXPCTBAR.h"

#include "instruments/displays/PercentDisplay.h"

namespace vistor {
VXPCTBAR::VXPCTBAR(QWidget* parent) : Instrument(Kind::PercentageBar, new PercentDisplay, parent) {}

} // namespace vistor
