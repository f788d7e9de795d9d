// A page of 200 instruments at 1920 by 1080, every one bound, through dispatch, event loop and painting.
#include "bench/ResidentMemory.h"
#include "dashboard/frmInterface.h"
#include "instruments/Instrument.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QApplication>
#include <QThread>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cmath>

namespace vistor {
namespace {

constexpr int kInstruments = 200;
constexpr int kColumns = 20;
constexpr int kCellWidth = 95;
constexpr int kCellHeight = 98;
constexpr int kBoundKinds = 8;      ///< text tags, the last kind, have no pin
constexpr int kPointsHeld = 10'000; ///< of a new graph's trace
constexpr double kTickSeconds = 0.02;
constexpr int kMixed = -1; ///< instead of the number of a kind

double secondsOf(std::chrono::steady_clock::duration span) {
    return std::chrono::duration<double>(span).count();
}

/// The page fills the screen without the panes around it. Its graphs hold all the points that they can.
class FullPage {
public:
    explicit FullPage(int kind) {
        ResetGlobals();
        VariableTable.resize(kVariableCount);
        for (int i = 0; i <= kInstruments; ++i) {
            m_names.push_back(i == 0 ? QStringLiteral("Time") : QStringLiteral("Channel %1").arg(i));
            VariableTable[static_cast<std::size_t>(i + 1)].PhysicalName = m_names.back();
        }
        tableChanged();
        m_page->setParent(nullptr);
        m_page->resize(1920, 1080);
        m_page->show();
        for (int i = 0; i < kInstruments; ++i)
            place(i,
                  kInstrumentKinds[static_cast<std::size_t>(kind == kMixed ? i % kBoundKinds : kind)].kind);
        m_window.RebuildSubscriptions();
        while (m_step < kPointsHeld) tick();
        QApplication::processEvents();
    }
    ~FullPage() { m_page->setParent(&m_window); }
    FullPage(const FullPage&) = delete;
    FullPage& operator=(const FullPage&) = delete;

    void tick() {
        ++m_step;
        m_window.refreshControls(m_names[0], static_cast<float>(m_step * kTickSeconds));
        for (std::size_t i = 1; i < m_names.size(); ++i)
            m_window.refreshControls(m_names[i], float(50 + 45 * std::sin((m_step + int(i)) * 0.05)));
    }

private:
    void place(int number, Kind kind) {
        Instrument* added = m_window.addInstrument(kind, m_page);
        added->setSizeTwips(kCellWidth * 15, kCellHeight * 15);
        added->move(number % kColumns * kCellWidth, number / kColumns * kCellHeight);
        const auto channel = static_cast<std::size_t>(number + 1);
        if (kind == Kind::TimeGraph || kind == Kind::XYGraph) {
            added->AssignPin(1, std::uint8_t{0}, m_names[kind == Kind::TimeGraph ? 0 : channel / 2 + 1]);
            added->AssignPin(1, std::uint8_t{1}, m_names[channel]);
        } else {
            added->AssignPin(1, m_names[channel]);
        }
        added->mode(false);
        added->show();
    }

    frmInterface m_window;
    Page* m_page = m_window.pic.front();
    std::vector<QString> m_names;
    int m_step = 0;
};

/// One iteration is one tick of 20 ms: "core" tells the share of a core at 50 ticks a second. "longestTick"
/// and, painting included, "longest" are in milliseconds.
void pageOfInstruments(benchmark::State& state) {
    using Clock = std::chrono::steady_clock;
    FullPage page(static_cast<int>(state.range(0)));
    double longestTick = 0;
    double longest = 0;
    for (auto unused : state) {
        const auto start = Clock::now();
        page.tick();
        longestTick = std::max(longestTick, secondsOf(Clock::now() - start));
        QApplication::processEvents();
        longest = std::max(longest, secondsOf(Clock::now() - start));
    }
    using benchmark::Counter;
    state.counters["core"] =
        Counter(double(state.iterations()) * kTickSeconds, Counter::kIsRate | Counter::kInvert);
    state.counters["longestTick"] = longestTick * 1000;
    state.counters["longest"] = longest * 1000;
}
BENCHMARK(pageOfInstruments)->DenseRange(kMixed, kBoundKinds - 1)->Unit(benchmark::kMillisecond);

/// Plays the mixed page at ten times the rate, by the clock, for VISTOR_BENCH_SECONDS (5 where that is not
/// set). "growthMiB" tells by how much the process grew after the first tenth of it.
void longPlay(benchmark::State& state) {
    using Clock = std::chrono::steady_clock;
    constexpr double kStep = kTickSeconds / 10;
    const double seconds = qEnvironmentVariable("VISTOR_BENCH_SECONDS", QStringLiteral("5")).toDouble();
    FullPage page(kMixed);
    double early = 0;
    for (auto unused : state) {
        const auto start = Clock::now();
        for (double due = 0; due < seconds; due += kStep) {
            page.tick();
            if (early == 0 && due > seconds / 10) early = residentMiB();
            if (secondsOf(Clock::now() - start) > due)
                continue; // painting waits until the ticks have caught up
            QApplication::processEvents();
            const double ahead = due - secondsOf(Clock::now() - start);
            if (ahead > 0) QThread::usleep(static_cast<unsigned long>(ahead * 1e6));
        }
    }
    state.counters["residentMiB"] = residentMiB();
    state.counters["growthMiB"] = residentMiB() - early;
}
BENCHMARK(longPlay)->Unit(benchmark::kSecond)->Iterations(1);

} // namespace
} // namespace vistor
