#include "acquisition/HandleSerialData.h"

#include "acquisition/DataSource.h"
#include "acquisition/StreamDecoder.h"
#include "platform/Clock.h"
#include "platform/Events.h"
#include "variables/SamplePipeline.h"
#include "variables/SetupVariables.h"

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr std::int32_t kCompactionThreshold = 1'000'000;
constexpr std::int64_t kWindow = 1 << 18; ///< bytes that one call of the decoder may look through

StreamCounts counts;

/// What one call of the decoder delivers.
struct Message {
    std::array<double, 21> values{};
    std::array<std::int32_t, 21> channels{};
    std::int32_t count = 0;
    std::span<const std::uint8_t> bytes;
    std::int32_t second = 0;
    std::int32_t third = 0;
    std::int32_t number = 0;
    std::int32_t status = 0;
};

bool isVariable(std::int32_t channel) {
    return channel >= 0 && channel < kVariableCount;
}

/// A value in 32 bits; false when it does not fit. What is not finite on the wire already goes through as it
/// is.
bool narrowed(double value, float& result) {
    result = static_cast<float>(value);
    return std::isfinite(result) || !std::isfinite(value);
}

/// Asks for the rows of a message before the first is worked on: the table is larger than the fast caches,
/// and the waits for its rows would add up.
void prefetchRows(const Message& message) {
    for (std::size_t i = 0; i < static_cast<std::size_t>(message.count); ++i) {
        const auto index = static_cast<std::size_t>(message.channels[i]);
        if (index >= VariableTable.size()) continue;
        __builtin_prefetch(&VariableTable[index]);
        __builtin_prefetch(reinterpret_cast<const char*>(&VariableTable[index]) + 64);
    }
}

/// Engine speed comes as pulses. A quotient that overflows is a failed step: the pulses stand.
void divideByPulses(double& pulses) {
    const double quotient = pulses / static_cast<double>(IgnitionPulsesPerRev);
    if (std::isfinite(quotient) || !std::isfinite(pulses)) pulses = quotient;
}

/// Tells when an event, one inside a formula's message box for example, ended the play or opened another
/// source: what was begun is not gone on with then.
class Stop {
public:
    bool operator()() const { return (m_playing && !PlayMode) || m_opening != dataSourceOpenings(); }

private:
    bool m_playing = PlayMode;
    std::uint32_t m_opening = dataSourceOpenings();
};

/// Sends each value of a message through the pipeline. `output` lives as long as the decoding call: a sample
/// whose transformation fails takes the value of the sample before it.
void processMessage(Message& message, TickValueArray& values, TickFlagArray& updated, float& output,
                    const Stop& stop) {
    ++counts.messages;
    counts.samples += static_cast<std::uint64_t>(message.count);
    if (message.number == kEngineSpeedMessage) divideByPulses(message.values[0]);
    prefetchRows(message);
    for (std::size_t i = 0; i < static_cast<std::size_t>(message.count) && !stop(); ++i) {
        const std::int32_t channel = message.channels[i];
        if (!isVariable(channel)) continue;
        const auto index = static_cast<std::size_t>(channel);
        const double now = Timer();
        updated[index] = kTrue16;
        float value = 0;
        if (narrowed(message.values[i], value)) TransformSample(channel, value, output);
        values[index] = ProcessSample(channel, output, now);
        LastValue[index] = values[index];
    }
}

/// True when a time message has reached the target time, which then becomes that message's time. A time that
/// is no number paces nothing.
bool reachesTarget(const Message& message, float& targetTime) {
    if (message.count != 1 || message.channels[0] != kTimeVariable) return false;
    const auto time = static_cast<float>(message.values[0]);
    if (!std::isfinite(time) || time < targetTime) return false;
    targetTime = time;
    return true;
}

/// Drops what was read once it is more than a megabyte. The new storage holds all that is left, but its last
/// byte becomes 0: one byte fewer is copied than there is room for.
void compact(std::vector<std::uint8_t>& bytes) {
    if (StreamPos <= kCompactionThreshold) return;
    const auto remaining = static_cast<std::int64_t>(bytes.size()) - 1 - StreamPos;
    if (remaining < 0) {
        bytes.clear();
        return;
    }
    bytes.erase(bytes.begin(), bytes.begin() + StreamPos);
    bytes.back() = 0;
    StreamPos = 0;
}

