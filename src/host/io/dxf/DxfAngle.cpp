#include "host/io/dxf/DxfAngle.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <numbers>

#include "host/io/dxf/DxfFormat.h"
#include "host/io/dxf/DxfNumber.h"

namespace krio::dxf {

namespace {

static_assert(std::numeric_limits<Wide>::digits > std::numeric_limits<double>::digits);
constexpr Wide kRadiansPerDegree = std::numbers::pi_v<Wide> / 180;

double radiansOf(Wide degrees) {
  return double(degrees * kRadiansPerDegree);
}

/// Reads plain decimals of up to 18 digits.
bool parseShort(std::string_view text, Wide& degrees) {
  constexpr std::ptrdiff_t kMaxDigits = 18;
  static constexpr std::uint64_t kPowers[] = {1,
                                              10,
                                              100,
                                              1000,
                                              10000,
                                              100000,
                                              1000000,
                                              10000000,
                                              100000000,
                                              1000000000,
                                              10000000000,
                                              100000000000,
                                              1000000000000,
                                              10000000000000,
                                              100000000000000,
                                              1000000000000000,
                                              10000000000000000,
                                              100000000000000000,
                                              1000000000000000000};
  const char* p = text.data();
  const char* const end = p + text.size();
  const bool negative = p != end && *p == '-';
  if (negative) ++p;
  if (end - p > kMaxDigits + 1) return false;
  std::uint64_t mantissa = 0;
  std::ptrdiff_t digits = 0;
  const char* point = nullptr;
  for (; p != end; ++p) {
    const unsigned digit = unsigned(*p) - unsigned('0');
    if (digit <= 9) {
      mantissa = mantissa * 10 + digit;
      ++digits;
    } else if (*p == '.' && point == nullptr) {
      point = p + 1;
    } else {
      return false;
    }
  }
  if (digits == 0 || digits > kMaxDigits) return false;
  degrees = Wide(mantissa) / Wide(kPowers[point != nullptr ? end - point : 0]);
  if (negative) degrees = -degrees;
  return true;
}

}  // namespace

bool parseWide(std::string_view text, Wide& value) {
  if (parseShort(text, value)) return true;
  double plain = 0;
  if (!parseReal(text, plain)) return false;
  value = plain;
  while (!text.empty() && (text.front() == ' ' || text.front() == '+')) text.remove_prefix(1);
  // Longer texts than a double needs are meant to the last digit.
  constexpr std::size_t kDoubleDigits = 17;
  Wide precise = 0;
  if (text.size() > kDoubleDigits &&
      std::from_chars(text.data(), text.data() + text.size(), precise).ec == std::errc()) {
    value = precise;
  }
  return true;
}

bool parseDegrees(std::string_view text, double& radians) {
  Wide degrees = 0;
  if (!parseWide(text, degrees)) return false;
  radians = radiansOf(degrees);
  return true;
}

namespace {

/// Writes a number with as few digits as make it read back so that `same` holds.
template <class Same>
char* formatWide(char* to, Wide value, Same same) {
  const auto readsBack = [&](const char* end) {
    Wide back = 0;
    return parseWide({to, std::size_t(end - to)}, back) && same(back);
  };
  constexpr double kScale = 10000.0;
  const double rounded = std::round(double(value) * kScale) / kScale;
  if (char* const end = formatReal(to, rounded); readsBack(end)) return end;
  if (char* const end = formatReal(to, double(value)); readsBack(end)) return end;
  // Digits that any decimal of a double keeps, and those that any Wide needs.
  constexpr int kFewest = std::numeric_limits<double>::digits10;
  constexpr int kMost = std::numeric_limits<Wide>::max_digits10;
  for (int digits = kFewest; digits <= kMost; ++digits) {
    const auto [end, error] = std::to_chars(to, to + kMaxWideLength, value, std::chars_format::general, digits);
    if (error == std::errc() && readsBack(end)) return end;
  }
  return formatReal(to, double(value));
}

}  // namespace

bool hasDegrees(double radians) {
  return std::isfinite(double(Wide(radians) / kRadiansPerDegree));
}

char* formatDegrees(char* to, double radians) {
  return formatWide(to, Wide(radians) / kRadiansPerDegree, [&](Wide back) { return radiansOf(back) == radians; });
}

char* formatRatio(char* to, double width, double height) {
  return formatWide(to, Wide(width) / height, [&](Wide back) { return widthOf(height, back) == width; });
}

}  // namespace krio::dxf
