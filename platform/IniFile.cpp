#include "platform/IniFile.h"

#include "platform/CodePage.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <system_error>

namespace vistor {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr qint64 kLargestFile = 64 * 1024 * 1024;

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string_view unquoted(std::string_view text) {
    const bool quoted =
        text.size() >= 2 && text.front() == text.back() && (text.front() == '"' || text.front() == '\'');
    return quoted ? text.substr(1, text.size() - 2) : text;
}

QString folded(std::string_view name) {
    return fromCodePage(trimmed(name)).toLower();
}

QString oneLine(QString text) {
    for (QChar& character : text) {
        if (character == u'\n' || character == u'\r') character = u' ';
    }
    return text;
}

/// All of a file; nothing of one that is missing. No value for what is no plain file, cannot be read or is
/// larger than any initialisation file: what is not known whole must not be written back.
std::optional<QByteArray> readWhole(const QString& path) {
    const QFileInfo info(path);
    if (!info.exists()) return QByteArray();
    QFile file(path);
    if (!info.isFile() || info.size() > kLargestFile || !file.open(QIODevice::ReadOnly)) return std::nullopt;
    const QByteArray bytes = file.readAll();
    return file.error() == QFileDevice::NoError ? std::optional(bytes) : std::nullopt;
}

std::string_view viewOf(const QByteArray& bytes) {
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

constexpr auto kNowhere = std::string_view::npos;

bool holdsKey(std::string_view text) {
    return !text.empty() && text.front() != ';' && text.front() != '[' && text.find('=') != kNowhere;
}

/// The key of a line that holds one, up to its first "=" or to one further on.
QString keyOf(std::string_view line, qsizetype further = 0) {
    auto equals = line.find('=');
    for (; further > 0 && equals != kNowhere; --further) equals = line.find('=', equals + 1);
    return equals == kNowhere ? QString() : folded(line.substr(0, equals));
}

QString valueOf(std::string_view line, const QString& key) {
    auto equals = line.find('=');
    for (auto further = key.count(u'='); further > 0; --further) equals = line.find('=', equals + 1);
    return fromCodePage(unquoted(trimmed(line.substr(equals + 1))));
}

QString foldedName(const QString& name) {
    return name.trimmed().toLower();
}

/// A value that would lose its own blanks or quotes on reading is put in quotes.
QByteArray asWritten(const QString& value) {
    const QByteArray bytes = toCodePage(value);
    return unquoted(trimmed(viewOf(bytes))) == viewOf(bytes) ? bytes : '"' + bytes + '"';
}

} // namespace

void IniFile::Section::index() {
    keys.clear();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string_view text = trimmed(viewOf(lines[i].raw));
        if (!holdsKey(text)) continue;
        const QString key = keyOf(text);
        if (!keys.contains(key)) keys.insert(key, static_cast<qsizetype>(i));
    }
}

qsizetype IniFile::Section::find(const QString& key) const {
    if (!key.contains(u'=')) return keys.value(key, -1);
    const auto inside = key.count(u'=');
    const auto holds = [&](const Line& line) {
        const std::string_view text = trimmed(viewOf(line.raw));
        return holdsKey(text) && keyOf(text, inside) == key;
    };
    const auto found = std::find_if(lines.begin(), lines.end(), holds);
    return found == lines.end() ? -1 : found - lines.begin();
}

void IniFile::appendLine(std::string_view raw) {
    const std::string_view text = trimmed(raw);
    if (!text.empty() && text.front() == '[') {
        const auto end = text.find(']');
        const QString name = folded(text.substr(1, end == kNowhere ? end : end - 1));
        m_sections.emplace_back();
        m_sections.back().name = name;
        if (!m_names.contains(name)) m_names.insert(name, static_cast<qsizetype>(m_sections.size()) - 1);
    }
    Section& section = m_sections.back();
    Line line{QByteArray(raw.data(), static_cast<qsizetype>(raw.size())), {}};
    if (holdsKey(text)) {
        const QString key = keyOf(text);
        line.value = valueOf(text, key);
        if (!section.keys.contains(key))
            section.keys.insert(key, static_cast<qsizetype>(section.lines.size()));
    }
    section.lines.push_back(std::move(line));
}

IniFile IniFile::parse(std::string_view bytes) {
    IniFile file;
    while (!bytes.empty()) {
        const auto end = bytes.find('\n');
        std::string_view line = bytes.substr(0, end);
        bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        file.appendLine(line);
    }
    return file;
}

IniFile IniFile::load(const QString& path) {
    const auto bytes = readWhole(path);
    if (bytes) return parse(viewOf(*bytes));
    IniFile unread;
    unread.m_whole = false;
    return unread;
}

const IniFile::Section* IniFile::findSection(const QString& name) const {
    const auto found = m_names.constFind(foldedName(name));
    return found == m_names.constEnd() ? nullptr : &m_sections[static_cast<std::size_t>(*found)];
}

