#include "platform/CodePage.h"

#include <algorithm>
#include <array>

namespace vistor {
namespace {

/// Bytes 0x80 to 0x9F; all others stand for the character of their own number.
constexpr std::array<char16_t, 32> kUpper = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                             0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                             0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                             0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char byteOf(char16_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return static_cast<char>(character);
    const auto* found = std::find(kUpper.begin(), kUpper.end(), character);
    return found == kUpper.end() ? '?' : static_cast<char>(0x80 + (found - kUpper.begin()));
}

} // namespace

QString fromCodePage(std::string_view bytes) {
    QString text = QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
    for (qsizetype i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[static_cast<std::size_t>(i)]);
        if (byte >= 0x80 && byte <= 0x9F) text[i] = QChar(kUpper[byte - 0x80U]);
    }
    return text;
}

QByteArray toCodePage(const QString& text) {
    if (text.isEmpty()) return {};
    QByteArray bytes(text.size(), Qt::Uninitialized);
    char* const begin = bytes.data();
    char* out = begin;
    const QChar* const end = text.constData() + text.size();
    for (const QChar* in = text.constData(); in != end; ++in) {
        *out++ = byteOf(in->unicode());
        if (in->isHighSurrogate() && in + 1 != end && in[1].isLowSurrogate()) ++in;
    }
    bytes.resize(out - begin);
    return bytes;
}

} // namespace vistor
