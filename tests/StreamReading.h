// Reads a stream as the decoding loop does, and keeps all of it for a test to look at.
#pragma once

#include "acquisition/StreamDecoder.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <utility>

namespace vistor {

using Bytes = std::vector<std::uint8_t>;

struct Message {
    std::int32_t number = 0;
    std::vector<std::pair<std::int32_t, double>> values;
    bool operator==(const Message&) const = default;
};

struct Reading {
    std::vector<Message> messages;
    std::vector<JunkReason> junk;
    int skipped = 0;
};

/// Asks for messages as the decoding loop does, with a new decoder, until there are no more for now. Fails
/// where the decoder breaks what the loop relies on.
inline void readOn(const Bytes& bytes, std::int32_t& position, Reading& reading) {
    StreamDecoder decoder;
    std::array<double, 21> values{};
    std::array<std::int32_t, 21> channels{};
    std::span<const std::uint8_t> raw;
    std::int32_t count = -1, second = -1, third = -1, number = -1, status = kMessageDecoded;
    const auto last = static_cast<std::int32_t>(bytes.size()) - 1;
    while (status != kNoMessageNow) {
        const std::int32_t before = position;
        decoder.DecodeMessage(bytes, position, last, values, channels, count, raw, second, third, number,
                              status, true);
        ASSERT_LE(position, std::max(last, 0));
        ASSERT_GE(position, before);
        ASSERT_TRUE(status == kNoMessageNow || position > before) << "no progress";
        reading.skipped += second;
        if (third != 0) reading.junk.push_back(static_cast<JunkReason>(third));
        if (status != kMessageDecoded) continue;
        ASSERT_LE(count, 21);
        Message message{number, {}};
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
            message.values.emplace_back(channels[i], values[i]);
        reading.messages.push_back(message);
    }
}

inline Reading readAll(const Bytes& bytes) {
    Reading reading;
    std::int32_t position = 0;
    readOn(bytes, position, reading);
    return reading;
}

} // namespace vistor
