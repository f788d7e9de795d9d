#include "dashboard/Recovery.h"

#include "dashboard/ProfileFile.h"
#include "maths/VariableFiles.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace vistor {
namespace {

struct ReasonText {
    const char* name; ///< in file names: small letters and "-"
    const char* words;
};
/// In the order of RecoveryReason.
constexpr std::array<ReasonText, 11> kReasons{{
    {"minute", "Kept while it was being changed"},
    {"new", "Before a new layout was begun"},
    {"load-over", "Before another layout was loaded"},
    {"clear-tab", "Before a tab was cleared"},
    {"clear-all", "Before all tabs were cleared"},
    {"close-tab", "Before a tab was closed"},
    {"close-all", "Before all tabs were closed"},
    {"not-saved", "Ended without saving"},
    {"ended", "The program was ended from outside"},
    {"load-variables", "Before variable information was loaded"},
    {"restore-variables", "Before the default variable information was restored"},
}};

const QString kTimeForm = QStringLiteral("yyyyMMdd-HHmmsszzz");
const QString kLayoutEnding = QStringLiteral("vis");
constexpr qsizetype kLongestSource = 40;

QString tableEnding() {
    return QLatin1String(kVariableFileForm.extension);
}

QString baseName(const RecoveryCopy& copy) {
    const QString from = copy.from.isEmpty() ? QString() : u'_' + copy.from;
    return QStringLiteral("%1_%2_%3-%4_%5")
               .arg(copy.time.toUTC().toString(kTimeForm),
                    QLatin1String(kReasons.at(static_cast<std::size_t>(copy.reason)).name))
               .arg(copy.tabs)
               .arg(copy.items)
               .arg(copy.hash) +
           from;
}

std::optional<RecoveryReason> reasonNamed(const QString& name) {
    const auto found = std::find_if(kReasons.begin(), kReasons.end(), [&](const ReasonText& reason) {
        return QLatin1String(reason.name) == name;
    });
    if (found == kReasons.end()) return std::nullopt;
    return static_cast<RecoveryReason>(found - kReasons.begin());
}

bool isOwnFile(const QString& path) {
    const QFileInfo info(path);
    return info.isFile() && !info.isSymLink();
}

QString hexadecimal(const QCryptographicHash& hash) {
    return QString::fromLatin1(hash.result().toHex().left(16));
}

/// Each with its length before it, so that no two lists run together to the same bytes.
void addText(QCryptographicHash& hash, const QString& text) {
    const QByteArray bytes = text.toUtf8();
    hash.addData(QByteArray::number(bytes.size()) + ':' + bytes);
}

QString counted(int count, const char* one, const char* many) {
    return QStringLiteral("%1 %2").arg(count).arg(QLatin1String(count == 1 ? one : many));
}

QString ago(qint64 seconds) {
    if (seconds < 0) return {};
    const auto whole = [](qint64 count) { return static_cast<int>(count); };
    if (seconds < 60) return QStringLiteral(" (less than a minute ago)");
    if (seconds < 3600)
        return QStringLiteral(" (%1 ago)").arg(counted(whole(seconds / 60), "minute", "minutes"));
    if (seconds < 86400)
        return QStringLiteral(" (%1 ago)").arg(counted(whole(seconds / 3600), "hour", "hours"));
    return {};
}

} // namespace

QString recoveryFolder() {
    return WorkingFolder.isEmpty() ? QString() : WorkingFolder + QStringLiteral("Recovered/");
}

QString recoveryName(const RecoveryCopy& copy) {
    return baseName(copy) + u'.' + (copy.isTable ? tableEnding() : kLayoutEnding);
}

QString recoveryPictureName(const RecoveryCopy& copy) {
    return baseName(copy) + QStringLiteral(".png");
}

std::optional<RecoveryCopy> readRecoveryName(const QString& name) {
    static const QRegularExpression form(
        QStringLiteral("\\A(\\d{8}-\\d{9})_([a-z-]{1,20})_(\\d{1,4})-(\\d{1,4})_([0-9a-f]{16})"
                       "(?:_([\\p{L}\\p{N}-]{1,40}))?\\.([a-z]{3})\\z"));
    const QRegularExpressionMatch match = form.match(name);
    if (!match.hasMatch()) return std::nullopt;
    RecoveryCopy copy;
    copy.time = QDateTime::fromString(match.captured(1), kTimeForm);
    copy.time.setTimeSpec(Qt::UTC);
    const auto reason = reasonNamed(match.captured(2));
    if (!reason || !copy.time.isValid()) return std::nullopt;
    copy.reason = *reason;
    copy.tabs = match.captured(3).toInt();
    copy.items = match.captured(4).toInt();
    copy.hash = match.captured(5);
    copy.from = match.captured(6);
    copy.isTable = match.captured(7) == tableEnding();
    return recoveryName(copy) == name ? std::optional(copy) : std::nullopt;
}

QString recoverySource(const QString& path) {
    QString plain;
    for (const QChar letter : QFileInfo(path).completeBaseName()) {
        const bool kept = letter.isLetterOrNumber() && !letter.isSurrogate();
        if (kept || (!plain.isEmpty() && !plain.endsWith(u'-'))) plain += kept ? letter : QChar(u'-');
    }
    plain.truncate(kLongestSource);
    while (plain.endsWith(u'-')) plain.chop(1);
    return plain;
}

