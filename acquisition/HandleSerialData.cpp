#include "acquisition/HandleSerialData.h"

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

/// Sends each value of a message through the pipeline. `output` lives as long as the decoding call: a sample
/// whose transformation fails takes the value of the sample before it.
void processMessage(Message& message, TickValueArray& values, TickFlagArray& updated, float& output) {
    if (message.number == kEngineSpeedMessage) divideByPulses(message.values[0]);
    prefetchRows(message);
    for (std::size_t i = 0; i < static_cast<std::size_t>(message.count); ++i) {
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
void runCalculatedRows(TickValueArray& values, TickFlagArray& updated, float& output) {
    // The list is asked for anew each time: a message box of a faulty formula lets other work run, a load
    // among it.
    for (std::size_t i = 0; i < calculatedRows().size(); ++i) {
        const std::int32_t number = calculatedRows()[i];
        const auto index = static_cast<std::size_t>(number);
        if (!hasFormula(VariableTable[index])) {
            values[index] = 0;
            updated[index] = kFalse16;
            continue;
        }
        updated[index] = kTrue16;
        TransformSample(number, values[index], output);
        const auto now = static_cast<double>(static_cast<float>(Timer()));
        values[index] = ProcessSample(number, output, now);
        LastValue[index] = values[index];
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

void DecodeStream(std::vector<std::uint8_t>& bytes, TickValueArray& values, TickFlagArray& updated,
                  float& targetTime, bool paced) {
    StreamDecoder decoder;
    Message message;
    float output = 0;
    if (targetTime < 0) StreamPos = 0;
    if (StreamPos >= static_cast<std::int64_t>(bytes.size())) StreamPos = 0;
    while (message.status != kNoMessageNow) {
        DoEvents();
        if (!HasBytes(bytes)) break; // also when an event closed the source in the middle of a burst
        decoder.DecodeMessage(bytes, StreamPos, static_cast<std::int32_t>(bytes.size()) - 1, message.values,
                              message.channels, message.count, message.bytes, message.second, message.third,
                              message.number, message.status, true);
        if (message.status != kMessageDecoded) continue;
        processMessage(message, values, updated, output);
        if (paced && reachesTarget(message, targetTime)) break;
    }
    compact(bytes);
    runCalculatedRows(values, updated, output);
}

} // namespace vistor
