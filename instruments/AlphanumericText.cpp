#include "instruments/AlphanumericText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace vistor {
namespace {

constexpr int kSignificant = 7;
constexpr int kMostDecimals = 22; ///< powers of ten are exact in a double up to here

const QString kPoint = QStringLiteral(".");

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
    const double power = std::pow(10.0, std::clamp(decimals, 0, kMostDecimals));
    const double rounded = std::nearbyint(static_cast<double>(value) * power) / power;
    return std::isfinite(rounded) ? static_cast<float>(rounded) : value;
}

QString plainText(float value, const QString& mark) {
    if (!std::isfinite(value)) return QString::number(value);
    // Digits to 7 significant ones, then the same number without an exponent.
    std::array<char, 80> buffer;
    const auto start = buffer.data();
    const auto end =
        std::to_chars(start, start + buffer.size(), value, std::chars_format::scientific, kSignificant - 1);
    double exact = 0;
    std::from_chars(start, end.ptr, exact);
    const int exponent = value == 0 ? 0 : static_cast<int>(std::floor(std::log10(std::abs(exact)) + 1e-12));
    const int decimals = std::max(kSignificant - 1 - exponent, 0);
    QString text = QString::number(exact, 'f', decimals);
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