QString recoveryHash(const QByteArray& bytes) {
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(bytes);
    return hexadecimal(hash);
}

QString recoveryHash(const Profile& profile) {
    QCryptographicHash hash(QCryptographicHash::Sha1);
    addText(hash, profile.port);
    for (const QString& caption : profile.captions) addText(hash, caption);
    for (const ProfileInstrument& instrument : profile.instruments) {
        addText(hash, QStringLiteral("%1 %2 %3 %4")
                          .arg(static_cast<int>(instrument.kind))
                          .arg(instrument.tab)
                          .arg(instrument.left, 0, 'f', 4)
                          .arg(instrument.top, 0, 'f', 4));
        for (const QString& item : instrument.list) addText(hash, item);
    }
    return hexadecimal(hash);
}

std::vector<RecoveryCopy> recoveryCopies(const QString& folder) {
    std::vector<RecoveryCopy> copies;
    if (folder.isEmpty()) return copies;
    QDirIterator walk(folder, QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    while (walk.hasNext()) {
        walk.next();
        const auto copy = readRecoveryName(walk.fileName());
        if (copy && isOwnFile(walk.filePath())) copies.push_back(*copy);
    }
    std::sort(copies.begin(), copies.end(), [](const RecoveryCopy& a, const RecoveryCopy& b) {
        return a.time != b.time ? a.time > b.time : recoveryName(a) > recoveryName(b);
    });
    return copies;
}

std::vector<RecoveryCopy> surplusCopies(std::vector<RecoveryCopy> copies, const RecoveryCopy& kept) {
    const auto isFuture = [&kept](const RecoveryCopy& copy) { return copy.time > kept.time; };
    std::stable_partition(copies.begin(), copies.end(), std::not_fn(isFuture));
    std::vector<RecoveryCopy> surplus;
    std::size_t minutes = kept.reason == RecoveryReason::Minute ? 1 : 0;
    std::size_t stay = 1; // `kept` itself
    for (const RecoveryCopy& copy : copies) {
        if (recoveryName(copy) == recoveryName(kept)) continue;
        const bool isMinute = copy.reason == RecoveryReason::Minute;
        if (stay == kCopiesKept || (isMinute && minutes == kMinuteCopiesKept)) {
            surplus.push_back(copy);
            continue;
        }
        ++stay;
        if (isMinute) ++minutes;
    }
    return surplus;
}

QString writeRecovery(const QString& folder, const RecoveryCopy& copy, const QByteArray& bytes,
                      const QByteArray& picture) {
    QDir().mkpath(folder);
    const QString problem = writeWholeFile(folder + recoveryName(copy), bytes);
    if (!problem.isEmpty()) return problem;
    if (!picture.isEmpty()) writeWholeFile(folder + recoveryPictureName(copy), picture); // good without one
    std::vector<RecoveryCopy> others;
    for (const RecoveryCopy& other : recoveryCopies(folder)) {
        const bool isEqual = other.hash == copy.hash && other.isTable == copy.isTable;
        if (isEqual && recoveryName(other) != recoveryName(copy))
            deleteRecovery(folder, other);
        else
            others.push_back(other);
    }
    for (const RecoveryCopy& old : surplusCopies(std::move(others), copy)) deleteRecovery(folder, old);
    return {};
}

FileBytes readRecovery(const QString& folder, const RecoveryCopy& copy) {
    const QString path = folder + recoveryName(copy);
    if (QFileInfo(path).isSymLink()) return {{}, QStringLiteral("it is not a plain file"), false};
    return readWholeFile(path, kLargestCopy);
}

QByteArray readRecoveryPicture(const QString& folder, const RecoveryCopy& copy) {
    const QString path = folder + recoveryPictureName(copy);
    return isOwnFile(path) ? readWholeFile(path, kLargestPicture).bytes : QByteArray();
}

bool deleteRecovery(const QString& folder, const RecoveryCopy& copy) {
    const QString path = folder + recoveryName(copy);
    const QString picture = folder + recoveryPictureName(copy);
    if (isOwnFile(picture)) QFile::remove(picture);
    return !isOwnFile(path) || QFile::remove(path);
}

QString reasonInWords(RecoveryReason reason) {
    return QLatin1String(kReasons.at(static_cast<std::size_t>(reason)).words);
}

QString contentsInWords(const RecoveryCopy& copy) {
    if (copy.isTable)
        return QStringLiteral("Variable table with ") + counted(copy.items, "variable", "variables");
    return counted(copy.tabs, "tab", "tabs") + QStringLiteral(" with ") +
           counted(copy.items, "instrument", "instruments");
}

QString timeInWords(const QDateTime& time, const QDateTime& now) {
    const QDateTime local = time.toLocalTime();
    const qint64 days = local.date().daysTo(now.toLocalTime().date());
    const QString day = days == 0 ? QStringLiteral("Today")
                        : days == 1
                            ? QStringLiteral("Yesterday")
                            : QLocale::c().toString(local.date(), QStringLiteral("dddd, d MMMM yyyy"));
    return day + local.toString(QStringLiteral(", HH:mm:ss")) + ago(time.secsTo(now));
}

} // namespace vistor
