#include "instruments/VXLGAUGE.h"

#include "instruments/displays/LinearGaugeDisplay.h"

namespace vistor {
namespace {

constexpr QSize kNewSize(130, 280); ///< logical pixels

} // namespace

VXLGAUGE::VXLGAUGE(QWidget* parent) : Instrument(Kind::LinearGauge, new LinearGaugeDisplay, parent) {
    setSizeTwips(kNewSize.width() * kTwipsPerPixel, kNewSize.height() * kTwipsPerPixel);
}

} // namespace vistor
