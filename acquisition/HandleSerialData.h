// Turns the bytes of the stream into samples. In: StreamBytes from StreamPos on. Out: values and flags of one
// tick, LastValue, and the calculated rows.
#pragma once

#include "variables/Constants.h"
#include "variables/GlobalVarsAndTypes.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <vector>

namespace vistor {

using TickValueArray = std::array<float, kVariableCount>;
using TickFlagArray = std::array<Bool16, kVariableCount>;

/// True when the array has storage.
bool HasBytes(const std::vector<std::uint8_t>& bytes);

/// Appends `addition` to `target` and empties it.
void ConcatanateBytes(std::vector<std::uint8_t>& target, std::vector<std::uint8_t>& addition);

/// Decodes messages from `bytes` and runs each value through the pipeline into `values`, `updated` and
/// LastValue; then runs the calculated rows. A `targetTime` below 0 starts over from the first byte. With
/// `paced` it stops at the first time message at or beyond `targetTime` and stores that message's time there;
/// without, it consumes all that is there. Lets pending events run between messages, and ends at once when
/// one of them leaves play mode or opens another source.
void DecodeStream(std::vector<std::uint8_t>& bytes, TickValueArray& values, TickFlagArray& updated,
                  float& targetTime, bool paced);

/// Where a slice of decoding ends besides at its target.
struct SliceLimits {
    /// Looked at about once a millisecond; one message is decoded in any case.
    std::chrono::steady_clock::time_point until = std::chrono::steady_clock::time_point::max();
    /// Asked for further bytes behind `bytes` when those there are used up; false when there are none.
    bool (*more)(std::vector<std::uint8_t>& bytes) = nullptr;
};

enum class SliceEnd { outOfBytes, targetReached, timeOver, stopped };

/// DecodeStream that goes on where it was, whatever the target, and ends in time.
SliceEnd decodeSlice(std::vector<std::uint8_t>& bytes, TickValueArray& values, TickFlagArray& updated,
                     float& targetTime, bool paced, const SliceLimits& limits);

/// What was decoded since the program started.
struct StreamCounts {
    std::uint64_t messages = 0;
    std::uint64_t samples = 0; ///< values of messages; calculated rows are none
};
const StreamCounts& streamCounts();

} // namespace vistor
