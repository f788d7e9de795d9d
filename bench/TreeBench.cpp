// The variable tree made anew for the delivered definitions, as after every edit of a line.
#include "dashboard/frmInterface.h"
#include "maths/LoadAndSaveVariableDefinitions.h"
#include "platform/Events.h"
#include "platform/Folders.h"
#include "variables/VariableEdits.h"
#include "variables/VariableTreeView.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace vistor {
namespace {

/// The dashboard on the screen, with every group and variable of the tree open when `opened`.
void openDashboard(frmInterface& window, const QTemporaryDir& folder, bool opened) {
    ResetGlobals();
    SettingsPath = folder.filePath(QStringLiteral("vxvis.cfg"));
    VariableFilePath = folder.filePath(QStringLiteral("VistorVars.cfg"));
    LoadVariableFile(deliveredFolder() + QStringLiteral("VistorVars.cfg"));
    window.Form_Load();
    window.resize(1300, 800);
    window.show();
    if (opened) window.VarTree->expandAll();
    pumpEvents();
}

void regenerateTree(benchmark::State& state) {
    const QTemporaryDir folder;
    frmInterface window;
    openDashboard(window, folder, state.range(0) != 0);
    for (auto unused : state) {
        window.RegenerateVariableTree();
        benchmark::DoNotOptimize(window.VarTree->grab());
    }
    state.counters["lines"] = static_cast<double>(variableTreeLines(VariableTableEdit).size());
}
BENCHMARK(regenerateTree)->ArgName("opened")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

/// What the person waits for behind a prompt: tables copied, set-up pass, file, tree.
void commitAnEdit(benchmark::State& state) {
    const QTemporaryDir folder;
    frmInterface window;
    openDashboard(window, folder, false);
    for (auto unused : state) {
        commitVariableEdits();
        window.RegenerateVariableTree();
    }
}
BENCHMARK(commitAnEdit)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace vistor
