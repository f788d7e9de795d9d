#include "platform/CodePage.h"

#include <QStringConverter>

#include <algorithm>
#include <array>

namespace vistor {
namespace {

/// Bytes 0x80 to 0x9F; all others stand for the character of their own number.
constexpr std::array<char16_t, 32> kUpper = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                             0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                             0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                             0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr qsizetype kMostBytes = 3; ///< of one code unit; a pair of two has four

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kLittleMark = "\xFF\xFE";
constexpr std::string_view kBigMark = "\xFE\xFF";

bool isAscii(std::string_view bytes) {
    return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<signed char>(c) >= 0; });
}

char16_t unitOf(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x80 && byte <= 0x9F ? kUpper[byte - 0x80U] : static_cast<char16_t>(byte);
}

QStringDecoder utf8Decoder() {
    return QStringDecoder(QStringConverter::Utf8,
                          QStringConverter::Flag::Stateless | QStringConverter::Flag::ConvertInitialBom);
}

/// False where the bytes are no UTF-8.
bool fromUtf8(std::string_view bytes, QString& text) {
    QStringDecoder decoder = utf8Decoder();
    text = decoder(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    return !decoder.hasError();
}

/// False for a text that the code page cannot tell.
bool toWindows(const QString& text, QByteArray& bytes) {
    bytes.resize(text.size());
    char* out = bytes.data();
    for (const QChar character : text) {
        const char16_t code = character.unicode();
        if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) {
            *out++ = static_cast<char>(code);
            continue;
        }
        const auto* found = std::find(kUpper.begin(), kUpper.end(), code);
        if (found == kUpper.end()) return false;
        *out++ = static_cast<char>(0x80 + (found - kUpper.begin()));
    }
    return true;
}

QByteArray utf16AsUtf8(std::string_view bytes, QStringConverter::Encoding encoding) {
    QStringDecoder decoder(encoding, QStringConverter::Flag::Stateless);
    const QString text = decoder(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    return text.toUtf8();
}

} // namespace

QString fromCodePage(std::string_view bytes) {
    const auto size = static_cast<qsizetype>(bytes.size());
    if (isAscii(bytes)) return QString::fromLatin1(bytes.data(), size);
    QString text;
    if (fromUtf8(bytes, text)) return text;
    text = QString(size, Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(), [](char c) { return QChar(unitOf(c)); });
    return text;
}

std::size_t fromCodePage(std::string_view bytes, QChar* units) {
    if (!isAscii(bytes)) {
        QStringDecoder decoder = utf8Decoder();
        const auto size = static_cast<qsizetype>(bytes.size());
        const QChar* const end = decoder.appendToBuffer(units, QByteArrayView(bytes.data(), size));
        if (!decoder.hasError()) return static_cast<std::size_t>(end - units);
    }
    std::transform(bytes.begin(), bytes.end(), units, [](char c) { return QChar(unitOf(c)); });
    return bytes.size();
}

QByteArray toCodePage(const QString& text) {
    if (text.isEmpty()) return {};
    QByteArray bytes;
    if (!toWindows(text, bytes)) return text.toUtf8();
    QString other;
    return !isAscii(viewOf(bytes)) && fromUtf8(viewOf(bytes), other) ? text.toUtf8() : bytes;
}

QByteArray toCodePage(const QString& text, qsizetype most) {
    QString kept = cutText(text, most);
    QByteArray bytes = toCodePage(kept);
    while (bytes.size() > most) {
        const qsizetype beyond = bytes.size() - most;
        kept = cutText(kept, kept.size() - (beyond + kMostBytes - 1) / kMostBytes);
        bytes = toCodePage(kept);
    }
    return bytes;
}

QString cutText(const QString& text, qsizetype most) {
    if (text.size() <= most) return text;
    const qsizetype size = std::max<qsizetype>(0, most);
    const bool inside = size > 0 && text[size - 1].isHighSurrogate() && text[size].isLowSurrogate();
    return text.left(inside ? size - 1 : size);
}

QByteArray unmarked(const QByteArray& file) {
    // Further marks behind the first go as well, or the text would be read otherwise once it was written.
    const auto behindMarks = [](std::string_view bytes) {
        while (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
        return bytes;
    };
    const std::string_view bytes = behindMarks(viewOf(file));
    const bool little = bytes.starts_with(kLittleMark);
    if (!little && !bytes.starts_with(kBigMark)) return file.last(static_cast<qsizetype>(bytes.size()));
    const QByteArray text = utf16AsUtf8(bytes.substr(kLittleMark.size()),
                                        little ? QStringConverter::Utf16LE : QStringConverter::Utf16BE);
    return text.last(static_cast<qsizetype>(behindMarks(viewOf(text)).size()));
}

std::string_view takeLine(std::string_view& rest) {
    const char* const begin = rest.data();
    const char* const end = begin + rest.size();
    const char* at = begin;
    while (at != end && *at != '\n' && *at != '\r') ++at;
    const std::string_view line(begin, static_cast<std::size_t>(at - begin));
    const bool twoBytes = end - at > 1 && at[0] == '\r' && at[1] == '\n';
    rest.remove_prefix(std::min(rest.size(), line.size() + (twoBytes ? 2 : 1)));
    return line;
}

QString foldedCase(const QString& name) {
    QString folded = name;
    for (QChar& character : folded) character = foldedCase(character.unicode());
    return folded;
}

char16_t foldedCase(char16_t unit) {
    const QChar lower = QChar(unit).toLower();
    return lower.toUpper() == QChar(unit) ? lower.unicode() : unit;
}

} // namespace vistor
