// Numbers to texts and back.
#include "maths/script/Conversions.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <limits>

namespace vistor::script {
namespace {

constexpr std::size_t kLongestNumber = 1000; ///< more characters are no number that anybody means

std::u16string_view trimmed(std::u16string_view text) {
    const auto blank = [](char16_t c) { return c == u' ' || (c >= u'\t' && c <= u'\r'); };
    while (!text.empty() && blank(text.front())) text.remove_prefix(1);
    while (!text.empty() && blank(text.back())) text.remove_suffix(1);
    return text;
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The text in single bytes, or nothing when it holds what no number has.
std::optional<std::string> narrowed(std::u16string_view text) {
    std::string result;
    result.reserve(text.size());
    for (const char16_t c : text) {
        if (c >= 0x80) return std::nullopt;
        result += static_cast<char>(c);
    }
    return result;
}

/// "&H1F" and "&O17": as in the language itself, what fits into 16 bits is a 16-bit number with sign, unless
/// "&" at the end asks for 32 bits.
std::optional<double> parseRadix(std::string_view text) {
    if (text.size() < 3) return std::nullopt;
    const char letter = static_cast<char>(std::toupper(static_cast<unsigned char>(text[1])));
    if (letter != 'H' && letter != 'O') return std::nullopt;
    const bool wide = text.back() == '&';
    if (wide) text.remove_suffix(1);
    std::uint32_t bits = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data() + 2, end, bits, letter == 'H' ? 16 : 8);
    if (error != std::errc() || stop != end) return std::nullopt;
    if (!wide && bits <= 0xFFFF) return static_cast<std::int16_t>(bits);
    return static_cast<std::int32_t>(bits);
}

/// Takes "," out from between the digits before the decimal mark; false where one stands elsewhere.
bool dropThousands(std::string& text) {
    const std::size_t whole = text.find_first_of(".eE");
    const std::size_t last = text.rfind(',');
    if (last == std::string::npos) return true;
    if (last > whole || last == 0 || !isDigit(text[0])) return false;
    std::erase(text, ',');
    return true;
}

std::optional<double> parseDecimal(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == 'd' || c == 'D'; }, 'e');
    bool negative = false;
    if (!text.empty() && (text[0] == '-' || text[0] == '+')) {
        negative = text[0] == '-';
        text.erase(0, 1);
    }
    if (!dropThousands(text) || text.empty() || (!isDigit(text[0]) && text[0] != '.')) return std::nullopt;
    double number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (stop != end || error == std::errc::invalid_argument) return std::nullopt;
    if (error == std::errc::result_out_of_range) {
        const std::size_t exponent = text.find_first_of("eE");
        const bool tiny = exponent != std::string::npos && text.compare(exponent + 1, 1, "-") == 0;
        number = tiny || text[0] == '.' ? 0 : std::numeric_limits<double>::infinity();
    }
    return negative ? -number : number;
}

} // namespace

std::optional<double> parseNumber(std::u16string_view text) {
    if (text.size() > kLongestNumber) return std::nullopt; // blanks too: trimming takes time
    const std::optional<std::string> narrow = narrowed(trimmed(text));
    if (!narrow || narrow->empty()) return std::nullopt;
    return narrow->front() == '&' ? parseRadix(*narrow) : parseDecimal(*narrow);
}

std::u16string formatDouble(double number, int digits) {
    if (number == 0) return u"0"; // minus zero too
    char buffer[40];
    const auto [end, error] =
        std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::general, digits);
    std::u16string text(buffer, end);
    for (char16_t& c : text)
        if (c == u'e') c = u'E';
    return text;
}

} // namespace vistor::script
