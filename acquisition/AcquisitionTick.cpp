#include "acquisition/AcquisitionTick.h"

#include "acquisition/DataSource.h"
#include "platform/Clock.h"
#include "platform/Events.h"

#include <algorithm>
#include <cstring>

namespace vistor {
namespace {

constexpr float kNoStreamTime =
    -1; ///< no time message was met yet; below every time, it starts a recording over

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

} // namespace

void AcquisitionTick::decode(double now) {
    if (TimeBase == kLiveTimeBase) {
        std::vector<std::uint8_t> arrived;
        ReadDataSource(arrived);
        ConcatanateBytes(StreamBytes, arrived);
        float target = 0;
        DecodeStream(StreamBytes, TickValues, TickUpdated, target, false);
    } else if (TimeBase == kNotStartedTimeBase) {
        const std::uint32_t opening = dataSourceOpenings();
        std::vector<std::uint8_t> recorded;
        ReadDataSource(recorded);
        ConcatanateBytes(StreamBytes, recorded);
        StreamStartTime = kNoStreamTime;
        DecodeStream(StreamBytes, TickValues, TickUpdated, StreamStartTime, true);
        // An event inside the loop may have closed the source or opened another one; its state then stands.
        if (TimeBase == kNotStartedTimeBase && opening == dataSourceOpenings())
            TimeBase = static_cast<float>(now);
    } else {
        auto target =
            static_cast<float>(now - static_cast<double>(TimeBase) + static_cast<double>(StreamStartTime));
        // A recording without any time message was consumed in its first tick; a target below 0 would start
        // it over.
        if (StreamStartTime == kNoStreamTime) target = std::max(target, 0.0F);
        DecodeStream(StreamBytes, TickValues, TickUpdated, target, true);
    }
}

void AcquisitionTick::sweep(const RefreshFunction& refreshControls) {
    for (std::size_t i = nextFlag(TickUpdated, 0); i < TickUpdated.size(); i = nextFlag(TickUpdated, i + 1)) {
        if (i < VariableTable.size()) refreshControls(VariableTable[i].PhysicalName, TickValues[i]);
        TickUpdated[i] = kFalse16;
    }
}

void AcquisitionTick::run(const RefreshFunction& refreshControls) {
    if (!PlayMode || InTick) return;
    InTick = true;
    TickValues.fill(0);
    TickUpdated.fill(kFalse16);
    decode(Timer());
    sweep(refreshControls);
    pumpEvents();
    InTick = false;
}

} // namespace vistor
