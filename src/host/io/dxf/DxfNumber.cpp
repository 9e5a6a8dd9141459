#include "host/io/dxf/DxfNumber.h"

#include <charconv>
#include <cmath>

namespace krio::dxf {

namespace {

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string_view withoutPlus(std::string_view text) {
  return text.size() > 1 && text[0] == '+' && text[1] != '-' ? text.substr(1) : text;
}

bool headsNumber(std::string_view text) {
  const std::size_t first = !text.empty() && text[0] == '-' ? 1 : 0;
  return text.size() > first && ((text[first] >= '0' && text[first] <= '9') || text[first] == '.');
}

}  // namespace

bool parseRealSlowly(std::string_view text, double& value) {
  const std::string_view number = withoutPlus(trimmed(text));
  // from_chars takes "nan" and "inf" too.
  if (!headsNumber(number)) return false;
  const char* const end = number.data() + number.size();
  double parsed = 0;
  const auto [stop, error] = std::from_chars(number.data(), end, parsed);
  if (stop != end) return false;
  if (error == std::errc::result_out_of_range) {
    const std::size_t exponent = number.find_first_of("eE");
    const bool vanishes =
        exponent != std::string_view::npos && exponent + 1 < number.size() && number[exponent + 1] == '-';
    if (!vanishes) return false;
    parsed = 0;
  } else if (error != std::errc()) {
    return false;
  }
  if (!std::isfinite(parsed)) return false;
  value = parsed;
  return true;
}

bool parseIntegerSlowly(std::string_view text, std::int64_t& value) {
  const std::string_view number = withoutPlus(trimmed(text));
  const char* const end = number.data() + number.size();
  std::int64_t parsed = 0;
  const auto [stop, error] = std::from_chars(number.data(), end, parsed);
  if (error == std::errc() && stop == end) {
    value = parsed;
    return true;
  }
  constexpr double kLimit = 9.0e15;
  double real = 0;
  if (!parseReal(number, real) || real != std::trunc(real) || std::fabs(real) > kLimit) return false;
  value = std::int64_t(real);
  return true;
}

bool parseHandleSlowly(std::string_view text, std::uint64_t& value) {
  constexpr std::ptrdiff_t kMaxDigits = 16;
  const std::string_view number = trimmed(text);
  const char* const end = number.data() + number.size();
  std::uint64_t parsed = 0;
  const auto [stop, error] = std::from_chars(number.data(), end, parsed, 16);
  if (error != std::errc() || stop != end || end - number.data() > kMaxDigits) return false;
  value = parsed;
  return true;
}

}  // namespace krio::dxf