bool hasFormula(const VariableDefinition& row) {
    return row.UseCustomTrans && row.CustomTransformation != QStringLiteral("0");
}

/// Recomputes the calculated rows in the order of their numbers, whether or not anything arrived.
void runCalculatedRows(TickValueArray& values, TickFlagArray& updated, float& output, const Stop& stop) {
    // The list is asked for anew each time: a message box of a faulty formula lets other work run, a load
    // among it.
    for (std::size_t i = 0; i < calculatedRows().size() && !stop(); ++i) {
        const std::int32_t number = calculatedRows()[i];
        const auto index = static_cast<std::size_t>(number);
        if (!hasFormula(VariableTable[index])) {
            values[index] = 0;
            updated[index] = kFalse16;
            continue;
        }
        updated[index] = kTrue16;
        TransformSample(number, values[index], output);
        values[index] = ProcessSample(number, output, timeStamp(Timer()));
        LastValue[index] = values[index];
    }
}

/// The next message, looked for in the window behind StreamPos: a run of junk, however long, is gone through
/// window by window. kNoMessageNow only at the end of all bytes.
void decodeNext(StreamDecoder& decoder, const std::vector<std::uint8_t>& bytes, Message& message) {
    const auto last = static_cast<std::int64_t>(bytes.size()) - 1;
    const std::int64_t end = std::min(last, StreamPos + kWindow);
    decoder.DecodeMessage(bytes, StreamPos, static_cast<std::int32_t>(end), message.values, message.channels,
                          message.count, message.bytes, message.second, message.third, message.number,
                          message.status, true);
    if (message.status == kNoMessageNow && end < last) message.status = kJunkSkipped;
}

/// Gets more bytes once those that are there are used up; true when some came.
bool hasMore(std::vector<std::uint8_t>& bytes, const SliceLimits& limits) {
    compact(bytes);
    return limits.more && limits.more(bytes);
}

SliceEnd decodeMessages(std::vector<std::uint8_t>& bytes, TickValueArray& values, TickFlagArray& updated,
                        float& targetTime, bool paced, const SliceLimits& limits, float& output,
                        const Stop& stop) {
    StreamDecoder decoder;
    Message message;
    while (true) {
        const bool pumped = DoEvents();
        if (stop()) return SliceEnd::stopped;
        if (!HasBytes(bytes)) return SliceEnd::outOfBytes;
        decodeNext(decoder, bytes, message);
        if (message.status == kMessageDecoded) {
            processMessage(message, values, updated, output, stop);
            if (paced && reachesTarget(message, targetTime)) return SliceEnd::targetReached;
        } else if (message.status == kNoMessageNow && !hasMore(bytes, limits)) {
            return SliceEnd::outOfBytes;
        }
        if (pumped && std::chrono::steady_clock::now() >= limits.until) return SliceEnd::timeOver;
    }
}

} // namespace

bool HasBytes(const std::vector<std::uint8_t>& bytes) {
    return !bytes.empty();
}

void ConcatanateBytes(std::vector<std::uint8_t>& target, std::vector<std::uint8_t>& addition) {
    if (target.size() <
        addition.size()) { // the fewer bytes move: a whole recording comes behind a single one
        addition.insert(addition.begin(), target.begin(), target.end());
        target.swap(addition);
    } else {
        target.insert(target.end(), addition.begin(), addition.end());
    }
    addition = {};
}

SliceEnd decodeSlice(std::vector<std::uint8_t>& bytes, TickValueArray& values, TickFlagArray& updated,
                     float& targetTime, bool paced, const SliceLimits& limits) {
    float output = 0;
    const Stop stop;
    if (StreamPos >= static_cast<std::int64_t>(bytes.size())) StreamPos = 0;
    const SliceEnd end = decodeMessages(bytes, values, updated, targetTime, paced, limits, output, stop);
    if (end == SliceEnd::stopped || stop()) return SliceEnd::stopped;
    compact(bytes);
    runCalculatedRows(values, updated, output, stop);
    return end;
}

void DecodeStream(std::vector<std::uint8_t>& bytes, TickValueArray& values, TickFlagArray& updated,
                  float& targetTime, bool paced) {
    if (targetTime < 0) StreamPos = 0;
    decodeSlice(bytes, values, updated, targetTime, paced, {});
}

const StreamCounts& streamCounts() {
    return counts;
}

} // namespace vistor
