#include "acquisition/StreamFormat.h"

#include <array>

namespace vistor {
namespace {

using Table = std::array<std::uint16_t, 256>;

/// Table k tells what a byte does to the checksum when k more bytes follow it.
constexpr std::array<Table, 8> makeTables() {
    constexpr unsigned kPolynomial = 0x8408; // 0x1021 with its bits reflected
    std::array<Table, 8> tables{};
    for (unsigned byte = 0; byte < 256; ++byte) {
        unsigned crc = byte;
        for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ ((crc & 1) != 0 ? kPolynomial : 0);
        tables[0][byte] = static_cast<std::uint16_t>(crc);
    }
    for (std::size_t k = 1; k < tables.size(); ++k)
        for (std::size_t byte = 0; byte < 256; ++byte) {
            const unsigned before = tables[k - 1][byte];
            tables[k][byte] = static_cast<std::uint16_t>((before >> 8) ^ tables[0][before & 0xFF]);
        }
    return tables;
}

constexpr std::array<Table, 8> kTables = makeTables();

} // namespace

std::uint16_t frameChecksum(std::span<const std::uint8_t> bytes) {
    unsigned crc = 0xFFFF;
    const std::uint8_t* p = bytes.data();
    std::size_t left = bytes.size();
    for (; left >= 8; left -= 8, p += 8)
        crc = static_cast<unsigned>(kTables[7][(crc ^ p[0]) & 0xFF] ^ kTables[6][(crc >> 8) ^ p[1]] ^
                                    kTables[5][p[2]] ^ kTables[4][p[3]] ^ kTables[3][p[4]] ^
                                    kTables[2][p[5]] ^ kTables[1][p[6]] ^ kTables[0][p[7]]);
    for (; left > 0; --left, ++p) crc = (crc >> 8) ^ kTables[0][(crc ^ *p) & 0xFF];
    return static_cast<std::uint16_t>(crc ^ 0xFFFF);
}

} // namespace vistor
