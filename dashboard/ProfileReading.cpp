#include "dashboard/ProfileReading.h"

#include "platform/WholeFile.h"

#include <algorithm>
#include <string_view>

namespace vistor {
namespace {

constexpr qint64 kLargestFile = 64 * 1024 * 1024;

constexpr std::string_view kBlanks = " \t\r\f\v\x1A"; // the last one ends files of old editors

bool isText(char character) {
    return static_cast<unsigned char>(character) >= ' ' || kBlanks.find(character) != kBlanks.npos;
}

bool startsAs(std::string_view line, std::string_view anyOf) {
    return !line.empty() && anyOf.find(line.front()) != anyOf.npos;
}

/// Bytes in what is a key or a section belong to a person's text, but for a 0.
bool isJunk(std::string_view line) {
    if (line.find('\0') != line.npos) return true;
    if (startsAs(line, "[;") || line.find('=') != line.npos) return false;
    return !std::all_of(line.begin(), line.end(), isText);
}

bool holdsJunk(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto end = std::min(bytes.find('\n'), bytes.size());
        if (isJunk(bytes.substr(0, end))) return true;
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
    }
    return false;
}

bool breaksOff(std::string_view bytes) {
    std::string_view last = bytes.substr(bytes.rfind('\n') + 1); // all of it where there is no line end
    const auto first = last.find_first_not_of(kBlanks);
    if (first == last.npos || last.back() == '\r') return false;
    if (bytes.find("\r\n") != bytes.npos) return true;
    last.remove_prefix(first);
    if (last.front() == '[') return last.find(']') == last.npos;
    return !startsAs(last, ";#") && last.find('=') == last.npos;
}

bool hasWideCharacters(const QByteArray& bytes) {
    return bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF");
}

} // namespace

QString textDamage(const QByteArray& bytes) {
    if (hasWideCharacters(bytes)) return {}; // half of their bytes are 0
    const std::string_view text(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    if (holdsJunk(text)) return QStringLiteral("it holds bytes that are no text");
    return breaksOff(text) ? QStringLiteral("its last line has no end and may be cut off") : QString();
}

ProfileReading readProfileFile(const QString& path) {
    const FileBytes read = readWholeFile(path, kLargestFile);
    if (!read.problem.isEmpty()) return {{}, read.problem};
    const IniFile file =
        IniFile::parse({read.bytes.constData(), static_cast<std::size_t>(read.bytes.size())});
    if (!isProfile(file)) return {{}, QStringLiteral("it is no profile")};
    ProfileReading reading{readProfile(file), {}};
    QStringList damage = {reading.profile.damage, textDamage(read.bytes)};
    damage.removeAll(QString());
    reading.profile.damage = damage.join(QStringLiteral(", "));
    return reading;
}

} // namespace vistor
