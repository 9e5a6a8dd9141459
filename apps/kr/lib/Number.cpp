#include "Number.h"

#include <array>
#include <charconv>

namespace kr {
namespace {

constexpr std::size_t kLongestNumber = 400;  // the greatest double takes 309 digits before its point

}  // namespace

std::string shortest(double value) {
  std::array<char, kLongestNumber> buffer;
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
  return {buffer.data(), result.ptr};
}

std::string fixed(double value, int decimals) {
  std::array<char, kLongestNumber> buffer;
  const auto result =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, decimals);
  std::string text(buffer.data(), result.ptr);
  if (text.front() == '-' && text.find_first_of("123456789") == std::string::npos) text.erase(0, 1);
  return text;
}

}  // namespace kr
