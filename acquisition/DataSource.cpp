#include "acquisition/DataSource.h"

#include "acquisition/Serial_API.h"
#include "acquisition/StreamFormat.h"
#include "maths/FileSupportFunctions.h"
#include "platform/Notices.h"
#include "platform/Prompts.h"
#include "platform/WholeFile.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QtEndian>

#include <algorithm>
#include <memory>

namespace vistor {

std::uint32_t detail::sourceOpenings = 0;

namespace {

constexpr std::int32_t kRunFileKinds[] = {200, 201, 203};
constexpr std::int32_t kEmptyReadsBeforeReopen = 10;
constexpr qint64 kPiece = 1 << 20; ///< bytes of a run file that are read at once

/// A device that has just come back may not be for everybody yet: its owner is set a moment later.
constexpr int kFailuresBeforeTelling = 5;

enum class SourceKind { None, Serial, Gsm, File };

std::unique_ptr<QFile> runFile;

/// What has been told of the line that is open.
struct LineState {
    bool lost = false;
    int failures = 0; ///< to open it again, for another reason than that it is not there
};

LineState lineState;

SourceKind kindOf(const QString& name) {
    if (name == QStringLiteral("SER")) return SourceKind::Serial;
    if (name == QStringLiteral("GSM")) return SourceKind::Gsm;
    if (name == QStringLiteral("FIL")) return SourceKind::File;
    return SourceKind::None;
}

void sayNoSource() {
    MsgBox(QStringLiteral("No data source has been specified"), Icon::Information);
}
void sayNotBuilt() {
    MsgBox(QStringLiteral("Not yet implemented"));
}

/// Empty when it is open, else why not.
QString openRunFile(QString path) {
    const QString problem = runFileProblem(path);
    if (!problem.isEmpty()) return problem;
    FileExists(path); // cleans it
    auto file = std::make_unique<QFile>();
    const QString unopened = openPlainFile(*file, path);
    if (!unopened.isEmpty()) return unopened;
    runFile = std::move(file);
    RunFileHandle = 1;
    return {};
}

/// Opens the line that the descriptor names. It begins with a delimiter: a sender whose delimiters close one
/// message and open the next is in step with its first byte then.
QString openSerial(const QStringList& fields) {
    if (fields.size() < 3)
        return QStringLiteral(
            "The data source names no port and speed. Choose them (File > Set Data Source).");
    StreamBytes.assign(1, kFrameDelimiter);
    StreamPos = 0;
    return openLine(fields.value(1).toInt(), fields.value(2).toInt());
}

QString portInWords() {
    const QString port = DataSourceDescriptor.section(u',', 1, 1);
    return QStringLiteral("Port %1 (%2) ").arg(port, portDevice(port.toInt()));
}

void tellOfLoss() {
    if (lineState.lost) return;
    lineState = {true, 0};
    notify(QStringLiteral(
               "The device at port %1 is gone. Plug its cable in again: it is looked for all the time.")
               .arg(DataSourceDescriptor.section(u',', 1, 1)));
}

void reopenLine() {
    const QStringList fields = DataSourceDescriptor.split(u',');
    const QString problem = openSerial(fields);
    if (problem.isEmpty()) {
        if (lineState.lost) notify(portInWords() + QStringLiteral("is back."));
        lineState = {};
        return;
    }
    const QString device = portDevice(fields.value(1).toInt());
    const bool there = !device.isEmpty() && QFileInfo::exists(device);
    lineState.failures = there ? lineState.failures + 1 : 0;
    if (lineState.failures == kFailuresBeforeTelling) notify(problem);
}

void readSerial(std::vector<std::uint8_t>& bytes) {
    if (ReadPort(bytes)) {
        EmptyReadCount = 0;
        return;
    }
    if (++EmptyReadCount <= kEmptyReadsBeforeReopen) return;
    EmptyReadCount = 0;
    if (portStands()) return;
    tellOfLoss();
    reopenLine();
}

void readFile(std::vector<std::uint8_t>& bytes) {
    if (!runFile) return;
    const qint64 left = std::clamp<qint64>(runFile->size() - runFile->pos(), 0, kPiece);
    std::vector<std::uint8_t> piece(static_cast<std::size_t>(left) + 1);
    const qint64 length = runFile->read(reinterpret_cast<char*>(piece.data()), left);
    if (length < 0)
        notify(QStringLiteral("The run file cannot be read any further: %1.").arg(runFile->errorString()));
    if (length <= 0) return;
    piece.resize(static_cast<std::size_t>(length) + 1);
    piece.back() = 0;
    bytes = std::move(piece);
}

/// Opens what the fields name and sets TimeBase. A `problem` is what is still to be told.
bool openKind(SourceKind kind, const QStringList& fields, QString& problem) {
    switch (kind) {
    case SourceKind::Serial:
        problem = openSerial(fields);
        TimeBase = kLiveTimeBase;
        return problem.isEmpty();
    case SourceKind::File:
        problem = openRunFile(fields.value(1));
        if (!problem.isEmpty() && fields.size() > 2)
            problem += QStringLiteral(" The file's path must not hold a comma: it is cut there.");
        TimeBase = kNotStartedTimeBase;
        return problem.isEmpty();
    default:
        sayNotBuilt();
        TimeBase = kLiveTimeBase;
        return false;
    }
}

} // namespace

bool IsRunFile(const QString& path) {
    QString cleaned = path;
    if (!FileExists(cleaned)) return false;
    QFile file;
    uchar head[8] = {};
    if (!openPlainFile(file, cleaned).isEmpty() ||
        file.read(reinterpret_cast<char*>(head), sizeof head) != sizeof head)
        return false;
    const auto mark = qFromLittleEndian<std::int32_t>(head);
    const auto kind = qFromLittleEndian<std::int32_t>(head + 4);
    return mark == kFileMark &&
           std::find(std::begin(kRunFileKinds), std::end(kRunFileKinds), kind) != std::end(kRunFileKinds);
}

QString runFileProblem(const QString& path) {
    const QString choose = QStringLiteral(" Choose another one (File > Set Data Source).");
    QString cleaned = path;
    if (cleaned.trimmed().isEmpty()) return QStringLiteral("No run file is named.") + choose;
    const QString name = QStringLiteral("The run file \"%1\" ").arg(path);
    FileExists(cleaned);
    const QFileInfo info(cleaned);
    if (!info.exists())
        return name + QStringLiteral("is not there. Was it moved, or is its disk missing?") + choose;
    if (!info.isFile()) return name + QStringLiteral("is a folder or a device, no file.") + choose;
    QFile file;
    const QString unopened = openPlainFile(file, cleaned);
    if (!unopened.isEmpty()) return name + QStringLiteral("cannot be read: %1.").arg(unopened) + choose;
    if (!IsRunFile(cleaned))
        return name + QStringLiteral("is no recording: it does not begin as one.") + choose;
    return {};
}

bool OpenDataSource() {
    CloseDataSource();
    ++detail::sourceOpenings;
    lineState = {};
    const QStringList fields = DataSourceDescriptor.split(u',');
    const SourceKind kind = kindOf(fields.value(0));
    // A kind that nobody knows has been given its storage by now, an empty descriptor has not.
    if (!fields.value(0).isEmpty()) StreamBytes.assign(1, 0);
    if (kind == SourceKind::None) {
        sayNoSource();
        return false;
    }
    QString problem;
    const bool opened = openKind(kind, fields, problem);
    if (!problem.isEmpty()) notify(problem);
    return opened;
}

void ReadDataSource(std::vector<std::uint8_t>& bytes) {
    switch (kindOf(DataSourceDescriptor.left(3))) {
    case SourceKind::Serial:
        readSerial(bytes);
        break;
    case SourceKind::Gsm:
        sayNotBuilt();
        break;
    case SourceKind::File:
        readFile(bytes);
        break;
    case SourceKind::None:
        sayNoSource();
        break;
    }
}

void CloseDataSource() {
    ClosePort();
    if (RunFileHandle > 0) runFile.reset();
    RunFileHandle = -1;
    TimeBase = kLiveTimeBase;
    StreamBytes = {}; // with its storage
}

} // namespace vistor
