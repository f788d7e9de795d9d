#include "acquisition/StreamDecoder.h"

#include "acquisition/StreamEncoder.h"
#include "tests/StreamReading.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace vistor {
namespace {

void append(Bytes& stream, const Message& message, ValueWidth width = ValueWidth::bits64) {
    std::vector<ChannelValue> values;
    for (const auto& [channel, value] : message.values)
        values.push_back({static_cast<std::uint16_t>(channel), value});
    appendMessage(stream, static_cast<std::uint8_t>(message.number), values, width);
}

/// Messages whose bytes hold every one that has to be escaped, in heads, channels and values.
std::vector<Message> samples() {
    Message full{0x7E, {}};
    for (int i = 0; i < 21; ++i) full.values.emplace_back(0x7D00 + i * 0x7D, 1.0 / (i + 1));
    return {{1, {{1, 12.5}}},
            {0, {}},
            {18, {{2, 0.0}, {0x7E7D, -0.0}}},
            full,
            {0x7D, {{0, 1e300}, {65535, std::numeric_limits<double>::infinity()}}},
            {1, {{1, 12.52}}}};
}

Bytes framed(const std::vector<Message>& messages) {
    Bytes stream;
    for (const Message& message : messages) append(stream, message);
    return stream;
}

TEST(StreamDecoder, KnownBytes) {
    // Worked out by hand, the checksum by an independent bit-by-bit calculation.
    const Bytes time = {0x7E, 0x01, 0x01, 0x01, 0x7D, 0x20, 0x7D, 0x20, 0x7D, 0x20, 0x48, 0x41};
    const Bytes body = {0x01, 0x01, 0x01, 0x00, 0x00, 0x00, 0x48, 0x41};
    unsigned crc = 0xFFFF;
    for (const unsigned byte : body)
        for (unsigned bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ (((crc ^ (byte >> bit)) & 1) != 0 ? 0x8408 : 0);
    crc ^= 0xFFFF;
    const std::uint8_t check[] = {'1', '2', '3', '4', '5', '6', '7', '8', '9'};
    EXPECT_EQ(frameChecksum(check), 0x906E); // the checksum's published check value
    EXPECT_EQ(frameChecksum(body), crc);
    Bytes expected = time;
    expected.push_back(static_cast<std::uint8_t>(crc & 0xFF));
    expected.push_back(static_cast<std::uint8_t>(crc >> 8));
    expected.push_back(0x7E);
    Bytes made;
    append(made, {1, {{1, 12.5}}}, ValueWidth::bits32);
    EXPECT_EQ(made, expected);
    EXPECT_EQ(readAll(expected).messages, (std::vector<Message>{{1, {{1, 12.5}}}}));
}

TEST(StreamDecoder, RoundTripsBothWidths) {
    const Reading wide = readAll(framed(samples()));
    EXPECT_EQ(wide.messages, samples());
    EXPECT_TRUE(wide.junk.empty());

    std::mt19937 random(7);
    Bytes stream = runFileHead();
    std::vector<Message> sent;
    for (int i = 0; i < 2000; ++i) {
        Message message{static_cast<std::int32_t>(random() % 256), {}};
        for (auto left = random() % 22; left > 0; --left)
            message.values.emplace_back(random() % 8001, static_cast<float>(random()) /
                                                             static_cast<float>(random() % 1000 + 1));
        append(stream, message, random() % 2 != 0 ? ValueWidth::bits32 : ValueWidth::bits64);
        sent.push_back(message);
    }
    const Reading reading = readAll(stream);
    EXPECT_EQ(reading.messages, sent);
    EXPECT_EQ(reading.junk, (std::vector{JunkReason::outsideFrame})); // the head
    EXPECT_EQ(reading.skipped, 3);                                    // five of its eight bytes are zeros
}

/// True when `part` is `whole` with some messages missing.
bool isThinned(const std::vector<Message>& part, const std::vector<Message>& whole) {
    std::size_t next = 0;
    for (const Message& message : whole)
        if (next < part.size() && part[next] == message) ++next;
    return next == part.size();
}

TEST(StreamDecoder, AnyChangedByteLosesFramesAndNothingElse) {
    const Bytes stream = framed(samples());
    std::vector<int> changes = {0x20, 0x5D, 0x5E, 0x21, 0xFF, 0x7C};
    for (int bit = 0; bit < 8; ++bit) changes.push_back(1 << bit);
    for (std::size_t at = 0; at < stream.size(); ++at) {
        std::vector<int> others = {0, kFrameEscape, kFrameDelimiter}; // what the decoder gives a meaning to
        for (const int change : changes) others.push_back(stream[at] ^ change);
        for (const int other : others) {
            if (other == stream[at]) continue;
            Bytes damaged = stream;
            damaged[at] = static_cast<std::uint8_t>(other);
            const Reading reading = readAll(damaged);
            ASSERT_TRUE(isThinned(reading.messages, samples())) << at << " made " << other;
            ASSERT_LT(reading.messages.size(), samples().size()) << at << " made " << other;
            ASSERT_GE(reading.messages.size() + 2, samples().size()) << at << " made " << other;
        }
    }
}

TEST(StreamDecoder, ZerosAnywhereAreDropped) {
    const Bytes stream = framed(samples());
    for (const std::size_t zeros : {1U, 3U, 9U})
        for (std::size_t at = 0; at <= stream.size(); ++at) {
            Bytes dotted = stream;
            dotted.insert(dotted.begin() + static_cast<std::ptrdiff_t>(at), zeros, 0);
            const Reading reading = readAll(dotted);
            ASSERT_EQ(reading.messages, samples()) << zeros << " zeros at " << at;
            ASSERT_TRUE(reading.junk.empty());
        }
    Bytes everywhere;
    for (const std::uint8_t byte : stream) everywhere.insert(everywhere.end(), {byte, 0, 0});
    EXPECT_EQ(readAll(everywhere).messages, samples());
}

TEST(StreamDecoder, TruncatedStreamGivesTheWholeFramesOnly) {
    const Bytes stream = framed(samples());
    std::size_t complete = 0;
    for (std::size_t size = 0; size <= stream.size(); ++size) {
        const Reading head =
            readAll(Bytes(stream.begin(), stream.begin() + static_cast<std::ptrdiff_t>(size)));
        ASSERT_GE(head.messages.size(), complete);
        ASSERT_LE(head.messages.size(), complete + 1);
        complete = head.messages.size();
        ASSERT_TRUE(isThinned(head.messages, samples()));
        ASSERT_TRUE(head.junk.empty()) << "a half frame is not junk yet";
        const Reading tail = readAll(Bytes(stream.begin() + static_cast<std::ptrdiff_t>(size), stream.end()));
        ASSERT_TRUE(isThinned(tail.messages, samples()));
        ASSERT_GE(tail.messages.size() + head.messages.size() + 1, samples().size());
    }
    EXPECT_EQ(complete, samples().size());
}

TEST(StreamDecoder, ResumesWhateverTheSizeOfTheReads) {
    Bytes stream = {'n', 'o', 'i', 's', 'e'};
    for (const Message& message : samples()) append(stream, message);
    for (std::size_t chunk = 1; chunk <= stream.size(); ++chunk) {
        Bytes buffer = {0}; // as an opened source leaves it
        std::int32_t position = 0;
        Reading reading;
        for (std::size_t at = 0; at < stream.size(); at += chunk) {
            const std::size_t end = std::min(at + chunk, stream.size());
            buffer.insert(buffer.end(), stream.begin() + static_cast<std::ptrdiff_t>(at),
                          stream.begin() + static_cast<std::ptrdiff_t>(end));
            buffer.push_back(0); // each read of a port leaves one
            readOn(buffer, position, reading);
        }
        ASSERT_EQ(reading.messages, samples()) << "reads of " << chunk;
        ASSERT_EQ(reading.skipped, 5) << "reads of " << chunk;
    }
}

Bytes checked(Bytes body) {
    Bytes stream;
    appendFrame(stream, body, frameChecksum(body));
    return stream;
}

TEST(StreamDecoder, HostileBodies) {
    const Bytes entries(22 * kWideEntrySize, 0x55);
    const auto body = [&](std::uint8_t counts, std::size_t size) {
        Bytes made = {5, counts};
        made.insert(made.end(), entries.begin(), entries.begin() + static_cast<std::ptrdiff_t>(size));
        return checked(made);
    };
    const Bytes good = body(1, kNarrowEntrySize);
    const struct {
        const char* what;
        Bytes frame;
        JunkReason reason;
    } cases[] = {
        {"no value", body(0, 0), JunkReason::none},
        {"21 wide values", body(0x80 | 21, 21 * kWideEntrySize), JunkReason::none},
        {"22 narrow values", body(22, 22 * kNarrowEntrySize), JunkReason::badLength},
        {"22 wide values", body(0x80 | 22, 22 * kWideEntrySize), JunkReason::overLong},
        {"31 values claimed, one there", body(31, kNarrowEntrySize), JunkReason::badLength},
        {"one byte short", body(1, kNarrowEntrySize - 1), JunkReason::badLength},
        {"one byte over", body(1, kNarrowEntrySize + 1), JunkReason::badLength},
        {"wide flag on a narrow value", body(0x81, kNarrowEntrySize), JunkReason::badLength},
        {"unused bit set", body(0x21, kNarrowEntrySize), JunkReason::badLength},
        {"checksum alone", checked({}), JunkReason::badLength},
        {"three bytes", checked({5}), JunkReason::badLength},
        {"one byte", {0x7E, 0x01, 0x7E}, JunkReason::badLength},
        {"wrong checksum", {0x7E, 5, 0x7D, 0x20, 1, 1, 0x7E}, JunkReason::badChecksum},
        {"escape before the delimiter", {0x7E, 5, 0x7D, 0x7E}, JunkReason::badEscape},
        {"escape and a zero before the delimiter", {0x7E, 5, 0x7D, 0, 0x7E}, JunkReason::badEscape},
        {"escaped what needs none", {0x7E, 0x7D, 0x41, 0x7D, 0x20, 1, 1, 0x7E}, JunkReason::badEscape},
        {"escaped escape", {0x7E, 5, 0x7D, 0x7D, 0x20, 1, 1, 0x7E}, JunkReason::badEscape},
    };
    for (const auto& one : cases) {
        Bytes stream = one.frame;
        stream.insert(stream.end(), good.begin() + 1, good.end()); // the next frame shares the delimiter
        const Reading reading = readAll(stream);
        const bool taken = one.reason == JunkReason::none;
        EXPECT_EQ(reading.messages.size(), taken ? 2U : 1U) << one.what;
        EXPECT_EQ(reading.junk, taken ? std::vector<JunkReason>{} : std::vector{one.reason}) << one.what;
    }
}

TEST(StreamDecoder, LongRunsAreGivenUpBeforeTheirEnd) {
    const Bytes good = framed({{9, {{4, 100.0}}}});
    const struct {
        std::size_t size;
        std::uint8_t filling;
    } cases[] = {{kLongestSpan, 0}, {kLongestSpan + 1, 0}, {kLongestSpan, 0x55}, {kLongestSpan + 1, 0x55},
                 {100'000, 0x55},   {100'000, 0x7D},       {100'000, 0x7E},      {kLongestBody + 1, 0x55}};
    for (const auto& one : cases) {
        Bytes stream = {0x7E};
        stream.insert(stream.end(), one.size, one.filling);
        std::int32_t position = 0;
        Reading reading;
        readOn(stream, position, reading);
        EXPECT_TRUE(reading.messages.empty());
        // What is left to look through again is never more than the longest span.
        EXPECT_GE(position + static_cast<std::int32_t>(kLongestSpan) + 1,
                  static_cast<std::int32_t>(stream.size()));
        stream.insert(stream.end(), good.begin(), good.end());
        readOn(stream, position, reading);
        EXPECT_EQ(reading.messages.size(), 1U) << one.size << " bytes " << int{one.filling};
    }
}

TEST(StreamDecoder, PositionsAndIndexesOutsideTheBytes) {
    const Bytes stream = framed(samples());
    const auto size = static_cast<std::int32_t>(stream.size());
    const auto end =
        static_cast<std::int32_t>(std::find(stream.begin() + 1, stream.end(), 0x7E) - stream.begin());
    constexpr auto kLeast = std::numeric_limits<std::int32_t>::min();
    constexpr auto kMost = std::numeric_limits<std::int32_t>::max();
    const struct {
        std::int32_t position, last, status, after;
        bool empty = false;
    } cases[] = {{0, -1, kNoMessageNow, 0},
                 {0, kLeast, kNoMessageNow, 0},
                 {size, size - 1, kNoMessageNow, size},
                 {kMost, kMost, kNoMessageNow, kMost},
                 {0, kMost, kNoMessageNow, 0, true},
                 {0, 0, kNoMessageNow, 0},
                 {size - 1, kMost, kNoMessageNow, size - 1},
                 {kLeast, kMost, kMessageDecoded, end},
                 {0, end - 1, kNoMessageNow, 0},
                 {0, end, kMessageDecoded, end}};
    const Bytes nothing;
    for (const auto& one : cases) {
        StreamDecoder decoder;
        std::array<double, 21> values{};
        std::array<std::int32_t, 21> channels{};
        std::span<const std::uint8_t> raw;
        std::int32_t position = one.position, count = 0, second = 0, third = 0, number = 0, status = 77;
        decoder.DecodeMessage(one.empty ? nothing : stream, position, one.last, values, channels, count, raw,
                              second, third, number, status, true);
        EXPECT_EQ(status, one.status) << one.position << " to " << one.last;
        EXPECT_EQ(position, one.after) << one.position << " to " << one.last;
    }
}

TEST(StreamDecoder, NoiseIsReadToItsEnd) {
    std::mt19937 random(3);
    const std::uint8_t likely[] = {0x00, 0x7D, 0x7E, 0x20, 0x5D, 0x5E, 0x01};
    for (int round = 0; round < 300; ++round) {
        Bytes noise(random() % 6000);
        for (std::uint8_t& byte : noise)
            byte =
                round % 2 != 0 ? likely[random() % std::size(likely)] : static_cast<std::uint8_t>(random());
        readAll(noise);
        ASSERT_FALSE(testing::Test::HasFatalFailure());
    }
}

} // namespace
} // namespace vistor
