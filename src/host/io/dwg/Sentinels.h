#pragma once

#include <array>
#include <cstdint>

namespace krio::dwg {

using Sentinel = std::array<std::uint8_t, 16>;

/// An end sentinel is the complement of its begin sentinel, byte by byte.
constexpr Sentinel complementOf(const Sentinel& sentinel) {
  Sentinel result{};
  for (std::size_t i = 0; i < result.size(); ++i) result[i] = std::uint8_t(~sentinel[i]);
  return result;
}

inline constexpr Sentinel kHeaderEnd = {0x95, 0xA0, 0x4E, 0x28, 0x99, 0x82, 0x1A, 0xE5,
                                        0x5E, 0x41, 0xE0, 0x5F, 0x9D, 0x3A, 0x4D, 0x00};
inline constexpr Sentinel kVariablesBegin = {0xCF, 0x7B, 0x1F, 0x23, 0xFD, 0xDE, 0x38, 0xA9,
                                             0x5F, 0x7C, 0x68, 0xB8, 0x4E, 0x6D, 0x33, 0x5F};
inline constexpr Sentinel kClassesBegin = {0x8D, 0xA1, 0xC4, 0xB8, 0xC4, 0xA9, 0xF8, 0xC5,
                                           0xC0, 0xDC, 0xF4, 0x5F, 0xE7, 0xCF, 0xB6, 0x8A};
inline constexpr Sentinel kPreviewBegin = {0x1F, 0x25, 0x6D, 0x07, 0xD4, 0x36, 0x28, 0x28,
                                           0x9D, 0x57, 0xCA, 0x3F, 0x9D, 0x44, 0x10, 0x2B};
inline constexpr Sentinel kSecondHeaderBegin = {0xD4, 0x7B, 0x21, 0xCE, 0x28, 0x93, 0x9F, 0xBF,
                                                0x53, 0x24, 0x40, 0x09, 0x12, 0x3C, 0xAA, 0x01};
inline constexpr Sentinel kVariablesEnd = complementOf(kVariablesBegin);
inline constexpr Sentinel kClassesEnd = complementOf(kClassesBegin);
inline constexpr Sentinel kPreviewEnd = complementOf(kPreviewBegin);
inline constexpr Sentinel kSecondHeaderEnd = complementOf(kSecondHeaderBegin);

}  // namespace krio::dwg
