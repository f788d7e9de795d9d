// What gauges cost: a repaint of a dial with its face painted before, one from scratch, an update of each
// kind, and a page of 40 dials updated 50 times a second.
#include "instruments/VXAGAUGE.h"
#include "instruments/VXLGAUGE.h"
#include "instruments/VXPCTBAR.h"
#include "instruments/displays/AngularGaugeDisplay.h"

#include <QApplication>
#include <QImage>
#include <QVBoxLayout>

#include <benchmark/benchmark.h>
#include <memory>

namespace vistor {
namespace {

/// Sweeps the scale as an engine does.
double valueAt(int step) {
    return 50 + 45 * std::sin(step * 0.05);
}

void paintDial(benchmark::State& state, bool fromScratch) {
    AngularGaugeDisplay display;
    display.resize(int(state.range(0)), int(state.range(0)));
    PropertyStore& p = display.properties();
    QImage screen(display.size(), QImage::Format_RGB32);
    int step = 0;
    for (auto _ : state) {
        p.setNumber(NeedleValue, 0, valueAt(++step));
        if (fromScratch) p.setNumber(GaugeBorderWidth, step % 2);
        display.render(&screen, QPoint(), QRegion(), QWidget::RenderFlags());
    }
}

void repaintDial(benchmark::State& state) {
    paintDial(state, false);
}
BENCHMARK(repaintDial)->Arg(200)->Arg(300)->Arg(800)->Unit(benchmark::kMicrosecond);

void repaintDialFromScratch(benchmark::State& state) {
    paintDial(state, true);
}
BENCHMARK(repaintDialFromScratch)->Arg(200)->Arg(300)->Arg(800)->Unit(benchmark::kMicrosecond);

/// One gauge in a window, painted as the event loop does it: only what moved.
template <class Gauge>
void update(benchmark::State& state) {
    Gauge gauge(nullptr);
    gauge.setSizeTwips((double(state.range(0)) + 10) * 15, (double(state.range(0)) + 10) * 15);
    gauge.mode(false);
    gauge.show();
    QApplication::processEvents();
    int step = 0;
    for (auto _ : state) {
        gauge.refreshValue(1, float(valueAt(++step)));
        QApplication::processEvents();
    }
}
BENCHMARK(update<VXAGAUGE>)->Arg(200)->Arg(300)->Arg(800)->Unit(benchmark::kMicrosecond);
BENCHMARK(update<VXLGAUGE>)->Arg(200)->Arg(300)->Arg(800)->Unit(benchmark::kMicrosecond);
BENCHMARK(update<VXPCTBAR>)->Arg(200)->Arg(300)->Arg(800)->Unit(benchmark::kMicrosecond);

/// A window of dials on the offscreen platform, painted through the event loop. One iteration is one tick of
/// 20 ms, so "core" tells the share of a core at 50 ticks a second.
void pageOfDials(benchmark::State& state) {
    constexpr int kColumns = 8;
    constexpr int kPitch = 310; // leaves 300 inside the frame
    QWidget page;
    page.resize(kColumns * kPitch, 5 * kPitch);
    std::vector<std::unique_ptr<VXAGAUGE>> gauges;
    for (int i = 0; i < int(state.range(0)); ++i) {
        gauges.push_back(std::make_unique<VXAGAUGE>(&page));
        gauges.back()->setSizeTwips(kPitch * 15, kPitch * 15);
        gauges.back()->move(i % kColumns * kPitch, i / kColumns * kPitch);
        gauges.back()->mode(false);
        gauges.back()->show();
    }
    page.show();
    QApplication::processEvents();
    int step = 0;
    for (auto _ : state) {
        ++step;
        for (std::size_t i = 0; i < gauges.size(); ++i)
            gauges[i]->refreshValue(1, float(valueAt(step + int(i))));
        QApplication::processEvents();
    }
    using benchmark::Counter;
    state.counters["core"] = Counter(double(state.iterations()) * 0.02, Counter::kIsRate | Counter::kInvert);
    gauges.clear();
}
BENCHMARK(pageOfDials)->Arg(40)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace vistor
