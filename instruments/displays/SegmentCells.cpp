#include "instruments/displays/SegmentCells.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

namespace vistor {
namespace {

constexpr int kMostDecimals = 20;
constexpr std::uint16_t kMiddle = SegG1 | SegG2;

constexpr std::uint16_t kDigits[] = {
    SegA | SegB | SegC | SegD | SegE | SegF,
    SegB | SegC,
    SegA | SegB | kMiddle | SegE | SegD,
    SegA | SegB | SegC | SegD | kMiddle,
    SegF | kMiddle | SegB | SegC,
    SegA | SegF | kMiddle | SegC | SegD,
    SegA | SegF | SegE | SegD | SegC | kMiddle,
    SegA | SegB | SegC,
    kSevenSegments,
    SegA | SegB | SegC | SegD | SegF | kMiddle,
};

constexpr std::uint16_t kLetters[] = {
    SegA | SegB | SegC | SegE | SegF | kMiddle,      // A
    SegA | SegB | SegC | SegD | SegG2 | SegI | SegL, // B
    SegA | SegD | SegE | SegF,                       // C
    SegA | SegB | SegC | SegD | SegI | SegL,         // D
    SegA | SegD | SegE | SegF | kMiddle,             // E
    SegA | SegE | SegF | kMiddle,                    // F
    SegA | SegC | SegD | SegE | SegF | SegG2,        // G
    SegB | SegC | SegE | SegF | kMiddle,             // H
    SegA | SegD | SegI | SegL,                       // I
    SegB | SegC | SegD | SegE,                       // J
    SegE | SegF | SegG1 | SegJ | SegM,               // K
    SegD | SegE | SegF,                              // L
    SegB | SegC | SegE | SegF | SegH | SegJ,         // M
    SegB | SegC | SegE | SegF | SegH | SegM,         // N
    SegA | SegB | SegC | SegD | SegE | SegF,         // O
    SegA | SegB | SegE | SegF | kMiddle,             // P
    SegA | SegB | SegC | SegD | SegE | SegF | SegM,  // Q
    SegA | SegB | SegE | SegF | kMiddle | SegM,      // R
    SegA | SegC | SegD | SegF | kMiddle,             // S
    SegA | SegI | SegL,                              // T
    SegB | SegC | SegD | SegE | SegF,                // U
    SegE | SegF | SegJ | SegK,                       // V
    SegB | SegC | SegE | SegF | SegK | SegM,         // W
    SegH | SegJ | SegK | SegM,                       // X
    SegH | SegJ | SegL,                              // Y
    SegA | SegD | SegJ | SegK,                       // Z
};

struct SignForm {
    char16_t sign;
    std::uint16_t segments;
};

constexpr std::uint16_t kQuestion = SegA | SegB | SegG2 | SegL;

constexpr SignForm kSigns[] = {
    {u' ', 0},
    {u'-', kMiddle},
    {u'+', kMiddle | SegI | SegL},
    {u'/', SegJ | SegK},
    {u'\\', SegH | SegM},
    {u'*', SegH | SegI | SegJ | SegK | SegL | SegM | kMiddle},
    {u'=', SegD | kMiddle},
    {u'_', SegD},
    {u'\'', SegJ},
    {u'"', SegF | SegI},
    {u'(', SegJ | SegM},
    {u')', SegH | SegK},
    {u'<', SegJ | SegM},
    {u'>', SegH | SegK},
    {u'[', SegA | SegD | SegE | SegF},
    {u']', SegA | SegB | SegC | SegD},
    {u'|', SegI | SegL},
    {u'%', SegC | SegF | SegJ | SegK},
    {u'$', SegA | SegC | SegD | SegF | kMiddle | SegI | SegL},
    {u'\u00B0', SegA | SegB | SegF | kMiddle},
    {u'\u00B5', SegB | SegE | SegF | kMiddle},
};

SegmentRow dashes(int digits) {
    SegmentRow row;
    for (int i = 0; i < digits; ++i) row.append(u'-');
    return row;
}

std::string_view withoutTrailingZeros(std::string_view text) {
    if (text.find('.') == std::string_view::npos) return text;
    while (text.back() == '0') text.remove_suffix(1);
    if (text.back() == '.') text.remove_suffix(1);
    return text;
}

bool isZero(std::string_view text) {
    return text.find_first_not_of("0.") == std::string_view::npos;
}

/// A 32-bit number in a double carries digits that nobody measured.
double asTold(double value) {
    const auto single = static_cast<float>(value);
    if (static_cast<double>(single) != value) return value;
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, single);
    double told = value;
    std::from_chars(buffer, end.ptr, told);
    return told;
}

int cellsOf(std::string_view digits) {
    return static_cast<int>(std::count_if(digits.begin(), digits.end(), [](char c) { return c != '.'; }));
}

char16_t signBefore(double value, bool zero, bool plusMinus) {
    if (zero) return 0;
    if (value < 0) return u'-';
    return plusMinus ? u'+' : u'\0';
}

/// The digits of a size with so many decimals; an empty text when they are more than any row holds.
std::string_view digitsOf(double size, int decimals, bool fixed, std::array<char, 80>& buffer) {
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), size, std::chars_format::fixed, decimals);
    if (end.ec != std::errc()) return {};
    const std::string_view text(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data()));
    return fixed ? text : withoutTrailingZeros(text);
}

