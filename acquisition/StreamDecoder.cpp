#include "acquisition/StreamDecoder.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace vistor {
namespace {

static_assert(std::endian::native == std::endian::little, "values are taken from the stream as they lie");

constexpr auto kSpanLimit = static_cast<std::ptrdiff_t>(kLongestSpan);
constexpr std::uint64_t kLowBits = 0x0101010101010101U;
constexpr std::uint64_t kHighBits = 0x8080808080808080U;

template <typename T>
T load(const std::uint8_t* from) {
    T value;
    std::memcpy(&value, from, sizeof value);
    return value;
}

/// Marks the top bit of each zero byte of a word. Marks above the lowest one may be wrong.
constexpr std::uint64_t zeroBytes(std::uint64_t word) {
    return (word - kLowBits) & ~word & kHighBits;
}

const std::uint8_t* findDelimiter(const std::uint8_t* from, const std::uint8_t* end) {
    return static_cast<const std::uint8_t*>(
        std::memchr(from, kFrameDelimiter, static_cast<std::size_t>(end - from)));
}

/// Bytes that a serial read did not put there by itself.
std::size_t junkBytes(const std::uint8_t* from, const std::uint8_t* to) {
    return static_cast<std::size_t>(to - from - std::count(from, to, 0));
}

constexpr bool needsEscape(int byte) {
    return byte == 0 || byte == kFrameEscape || byte == kFrameDelimiter;
}

struct Unescaped {
    JunkReason reason = JunkReason::none;
    std::size_t size = 0;
};

/// Copies bytes up to the first zero or escape, eight at a time, as long as eight are left. Almost every
/// entry of a message holds an escape (the high byte of a channel below 256), so a word is looked at only
/// once more behind each.
void copyPlain(const std::uint8_t*& in, const std::uint8_t* end, std::uint8_t*& to,
               const std::uint8_t* limit) {
    while (end - in >= 8 && to <= limit) {
        const auto word = load<std::uint64_t>(in);
        const std::uint64_t special = zeroBytes(word) | zeroBytes(word ^ (kLowBits * kFrameEscape));
        std::memcpy(to, &word, sizeof word);
        const int plain = special == 0 ? 8 : std::countr_zero(special) / 8;
        in += plain;
        to += plain;
        if (special != 0) return;
    }
}

/// Steps over zeros; false when nothing is left.
bool skipZeros(const std::uint8_t*& in, const std::uint8_t* end) {
    while (in < end && *in == 0) ++in;
    return in < end;
}

/// Copies what lies between two delimiters without zeros and escapes. `out` has room for kLongestBody bytes
/// and one word more.
Unescaped unescape(const std::uint8_t* in, const std::uint8_t* end, std::uint8_t* const out) {
    const std::uint8_t* const limit = out + kLongestBody;
    std::uint8_t* to = out;
    while (true) {
        copyPlain(in, end, to, limit);
        if (!skipZeros(in, end)) break;
        if (to >= limit) return {JunkReason::overLong, 0};
        int byte = *in++;
        if (byte == kFrameEscape) {
            if (!skipZeros(in, end)) return {JunkReason::badEscape, 0};
            byte = *in++ ^ kEscapeMask;
            if (!needsEscape(byte)) return {JunkReason::badEscape, 0};
        }
        *to++ = static_cast<std::uint8_t>(byte);
    }
    if (to > limit) return {JunkReason::overLong, 0};
    return {JunkReason::none, static_cast<std::size_t>(to - out)};
}

/// Tells whether a body of this size is a whole message.
JunkReason checkBody(const std::uint8_t* body, std::size_t size) {
    if (size < kBodyHeadSize + kChecksumSize) return JunkReason::badLength;
    const bool wide = (body[1] & kWideValuesFlag) != 0;
    const std::size_t count = body[1] & kCountMask;
    const std::size_t entry = wide ? kWideEntrySize : kNarrowEntrySize;
    if ((body[1] & ~(kCountMask | kWideValuesFlag)) != 0 || count > kMostMessageValues ||
        size != kBodyHeadSize + count * entry + kChecksumSize)
        return JunkReason::badLength;
    const std::size_t covered = size - kChecksumSize;
    return frameChecksum({body, covered}) == load<std::uint16_t>(body + covered) ? JunkReason::none
                                                                                 : JunkReason::badChecksum;
}

template <typename Value>
void takeEntries(const std::uint8_t* from, std::size_t count, std::array<double, 21>& values,
                 std::array<std::int32_t, 21>& channels) {
    for (std::size_t i = 0; i < count; ++i, from += sizeof(std::uint16_t) + sizeof(Value)) {
        channels[i] = load<std::uint16_t>(from);
        values[i] = static_cast<double>(load<Value>(from + sizeof(std::uint16_t)));
    }
}

} // namespace

