#include "instruments/AlphanumericText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

namespace vistor {
namespace {

constexpr int kSignificant = 7;
constexpr int kMostDecimals = 22; ///< powers of ten are exact in a double up to here

constexpr std::array<double, kMostDecimals + 1> kPowers{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                        1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                        1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

const QString kPoint = QStringLiteral(".");

/// Of a number in scientific form, such as "1.234560e+03".
int exponentOf(std::string_view scientific) {
    scientific.remove_prefix(scientific.find('e') + 1);
    if (scientific.front() == '+') scientific.remove_prefix(1);
    int exponent = 0;
    std::from_chars(scientific.data(), scientific.data() + scientific.size(), exponent);
    return exponent;
}

/// Cuts the fraction behind `splitAt` to so many decimals, filled up with zeros, behind a point.
QString withAllDecimals(const QString& text, QChar splitAt, int decimals) {
    const QString zeros(decimals, u'0');
    const qsizetype mark = text.indexOf(splitAt);
    if (mark < 0) return text + kPoint + zeros;
    const QString rest = text.mid(mark + 1);
    const QString fraction = rest.left(rest.indexOf(splitAt)) + zeros;
    return text.left(mark) + kPoint + fraction.left(decimals);
}

/// The first two parts of a text that the mark splits, joined by a point.
QString withPoint(const QString& text, const QString& mark) {
    const QStringList parts = text.split(mark);
    return parts.size() < 2 ? text : parts.at(0) + kPoint + parts.at(1);
}

} // namespace

float roundedValue(float value, int decimals) {
    const double power = kPowers[static_cast<std::size_t>(std::clamp(decimals, 0, kMostDecimals))];
    const double rounded = std::nearbyint(static_cast<double>(value) * power) / power;
    return std::isfinite(rounded) ? static_cast<float>(rounded) : value;
}

QString plainText(float value, const QString& mark) {
    if (!std::isfinite(value)) return QString::number(value);
    std::array<char, 32> buffer;
    char* const start = buffer.data();
    const char* const end =
        std::to_chars(start, start + buffer.size(), value, std::chars_format::scientific, kSignificant - 1)
            .ptr;
    double significant = 0;
    std::from_chars(start, end, significant);
    const int decimals = std::max(kSignificant - 1 - exponentOf({start, end}), 0);
    QString text = QString::number(significant, 'f', decimals);
    while (decimals > 0 && text.endsWith(u'0')) text.chop(1);
    if (text.endsWith(u'.')) text.chop(1);
    return text.replace(kPoint, mark);
}

std::optional<QString> alphanumericText(float value, const AlphanumericForm& form) {
    const QString& mark = form.mark.isEmpty() ? kPoint : form.mark;
    const bool ownMark = mark != kPoint;
    const QString plain = plainText(value, mark);
    if (!plain.contains(mark)) return {};
    const int decimals = std::clamp(form.decimals, 0, kMostDecimals);
    const float rounded = roundedValue(value, decimals);
    QString text = plainText(rounded, mark);
    if (form.plusMinus && rounded > 0) text.prepend(u'+');
    if (form.fixedDecimals) return withAllDecimals(text, ownMark ? u',' : u'.', decimals);
    return ownMark ? withPoint(text, mark) : text;
}

} // namespace vistor
