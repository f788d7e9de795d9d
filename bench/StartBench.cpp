// From nothing to a painted window, and the memory that the program then holds.
#include "shell/frmMain.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace vistor {
namespace {

/// Resident memory of this process, in MiB.
double residentMemory() {
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly)) return 0;
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.startsWith("VmRSS:")) return line.mid(6).simplified().split(' ').value(0).toDouble() / 1024;
    }
    return 0;
}

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
        memory = residentMemory();
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
