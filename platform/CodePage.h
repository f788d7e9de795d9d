// Windows-1252, the code page of every file the program reads or writes as bytes of text. In memory text is
// QString.
#pragma once

#include <QByteArray>
#include <QString>

#include <string_view>

namespace vistor {

/// The text behind bytes of the code page. The five bytes that it leaves open (81, 8D, 8F, 90, 9D) become the
/// control characters of the same number, so that every byte survives a round trip.
QString fromCodePage(std::string_view bytes);

/// The bytes of a text, one for each character. A character that the code page lacks becomes one "?".
QByteArray toCodePage(const QString& text);

} // namespace vistor
