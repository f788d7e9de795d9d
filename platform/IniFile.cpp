#include "platform/IniFile.h"

#include "platform/CodePage.h"
#include "platform/Notices.h"
#include "platform/WholeFile.h"

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
constexpr auto kNowhere = IniText::kNowhere;
constexpr qsizetype kSpare = 8; ///< bytes, for line ends

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

QString oneLine(QString text) {
    for (QChar& character : text) {
        if (character == u'\n' || character == u'\r') character = u' ';
    }
    return text;
}

/// What stands behind "=" number `further` of a line.
QString valueOf(std::string_view line, qsizetype further) {
    auto equals = line.find('=');
    for (; further > 0; --further) equals = line.find('=', equals + 1);
    return fromCodePage(unquoted(trimmed(line.substr(equals + 1))));
}

/// A value that would lose its own blanks or quotes on reading is put in quotes.
QByteArray asWritten(const QString& value) {
    const QByteArray bytes = toCodePage(value);
    return unquoted(trimmed(viewOf(bytes))) == viewOf(bytes) ? bytes : '"' + bytes + '"';
}

/// A folded key up to its first "=".
QByteArray firstOf(const QByteArray& key) {
    const qsizetype equals = key.indexOf('=');
    return equals < 0 ? key : foldedName(viewOf(key).substr(0, static_cast<std::size_t>(equals)));
}

QByteArray foldedKey(std::string_view line, qsizetype further) {
    std::string_view name;
    return keyName(line, further, name) ? foldedName(name) : QByteArray();
}

/// The number that a key is written as; no value for any other key.
std::optional<int> numberOf(std::string_view key) {
    int number = 0;
    const char* const end = key.data() + key.size();
    const auto read = std::from_chars(key.data(), end, number);
    const bool is = read.ec == std::errc() && read.ptr == end && std::to_string(number) == key;
    return is ? std::optional(number) : std::nullopt;
}

} // namespace

IniFile::IniFile() : m_text(std::make_shared<IniText>()) {}

IniFile IniFile::parse(std::string_view bytes) {
    IniFile file;
    file.m_text =
        std::make_shared<IniText>(unmarked(QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size()))));
    return file;
}

IniFile IniFile::load(const QString& path) {
    IniFile file;
    FileBytes read = readWholeFile(path, kLargestFile);
    if (!read.missing) file.m_problem = std::move(read.problem);
    file.m_text = std::make_shared<IniText>(unmarked(read.bytes));
    return file;
}

const IniFile::Edits* IniFile::editsOf(const QByteArray& section) const {
    const auto found = m_edits.constFind(section);
    return found == m_edits.constEnd() ? nullptr : &*found;
}

/// In the text; nowhere where that section is gone from it.
IniFile::Place IniFile::headOf(const QByteArray& section, const Edits* edits) const {
    return edits && edits->dropped ? kNowhere : m_text->section(section);
}

/// True for a line of the text that is not in the document any more.
bool IniFile::isHidden(const Edits& edits, Place place) const {
    if (edits.placed.contains(place)) return true;
    const std::string_view line = m_text->lineAt(place);
    std::string_view name;
    for (qsizetype further = 0; further <= edits.furthest && keyName(line, further, name); ++further) {
        if (edits.removed.contains(foldedName(name))) return true;
    }
    return false;
}

IniFile::Place IniFile::findInText(Place head, const Edits* edits, const QByteArray& key,
                                   qsizetype further) const {
    if (head == kNowhere || (edits && edits->removed.contains(key))) return kNowhere;
    return m_text->key(head, key, further);
}

/// Of the lines that have the key the first in the document.
IniFile::Found IniFile::find(const QByteArray& section, const QByteArray& key) const {
    const Edits* const edits = editsOf(section);
    const qsizetype further = key.count('=');
    Found found;
    const auto numbers = edits ? edits->byFirst.value(firstOf(key)) : QList<qsizetype>();
    for (const qsizetype number : numbers) {
        const NewLine& line = edits->lines[static_cast<std::size_t>(number)];
        // In the order of their places; those without one are the last.
        if (foldedKey(viewOf(line.raw), further) == key && (found.number < 0 || line.inPlaceOf < found.place))
            found = {viewOf(line.raw), line.inPlaceOf, number};
    }
    Place place = findInText(headOf(section, edits), edits, key, further);
    while (edits && place < found.place && isHidden(*edits, place))
        place = m_text->keyBehind(place, key, further);
    return place < found.place ? Found{m_text->lineAt(place), place, -1} : found;
}

QString IniFile::value(const QString& section, const QString& key, const QString& fallback,
                       int buffer) const {
    const QByteArray name = foldedName(key);
    const Found found = find(foldedName(section), name);
    QString value = found.isThere() ? valueOf(found.line, name.count('=')) : fallback;
    value = cutText(value, buffer - 1);
    const qsizetype nul = value.indexOf(QChar(u'\0'));
    return nul < 0 ? value : value.left(nul);
}

