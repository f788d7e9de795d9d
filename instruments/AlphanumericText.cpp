#include "instruments/AlphanumericText.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace vistor {
namespace {

constexpr int kSignificant = 7;
constexpr int kMostDecimals = 22; ///< powers of ten are exact in a double up to here

constexpr std::array<double, kMostDecimals + 1> kPowers{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                        1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                        1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

constexpr QStringView kPoint = u".";

/// The significant digits of a number, without zeros at their end, and the power of ten of the first.
struct Significant {
    std::array<char, kSignificant> digits{};
    int count = 0;
    int exponent = 0;
};

Significant significantDigits(float size) {
    std::array<char, 32> buffer; // "d.dddddde+dd"
    const auto end =
        std::to_chars(buffer.begin(), buffer.end(), size, std::chars_format::scientific, kSignificant - 1);
    Significant result;
    result.digits[0] = buffer[0];
    std::copy_n(buffer.begin() + 2, kSignificant - 1, result.digits.begin() + 1);
    const char* exponent = buffer.begin() + kSignificant + 2;
    std::from_chars(*exponent == '+' ? exponent + 1 : exponent, end.ptr, result.exponent);
    result.count = kSignificant;
    while (result.count > 1 && result.digits[static_cast<std::size_t>(result.count - 1)] == '0')
        --result.count;
    return result;
}

void appendDigits(ShortText& text, const Significant& number, int from, int to) {
    for (int i = from; i < std::min(to, number.count); ++i)
        text.append(static_cast<char16_t>(number.digits[static_cast<std::size_t>(i)]));
}

/// Cuts the fraction behind `splitAt` to so many decimals, filled up with zeros, behind a point.
ShortText withAllDecimals(QStringView text, char16_t splitAt, int decimals) {
    const qsizetype mark = text.indexOf(QChar(splitAt));
    const QStringView whole = mark < 0 ? text : text.first(mark);
    QStringView fraction = mark < 0 ? QStringView() : text.sliced(mark + 1);
    if (const qsizetype second = fraction.indexOf(QChar(splitAt)); second >= 0)
        fraction = fraction.first(second);
    fraction = fraction.first(std::min<qsizetype>(fraction.size(), decimals));
    ShortText result;
    result.append(whole);
    result.append(kPoint);
    result.append(fraction);
    result.append(decimals - static_cast<int>(fraction.size()), u'0');
    return result;
}

/// The first two parts of a text that the mark splits, joined by a point.
ShortText withPoint(QStringView text, QStringView mark) {
    const qsizetype first = text.indexOf(mark);
    ShortText result;
    result.append(first < 0 ? text : text.first(first));
    if (first < 0) return result;
    const QStringView rest = text.sliced(first + mark.size());
    const qsizetype second = rest.indexOf(mark);
    result.append(kPoint);
    result.append(second < 0 ? rest : rest.first(second));
    return result;
}

} // namespace

void ShortText::append(char16_t sign) {
    if (m_size < static_cast<qsizetype>(m_signs.size())) m_signs[static_cast<std::size_t>(m_size++)] = sign;
}

void ShortText::append(QStringView text) {
    for (const QChar sign : text) append(sign.unicode());
}

void ShortText::append(int times, char16_t sign) {
    for (int i = 0; i < times; ++i) append(sign);
}

float roundedValue(float value, int decimals) {
    const double power = kPowers[static_cast<std::size_t>(std::clamp(decimals, 0, kMostDecimals))];
    const double rounded = std::nearbyint(static_cast<double>(value) * power) / power;
    return std::isfinite(rounded) ? static_cast<float>(rounded) : value;
}

ShortText plainText(float value, QStringView mark) {
    ShortText text;
    if (!std::isfinite(value)) {
        text.append(std::isnan(value) ? u"nan" : u"inf");
        return text;
    }
    const Significant number = significantDigits(std::abs(value));
    const int whole = number.exponent + 1; // digits before the mark
    if (value < 0) text.append(u'-');
    if (whole <= 0) text.append(u'0');
    appendDigits(text, number, 0, whole);
    text.append(whole - number.count, u'0');
    if (whole >= number.count || value == 0) return text;
    text.append(mark);
    text.append(-whole, u'0');
    appendDigits(text, number, std::max(whole, 0), number.count);
    return text;
}

std::optional<ShortText> alphanumericText(float value, const AlphanumericForm& form) {
    const QStringView mark = form.mark.isEmpty() ? kPoint : form.mark;
    const bool ownMark = mark != kPoint;
    if (!plainText(value, mark).view().contains(mark)) return {};
    const int decimals = std::clamp(form.decimals, 0, kMostDecimals);
    const float rounded = roundedValue(value, decimals);
    ShortText text;
    if (form.plusMinus && rounded > 0) text.append(u'+');
    text.append(plainText(rounded, mark).view());
    if (form.fixedDecimals) return withAllDecimals(text.view(), ownMark ? u',' : u'.', decimals);
    return ownMark ? withPoint(text.view(), mark) : text;
}

} // namespace vistor