/// The number that a text says, with either mark; none for another text.
std::optional<double> numberOf(QStringView text) {
    std::array<char, 80> bytes;
    if (text.size() > static_cast<qsizetype>(bytes.size())) return {};
    if (text.startsWith(u'+')) text = text.sliced(1);
    char* end = bytes.data();
    for (const QChar sign : text) *end++ = sign == u',' ? '.' : sign.toLatin1();
    double number = 0;
    const auto read = std::from_chars(bytes.data(), end, number);
    if (read.ec != std::errc() || read.ptr != end) return {};
    return number;
}

/// A number in a text that is too long for its cells.
SegmentRow fewerCells(QStringView text, int digits) {
    const qsizetype mark = std::max(text.indexOf(u'.'), text.indexOf(u','));
    return numberCells(*numberOf(text), {.digits = digits,
                                         .decimals = mark < 0 ? 0 : static_cast<int>(text.size() - mark - 1),
                                         .plusMinus = text.startsWith(u'+')});
}

} // namespace

void SegmentRow::append(char16_t sign) {
    if (sign == u'.' || sign == u',') {
        if (count == 0 || cells[static_cast<std::size_t>(count - 1)].point) append(u' ');
        cells[static_cast<std::size_t>(count - 1)].point = true;
    } else if (count < kMaximumCells) {
        cells[static_cast<std::size_t>(count++)].sign = sign;
    }
}

SegmentRow numberCells(double value, const NumberForm& form) {
    const int digits = std::clamp(form.digits, 1, kMaximumCells);
    if (!std::isfinite(value)) return dashes(digits);
    const double size = std::abs(asTold(value));
    std::array<char, 80> buffer;
    for (int decimals = std::clamp(form.decimals, 0, kMostDecimals); decimals >= 0; --decimals) {
        const std::string_view text = digitsOf(size, decimals, form.fixedDecimals, buffer);
        const char16_t sign = signBefore(value, isZero(text), form.plusMinus);
        const int cells = cellsOf(text) + (sign != 0 ? 1 : 0);
        if (text.empty() || cells > digits) continue;
        SegmentRow row;
        if (sign != 0) row.append(sign);
        for (int i = cells; form.leadingZeros && i < digits; ++i) row.append(u'0');
        for (const char c : text) row.append(static_cast<char16_t>(c));
        return row;
    }
    return dashes(digits);
}

SegmentRow textCells(QStringView text, int digits) {
    const int most = std::clamp(digits, 1, kMaximumCells);
    SegmentRow row;
    for (const QChar sign : text) {
        const bool point = sign == u'.' || sign == u',';
        const bool joins =
            point && row.count > 0 && !row.cells[static_cast<std::size_t>(row.count - 1)].point;
        if (row.count == most && !joins) return numberOf(text) ? fewerCells(text, most) : row;
        row.append(sign.unicode());
    }
    return row;
}

std::uint16_t segmentsOf(char16_t sign) {
    if (sign >= u'0' && sign <= u'9') return kDigits[sign - u'0'];
    if (sign >= u'A' && sign <= u'Z') return kLetters[sign - u'A'];
    if (sign >= u'a' && sign <= u'z') return kLetters[sign - u'a'];
    const auto* found = std::find_if(std::begin(kSigns), std::end(kSigns),
                                     [sign](const SignForm& form) { return form.sign == sign; });
    return found == std::end(kSigns) ? kQuestion : found->segments;
}

} // namespace vistor