void IniFile::append(Edits& edits, NewLine line) {
    const auto number = static_cast<qsizetype>(edits.lines.size());
    edits.byFirst[foldedKey(viewOf(line.raw), 0)].push_back(number);
    if (line.inPlaceOf != kNowhere) edits.placed.insert(line.inPlaceOf, number);
    edits.lines.push_back(std::move(line));
    ++m_newLines;
}

void IniFile::setValue(const QString& section, const QString& key, const QString& value) {
    const QByteArray name = foldedName(key);
    if (name.isEmpty() || name.startsWith('[') || name.startsWith(';')) return;
    const QByteArray where = foldedName(section);
    const QByteArray written = toCodePage(oneLine(key)) + "=" + asWritten(oneLine(value));
    const Found found = find(where, name);
    const qsizetype further = name.count('=');
    if (found.isThere() && valueOf(found.line, further) == valueOf(viewOf(written), further)) return;
    Edits& edits = m_edits[where];
    if (found.number >= 0) {
        edits.lines[static_cast<std::size_t>(found.number)].raw = written;
        return;
    }
    if (edits.head.isEmpty() && headOf(where, &edits) == kNowhere) {
        edits.head = "[" + toCodePage(oneLine(section)) + "]";
        edits.order = ++m_newSections;
    }
    append(edits, {written, found.place});
}

void IniFile::removeKey(const QString& section, const QString& key) {
    const QByteArray where = foldedName(section);
    const QByteArray name = foldedName(key);
    const qsizetype further = name.count('=');
    if (!editsOf(where) && headOf(where, nullptr) == kNowhere) return;
    Edits& edits = m_edits[where];
    const QByteArray first = firstOf(name);
    if (const auto numbers = edits.byFirst.find(first); numbers != edits.byFirst.end()) {
        const auto gone = [&](qsizetype number) {
            QByteArray& raw = edits.lines[static_cast<std::size_t>(number)].raw;
            if (foldedKey(viewOf(raw), further) != name) return false;
            raw.clear();
            return true;
        };
        numbers->removeIf(gone);
        if (numbers->isEmpty()) edits.byFirst.erase(numbers);
    }
    if (edits.dropped) return;
    edits.removed.insert(name);
    edits.furthest = std::max(edits.furthest, further);
}

void IniFile::removeSection(const QString& section) {
    const QByteArray name = foldedName(section);
    if (name.isEmpty() || (!editsOf(name) && headOf(name, nullptr) == kNowhere)) return;
    Edits& edits = m_edits[name];
    edits = {};
    edits.dropped = true;
}

/// Hands over every key of a section up to its first "=", as it is written, until that answers false.
void IniFile::eachKey(const QByteArray& section, const std::function<bool(std::string_view)>& take) const {
    const Edits* const edits = editsOf(section);
    bool goesOn = true;
    const auto takeOfText = [&](Place place) {
        std::string_view name;
        keyName(m_text->lineAt(place), 0, name);
        if (!edits || !isHidden(*edits, place) || find(section, foldedName(name)).isThere())
            goesOn = take(name);
        return goesOn;
    };
    if (const Place head = headOf(section, edits); head != kNowhere) m_text->eachKey(head, takeOfText);
    if (!edits || !goesOn) return;
    for (auto it = edits->byFirst.constBegin(); it != edits->byFirst.constEnd(); ++it) {
        if (!take(viewOf(it.key()))) return;
    }
}

QStringList IniFile::sections() const {
    QSet<QByteArray> names;
    m_text->eachSection([&](IniText::Place head) {
        const QByteArray name = foldedName(headName(m_text->lineAt(head)));
        if (const Edits* const edits = editsOf(name); !edits || !edits->dropped) names.insert(name);
    });
    for (auto it = m_edits.constBegin(); it != m_edits.constEnd(); ++it) {
        if (!it.value().head.isEmpty()) names.insert(it.key());
    }
    QStringList list;
    for (const QByteArray& name : names) list += QString::fromUtf8(name);
    return list;
}

QStringList IniFile::keys(const QString& section) const {
    QSet<QByteArray> names;
    eachKey(foldedName(section), [&names](std::string_view name) {
        names.insert(foldedName(name));
        return true;
    });
    QStringList list;
    for (const QByteArray& name : names) list += QString::fromUtf8(name);
    return list;
}

bool IniFile::hasKeys(const QString& section) const {
    bool has = false;
    eachKey(foldedName(section), [&has](std::string_view) {
        has = true;
        return false;
    });
    return has;
}

std::vector<int> IniFile::numberedKeys(const QString& section, int lowest, int highest) const {
    std::vector<int> numbers;
    eachKey(foldedName(section), [&](std::string_view name) {
        const auto number = numberOf(name);
        if (number && *number >= lowest && *number <= highest) numbers.push_back(*number);
        return true;
    });
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
}

