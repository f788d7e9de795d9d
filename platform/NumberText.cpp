#include "platform/NumberText.h"

#include <charconv>
#include <cmath>

namespace vistor {
namespace {

constexpr int kMeantDigits = 15; ///< what any decimal number keeps on its way through 64 bits

template <class Number>
QString shortestText(Number value) {
    constexpr auto kPlainFrom = Number(1e-5);
    constexpr auto kPlainBelow = Number(1e15);
    const Number size = std::abs(value);
    const bool plain = value == 0 || (size >= kPlainFrom && size < kPlainBelow);
    char buffer[64];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value,
                                   plain ? std::chars_format::fixed : std::chars_format::scientific);
    return QString::fromLatin1(buffer, end.ptr - buffer).toUpper();
}

} // namespace

std::optional<double> numberEntered(const QString& text) {
    QString plain = text.trimmed().replace(u',', u'.').replace(QChar(u'\u2212'), QChar(u'-'));
    if (plain.startsWith(u'+') && !plain.startsWith(QLatin1String("+-"))) plain.remove(0, 1);
    const QByteArray bytes = plain.toLatin1();
    const char* const end = bytes.constData() + bytes.size();
    double value = 0;
    const auto [read, error] = std::from_chars(bytes.constData(), end, value);
    if (error != std::errc() || read != end || !std::isfinite(value)) return std::nullopt;
    return value;
}

QString textOfNumber(double value, bool single) {
    if (!std::isfinite(value)) return QStringLiteral("0");
    return single ? shortestText(static_cast<float>(value)) : shortestText(value);
}

QString numberShown(double value) {
    return textOfNumber(QString::number(value, 'g', kMeantDigits).toDouble());
}

} // namespace vistor
