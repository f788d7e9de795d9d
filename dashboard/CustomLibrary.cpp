#include "dashboard/CustomLibrary.h"

#include "dashboard/ItemList.h"
#include "dashboard/PaletteEntries.h"
#include "platform/CodePage.h"
#include "platform/IniFile.h"
#include "platform/Prompts.h"
#include "variables/GlobalVarsAndTypes.h"

#include <algorithm>

namespace vistor {
namespace {

constexpr int kKeyBuffer = 50;
constexpr int kMostNumber = 1 << 30;

const QString kCount = QStringLiteral("CNT");
const QString kNothing = QStringLiteral("0");

QString typeSection(Kind kind) {
    return QLatin1String(kindInfo(kind).className);
}

QString countSection(Kind kind) {
    return typeSection(kind) + QStringLiteral("_MEM");
}

QString thumbnailSection(Kind kind) {
    return typeSection(kind) + QStringLiteral("_FILE");
}

QString listSection(Kind kind, int number) {
    return typeSection(kind) + u'/' + QString::number(number);
}

QString text(const IniFile& file, const QString& section, const QString& key, int buffer) {
    return file.value(section, key, kNothing, buffer);
}

int wholeNumber(const QString& digits, int most) {
    return boundedWhole(digits, 0, most);
}

QString keyAt(const IniFile& file, Kind kind, int number) {
    return text(file, typeSection(kind), QString::number(number), kKeyBuffer);
}

/// How many places the file has: as many as it declares, as far as it has keys for them.
int placesOf(const IniFile& file, Kind kind) {
    const QString section = typeSection(kind);
    const int declared = wholeNumber(text(file, section, kCount, kKeyBuffer), kMostNumber);
    const std::vector<int> numbers = file.numberedKeys(section, 1, declared);
    return numbers.empty() ? 0 : numbers.back();
}

void writeCount(IniFile& file, Kind kind, int count) {
    file.setValue(typeSection(kind), kCount, QString::number(count));
}

void copyKey(IniFile& file, const QString& section, int from, int to) {
    const QString none;
    const QString value = file.value(section, QString::number(from), none, kItemBuffer);
    if (value.isEmpty())
        file.removeKey(section, QString::number(to));
    else
        file.setValue(section, QString::number(to), value);
}

void copyList(IniFile& file, Kind kind, int from, int to) {
    const QString source = listSection(kind, from);
    const QString target = listSection(kind, to);
    file.removeSection(target);
    for (const int item : file.numberedKeys(source, 0, kMostNumber))
        file.setValue(target, QString::number(item), text(file, source, QString::number(item), kItemBuffer));
}

/// One entry's move from place `number` + 1 to `number`.
void moveUp(IniFile& file, Kind kind, int number) {
    copyList(file, kind, number + 1, number);
    copyKey(file, thumbnailSection(kind), number + 1, number);
    copyKey(file, countSection(kind), number + 1, number);
    copyKey(file, typeSection(kind), number + 1, number);
    const QString key = keyAt(file, kind, number);
    if (key != kNothing) file.setValue(typeSection(kind), key, QString::number(number));
}

void emptyPlace(IniFile& file, Kind kind, int number) {
    file.removeSection(listSection(kind, number));
    for (const QString& section : {typeSection(kind), thumbnailSection(kind), countSection(kind)})
        file.removeKey(section, QString::number(number));
}

} // namespace

QString customKey(Kind kind, const QString& name) {
    QString kept = foldedCase(name);
    std::replace_if(
        kept.begin(), kept.end(), [](QChar c) { return c == u'\n' || c == u'\r' || c == u'\t'; }, u' ');
    kept.truncate(kept.indexOf(QChar(u'\0')) < 0 ? kept.size() : kept.indexOf(QChar(u'\0')));
    kept = kept.trimmed();
    if (kept.isEmpty()) return {};
    return cutText(QLatin1Char(paletteLetter(kind)) + kept, kKeyBuffer - 1).trimmed();
}

std::vector<CustomEntry> customEntries(const IniFile& file, Kind kind) {
    std::vector<CustomEntry> entries;
    for (const int number : file.numberedKeys(typeSection(kind), 1, placesOf(file, kind))) {
        const QString key = keyAt(file, kind, number);
        if (key.size() > 1 && key.front() == QLatin1Char(paletteLetter(kind)))
            entries.push_back({number, key});
    }
    return entries;
}

int customNumber(const IniFile& file, Kind kind, const QString& key) {
    if (key.isEmpty()) return 0;
    const int number = wholeNumber(text(file, typeSection(kind), key, kKeyBuffer), kMostNumber);
    if (number > 0 && keyAt(file, kind, number) == key) return number;
    // The way back fails where another key reads as this one, such as the count's.
    const std::vector<CustomEntry> entries = customEntries(file, kind);
    const auto found =
        std::find_if(entries.begin(), entries.end(), [&](const CustomEntry& e) { return e.key == key; });
    return found == entries.end() ? 0 : found->number;
}

QStringList customList(const IniFile& file, Kind kind, int number) {
    const int highest =
        wholeNumber(text(file, countSection(kind), QString::number(number), kItemBuffer), kMostNumber);
    const qsizetype count = std::min<qsizetype>(qsizetype{highest} + 1, file.keyCount() + kSpareItems);
    return readItems(file, listSection(kind, number), count);
}

QString customThumbnail(const IniFile& file, Kind kind, int number) {
    return file.value(thumbnailSection(kind), QString::number(number), QString(), kItemBuffer);
}

void setCustomThumbnail(IniFile& file, Kind kind, int number, const QString& name) {
    file.setValue(thumbnailSection(kind), QString::number(number), name);
}

void addCustomEntry(IniFile& file, Kind kind, const QString& key, const QStringList& list, int highest,
                    const QString& thumbnail) {
    const int number = placesOf(file, kind) + 1;
    const QString place = QString::number(number);
    emptyPlace(file, kind, number);
    file.setValue(typeSection(kind), kCount, place);
    file.setValue(typeSection(kind), key, place);
    file.setValue(typeSection(kind), place, key);
    file.setValue(countSection(kind), place, QString::number(highest));
    setCustomThumbnail(file, kind, number, thumbnail);
    writeItems(file, listSection(kind, number), list);
}

bool saveLibrary(const IniFile& file) {
    if (file.save(LibraryPath)) return true;
    MsgBox(QStringLiteral("The library of custom instruments cannot be written"), Icon::Stop);
    return false;
}

void removeCustomEntry(IniFile& file, Kind kind, const CustomEntry& entry) {
    const int count = placesOf(file, kind);
    file.removeKey(typeSection(kind), entry.key);
    for (int number = entry.number; number < count; ++number) moveUp(file, kind, number);
    emptyPlace(file, kind, count);
    writeCount(file, kind, count - 1);
}

} // namespace vistor
