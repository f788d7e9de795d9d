// Writes the logger's stream, for tools, tests and benchmarks; the program itself sends nothing. In:
// messages. Out: bytes behind those of the caller.
#pragma once

#include "acquisition/StreamFormat.h"

#include <cstdint>
#include <span>
#include <vector>

namespace vistor {

/// So far apart may the time messages of a recording be: a player takes at least one of them at each of its
/// ticks, and sparser ones would play too fast.
inline constexpr int kMostMillisecondsBetweenTimes = 20;

struct ChannelValue {
    std::uint16_t channel = 0;
    double value = 0;
};

enum class ValueWidth { bits32, bits64 };

/// Appends one frame. Its opening delimiter is left out where `stream` already ends with one. `number` is the
/// message's kind, 0 to 255. More than 21 values are not written: only the first 21 are taken.
void appendMessage(std::vector<std::uint8_t>& stream, std::uint8_t number,
                   std::span<const ChannelValue> values, ValueWidth width = ValueWidth::bits32);

/// Appends one frame round any body, with the checksum given: also ones that no reader takes.
void appendFrame(std::vector<std::uint8_t>& stream, std::span<const std::uint8_t> body,
                 std::uint16_t checksum);

/// The eight bytes with which a run file begins.
std::vector<std::uint8_t> runFileHead();

} // namespace vistor
