// Instruments of any size, as a list may ask for, come up in bounded time and memory.
#include "instruments/Instrument.h"
#include "instruments/VXLGAUGE.h"
#include "instruments/VXODO.h"
#include "instruments/displays/LinearGaugeProperties.h"
#include "instruments/displays/OdometerDisplay.h"

#include <QElapsedTimer>
#include <QFile>
#include <QImage>

#include <gtest/gtest.h>

namespace vistor {
namespace {

/// Resident memory of this process, in MiB.
double residentMiB() {
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly)) return 0;
    return file.readAll().split(' ').value(1).toDouble() * 4096 / (1024 * 1024);
}

/// Shows a value on a display that a list made as large as it may, and paints one corner of it.
void paintCorner(Instrument& instrument, float value) {
    instrument.refreshValue(1, value);
    QImage corner(300, 300, QImage::Format_RGB32);
    instrument.inCTRL().render(&corner, QPoint(), QRegion(0, 0, 300, 300), QWidget::RenderFlags());
}

TEST(LargeDisplays, AnOdometerTakesNoMoreThanItsPicture) {
    const double before = residentMiB();
    VXODO odometer(nullptr);
    odometer.inCTRL().properties().setNumber(OdoDigits, 1);
    odometer.setSizeTwips(1e9, 1e9);
    paintCorner(odometer, 1.5F);
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < 5; ++i) paintCorner(odometer, float(i) + 0.25F);
    EXPECT_LT(clock.elapsed(), 1500) << "what does not move is kept";
    EXPECT_LT(residentMiB() - before, 400);
}

TEST(LargeDisplays, TicsWithoutEndArePaintedInBoundedTime) {
    VXLGAUGE gauge(nullptr);
    gauge.setSizeTwips(9000, 9000);
    PropertyStore& p = gauge.inCTRL().properties();
    p.setNumber(LinearTics, 256);
    for (int tic = 0; tic < 256; ++tic) {
        p.setNumber(LinearTicLabels, tic, -1);
        p.setNumber(LinearTicStep, tic, 0.1);
    }
    QElapsedTimer clock;
    clock.start();
    QImage picture(gauge.inCTRL().size(), QImage::Format_RGB32);
    gauge.inCTRL().render(&picture);
    EXPECT_LT(clock.elapsed(), 3000);
}

} // namespace
} // namespace vistor
