// Any lines as an instrument's saved list: each kind takes it, shows values, is painted at any size and
// density, and writes a list that reads back as the same.
#include "fuzz/Harness.h"
#include "instruments/Instrument.h"
#include "instruments/InstrumentKinds.h"

#include <QImage>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using namespace vistor;

constexpr std::size_t kHead = 4; ///< kind, width, height and density
constexpr int kLargestSide = 1000;
constexpr float kValues[] = {0,
                             1,
                             -1,
                             47.5F,
                             1e9F,
                             -1e-9F,
                             std::numeric_limits<float>::quiet_NaN(),
                             std::numeric_limits<float>::infinity()};

void show(Instrument& instrument) {
    std::int16_t pin = 0;
    for (const float value : kValues) {
        instrument.refreshValue(pin, value);
        for (const std::uint8_t axis : {std::uint8_t{0}, std::uint8_t{1}})
            instrument.refreshValue(pin, axis, value);
        pin = static_cast<std::int16_t>((pin + 1) % 4);
    }
}

void paint(Instrument& instrument, QSize size, double ratio) {
    instrument.setSizeTwips(size.width() * kTwipsPerPixel, size.height() * kTwipsPerPixel);
    QImage picture(instrument.size() * ratio, QImage::Format_RGB32);
    picture.setDevicePixelRatio(ratio);
    instrument.render(&picture);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    if (size < kHead) return 0;
    startApplication();
    const auto kind = static_cast<Kind>(data[0] % kInstrumentKinds.size());
    const auto side = [](unsigned char byte) { return std::min(1 + byte * byte / 60, kLargestSide); };
    const QString text = QString::fromUtf8(bytesOf(data + kHead, size - kHead));
    const std::unique_ptr<Instrument> instrument = makeInstrument(kind, nullptr);
    instrument->Deserialise(text.split(u'\n'));
    QStringList once, twice;
    instrument->Serialise(once);
    show(*instrument);
    paint(*instrument, {side(data[1]), side(data[2])}, 1 + data[3] % 3 * 0.5);
    instrument->mode(false);
    paint(*instrument, {side(data[2]), side(data[1])}, 1);

    const std::unique_ptr<Instrument> again = makeInstrument(kind, nullptr);
    again->Deserialise(once);
    again->Serialise(twice);
    if (once != twice) std::abort();
    return 0;
}
