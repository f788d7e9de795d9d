// Texts that are never shown cut. In: a text, its font, the room for it. Out: a smaller font, or dashes.
#pragma once

#include <QFont>
#include <QString>

#include <optional>

namespace vistor {

/// The font, or a smaller one, in which a text takes no more than `room` logical pixels; none where nobody
/// could read that.
std::optional<QFont> fontToFit(QFont font, const QString& text, double room);

struct FittedText {
    QString text;
    QFont font;
};
/// A word or unit as large as the room lets it be; of one that would be too small to read, what has room.
FittedText fittedWord(const QFont& font, const QString& word, double room);
/// A number as large as the room lets it be. Where it would be too small to read it gives way to dashes, and
/// where not even those find room to nothing.
FittedText fittedNumber(const QFont& font, const QString& number, double room);

} // namespace vistor
