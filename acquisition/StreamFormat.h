// What the two ends of the logger's stream agree on: the bytes that mean something, the sizes and the
// checksum. docs/stream-format.md tells the whole of it. StreamEncoder writes such a stream, StreamDecoder
// reads it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace vistor {

inline constexpr std::uint8_t kFrameDelimiter = 0x7E; ///< stands before and behind every frame
inline constexpr std::uint8_t kFrameEscape = 0x7D;    ///< the next byte is to be XORed with kEscapeMask
inline constexpr std::uint8_t kEscapeMask = 0x20;

inline constexpr int kMostMessageValues = 21;          ///< values in one message
inline constexpr std::uint8_t kCountMask = 0x1F;       ///< the count in the second byte of a body
inline constexpr std::uint8_t kWideValuesFlag = 0x80;  ///< values are 64-bit; the other bits must be 0
inline constexpr std::size_t kBodyHeadSize = 2;        ///< message number, count
inline constexpr std::size_t kChecksumSize = 2;        ///< low byte first
inline constexpr std::size_t kNarrowEntrySize = 2 + 4; ///< channel, 32-bit float
inline constexpr std::size_t kWideEntrySize = 2 + 8;   ///< channel, 64-bit float
inline constexpr std::size_t kLongestBody =
    kBodyHeadSize + kMostMessageValues * kWideEntrySize + kChecksumSize;

/// Most bytes between two delimiters, strays included. The longest frame with every byte escaped and a stray
/// zero behind every byte takes less than a quarter of it.
inline constexpr std::size_t kLongestSpan = 4096;

inline constexpr int kEngineSpeedMessage = 18;       ///< its first value counts ignition pulses
inline constexpr std::int32_t kRunFileVersion = 200; ///< the second number of a run file's head

/// CRC-16/X-25 (polynomial 0x1021 reflected, start and final XOR 0xFFFF), eight bytes at a time.
std::uint16_t frameChecksum(std::span<const std::uint8_t> bytes);

} // namespace vistor
