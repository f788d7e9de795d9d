// Script formulas: each run in an engine of its own, from nothing.
#include "maths/RewriteScript.h"
#include "maths/ScriptFormula.h"
#include "maths/ScriptFunctions.h"
#include "maths/script/Parser.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QString>

#include <benchmark/benchmark.h>

namespace vistor {
namespace {

const QString kTenLines = QStringLiteral("Function Output\n"
                                         "  Dim speed, slip\n"
                                         "  speed = VAR_0017 * 3.6\n"
                                         "  slip = 0\n"
                                         "  If speed > 5 Then\n"
                                         "    slip = (VAR_0018 - speed) / speed\n"
                                         "  End If\n"
                                         "  If slip < -1 Then slip = -1\n"
                                         "  Output = slip * 100 + InputValue\n"
                                         "End Function\n");

const QString kLoop = QStringLiteral("Function Output\n"
                                     "  Dim i\n"
                                     "  For i = 1 To 1000\n"
                                     "    Output = Output + i * 0.5\n"
                                     "  Next\n"
                                     "End Function\n");

void prepareValues() {
    ResetGlobals();
    createScriptObject();
    LastValue[17] = 20;
    LastValue[18] = 75;
}

void scriptFormula(benchmark::State& state, const QString& formula) {
    prepareValues();
    float value = 3;
    for (auto _ : state) {
        value = 3;
        if (!runScriptFormula(formula, value)) state.SkipWithError("the script failed");
        benchmark::DoNotOptimize(value);
    }
    state.SetItemsProcessed(state.iterations());
}

void parseTenLines(benchmark::State& state) {
    prepareValues();
    QString text = kTenLines;
    RewriteScript(text);
    const std::u16string script = text.toStdU16String();
    const script::HostEntry hosts[] = {{u"math", ScriptObject.get(), true}};
    for (auto _ : state) benchmark::DoNotOptimize(script::parse(script, hosts));
    state.SetItemsProcessed(state.iterations());
}

BENCHMARK_CAPTURE(scriptFormula, ten_lines, kTenLines);
BENCHMARK_CAPTURE(scriptFormula, loop_of_1000, kLoop);
BENCHMARK(parseTenLines);

} // namespace
} // namespace vistor
