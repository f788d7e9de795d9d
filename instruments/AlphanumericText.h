// How the alphanumeric readout makes its text from a value. In: a value and the display's settings. Out: the
// rounded value and the text to show, if any. Nothing here allocates: it runs for every sample.
#pragma once

#include <QStringView>

#include <array>
#include <optional>

namespace vistor {

/// A text in place; what is beyond its room is cut.
class ShortText {
public:
    void append(char16_t sign);
    void append(QStringView text);
    void append(int times, char16_t sign);
    QStringView view() const { return QStringView(m_signs.data(), m_size); }

private:
    std::array<char16_t, 144> m_signs; ///< room for the largest 32-bit number with all decimals
    qsizetype m_size = 0;
};

struct AlphanumericForm {
    int decimals = 0;
    bool fixedDecimals = false;
    bool plusMinus = false;
    QStringView mark; ///< the locale's decimal mark
};

/// Rounded to so many decimals, halves to the even side, in 32 bits.
float roundedValue(float value, int decimals);

/// A 32-bit number as plain text: at most 7 significant digits, no trailing zeros, never an exponent, with
/// the mark given.
ShortText plainText(float value, QStringView mark);

/// The text for a value in alpha-numeric mode, always with "." as its mark. No value for a whole number,
/// which leaves the text on the display as it is.
std::optional<ShortText> alphanumericText(float value, const AlphanumericForm& form);

} // namespace vistor
