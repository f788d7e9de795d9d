#include "instruments/displays/FittedText.h"

#include <QFontMetricsF>

#include <algorithm>

namespace vistor {
namespace {

constexpr int kSmallestText = 7; ///< pixels

} // namespace

std::optional<QFont> fontToFit(QFont font, const QString& text, double room) {
    double width = QFontMetricsF(font).horizontalAdvance(text);
    while (width > room) {
        const int pixels = static_cast<int>(font.pixelSize() * std::max(room, 0.0) / width);
        if (pixels < kSmallestText) return {};
        font.setPixelSize(std::min(pixels, font.pixelSize() - 1)); // hinted widths do not shrink evenly
        width = QFontMetricsF(font).horizontalAdvance(text);
    }
    return font;
}

FittedText fittedWord(const QFont& font, const QString& word, double room) {
    if (const auto fitted = fontToFit(font, word, room)) return {word, *fitted};
    QFont smallest = font;
    smallest.setPixelSize(std::min(font.pixelSize(), kSmallestText));
    return {QFontMetricsF(smallest).elidedText(word, Qt::ElideRight, std::max(room, 0.0)), smallest};
}

FittedText fittedNumber(const QFont& font, const QString& number, double room) {
    for (const QString& text : {number, QStringLiteral("---"), QStringLiteral("-")})
        if (const auto fitted = fontToFit(font, text, room)) return {text, *fitted};
    return {{}, font};
}

} // namespace vistor