void StreamDecoder::DecodeMessage(const std::vector<std::uint8_t>& bytes, std::int32_t& position,
                                  std::int32_t lastIndex, std::array<double, 21>& values,
                                  std::array<std::int32_t, 21>& channels, std::int32_t& count,
                                  std::span<const std::uint8_t>& messageBytes, std::int32_t& second,
                                  std::int32_t& third, std::int32_t& messageNumber, std::int32_t& status,
                                  bool /*flag*/) {
    count = second = third = messageNumber = 0;
    messageBytes = {};
    status = kNoMessageNow;
    const std::size_t size =
        std::min(bytes.size(), static_cast<std::size_t>(std::max(lastIndex, -1) + std::int64_t{1}));
    const auto start = static_cast<std::size_t>(std::max(position, 0));
    if (start >= size) return;

    const Step step = findBody(bytes.data() + start, bytes.data() + size);
    position = static_cast<std::int32_t>(step.resumeAt - bytes.data());
    second = static_cast<std::int32_t>(step.skipped);
    third = static_cast<std::int32_t>(step.reason);
    status = step.status;
    if (status != kMessageDecoded) return;

    const std::uint8_t* body = m_body.data();
    messageNumber = body[0];
    count = body[1] & kCountMask;
    messageBytes = {body, step.bodySize - kChecksumSize};
    const auto take = (body[1] & kWideValuesFlag) != 0 ? takeEntries<double> : takeEntries<float>;
    take(body + kBodyHeadSize, static_cast<std::size_t>(count), values, channels);
}

StreamDecoder::Step StreamDecoder::findBody(const std::uint8_t* from, const std::uint8_t* end) {
    if (*from != kFrameDelimiter) {
        const std::uint8_t* delimiter = findDelimiter(from, end);
        const std::uint8_t* resumeAt = delimiter != nullptr ? delimiter : end - 1;
        const std::size_t skipped = junkBytes(from, resumeAt);
        return {.resumeAt = resumeAt,
                .status = delimiter != nullptr ? kJunkSkipped : kNoMessageNow,
                .reason = skipped > 0 ? JunkReason::outsideFrame : JunkReason::none,
                .skipped = skipped};
    }
    while (true) {
        const std::uint8_t* first = from + 1;
        const bool overLong = end - first > kSpanLimit;
        const std::uint8_t* window = overLong ? first + kSpanLimit + 1 : end;
        const std::uint8_t* closing = findDelimiter(first, window);
        if (closing == nullptr && !overLong) return {.resumeAt = from};
        // Not waiting for the delimiter of such a run keeps the next call from looking through it again.
        if (closing == nullptr) return junk(first, window - 1, JunkReason::overLong);
        from = closing;
        Unescaped body = unescape(first, closing, m_body.data());
        if (body.reason == JunkReason::none && body.size == 0) continue; // nothing between two delimiters
        if (body.reason == JunkReason::none) body.reason = checkBody(m_body.data(), body.size);
        if (body.reason != JunkReason::none) return junk(first, closing, body.reason);
        return {.resumeAt = closing, .status = kMessageDecoded, .bodySize = body.size};
    }
}

StreamDecoder::Step StreamDecoder::junk(const std::uint8_t* from, const std::uint8_t* to, JunkReason reason) {
    return {.resumeAt = to, .status = kJunkSkipped, .reason = reason, .skipped = junkBytes(from, to)};
}

} // namespace vistor
