// Text as bytes. A text stands in a file as Windows-1252 where those bytes read back as the same text, and as
// UTF-8 where they would not: files of before keep their bytes, and no character is ever lost. In memory text
// is QString.
#pragma once

#include <QByteArray>
#include <QString>

#include <string_view>

namespace vistor {

/// The text behind the bytes of one text (a key, a value, a field): UTF-8 where they are that and not plain
/// ASCII, else Windows-1252. The five bytes that the code page leaves open (81, 8D, 8F, 90, 9D) become the
/// control characters of the same number.
QString fromCodePage(std::string_view bytes);

/// The same without a QString: the code units go to `units`, which has room for kUnitsFor(bytes.size()). How
/// many there are.
std::size_t fromCodePage(std::string_view bytes, QChar* units);
constexpr std::size_t kUnitsFor(std::size_t bytes) {
    return 2 * bytes + 8;
}

/// The bytes of a text, from which fromCodePage() makes the same text again. Half a surrogate pair, which is
/// no character, becomes "?".
QByteArray toCodePage(const QString& text);

/// The same for as much of a text as fits into `most` bytes; what is cut is cut between two characters.
QByteArray toCodePage(const QString& text, qsizetype most);

/// The first `most` code units of a text, or one less where that would cut a character.
QString cutText(const QString& text, qsizetype most);

/// A whole file of texts as its texts are read: without a UTF-8 mark; one in UTF-16 (told by its mark) as
/// UTF-8.
QByteArray unmarked(const QByteArray& file);

/// Takes the first line off what is left of a file, and its end with it: LF, CR LF or CR.
std::string_view takeLine(std::string_view& rest);

/// A name as names are compared: without regard to case, but two characters that are not the two cases of
/// one letter stay two (micro sign and mu, kelvin sign and k).
QString foldedCase(const QString& name);
char16_t foldedCase(char16_t unit);

inline std::string_view viewOf(const QByteArray& bytes) {
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

} // namespace vistor
