#include "host/io/dwg/Crc.h"

#include <array>
#include <cstring>

namespace krio::dwg {

namespace {

using Table = std::array<std::uint16_t, 256>;
constexpr std::size_t kSlices = 16;

/// Table k tells what a byte does to the checksum when k bytes follow it, so that sixteen bytes go in one step.
constexpr std::array<Table, kSlices> makeTables() {
  constexpr std::uint16_t kPolynomial = 0xA001;
  std::array<Table, kSlices> tables{};
  for (std::size_t i = 0; i < 256; ++i) {
    auto crc = std::uint16_t(i);
    for (int bit = 0; bit < 8; ++bit) crc = std::uint16_t((crc & 1) != 0 ? (crc >> 1) ^ kPolynomial : crc >> 1);
    tables[0][i] = crc;
  }
  for (std::size_t k = 1; k < kSlices; ++k) {
    for (std::size_t i = 0; i < 256; ++i) {
      const std::uint16_t before = tables[k - 1][i];
      tables[k][i] = std::uint16_t((before >> 8) ^ tables[0][before & 0xff]);
    }
  }
  return tables;
}

constexpr std::array<Table, kSlices> kTables = makeTables();

}  // namespace

std::uint16_t crc16(std::span<const std::uint8_t> bytes, std::uint16_t start) {
  std::uint16_t crc = start;
  const std::uint8_t* p = bytes.data();
  std::size_t left = bytes.size();
  for (; left >= kSlices; left -= kSlices, p += kSlices) {
    std::uint64_t low, high;
    std::memcpy(&low, p, sizeof low);
    std::memcpy(&high, p + sizeof low, sizeof high);
    // All but two of the bytes don't wait for the step before.
    const auto rest = std::uint16_t(
        kTables[13][(low >> 16) & 0xff] ^ kTables[12][(low >> 24) & 0xff] ^ kTables[11][(low >> 32) & 0xff] ^
        kTables[10][(low >> 40) & 0xff] ^ kTables[9][(low >> 48) & 0xff] ^ kTables[8][low >> 56] ^
        kTables[7][high & 0xff] ^ kTables[6][(high >> 8) & 0xff] ^ kTables[5][(high >> 16) & 0xff] ^
        kTables[4][(high >> 24) & 0xff] ^ kTables[3][(high >> 32) & 0xff] ^ kTables[2][(high >> 40) & 0xff] ^
        kTables[1][(high >> 48) & 0xff] ^ kTables[0][high >> 56]);
    low ^= crc;
    crc = std::uint16_t(rest ^ kTables[15][low & 0xff] ^ kTables[14][(low >> 8) & 0xff]);
  }
  for (; left > 0; --left) crc = std::uint16_t((crc >> 8) ^ kTables[0][(crc ^ *p++) & 0xff]);
  return crc;
}

}  // namespace krio::dwg
