#include "shell/RecentFiles.h"

#include "platform/Folders.h"
#include "platform/IniFile.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace vistor {
namespace {

const QString kSection = QStringLiteral("VXVISTOR");
constexpr qsizetype kLongestPart = 48; ///< characters of a caption's file, and of its folder

QString keyOf(qsizetype number) {
    return QStringLiteral("RECENT%1").arg(number);
}

/// The file itself, whatever links lead to it; the path of one that is gone.
QString identity(const QString& path) {
    const QString real = QFileInfo(path).canonicalFilePath();
    return real.isEmpty() ? QDir::cleanPath(path) : real;
}

QString shortened(QString text) {
    for (QChar& letter : text)
        if (!letter.isPrint()) letter = u' ';
    if (text.size() > kLongestPart)
        text = text.left(kLongestPart / 2) + QChar(0x2026) + text.right(kLongestPart / 2);
    return text.replace(u'&', QStringLiteral("&&"));
}

} // namespace

QStringList withRecentFile(QStringList files, const QString& path) {
    const QString clean = QDir::cleanPath(path);
    const bool fits = std::all_of(clean.begin(), clean.end(), [](QChar letter) {
        return letter != u'\n' && letter != u'\r' && !letter.isNull();
    });
    if (path.isEmpty() || !fits || clean.size() >= kLongestPath) return files;
    const QString file = identity(clean);
    files.removeIf([&file](const QString& other) { return identity(other) == file; });
    files.prepend(clean);
    return files.mid(0, kRecentFiles);
}

QStringList readRecentFiles(const QString& settings) {
    const IniFile file = IniFile::load(settings);
    QStringList files;
    for (qsizetype number = 1; number <= kRecentFiles; ++number) {
        const QString path = file.value(kSection, keyOf(number), {}, kLongestPath);
        if (!path.isEmpty() && !files.contains(path)) files += path;
    }
    return files;
}

bool writeRecentFiles(const QString& settings, const QStringList& files) {
    IniFile file = IniFile::load(settings);
    for (qsizetype number = 1; number <= kRecentFiles; ++number) {
        if (number <= files.size())
            file.setValue(kSection, keyOf(number), files.at(number - 1));
        else
            file.removeKey(kSection, keyOf(number));
    }
    return file.saveOrTell(settings, QStringLiteral("The list of recent files"));
}

QString recentCaption(const QString& path, int number) {
    const QFileInfo info(path);
    return QStringLiteral("%1%2  %3  \u2014  %4")
        .arg(QLatin1String(number < kRecentFiles ? "&" : "1&"))
        .arg(number % kRecentFiles)
        .arg(shortened(info.fileName()), shortened(info.path()));
}

} // namespace vistor
