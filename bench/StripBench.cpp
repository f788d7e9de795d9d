// What a strip's points and repaints cost. The yardstick is a line chart of the toolkit over the same points.
#include "instruments/displays/StripDisplay.h"

#include <QChart>
#include <QChartView>
#include <QImage>
#include <QLineSeries>
#include <QPainter>
#include <QValueAxis>

#include <benchmark/benchmark.h>
#include <chrono>
#include <cmath>
#include <random>

namespace vistor {
namespace {

constexpr QSize kSize(600, 300);
constexpr int kTraces = 4;
constexpr double kSeconds = 60;

enum class Signal { Smooth, Noisy };

double valueAt(Signal signal, int trace, double seconds, std::mt19937& random) {
    if (signal == Signal::Smooth) return std::sin(seconds * (0.3 + 0.2 * trace) + trace) * (trace + 1);
    return std::uniform_real_distribution(-1.0, 1.0)(random) * (trace + 1);
}

void setUp(StripDisplay& strip, int points) {
    strip.resize(kSize);
    PropertyStore& p = strip.properties();
    p.setNumber(StripTraceCount, kTraces);
    p.setNumber(StripBufferSize, points);
    p.setNumber(StripLength, kSeconds);
    p.setNumber(StripOrigin, kSeconds);
    p.setNumber(StripMinimumY, -kTraces);
    p.setNumber(StripMaximumY, kTraces);
}

void fill(StripDisplay& strip, Signal signal, int points) {
    std::mt19937 random(1);
    for (int trace = 0; trace < kTraces; ++trace)
        for (int i = 0; i < points; ++i) {
            const double seconds = kSeconds * i / (points - 1);
            strip.addPoint(trace, seconds, valueAt(signal, trace, seconds, random));
        }
}

void repaintStrip(benchmark::State& state, Signal signal) {
    const int points = static_cast<int>(state.range(0));
    StripDisplay strip(kStripTable, true);
    setUp(strip, points);
    fill(strip, signal, points);
    QImage image(kSize, QImage::Format_RGB32);
    for ([[maybe_unused]] auto _ : state) {
        strip.render(&image);
        benchmark::DoNotOptimize(image.constBits());
    }
}

void fillChart(QChart& chart, Signal signal, int points) {
    std::mt19937 random(1);
    for (int trace = 0; trace < kTraces; ++trace) {
        QList<QPointF> list;
        for (int i = 0; i < points; ++i) {
            const double seconds = kSeconds * i / (points - 1);
            list << QPointF(seconds, valueAt(signal, trace, seconds, random));
        }
        auto* series = new QLineSeries;
        series->replace(list);
        chart.addSeries(series);
    }
    chart.createDefaultAxes();
    chart.legend()->hide();
}

/// Prints how many times as long the chart takes.
void repaintChart(benchmark::State& state, Signal signal) {
    using Time = std::chrono::steady_clock;
    const auto seconds = [](Time::duration span) { return std::chrono::duration<double>(span).count(); };
    const int points = static_cast<int>(state.range(0));
    StripDisplay strip(kStripTable, true);
    setUp(strip, points);
    fill(strip, signal, points);
    auto* chart = new QChart;
    fillChart(*chart, signal, points);
    QChartView view(chart); // which owns it
    view.setRenderHint(QPainter::Antialiasing);
    view.resize(kSize);
    QImage image(kSize, QImage::Format_RGB32);
    view.QWidget::render(&image);
    constexpr int kStripPaints = 20;
    const auto start = Time::now();
    for (int i = 0; i < kStripPaints; ++i) strip.render(&image);
    const double stripTime = seconds(Time::now() - start) / kStripPaints;
    double chartTime = 0;
    for ([[maybe_unused]] auto _ : state) {
        const auto before = Time::now();
        view.QWidget::render(&image);
        chartTime += seconds(Time::now() - before);
    }
    state.counters["ratio"] = chartTime / static_cast<double>(state.iterations()) / stripTime;
}

/// Over a ring that is full.
void addPoint(benchmark::State& state, Signal signal) {
    const int points = static_cast<int>(state.range(0));
    StripDisplay strip(kStripTable, true);
    setUp(strip, points);
    fill(strip, signal, points);
    std::mt19937 random(2);
    std::vector<double> values(4096);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = valueAt(signal, 0, kSeconds + static_cast<double>(i) * kSeconds / points, random);
    double seconds = kSeconds;
    std::size_t next = 0;
    for ([[maybe_unused]] auto _ : state) {
        strip.addPoint(0, seconds, values[next]);
        seconds += kSeconds / points;
        next = (next + 1) % values.size();
    }
}

void repaintTrack(benchmark::State& state) {
    const int points = static_cast<int>(state.range(0));
    StripDisplay strip(kXYGraphTable, false);
    setUp(strip, points);
    strip.properties().setNumber(StripOrigin, -1.5);
    strip.properties().setNumber(StripLength, 3);
    std::mt19937 random(1);
    std::normal_distribution wander(0.0, 0.004);
    for (int i = 0; i < points; ++i) {
        const double angle = i * 0.002;
        strip.addPoint(0, std::cos(angle) + 0.3 * std::cos(3 * angle) + wander(random),
                       3 * std::sin(angle) + wander(random));
    }
    QImage image(kSize, QImage::Format_RGB32);
    for ([[maybe_unused]] auto _ : state) {
        strip.render(&image);
        benchmark::DoNotOptimize(image.constBits());
    }
}

BENCHMARK_CAPTURE(repaintStrip, smooth, Signal::Smooth)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(repaintStrip, noisy, Signal::Noisy)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(repaintChart, smooth, Signal::Smooth)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(repaintChart, noisy, Signal::Noisy)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(addPoint, smooth, Signal::Smooth)->Arg(10'000)->Arg(1'000'000);
BENCHMARK_CAPTURE(addPoint, noisy, Signal::Noisy)->Arg(10'000)->Arg(1'000'000);
BENCHMARK(repaintTrack)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace vistor