QString IniFile::value(const QString& section, const QString& key, const QString& fallback,
                       int buffer) const {
    QString found = fallback;
    const QString name = foldedName(key);
    const Section* where = findSection(section);
    const qsizetype index = where ? where->find(name) : -1;
    if (index >= 0) {
        const Line& line = where->lines[static_cast<std::size_t>(index)];
        found = name.contains(u'=') ? valueOf(trimmed(viewOf(line.raw)), name) : line.value;
    }
    found.truncate(qMax(0, buffer - 1));
    const qsizetype nul = found.indexOf(QChar(u'\0'));
    if (nul >= 0) found.truncate(nul);
    return found;
}

QStringList IniFile::keys(const QString& section) const {
    const Section* where = findSection(section);
    return where ? QStringList(where->keys.keys()) : QStringList();
}

std::vector<int> IniFile::numberedKeys(const QString& section, int lowest, int highest) const {
    std::vector<int> numbers;
    for (const QString& key : keys(section)) {
        const int number = key.toInt();
        if (number >= lowest && number <= highest && QString::number(number) == key)
            numbers.push_back(number);
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

qsizetype IniFile::keyCount() const {
    qsizetype count = 0;
    for (const qsizetype index : m_names) count += m_sections[static_cast<std::size_t>(index)].keys.size();
    return count;
}

IniFile::Section& IniFile::sectionFor(const QString& name) {
    const QString key = foldedName(name);
    const auto found = m_names.constFind(key);
    if (found != m_names.constEnd()) return m_sections[static_cast<std::size_t>(*found)];
    m_names.insert(key, static_cast<qsizetype>(m_sections.size()));
    m_sections.emplace_back();
    m_sections.back().name = key;
    m_sections.back().lines.push_back({"[" + toCodePage(oneLine(name)) + "]", {}});
    return m_sections.back();
}

void IniFile::setValue(const QString& section, const QString& key, const QString& value) {
    const QString name = foldedName(key);
    if (name.isEmpty() || name.startsWith(u'[') || name.startsWith(u';')) return;
    Section& target = sectionFor(section);
    const QByteArray written = toCodePage(oneLine(key)) + "=" + asWritten(oneLine(value));
    const Line line{written, valueOf(viewOf(written), {})};
    const qsizetype found = target.find(name);
    if (found >= 0) {
        target.lines[static_cast<std::size_t>(found)] = line;
        return;
    }
    // Behind the section's last line that says something, so that blank lines go on parting the sections.
    auto at = target.lines.end();
    while (at != target.lines.begin() && trimmed(viewOf((at - 1)->raw)).empty()) --at;
    const QString first = keyOf(viewOf(written));
    if (!target.keys.contains(first)) target.keys.insert(first, at - target.lines.begin());
    target.lines.insert(at, line);
}

void IniFile::removeKey(const QString& section, const QString& key) {
    const QString name = foldedName(key);
    const auto inside = name.count(u'=');
    for (Section& from : m_sections) {
        if (from.name != foldedName(section)) continue;
        const auto gone = std::erase_if(from.lines, [&](const Line& line) {
            const std::string_view text = trimmed(viewOf(line.raw));
            return holdsKey(text) && keyOf(text, inside) == name;
        });
        if (gone > 0) from.index();
    }
}

void IniFile::removeSection(const QString& section) {
    const QString name = foldedName(section);
    if (name.isEmpty()) return;
    for (Section& from : m_sections) {
        if (from.name == name) from = {};
    }
    m_names.remove(name);
}

QByteArray IniFile::toBytes() const {
    QByteArray bytes;
    for (const Section& section : m_sections) {
        for (const Line& line : section.lines) bytes += line.raw + "\r\n";
    }
    return bytes;
}

bool IniFile::save(const QString& path) const {
    QSaveFile file(path);
    if (!m_whole || !file.open(QIODevice::WriteOnly)) return false;
    file.write(toBytes());
    return file.commit();
}

QString readIniValue(const QString& path, const QString& section, const QString& key, const QString& fallback,
                     int buffer) {
    return IniFile::load(path).value(section, key, fallback, buffer);
}

bool writeIniValue(const QString& path, const QString& section, const QString& key, const QString& value) {
    IniFile file = IniFile::load(path);
    file.setValue(section, key, value);
    return file.save(path);
}

double leadingNumber(const QString& text) {
    std::string digits;
    for (const QChar character : text) {
        const char16_t code = character.unicode();
        if (code == u' ' || code == u'\t' || code == u'\n' || code == u'\r') continue;
        const bool number = (code >= u'0' && code <= u'9') || code == u'.' || code == u'-' || code == u'+';
        const bool exponent = code == u'E' || code == u'e' || code == u'D' || code == u'd';
        if (!number && !exponent) break;
        digits += exponent ? 'e' : static_cast<char>(code);
    }
    if (!digits.empty() && digits.front() == '+') digits.erase(0, 1);
    double value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return error == std::errc() && std::isfinite(value) ? value : 0;
}

} // namespace vistor
