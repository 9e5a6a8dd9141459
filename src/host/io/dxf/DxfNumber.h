#pragma once

#include <cstdint>
#include <limits>
#include <string_view>

/// Numbers as they stand in the lines of a file. Blanks around a number are allowed; anything else beside it isn't.
namespace krio::dxf {

/// Reads any decimal that the format may hold, by its nearest double. False for other text, for NaN and infinities,
/// and for a number beyond the doubles.
bool parseRealSlowly(std::string_view text, double& value);

/// As parseRealSlowly.
inline bool parseReal(std::string_view text, double& value) {
  // A mantissa below 2^53 divided by a power of ten up to 10^22: both are exact, so the quotient is the nearest double.
  constexpr std::uint64_t kExact = std::uint64_t(1) << 53;
  constexpr std::ptrdiff_t kMaxDigits = 18;
  static constexpr double kPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8, 1e9,
                                       1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18};
  const char* p = text.data();
  const char* const end = p + text.size();
  const bool negative = p != end && *p == '-';
  if (negative) ++p;
  const char* const digits = p;
  if (end - digits > kMaxDigits) return parseRealSlowly(text, value);
  std::uint64_t mantissa = 0;
  for (; p != end; ++p) {
    const unsigned digit = unsigned(*p) - unsigned('0');
    if (digit > 9) break;
    mantissa = mantissa * 10 + digit;
  }
  std::ptrdiff_t decimals = 0;
  std::ptrdiff_t count = p - digits;
  if (p != end && *p == '.') {
    const char* const point = ++p;
    for (; p != end; ++p) {
      const unsigned digit = unsigned(*p) - unsigned('0');
      if (digit > 9) break;
      mantissa = mantissa * 10 + digit;
    }
    decimals = p - point;
    count += decimals;
  }
  if (p != end || count == 0 || mantissa > kExact) return parseRealSlowly(text, value);
  const double magnitude = double(mantissa) / kPowers[decimals];
  value = negative ? -magnitude : magnitude;
  return true;
}

/// As parseInteger.
bool parseIntegerSlowly(std::string_view text, std::int64_t& value);

/// False for text that is no whole number, or one outside of the limits. A real number without a fraction counts.
inline bool parseInteger(std::string_view text, std::int64_t& value) {
  constexpr std::ptrdiff_t kMaxDigits = 18;
  const char* p = text.data();
  const char* const end = p + text.size();
  while (p != end && *p == ' ') ++p;
  const bool negative = p != end && *p == '-';
  if (negative) ++p;
  if (p == end || end - p > kMaxDigits) return parseIntegerSlowly(text, value);
  std::int64_t parsed = 0;
  for (; p != end; ++p) {
    const unsigned digit = unsigned(*p) - unsigned('0');
    if (digit > 9) return parseIntegerSlowly(text, value);
    parsed = parsed * 10 + digit;
  }
  value = negative ? -parsed : parsed;
  return true;
}
template <class T>
bool parseInteger(std::string_view text, T& value) {
  std::int64_t wide = 0;
  if (!parseInteger(text, wide)) return false;
  // A file may hold the same bits as a signed or as an unsigned number.
  constexpr std::int64_t kTop = (std::int64_t(1) << (8 * sizeof(T))) - 1;
  if (wide < std::int64_t(std::numeric_limits<std::make_signed_t<T>>::min()) || wide > kTop) return false;
  value = T(wide);
  return true;
}

/// As parseHandle.
bool parseHandleSlowly(std::string_view text, std::uint64_t& value);

/// A handle in hexadecimal; 0 is one too. False for other text and for more than 16 digits.
inline bool parseHandle(std::string_view text, std::uint64_t& value) {
  constexpr std::size_t kMaxDigits = 16;
  if (text.empty() || text.size() > kMaxDigits) return parseHandleSlowly(text, value);
  std::uint64_t parsed = 0;
  for (const char c : text) {
    unsigned digit = unsigned(c) - unsigned('0');
    if (digit > 9) {
      digit = unsigned(c) - unsigned('A') + 10;
      if (digit < 10 || digit > 15) return parseHandleSlowly(text, value);
    }
    parsed = parsed << 4 | digit;
  }
  value = parsed;
  return true;
}

}  // namespace krio::dxf
