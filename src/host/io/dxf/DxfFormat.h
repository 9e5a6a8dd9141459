#pragma once

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

/// Numbers as they are written into a file. Each function writes at `to`, which has room, and gives the end.
namespace krio::dxf {

/// Room that formatReal may need.
inline constexpr int kMaxRealLength = 32;

inline char* formatWhole(char* to, std::uint64_t value) {
  return std::to_chars(to, to + 20, value).ptr;
}

/// The fewest digits that read back as the same number; a whole number with a point and a zero. `value` is finite.
inline char* formatReal(char* to, double value) {
  // Most lengths of drawings are short decimals. One that n/10000 gives back for a whole n has these digits.
  constexpr double kScale = 10000.0;
  constexpr double kMaxShort = 9.0e10;
  constexpr int kDecimals = 4;
  if (std::fabs(value) < kMaxShort) {
    const double scaled = value * kScale;
    auto whole = std::int64_t(scaled + (scaled < 0 ? -0.5 : 0.5));
    if (double(whole) / kScale == value && (whole != 0 || !std::signbit(value))) {
      if (whole < 0) {
        *to++ = '-';
        whole = -whole;
      }
      to = formatWhole(to, std::uint64_t(whole) / 10000U);
      unsigned rest = unsigned(std::uint64_t(whole) % 10000U);
      *to++ = '.';
      for (int i = kDecimals - 1; i >= 0; --i) {
        to[i] = char('0' + rest % 10);
        rest /= 10;
      }
      int length = kDecimals;
      while (length > 1 && to[length - 1] == '0') --length;
      return to + length;
    }
  }
  char* const end = std::to_chars(to, to + kMaxRealLength, value).ptr;
  for (const char* p = to; p != end; ++p) {
    if (*p == '.' || *p == 'e') return end;
  }
  end[0] = '.';
  end[1] = '0';
  return end + 2;
}

/// Upper-case hexadecimal without leading zeros; 0 for none.
inline char* formatHandle(char* to, std::uint64_t handle) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  int length = 1;
  for (std::uint64_t rest = handle >> 4; rest != 0; rest >>= 4) ++length;
  for (int i = length - 1; i >= 0; --i) {
    to[i] = kDigits[handle & 0xF];
    handle >>= 4;
  }
  return to + length;
}

}  // namespace krio::dxf
