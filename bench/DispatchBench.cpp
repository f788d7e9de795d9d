// The dashboard's share of a tick: 500 updated variables, each bound to a readout of the page in front,
// without painting.
#include "dashboard/frmInterface.h"
#include "instruments/Instrument.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QApplication>

#include <benchmark/benchmark.h>

namespace vistor {
namespace {

constexpr int kBound = 500;

std::unique_ptr<QApplication> makeApplication() {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    static int count = 1;
    static char name[] = "vistor_bench";
    static char* words[] = {name, nullptr};
    return QCoreApplication::instance() ? nullptr : std::make_unique<QApplication>(count, words);
}

void refreshBoundReadouts(benchmark::State& state) {
    const auto application = makeApplication();
    ResetGlobals();
    VariableTable.resize(kVariableCount);
    for (int i = 1; i <= kBound; ++i)
        VariableTable[static_cast<std::size_t>(i * 15)].PhysicalName = QStringLiteral("Channel %1").arg(i);
    tableChanged();
    frmInterface window;
    std::vector<QString> names;
    for (int i = 1; i <= kBound; ++i) {
        names.push_back(VariableTable[static_cast<std::size_t>(i * 15)].PhysicalName);
        window.addInstrument(Kind::Alphanumeric, window.pic.front())->AssignPin(1, names.back());
    }
    window.RebuildSubscriptions();
    float value = 0;
    for (auto _ : state) {
        value += 0.37F;
        for (const QString& name : names) window.refreshControls(name, value);
    }
    state.SetItemsProcessed(state.iterations() * kBound);
}
BENCHMARK(refreshBoundReadouts)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace vistor
