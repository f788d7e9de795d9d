// The script form of a formula: a script that defines a function Output. In: the text and the sample. Out:
// the value, or a message box with the script's error.
#pragma once

class QString;

namespace vistor {

/// Runs the script in an engine of its own, with the sample rounded in ScriptObject's InputValue, and stores
/// what Output gives. False when the script failed: `value` stands, and a message box has told why. A result
/// that is no number leaves `value` as it stands, too, without a word.
bool runScriptFormula(const QString& formula, float& value);

} // namespace vistor
