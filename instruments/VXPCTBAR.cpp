#include "instruments/VXPCTBAR.h"

#include "instruments/displays/PercentDisplay.h"

namespace vistor {
namespace {

constexpr QSize kNewSize(260, 70); ///< logical pixels

} // namespace

VXPCTBAR::VXPCTBAR(QWidget* parent) : Instrument(Kind::PercentageBar, new PercentDisplay, parent) {
    setSizeTwips(kNewSize.width() * kTwipsPerPixel, kNewSize.height() * kTwipsPerPixel);
}

} // namespace vistor
