// Conversions between the kinds of values, as the language makes them by itself. Numbers in texts have "." as
// their decimal mark whatever the locale, so that a formula means the same everywhere.
#pragma once

#include "maths/script/Value.h"

#include <optional>
#include <string>
#include <string_view>

namespace vistor::script {

/// The value behind an object: that of its default member. Other values come back as they are. Nothing raises
/// "Object variable not set", an object without such a member "Object doesn't support this property or
/// method".
Value plain(const Value& value);

/// The number in a text: blanks around it, sign, digits with "," between thousands, exponent, "&H" and "&O".
/// Nothing where it is not a number; infinity where it is beyond the range.
std::optional<double> parseNumber(std::u16string_view text);

/// All of these raise "Type mismatch", "Overflow" or "Invalid use of Null".
double toDouble(const Value& value);
std::int32_t toLong(const Value& value);
std::int32_t toInteger(const Value& value);
bool toBoolean(const Value& value);
float toSingle(const Value& value);
/// The same without a throw, for hosts: nothing where the conversion fails.
std::optional<float> singleOf(const Value& value) noexcept;
std::int64_t toCurrency(const Value& value);
std::u16string toText(const Value& value);

/// Rounds half to even; "Overflow" outside low to high.
std::int32_t roundWithin(double number, std::int32_t low, std::int32_t high);

/// A text that is read without copying it.
class TextView {
public:
    explicit TextView(const Value& value);
    TextView(const TextView&) = delete;
    TextView& operator=(const TextView&) = delete;

    std::u16string_view operator*() const { return m_view; }
    const std::u16string_view* operator->() const { return &m_view; }

private:
    Value m_value;
    std::u16string m_made;
    std::u16string_view m_view;
};

/// The number as the language writes it: 15 significant digits, or 7 of a Single.
std::u16string formatDouble(double number, int digits = 15);

std::u16string widen(std::string_view ascii);

char16_t lowerOf(char16_t character);
char16_t upperOf(char16_t character);
std::u16string lowered(std::u16string_view text);

} // namespace vistor::script
