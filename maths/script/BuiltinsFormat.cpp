// Numbers as texts for people: grouped, with a fixed number of places.
#include "maths/script/Builtins.h"
#include "maths/script/Conversions.h"
#include "maths/script/Fault.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace vistor::script {
namespace {

constexpr std::int32_t kUseDefault = -2;
constexpr int kSignificant = 15;

/// The digits of a number with so many places, half away from zero in decimal: what a person expects of 0.125
/// with two places, where the binary number next to it would go either way.
struct Digits {
    std::string whole;
    std::string fraction;
};

/// Adds one to the last digit; true when a digit came in front.
bool increment(std::string& digits) {
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        if (*digit != '9') {
            ++*digit;
            return false;
        }
        *digit = '0';
    }
    digits.insert(digits.begin(), '1');
    return true;
}

Digits roundedDigits(double size, std::size_t places) {
    char buffer[40];
    char* end =
        std::to_chars(buffer, buffer + sizeof buffer, size, std::chars_format::scientific, kSignificant - 1)
            .ptr;
    const std::string text(buffer, end);
    const std::size_t mark = text.find('e');
    std::string digits = text.substr(0, 1) + text.substr(2, mark - 2);
    int wholeCount = std::atoi(text.c_str() + mark + 1) + 1;
    if (wholeCount <= 0) {
        digits.insert(0, static_cast<std::size_t>(1 - wholeCount), '0');
        wholeCount = 1;
    }
    const std::size_t kept = static_cast<std::size_t>(wholeCount) + places;
    const bool up = kept < digits.size() && digits[kept] >= '5';
    digits.resize(kept, '0');
    if (up && increment(digits)) ++wholeCount;
    const auto whole = static_cast<std::size_t>(wholeCount);
    return {digits.substr(0, whole), digits.substr(whole)};
}

void group(std::string& whole) {
    for (std::size_t at = whole.size(); at > 3;) {
        at -= 3;
        whole.insert(at, 1, ',');
    }
}

bool choice(const Call& call, std::size_t argument, bool byDefault) {
    const std::int32_t value = call.whole(argument, kUseDefault);
    return value == kUseDefault ? byDefault : value != 0;
}

/// Arguments after the number: places, zero before the mark, parentheses for negative numbers, groups.
std::string formatted(const Call& call, double number, const char* sign, bool parentheses) {
    const std::int32_t given = call.whole(1, -1);
    if (given < -1 || given > 99) raise(kInvalidCall);
    if (!std::isfinite(number)) raise(kOverflow); // a host's value can be
    Digits digits = roundedDigits(std::abs(number), given == -1 ? 2 : static_cast<std::size_t>(given));
    const bool zero = (digits.whole + digits.fraction).find_first_not_of('0') == std::string::npos;
    if (digits.whole == "0" && !choice(call, 2, true) && !digits.fraction.empty()) digits.whole.clear();
    if (choice(call, 4, true)) group(digits.whole);
    const std::string body =
        sign + digits.whole + (digits.fraction.empty() ? std::string() : "." + digits.fraction);
    if (number >= 0 || zero) return body;
    return choice(call, 3, parentheses) ? "(" + body + ")" : "-" + body;
}

Value formatNumber(const Call& call) {
    return call.text(widen(formatted(call, toDouble(call[0]), "", false)));
}

Value formatCurrency(const Call& call) {
    return call.text(widen(formatted(call, toDouble(call[0]), "$", true)));
}

Value formatPercent(const Call& call) {
    const double percent = toDouble(call[0]) * 100;
    if (!std::isfinite(percent)) raise(kOverflow);
    std::string text = formatted(call, percent, "", false);
    if (text.back() == ')')
        text.insert(text.size() - 1, 1, '%');
    else
        text += '%';
    return call.text(widen(text));
}

constexpr Builtin kTable[] = {
    {u"formatcurrency", 1, 5, formatCurrency},
    {u"formatnumber", 1, 5, formatNumber},
    {u"formatpercent", 1, 5, formatPercent},
};

} // namespace

std::span<const Builtin> formatBuiltins() {
    return kTable;
}

} // namespace vistor::script
