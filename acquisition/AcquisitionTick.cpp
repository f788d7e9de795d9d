#include "acquisition/AcquisitionTick.h"

#include "acquisition/DataSource.h"
#include "platform/Clock.h"
#include "platform/Events.h"
#include "platform/IniFile.h"
#include "platform/Notices.h"

#include <QFileInfo>
#include <QScopedValueRollback>

#include <algorithm>
#include <cstring>

namespace vistor {
namespace {

constexpr float kNoStreamTime =
    -1; ///< no time message was met yet; below every time, it starts a recording over

/// Bytes of a live line that may wait to be decoded; beyond it the line itself has to wait.
constexpr std::int64_t kMostWaiting = 65536;

/// The first flagged element at or behind `from`, or the count. Most flags are off: eight bytes are looked at
/// at once.
std::size_t nextFlag(const TickFlagArray& flags, std::size_t from) {
    constexpr std::size_t kStep = sizeof(std::uint64_t) / sizeof(Bool16);
    for (; from + kStep <= flags.size(); from += kStep) {
        std::uint64_t several = 0;
        std::memcpy(&several, &flags[from], sizeof several);
        if (several != 0) break;
    }
    while (from < flags.size() && !flags[from]) ++from;
    return from;
}

SliceLimits oneSlice() {
    return {std::chrono::steady_clock::now() +
            std::chrono::milliseconds(AcquisitionTick::kSliceMilliseconds)};
}

/// Appends the next piece of the run file.
bool appendRecorded(std::vector<std::uint8_t>& bytes) {
    if (RunFileHandle <= 0) return false;
    std::vector<std::uint8_t> piece;
    ReadDataSource(piece);
    if (piece.empty()) return false;
    ConcatanateBytes(bytes, piece);
    return true;
}

QString runFileName() {
    return QStringLiteral("The run file \"%1\" ")
        .arg(QFileInfo(DataSourceDescriptor.section(u',', 1, 1)).fileName());
}

} // namespace

void startPlayClock() {
    const QString kept =
        readIniValue(SettingsPath, QStringLiteral("VXVISTOR"), QStringLiteral("MIDNIGHT"), QString(), 16);
    startClock(kept.compare(QLatin1String("wrap"), Qt::CaseInsensitive) == 0);
}

void AcquisitionTick::begin() {
    if (m_opening == dataSourceOpenings()) return;
    m_opening = dataSourceOpenings();
    m_countBefore = streamCounts().messages;
    m_state = {};
    m_told = false;
    if (TimeBase != kNotStartedTimeBase) return;
    StreamStartTime = kNoStreamTime;
    StreamPos = 0;
    appendRecorded(StreamBytes);
}

void AcquisitionTick::decodeLive() {
    if (static_cast<std::int64_t>(StreamBytes.size()) - StreamPos < kMostWaiting) {
        std::vector<std::uint8_t> arrived;
        ReadDataSource(arrived);
        ConcatanateBytes(StreamBytes, arrived);
    } else {
        tellOnce(
            QStringLiteral("The samples come faster than they can be worked on: what is shown comes late. "
                           "Look for slow scripts among the formulas."));
    }
    float target = 0;
    decodeSlice(StreamBytes, TickValues, TickUpdated, target, false, oneSlice());
}

SliceEnd AcquisitionTick::decodeRecorded(float& target) {
    const std::uint64_t before = streamCounts().messages;
    SliceLimits limits = oneSlice();
    if (!m_state.ended) limits.more = appendRecorded;
    const SliceEnd end = decodeSlice(StreamBytes, TickValues, TickUpdated, target, true, limits);
    if (end == SliceEnd::timeOver) tellOfJunk(streamCounts().messages == before);
    if (end == SliceEnd::outOfBytes && !m_state.ended) tellOfEnd();
    return end;
}

void AcquisitionTick::decodeFirst(double now) {
    const SliceEnd end = decodeRecorded(StreamStartTime);
    // An event inside the loop may have closed the source or opened another one; its state then stands.
    if (end == SliceEnd::stopped || end == SliceEnd::timeOver || TimeBase != kNotStartedTimeBase) return;
    TimeBase = static_cast<float>(now);
}

void AcquisitionTick::decodeOn(double now) {
    auto target =
        static_cast<float>(now - static_cast<double>(TimeBase) + static_cast<double>(StreamStartTime));
    // A recording without any time message is consumed as it comes; a target below 0 would start it over.
    if (StreamStartTime == kNoStreamTime) target = std::max(target, 0.0F);
    if (target < 0) StreamPos = 0;
    decodeRecorded(target);
}

void AcquisitionTick::decode(double now) {
    begin();
    if (TimeBase == kLiveTimeBase)
        decodeLive();
    else if (TimeBase == kNotStartedTimeBase)
        decodeFirst(now);
    else
        decodeOn(now);
}

void AcquisitionTick::tellOnce(const QString& text) {
    if (!m_told) notify(text);
    m_told = true;
}

void AcquisitionTick::tellOfJunk(bool unread) {
    if (unread)
        tellOnce(runFileName() + QStringLiteral("has a long stretch that cannot be read. The next message "
                                                "is being looked for."));
    else if (StreamStartTime == kNoStreamTime)
        tellOnce(runFileName() +
                 QStringLiteral("has no time message so far. It is read on as fast as it goes "
                                "until one comes."));
}

void AcquisitionTick::tellOfEnd() {
    m_state.ended = true;
    if (RunFileHandle <= 0) return; // nothing was opened that it could be told of
    if (streamCounts().messages == m_countBefore)
        notify(runFileName() + QStringLiteral("holds no message that can be read: there is nothing to play. "
                                              "Choose another one (File > Set Data Source)."));
    else if (StreamStartTime == kNoStreamTime)
        notify(runFileName() +
               QStringLiteral("holds no time message to play it by. It was read to its end at "
                              "once, and the instruments show its last values."));
}

void AcquisitionTick::sweep(const RefreshFunction& refreshControls) {
    for (std::size_t i = nextFlag(TickUpdated, 0); i < TickUpdated.size(); i = nextFlag(TickUpdated, i + 1)) {
        if (i < VariableTable.size()) refreshControls(VariableTable[i].PhysicalName, TickValues[i]);
        TickUpdated[i] = kFalse16;
    }
}

void AcquisitionTick::run(const RefreshFunction& refreshControls) {
    if (!PlayMode || InTick) return;
    const QScopedValueRollback ticking(InTick, true);
    const InputHeld held;
    TickValues.fill(0);
    TickUpdated.fill(kFalse16);
    const std::uint64_t before = streamCounts().messages;
    decode(Timer());
    if (streamCounts().messages != before) m_state.lastMessage = steadySeconds();
    if (PlayMode) sweep(refreshControls); // else the instruments are those of edit mode already
    pumpEvents();
}

StreamState AcquisitionTick::state() const {
    StreamState state = m_state;
    if (m_opening == dataSourceOpenings())
        state.messages = streamCounts().messages - m_countBefore;
    else
        state = {};
    state.waits = InTick;
    return state;
}

} // namespace vistor
