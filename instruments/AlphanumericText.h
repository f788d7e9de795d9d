// How the alphanumeric readout makes its text from a value. In: a value and the display's settings. Out: the
// rounded value and the text to show, if any.
#pragma once

#include <QString>

#include <optional>

namespace vistor {

struct AlphanumericForm {
    int decimals = 0;
    bool fixedDecimals = false;
    bool plusMinus = false;
    QString mark; ///< the locale's decimal mark
};

/// Rounded to so many decimals, halves to the even side, in 32 bits.
float roundedValue(float value, int decimals);

/// A 32-bit number as plain text: at most 7 significant digits, no trailing zeros, never an exponent, with
/// the mark given.
QString plainText(float value, const QString& mark);

/// The text for a value in alpha-numeric mode, always with "." as its mark. No value for a whole number,
/// which leaves the text on the display as it is.
std::optional<QString> alphanumericText(float value, const AlphanumericForm& form);

} // namespace vistor
