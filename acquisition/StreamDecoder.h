// Finds messages in the logger's stream. Bytes enter by reference with a position; one message a call leaves,
// with the position moved behind it. What is no message is skipped: half frames, damaged frames, the head of
// a run file, noise.
//
// What is checked before a message is delivered: it stands between two delimiters not more than kLongestSpan
// apart; every escape is followed by one of the three bytes that have to be escaped; its length is exactly
// what its count and width ask for; the count is not above 21 and the unused bits beside it are 0; the
// checksum matches. Zeros are dropped wherever they stand, also between an escape and its byte. Not checked:
// channels (0 to 65535 are delivered) and values (also what is not finite).
//
// No state is kept from one call to the next but the position. It stands on a delimiter when a frame may
// follow; on any other byte the decoder looks for the next delimiter first. So it never has to point behind
// the last byte, and a half frame is taken up again from its opening delimiter when more bytes have come.
#pragma once

#include "acquisition/StreamFormat.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace vistor {

/// Answers of DecodeMessage.
inline constexpr std::int32_t kMessageDecoded = 0;
inline constexpr std::int32_t kJunkSkipped = 1; ///< no message, but the position moved; try again
inline constexpr std::int32_t kNoMessageNow = 2;

/// Why bytes were skipped.
enum class JunkReason : std::int32_t {
    none = 0,
    outsideFrame = 1, ///< before the first delimiter
    overLong = 2,     ///< more than a frame can hold between two delimiters
    badEscape = 3,
    badLength = 4, ///< too short, or not what its count asks for, or an impossible count
    badChecksum = 5,
};

/// Costs nothing to make; a new one may take up where another stopped.
class StreamDecoder {
public:
    // The buffer is deliberately left as it comes: it is written before it is read.
    StreamDecoder() {} // NOLINT(modernize-use-equals-default)

    /// Decodes the next complete message at or behind `position`. Reads nothing outside 0 to `lastIndex`, and
    /// a position inside them never leaves them. Either moves the position or answers kNoMessageNow.
    ///
    /// values, channels: the first `count` (0 to 21) entries are written when status is kMessageDecoded.
    /// messageBytes: the message without escapes and checksum, in the decoder's own memory, until the next
    /// call. second: bytes skipped as junk by this call.
    /// third: the JunkReason of them. status: only an
    /// output here, whatever it holds. flag: without meaning in this format.
    void DecodeMessage(const std::vector<std::uint8_t>& bytes, std::int32_t& position, std::int32_t lastIndex,
                       std::array<double, 21>& values, std::array<std::int32_t, 21>& channels,
                       std::int32_t& count, std::span<const std::uint8_t>& messageBytes, std::int32_t& second,
                       std::int32_t& third, std::int32_t& messageNumber, std::int32_t& status, bool flag);

private:
    /// What became of the bytes at the position.
    struct Step {
        const std::uint8_t* resumeAt;
        std::int32_t status = kNoMessageNow;
        JunkReason reason = JunkReason::none;
        std::size_t skipped = 0;  ///< bytes, zeros not counted
        std::size_t bodySize = 0; ///< of the message in m_body, with its checksum
    };
    Step findBody(const std::uint8_t* from, const std::uint8_t* end);
    static Step junk(const std::uint8_t* from, const std::uint8_t* to, JunkReason reason);

    // Words of eight bytes are written whole, so the last may begin where the longest body ends.
    std::array<std::uint8_t, kLongestBody + 8> m_body;
};

} // namespace vistor
