// Numbers as a person writes and reads them. In: a text, or a number. Out: the number that the whole text is,
// or the shortest text. The locale plays no part: both decimal marks are read, "." is written.
#pragma once

#include <QString>

#include <optional>

namespace vistor {

/// The number that a text is from end to end: digits with one "." or "," before the fraction, a sign, an
/// exponent, blanks around it. No value for any other text, nor for what no finite 64-bit number holds.
std::optional<double> numberEntered(const QString& text);

/// The shortest text that reads back as the same number, with "." as its mark; a single to 32-bit precision.
QString textOfNumber(double value, bool single = false);

/// The same for a person: of at most 15 digits, so that what a sum left behind the last digit that anybody
/// meant (2.9000000000000004) is not shown. It may read back as a neighbour of the number.
QString numberShown(double value);

} // namespace vistor
