// Frame decode alone. The yardstick is a copy of the same bytes.
#include "acquisition/StreamDecoder.h"
#include "acquisition/StreamEncoder.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <random>

namespace vistor {
namespace {

constexpr std::size_t kStreamSize = 1U << 20; // stays in the second or third cache, as a tick's bytes do

/// Frames of 21 values on channels 200 to 220. Whole values hold zeros, which travel escaped.
std::vector<std::uint8_t> makeStream(ValueWidth width, bool whole) {
    std::mt19937 random(1);
    std::vector<std::uint8_t> stream;
    std::array<ChannelValue, kMostMessageValues> message;
    while (stream.size() < kStreamSize) {
        for (std::size_t i = 0; i < message.size(); ++i)
            message[i] = {static_cast<std::uint16_t>(200 + i),
                          static_cast<double>(whole ? random() % 1000 : random()) / (whole ? 1.0 : 1e6)};
        appendMessage(stream, 1, message, width);
    }
    return stream;
}

void decodeStream(benchmark::State& state, ValueWidth width, bool whole) {
    const std::vector<std::uint8_t> stream = makeStream(width, whole);
    const auto last = static_cast<std::int32_t>(stream.size() - 1);
    std::array<double, 21> values{};
    std::array<std::int32_t, 21> channels{};
    std::int32_t count = 0, second = 0, third = 0, number = 0, status = 0;
    std::span<const std::uint8_t> raw;
    std::int64_t valueCount = 0;
    for ([[maybe_unused]] auto _ : state) {
        StreamDecoder decoder;
        std::int32_t position = 0;
        do {
            decoder.DecodeMessage(stream, position, last, values, channels, count, raw, second, third, number,
                                  status, true);
            benchmark::DoNotOptimize(values);
            valueCount += count;
        } while (status != kNoMessageNow);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(stream.size()));
    state.SetItemsProcessed(valueCount);
}

void copyStream(benchmark::State& state) {
    const std::vector<std::uint8_t> stream = makeStream(ValueWidth::bits32, false);
    std::vector<std::uint8_t> target(stream.size());
    for ([[maybe_unused]] auto _ : state) {
        std::memcpy(target.data(), stream.data(), stream.size());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(stream.size()));
}

BENCHMARK_CAPTURE(decodeStream, 21 x 32 bit, ValueWidth::bits32, false);
BENCHMARK_CAPTURE(decodeStream, 21 x 32 bit whole numbers, ValueWidth::bits32, true);
BENCHMARK_CAPTURE(decodeStream, 21 x 64 bit, ValueWidth::bits64, false);
BENCHMARK(copyStream);

} // namespace
} // namespace vistor
