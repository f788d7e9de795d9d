// Turns the bytes of the stream into samples. In: StreamBytes from StreamPos on. Out: values and flags of one
// tick, LastValue, and the calculated rows.
#pragma once

#include "variables/Constants.h"
#include "variables/GlobalVarsAndTypes.h"

#include <array>
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
/// without, it consumes all that is there. Lets pending events run between messages.
void DecodeStream(std::vector<std::uint8_t>& bytes, TickValueArray& values, TickFlagArray& updated,
                  float& targetTime, bool paced);

} // namespace vistor
