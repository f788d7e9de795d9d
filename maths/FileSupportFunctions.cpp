#include "maths/FileSupportFunctions.h"

#include "platform/CodePage.h"
#include "platform/Folders.h"
#include "platform/WholeFile.h"
#include "variables/SetupVariables.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>

#include <algorithm>
#include <string_view>

namespace vistor {
namespace {

constexpr qint64 kLargestConfigFile = 1 << 20; ///< bytes read of one; real ones hold a few hundred
constexpr std::string_view kBlanks = " \t";

void cleanPath(QString& path) {
    path = TrimAtNull(path).replace(u'"', u' ');
    while (path.startsWith(u' ')) path.remove(0, 1);
    while (path.endsWith(u' ')) path.chop(1);
}

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// Takes items, one after the other, from a text in which commas and line ends part them.
class ItemReader {
public:
    explicit ItemReader(std::string_view text) : m_rest(text) {}

    bool atEnd() const { return m_rest.empty(); }

    /// Blank lines between pairs are layout, not items.
    void skipBlankLines() {
        const auto first = m_rest.find_first_not_of(" \t\r\n");
        m_rest.remove_prefix(std::min(first, m_rest.size()));
    }

    std::string_view next() {
        m_rest.remove_prefix(std::min(m_rest.find_first_not_of(kBlanks), m_rest.size()));
        if (!m_rest.empty() && m_rest.front() == '"') {
            m_rest.remove_prefix(1);
            const std::string_view item = takeUntil("\"");
            takeUntil(",\r\n");
            return item;
        }
        return trimmed(takeUntil(",\r\n"));
    }

private:
    std::string_view takeUntil(std::string_view ends) {
        const auto end = std::min(m_rest.find_first_of(ends), m_rest.size());
        const std::string_view item = m_rest.substr(0, end);
        const bool twoByteEnd = m_rest.substr(end, 2) == "\r\n";
        m_rest.remove_prefix(std::min(m_rest.size(), end + (twoByteEnd ? 2 : 1)));
        return item;
    }

    std::string_view m_rest;
};

} // namespace

double ReadConfigValue(const QString& path, const QString& key) {
    QString cleaned = path;
    const bool holdsSomething = FileExists(cleaned);
    if (!holdsSomething) {
        QFile(cleaned).open(QIODevice::WriteOnly | QIODevice::NewOnly); // makes a missing one, and only that
        return 0;
    }
    const QByteArray bytes = unmarked(readWholeFile(cleaned, kLargestConfigFile).bytes);
    ItemReader items(viewOf(bytes));
    for (items.skipBlankLines(); !items.atEnd(); items.skipBlankLines()) {
        const QString name = fromCodePage(items.next());
        QString value = fromCodePage(items.next());
        if (name == key) return ParseNumber(value);
    }
    return 0;
}

bool PathExists(QString& path) {
    cleanPath(path);
    return !path.isEmpty() && QFileInfo::exists(path);
}

bool PathExists(QString&& path) {
    return PathExists(static_cast<QString&>(path));
}

bool FileExists(QString& path) {
    if (!PathExists(path)) return false;
    const QFileInfo file(path);
    return file.isFile() && file.size() > 0; // a folder has no length that counts
}

bool FileExists(QString&& path) {
    return FileExists(static_cast<QString&>(path));
}

QString GetUserDataFolder() {
    const QString folder = applicationDataFolder();
    return folder.isEmpty() ? folder : folder + QStringLiteral("Kelvane/");
}

QString TrimAtNull(const QString& text) {
    const qsizetype nul = text.indexOf(QChar(u'\0'));
    return nul < 0 ? text : text.left(nul);
}

QString GetDecimalSeparator() {
    return QLocale::system().decimalPoint();
}

} // namespace vistor
