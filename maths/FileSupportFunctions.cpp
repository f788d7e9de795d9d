#include "maths/FileSupportFunctions.h"

#include "maths/ConfigPairs.h"
#include "platform/CodePage.h"
#include "platform/Folders.h"
#include "platform/Notices.h"
#include "platform/WholeFile.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>

namespace vistor {
namespace {

constexpr qint64 kLargestConfigFile = 1 << 20; ///< bytes of one; real ones hold a few hundred

void cleanPath(QString& path) {
    path = TrimAtNull(path).replace(u'"', u' ');
    while (path.startsWith(u' ')) path.remove(0, 1);
    while (path.endsWith(u' ')) path.chop(1);
}

} // namespace

double ReadConfigValue(const QString& path, const QString& key) {
    QString cleaned = path;
    if (!FileExists(cleaned)) {
        QFile file(cleaned);
        file.open(QIODevice::WriteOnly | QIODevice::NewOnly); // makes a missing one, and only that
        return 0;
    }
    const FileBytes file = readWholeFile(cleaned, kLargestConfigFile);
    if (!file.problem.isEmpty()) {
        notify(QStringLiteral("%1 cannot be read: %2.").arg(cleaned, file.problem));
        return 0;
    }
    for (const ConfigPair& pair : configPairs(unmarked(file.bytes)))
        if (pair.key == key) return pair.number;
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