qsizetype IniFile::keyCount() const {
    return m_text->keyLines() + m_newLines;
}

/// Puts text and changes together.
class IniFile::Writer {
public:
    explicit Writer(const IniFile& file) : m_file(file), m_text(*file.m_text), m_lineEnd(lineEndOf(m_text)) {
        qsizetype size = m_text.bytes().size() + kSpare;
        for (const Edits& edits : file.m_edits) {
            size += edits.head.size() + kSpare;
            for (const NewLine& line : edits.lines) size += line.raw.size() + kSpare;
        }
        m_text.forget();
        m_bytes.reserve(size);
    }

    QByteArray write() {
        for (Place at = 0; at < m_text.end();) {
            const std::string_view line = m_text.lineAt(at);
            const Place next = m_text.after(at, line);
            if (isSectionHead(line)) beginSection(headName(line));
            if (!m_edits || !m_edits->dropped) writeLine(line, at, next);
            at = next;
        }
        endSection();
        writeNewSections();
        return std::move(m_bytes);
    }

private:
    /// That of the first line; the classic one where there is none.
    static QByteArray lineEndOf(const IniText& text) {
        const auto size = static_cast<qsizetype>(text.lineAt(0).size());
        const QByteArray end =
            text.bytes().mid(size, static_cast<qsizetype>(text.after(0, text.lineAt(0))) - size);
        return end.isEmpty() ? QByteArray("\r\n") : end;
    }

    void beginSection(std::string_view name) {
        endSection();
        const QByteArray folded = foldedName(name);
        m_edits = m_file.editsOf(folded);
        m_isFirst = m_edits && !m_seen.contains(m_edits);
        if (m_edits) m_seen.insert(m_edits);
    }

    void writeLine(std::string_view line, Place at, Place next) {
        const auto* const raw = m_text.bytes().constData() + at;
        if (m_edits && holdsKey(line) && m_file.isHidden(*m_edits, at)) {
            const auto placed = m_edits->placed.constFind(at);
            if (placed == m_edits->placed.constEnd()) return;
            const QByteArray& instead = m_edits->lines[static_cast<std::size_t>(*placed)].raw;
            if (instead.isEmpty()) return;
            m_bytes += instead;
            m_bytes.append(raw + line.size(), static_cast<qsizetype>(next - at - line.size()));
        } else {
            m_bytes.append(raw, static_cast<qsizetype>(next - at));
        }
        if (!trimmed(line).empty()) m_insertAt = m_bytes.size();
    }

    void appendLinesOf(const Edits& edits, QByteArray& bytes) const {
        for (const NewLine& line : edits.lines) {
            if (!line.raw.isEmpty() && line.inPlaceOf == kNowhere) bytes += line.raw + m_lineEnd;
        }
    }
    QByteArray endOfLineBefore(qsizetype at) const {
        const bool ended = at == 0 || m_bytes[at - 1] == '\n' || m_bytes[at - 1] == '\r';
        return ended ? QByteArray() : m_lineEnd;
    }

    /// Behind the section's last line that says something, so that blank lines go on parting the sections.
    void endSection() {
        if (!m_edits || !m_isFirst || m_edits->dropped) return;
        QByteArray added;
        appendLinesOf(*m_edits, added);
        if (!added.isEmpty()) m_bytes.insert(m_insertAt, endOfLineBefore(m_insertAt) + added);
    }

    void writeNewSections() {
        std::vector<const Edits*> made;
        for (const Edits& edits : m_file.m_edits) {
            if (!edits.head.isEmpty()) made.push_back(&edits);
        }
        std::sort(made.begin(), made.end(), [](auto* a, auto* b) { return a->order < b->order; });
        for (const Edits* edits : made) {
            m_bytes += endOfLineBefore(m_bytes.size()) + edits->head + m_lineEnd;
            appendLinesOf(*edits, m_bytes);
        }
    }

    const IniFile& m_file;
    const IniText& m_text;
    QByteArray m_lineEnd;
    QByteArray m_bytes;
    const Edits* m_edits = nullptr; ///< of the section in hand
    bool m_isFirst = false;         ///< of its name
    qsizetype m_insertAt = 0;
    QSet<const Edits*> m_seen;
};

QByteArray IniFile::toBytes() const {
    return m_edits.isEmpty() ? m_text->bytes() : Writer(*this).write();
}

bool IniFile::save(const QString& path, QString* problem) const {
    const QString why = m_problem.isEmpty()
                            ? writeWholeFile(path, toBytes())
                            : QStringLiteral("what it holds cannot be read (%1)").arg(m_problem);
    if (problem) *problem = why;
    return why.isEmpty();
}

bool IniFile::saveOrTell(const QString& path, const QString& what) const {
    QString problem;
    if (save(path, &problem)) return true;
    notifyNotSaved(path, what, problem);
    return false;
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
