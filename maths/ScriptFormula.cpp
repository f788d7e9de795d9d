#include "maths/ScriptFormula.h"

#include "maths/RecentTexts.h"
#include "maths/RewriteScript.h"
#include "maths/ScriptEngine.h"
#include "maths/ScriptFunctions.h"
#include "maths/script/Conversions.h"
#include "platform/Prompts.h"
#include "variables/GlobalVarsAndTypes.h"

#include <cmath>
#include <limits>

namespace vistor {
namespace {

constexpr int kTimeoutSeconds = 2;

/// The engine's form of a script. It is kept, for the same few formulas come with every sample.
QString rewritten(const QString& formula) {
    static RecentTexts<QString> kept;
    if (const QString* known = kept.find(formula)) return *known;
    QString text = formula;
    RewriteScript(text);
    kept.keep(formula, text);
    return text;
}

/// A sample beyond 32 bits leaves the one before it in place.
void storeInput(float value) {
    const double rounded = std::nearbyint(static_cast<double>(value));
    using Limits = std::numeric_limits<std::int32_t>;
    if (ScriptObject && rounded >= Limits::min() && rounded <= Limits::max())
        ScriptObject->InputValue = static_cast<std::int32_t>(rounded);
}

bool load(ScriptEngine& engine, const QString& formula) {
    engine.Timeout(kTimeoutSeconds);
    engine.Language(QStringLiteral("VBScript"));
    engine.AddObject(QStringLiteral("Math"), ScriptObject, true);
    return engine.AddCode(rewritten(formula));
}

void showError(const ScriptError& error) {
    MsgBox(error.Description + QStringLiteral(" at line ") + QString::number(error.Line), Icon::Stop);
}

} // namespace

bool runScriptFormula(const QString& formula, float& value) {
    ScriptError error;
    {
        ScriptEngine engine;
        script::Value result;
        bool ran = load(engine, formula);
        engine.AllowUI(false);
        if (ran) {
            storeInput(value);
            ran = engine.Run(QStringLiteral("Output"), {}, result);
        }
        if (ran) {
            value = script::singleOf(result).value_or(value);
            return true;
        }
        error = engine.Error();
    } // the script's memory is given back before a person is asked
    showError(error);
    return false;
}

} // namespace vistor
