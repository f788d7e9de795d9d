// From nothing to a painted window, and the memory that the program then holds.
#include "bench/ResidentMemory.h"
#include "shell/frmMain.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace vistor {
namespace {

/// The main window's whole start in a working folder that has its files, up to a painted window.
void startUp(benchmark::State& state) {
    const QTemporaryDir person;
    const QByteArray before = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", person.path().toLocal8Bit());
    double memory = 0;
    for (auto unused : state) {
        ResetGlobals();
        frmMain window;
        if (!window.MDIForm_Load()) state.SkipWithError("no definition file beside the program");
        benchmark::DoNotOptimize(window.grab());
        memory = residentMiB();
        state.PauseTiming();
        window.close();
        state.ResumeTiming();
    }
    state.counters["residentMiB"] = memory;
    qputenv("XDG_CONFIG_HOME", before);
}
BENCHMARK(startUp)->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace
} // namespace vistor
