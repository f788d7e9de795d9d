#include "acquisition/DataSource.h"

#include "acquisition/Serial_API.h"
#include "maths/FileSupportFunctions.h"
#include "platform/Prompts.h"
#include "platform/WholeFile.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QFile>
#include <QStringList>
#include <QtEndian>

#include <algorithm>
#include <limits>
#include <memory>
#include <new>

namespace vistor {
namespace {

constexpr std::int32_t kRunFileKinds[] = {200, 201, 203};
constexpr std::int32_t kEmptyReadsBeforeReopen = 10;

enum class SourceKind { None, Serial, Gsm, File };

std::unique_ptr<QFile> runFile;
std::uint32_t openings = 0;

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

bool openRunFile(QString path) {
    if (!FileExists(path) || !IsRunFile(path)) return false; // the path is cleaned on the way
    auto file = std::make_unique<QFile>();
    if (!openPlainFile(*file, path).isEmpty()) return false;
    runFile = std::move(file);
    RunFileHandle = 1;
    return true;
}

void readSerial(std::vector<std::uint8_t>& bytes) {
    if (ReadPort(bytes)) {
        EmptyReadCount = 0;
        return;
    }
    if (++EmptyReadCount <= kEmptyReadsBeforeReopen) return;
    CloseDataSource();
    OpenDataSource();
    EmptyReadCount = 0;
}

/// The whole file in one read. A position in the stream has 31 bits, so what lies beyond could never be
/// reached.
void readFile(std::vector<std::uint8_t>& bytes) {
    bytes.clear();
    if (!runFile) return;
    const qint64 length = std::min<qint64>(runFile->size(), std::numeric_limits<std::int32_t>::max() - 3);
    try {
        bytes.reserve(static_cast<std::size_t>(length) + 2); // room for the one byte that it is appended to
        bytes.resize(static_cast<std::size_t>(length) + 1, 0);
    } catch (const std::bad_alloc&) { // the file is larger than memory: there is nothing to play
        bytes = {};
        return;
    }
    runFile->seek(0);
    runFile->read(reinterpret_cast<char*>(bytes.data()), length);
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

std::uint32_t dataSourceOpenings() {
    return openings;
}

bool OpenDataSource() {
    CloseDataSource();
    ++openings;
    const QStringList fields = DataSourceDescriptor.split(u',');
    const SourceKind kind = kindOf(fields.value(0));
    if (kind == SourceKind::None) {
        // A kind that nobody knows has been given its storage by now, an empty descriptor has not.
        if (!fields.value(0).isEmpty()) StreamBytes.assign(1, 0);
        sayNoSource();
        return false;
    }
    StreamBytes.assign(1, 0);
    switch (kind) {
    case SourceKind::Serial: {
        const bool opened = fields.size() > 2 && OpenPort(fields.value(1).toInt(), fields.value(2).toInt());
        TimeBase = kLiveTimeBase;
        return opened;
    }
    case SourceKind::Gsm:
        sayNotBuilt();
        TimeBase = kLiveTimeBase;
        return false;
    default:
        break;
    }
    const bool opened = openRunFile(fields.value(1));
    TimeBase = kNotStartedTimeBase;
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
    StreamBytes = {}; // with its storage: a run file may have a gigabyte
}

} // namespace vistor
