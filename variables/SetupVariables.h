// Keeps the table consistent, finds variables and units by name and reads numbers from text. In: the tables
// and texts. Out: derived fields in the table, row numbers, numbers.
#pragma once

#include <QString>

#include <cstdint>
#include <span>

namespace vistor {

struct VariableGroup {
    int type; ///< the VariableType of its variables
    const char* text;
    const char* letter; ///< names its picture
};

/// The nine groups in the order of their types, 1 to 9.
std::span<const VariableGroup> variableGroups();

/// The set-up pass after every load or edit of the table: marks the available rows, derives ConstantName,
/// makes row 8000 inert. A second run changes nothing. Rows that a short table lacks are passed over.
void SetupVariables();

/// True for the fixed set of variable numbers that this system has.
bool isAvailableNumber(int number);

/// The row of the first variable of that name, without regard to case, outer blanks, NULs and what follows a
/// "["; 8000 when there is none. Constant time: the answers are those of a walk from row 0 up.
int FindVariableByPhysicalName(const QString& name);
int FindVariableByBaseName(const QString& name);

/// The first row of UnitConversions whose key equals `key` to the letter; 0 when there is none.
int FindUnit(const QString& key);

/// The numbers of the rows with VariableType 4, ascending, 1 to 8000.
std::span<const std::int32_t> calculatedRows();

/// Reads a number whatever the locale: the locale's separator and "." both part the fraction. `text` is
/// changed to its form with ".".
double ParseNumber(QString& text);
/// The same for a text that is not wanted afterwards.
double ParseNumber(QString&& text);
/// The text with the locale's separator turned into ".".
QString ToInvariantText(QString text);
/// A number as the program shows it: the shortest form of at most 7 significant digits, with the locale's
/// separator.
QString numberText(float value);
/// The number that the first 40 characters of a text hold, with "." before the fraction and "E" before the
/// exponent; other characters are passed over. 0 where there is none.
double ParseInvariantNumber(const QString& text);

/// `value` brought into the range from `low` to `high`.
double Clamp(double low, double value, double high);
/// The greater of two numbers.
double Larger(double a, double b);

} // namespace vistor
