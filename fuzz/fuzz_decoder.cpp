// Any bytes as a stream: reading ends inside them, whole and in reads of any size gives the same, and every
// message that is found can be written and found again.
#include "acquisition/StreamDecoder.h"
#include "acquisition/StreamEncoder.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

using namespace vistor;
using Bytes = std::vector<std::uint8_t>;

struct Reading {
    std::int32_t position = 0;
    std::int64_t skipped = 0;
    Bytes bodies;
    Bytes rewritten;
};

void readOn(const Bytes& bytes, Reading& reading) {
    StreamDecoder decoder;
    std::array<double, 21> values{};
    std::array<std::int32_t, 21> channels{};
    std::span<const std::uint8_t> raw;
    std::int32_t count = 0, second = 0, third = 0, number = 0, status = 0;
    const auto last = static_cast<std::int32_t>(bytes.size()) - 1;
    while (status != kNoMessageNow) {
        const std::int32_t before = reading.position;
        decoder.DecodeMessage(bytes, reading.position, last, values, channels, count, raw, second, third,
                              number, status, true);
        if (reading.position > std::max(last, 0) || reading.position < before) std::abort();
        if (status != kNoMessageNow && reading.position == before) std::abort();
        reading.skipped += second;
        if (status != kMessageDecoded) continue;
        if (count < 0 || count > kMostMessageValues) std::abort();
        reading.bodies.insert(reading.bodies.end(), raw.begin(), raw.end());
        appendFrame(reading.rewritten, raw, frameChecksum(raw));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    if (size == 0) return 0;
    const std::size_t chunk = std::size_t{data[0]} + 1;
    const Bytes bytes(data + 1, data + size);
    Reading whole;
    readOn(bytes, whole);

    Reading chunked;
    Bytes buffer;
    for (std::size_t at = 0; at < bytes.size(); at += chunk) {
        const std::size_t end = std::min(at + chunk, bytes.size());
        buffer.insert(buffer.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at),
                      bytes.begin() + static_cast<std::ptrdiff_t>(end));
        readOn(buffer, chunked);
    }
    if (chunked.bodies != whole.bodies || chunked.skipped != whole.skipped) std::abort();

    Reading again;
    readOn(whole.rewritten, again);
    if (again.bodies != whole.bodies || again.skipped != 0) std::abort();
    return 0;
}
