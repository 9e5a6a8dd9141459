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

// A double's worth of degrees can't name every double's worth of radians: the way goes through a wider mantissa.
using Wide = long double;
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

bool parseDegrees(std::string_view text, double& radians) {
  Wide degrees = 0;
  if (!parseShort(text, degrees)) {
    double plain = 0;
    if (!parseReal(text, plain)) return false;
    degrees = plain;
    while (!text.empty() && (text.front() == ' ' || text.front() == '+')) text.remove_prefix(1);
    // Longer texts than a double needs are meant to the last digit.
    constexpr std::size_t kDoubleDigits = 17;
    Wide precise = 0;
    if (text.size() > kDoubleDigits &&
        std::from_chars(text.data(), text.data() + text.size(), precise).ec == std::errc()) {
      degrees = precise;
    }
  }
  radians = radiansOf(degrees);
  return true;
}

char* formatDegrees(char* to, double radians) {
  const auto readsBack = [&](const char* end) {
    double back = 0;
    return parseDegrees({to, std::size_t(end - to)}, back) && back == radians;
  };
  const Wide degrees = Wide(radians) / kRadiansPerDegree;
  constexpr double kScale = 10000.0;
  const double rounded = std::round(double(degrees) * kScale) / kScale;
  if (char* const end = formatReal(to, rounded); readsBack(end)) return end;
  if (char* const end = formatReal(to, double(degrees)); readsBack(end)) return end;
  // Digits that any decimal of a double keeps, and those that any Wide needs.
  constexpr int kFewest = std::numeric_limits<double>::digits10;
  constexpr int kMost = std::numeric_limits<Wide>::max_digits10;
  for (int digits = kFewest; digits <= kMost; ++digits) {
    const auto [end, error] = std::to_chars(to, to + kMaxDegreesLength, degrees, std::chars_format::general, digits);
    if (error == std::errc() && readsBack(end)) return end;
  }
  return formatReal(to, double(degrees));
}

}  // namespace krio::dxf
