#include "maths/TableCells.h"

#include "maths/LoadAndSaveVariableDefinitions.h"
#include "platform/CodePage.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <string>
#include <type_traits>

namespace vistor {
namespace {

/// What stands for characters that would end a cell, a line or a text in a list.
struct Escape {
    char16_t character;
    char16_t letter;
};
constexpr Escape kEscapes[] = {{u'\\', u'\\'}, {u'\t', u't'}, {u'\n', u'n'}, {u'\r', u'r'}, {u'|', u'p'}};
constexpr char16_t kEmptyText = u'e';
constexpr const char* kEmptyList = "\\-";

QString escaped(const QString& text, bool inList) {
    QString cell;
    for (const QChar character : text) {
        const auto* found = std::find_if(std::begin(kEscapes), std::end(kEscapes), [=](Escape escape) {
            return escape.character == character.unicode() && (inList || escape.character != u'|');
        });
        if (found == std::end(kEscapes))
            cell += character;
        else
            cell += QString(u'\\') + QChar(found->letter);
    }
    return cell;
}

bool unescaped(const QString& cell, QString& text) {
    text.clear();
    for (qsizetype i = 0; i < cell.size(); ++i) {
        if (cell[i] != u'\\') {
            text += cell[i];
            continue;
        }
        const char16_t letter = ++i < cell.size() ? cell[i].unicode() : u'\0';
        if (letter == kEmptyText) continue;
        const auto* found = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                         [=](Escape escape) { return escape.letter == letter; });
        if (found == std::end(kEscapes)) return false;
        text += QChar(found->character);
    }
    return true;
}

template <typename Number>
bool readNumber(const QString& cell, Number& number) {
    const std::string digits = cell.toStdString();
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number);
    if constexpr (std::is_floating_point_v<Number>) {
        if (!std::isfinite(number)) return false;
    }
    return error == std::errc() && stop == end;
}

} // namespace

QString toCell(const QString& text) {
    return escaped(text, false);
}

QString toCell(std::int32_t number) {
    return number == 0 ? QString() : QString::number(number);
}

QString toCell(float number) {
    if (number == 0) return {};
    const bool handy = std::abs(number) >= 1e-4F && std::abs(number) < 1e7F;
    char digits[32];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), number,
                                   handy ? std::chars_format::fixed : std::chars_format::general)
                         .ptr;
    return QString::fromLatin1(digits, end - digits);
}

QString toCell(Bool16 flag) {
    return flag ? QStringLiteral("yes") : QString();
}

QString toCell(const std::optional<QStringList>& list) {
    if (!list) return {};
    if (list->isEmpty()) return QLatin1String(kEmptyList);
    QStringList parts;
    for (const QString& text : *list) parts += escaped(text, true);
    const QString cell = parts.join(u'|');
    return cell.isEmpty() ? emptyTextCell() : cell;
}

QString emptyTextCell() {
    return QString(u'\\') + QChar(kEmptyText);
}

bool fromCell(const QString& cell, QString& text) {
    if (!unescaped(cell, text)) return false;
    const QByteArray bytes = toCodePage(text);
    if (bytes.size() > kLongestText) return false;
    return fromCodePage(viewOf(bytes)) == text;
}

bool fromCell(const QString& cell, std::int32_t& number) {
    return readNumber(cell, number);
}

bool fromCell(const QString& cell, std::uint8_t& number) {
    return readNumber(cell, number);
}

bool fromCell(const QString& cell, float& number) {
    return readNumber(cell, number);
}

bool fromCell(const QString& cell, Bool16& flag) {
    flag = kTrue16;
    return cell == QStringLiteral("yes");
}

bool fromCell(const QString& cell, std::optional<QStringList>& list) {
    list.emplace();
    if (cell == QLatin1String(kEmptyList)) return true;
    for (const QString& part : cell.split(u'|')) {
        list->emplace_back();
        if (!fromCell(part, list->back())) return false;
    }
    return true;
}

} // namespace vistor
