// Formulas: finds out the form of a formula's text and turns a raw sample into an engineering value with it.
// In: the text, the row, the sample. Out: the value, or a message box that says what is wrong.
#pragma once

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace vistor {

/// The forms of a formula, found by looking at its text in this order.
enum class FormulaForm : std::uint8_t {
    Identity,      ///< "$1$0", nothing, or "0"
    GainAndOffset, ///< any "$": "$" gain "$" offset
    Script,        ///< holds "FUNCTION OUTPUT"
    External,      ///< holds "EXTERNAL DLL"
    Expression     ///< anything else
};

/// The form of a formula; every text has one.
FormulaForm formOf(const QString& formula);

/// A formula that is a straight line: gain * raw + offset.
struct GainAndOffset {
    double gain = 1;
    double offset = 0;
};

/// The line that a formula is by its form (identity, or gain and offset); no value for another form.
std::optional<GainAndOffset> gainAndOffsetOf(const QString& formula);

/// Makes ScriptObject, then the evaluators of all rows, gives each its row's own formula and the car
/// constants, and copies the rows' IndexNumber to IndexNumbers. Once, when table and car constants are there.
void createFormulaEvaluators();

/// Converts `value` in place by the formula of row `index` (0 to 8000). True when a value was produced; false
/// leaves it as it was and has shown why. In check mode an expression is only checked, not applied. Allocates
/// nothing on identity, gain-and-offset and expression formulas whose text has not changed since the row's
/// last sample.
bool ConvertValue(const QString& formula, std::int32_t index, float& value, bool checkMode);

/// The value of an expression for the raw `value` of row `index`; 0 when the text is wrong or the result not
/// finite.
float EvaluateExpression(const QString& formula, float value, std::int32_t index);

/// Whether an expression compiles to one result; that a trial value of it is not finite tells nothing of
/// others. `usedVariables` gets the numbers it refers to (at least one element), `usedCarItems` 17 flags: 1
/// to 10 for CAR_1 to CAR_10, 11 to 16 for CdA to Humid.
bool CheckExpression(const QString& formula, std::vector<std::int32_t>& usedVariables,
                     std::vector<bool>& usedCarItems);

/// Sets a key code to 0 unless it is a digit, backspace, ".", carriage return or "-". For entry fields of
/// numbers.
void NumericKeyFilter(std::int16_t& key);

/// What formulas call a variable: "VAR_" and its number, 0 to 8000, in at least four digits.
QString variableName(std::int32_t number);

} // namespace vistor
