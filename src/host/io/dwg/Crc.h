#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace krio::dwg {

/// What the checksums of all parts of a drawing start from.
inline constexpr std::uint16_t kCrcStart = 0xC0C1;

/// The checksum of the bytes, 16 bits, polynomial 0xA001 reflected.
std::uint16_t crc16(std::span<const std::uint8_t> bytes, std::uint16_t start = kCrcStart);

}  // namespace krio::dwg
