#include "instruments/VXLED.h"

#include "instruments/displays/LedDisplay.h"

namespace vistor {
namespace {

constexpr int kNewWidth = 240 * kTwipsPerPixel;
constexpr int kNewHeight = 60 * kTwipsPerPixel;

} // namespace

VXLED::VXLED(QWidget* parent) : Instrument(Kind::Led, new LedDisplay, parent) {
    setSizeTwips(kNewWidth, kNewHeight);
    UserControl_Initialize();
}

} // namespace vistor
