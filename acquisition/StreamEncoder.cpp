#include "acquisition/StreamEncoder.h"

#include "variables/Constants.h"

#include <algorithm>
#include <array>
#include <bit>

namespace vistor {
namespace {

template <typename Unsigned>
void appendLittleEndian(std::vector<std::uint8_t>& out, Unsigned value) {
    for (std::size_t i = 0; i < sizeof value; ++i)
        out.push_back(static_cast<std::uint8_t>((value >> (8 * i)) & 0xFF));
}

void appendEscaped(std::vector<std::uint8_t>& out, std::uint8_t byte) {
    if (byte == 0 || byte == kFrameEscape || byte == kFrameDelimiter) {
        out.push_back(kFrameEscape);
        byte ^= kEscapeMask;
    }
    out.push_back(byte);
}

} // namespace

void appendFrame(std::vector<std::uint8_t>& stream, std::span<const std::uint8_t> body,
                 std::uint16_t checksum) {
    if (stream.empty() || stream.back() != kFrameDelimiter) stream.push_back(kFrameDelimiter);
    for (const std::uint8_t byte : body) appendEscaped(stream, byte);
    appendEscaped(stream, static_cast<std::uint8_t>(checksum & 0xFF));
    appendEscaped(stream, static_cast<std::uint8_t>(checksum >> 8));
    stream.push_back(kFrameDelimiter);
}

void appendMessage(std::vector<std::uint8_t>& stream, std::uint8_t number,
                   std::span<const ChannelValue> values, ValueWidth width) {
    values = values.first(std::min<std::size_t>(values.size(), kMostMessageValues));
    std::vector<std::uint8_t> body;
    body.reserve(kLongestBody);
    const unsigned flag = width == ValueWidth::bits64 ? kWideValuesFlag : 0U;
    body.push_back(number);
    body.push_back(static_cast<std::uint8_t>(values.size() | flag));
    for (const ChannelValue& entry : values) {
        appendLittleEndian(body, entry.channel);
        if (width == ValueWidth::bits64)
            appendLittleEndian(body, std::bit_cast<std::uint64_t>(entry.value));
        else
            appendLittleEndian(body, std::bit_cast<std::uint32_t>(static_cast<float>(entry.value)));
    }
    appendFrame(stream, body, frameChecksum(body));
}

std::vector<std::uint8_t> runFileHead() {
    std::vector<std::uint8_t> head;
    appendLittleEndian(head, static_cast<std::uint32_t>(kFileMark));
    appendLittleEndian(head, static_cast<std::uint32_t>(kRunFileVersion));
    return head;
}

} // namespace vistor
