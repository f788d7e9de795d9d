// What a value costs on its way to an instrument, and what showing it costs.
#include "instruments/VXALPHANUME.h"
#include "instruments/displays/NumLedDisplay.h"

#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

namespace vistor {
namespace {

/// Values that change at every step, with a fraction.
float valueAt(int step) {
    return float(step % 80000) * 0.25F + 0.125F;
}

void storeWriteAndRead(benchmark::State& state) {
    PropertyStore store(kNumLedTable);
    double sum = 0;
    int step = 0;
    for (auto _ : state) {
        store.setNumber(NumLedValue, ++step);
        sum += store.number(NumLedValue);
    }
    benchmark::DoNotOptimize(sum);
}
BENCHMARK(storeWriteAndRead);

void refreshNumeric(benchmark::State& state) {
    VXALPHANUME readout(nullptr);
    int step = 0;
    for (auto _ : state) readout.refreshValue(1, valueAt(++step));
}
BENCHMARK(refreshNumeric);

void refreshAlphaNumeric(benchmark::State& state) {
    VXALPHANUME readout(nullptr);
    readout.inCTRL().properties().setNumber(NumLedDisplayMode, kAlphaNumericMode);
    int step = 0;
    for (auto _ : state) readout.refreshValue(1, valueAt(++step));
}
BENCHMARK(refreshAlphaNumeric);

void repaint(benchmark::State& state, bool fromScratch) {
    NumLedDisplay display;
    display.resize(int(state.range(0)), int(state.range(0)) * 3 / 10);
    PropertyStore& p = display.properties();
    p.setNumber(NumLedDigits, 8);
    QImage screen(display.size(), QImage::Format_RGB32);
    int step = 0;
    for (auto _ : state) {
        p.setNumber(NumLedValue, 100000 + valueAt(++step));
        if (fromScratch) p.setNumber(NumLedMargin, step % 2);
        display.render(&screen, QPoint(), QRegion(), QWidget::RenderFlags());
    }
}

void repaintCached(benchmark::State& state) {
    repaint(state, false);
}
BENCHMARK(repaintCached)->Arg(200)->Arg(800)->Unit(benchmark::kMicrosecond);

void repaintFromScratch(benchmark::State& state) {
    repaint(state, true);
}
BENCHMARK(repaintFromScratch)->Arg(200)->Arg(800)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace vistor
