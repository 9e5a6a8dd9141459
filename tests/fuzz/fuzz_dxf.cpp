// The DXF reader takes any bytes: it ends with a drawing or with an error that is told, strictly and recovering, within
// its memory and its time; a drawing can be drawn, written, read again and written as the same bytes, and in the other
// form.
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "Drawings.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::startModule();
  fuzz::tryDrawing(fuzz::kDxf, fuzz::kDwg, std::as_bytes(std::span(data, size)));
  return 0;
}

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

/// The groups of a file: a line for the code, a line for the value.
std::vector<std::string> groupsOf(std::string_view text) {
  std::vector<std::string> groups;
  while (!text.empty()) {
    const std::size_t code = std::min(text.find('\n'), text.size() - 1) + 1;
    const std::size_t value = std::min(std::min(text.find('\n', code), text.size() - 1) + 1, text.size());
    groups.emplace_back(text.substr(0, std::max(code, value)));
    text.remove_prefix(groups.back().size());
  }
  return groups;
}

/// From one object's group 0 to before the next.
std::pair<std::size_t, std::size_t> objectAround(const std::vector<std::string>& groups, std::size_t place) {
  const auto begins = [&](std::size_t i) { return std::atoi(groups[i].c_str()) == 0; };
  std::size_t first = place;
  while (first > 0 && !begins(first)) --first;
  std::size_t last = place + 1;
  while (last < groups.size() && !begins(last)) ++last;
  return {first, last};
}

void giveValue(std::string& group, std::string_view value) {
  const std::size_t code = std::min(group.find('\n'), group.size() - 1) + 1;
  group.resize(code);
  group += value;
  group += '\n';
}

void giveCode(std::string& group, int code) {
  const std::size_t end = std::min(group.find('\n'), group.size());
  group.replace(0, end, std::to_string(code));
}

constexpr const char* kValues[] = {"0",
                                   "-1",
                                   "1",
                                   "255",
                                   "32767",
                                   "32768",
                                   "-32768",
                                   "2147483647",
                                   "-2147483648",
                                   "4294967295",
                                   "1e308",
                                   "-1e308",
                                   "1e-308",
                                   "nan",
                                   "inf",
                                   "0.5",
                                   "1e20",
                                   "FFFFFFFFFFFFFFFF",
                                   "0",
                                   "2",
                                   "10",
                                   "1F",
                                   "{ACAD_REACTORS",
                                   "}",
                                   "{ACAD_XDICTIONARY",
                                   "*Model_Space",
                                   "*U1",
                                   "",
                                   "\\U+0041",
                                   "%%d"};
constexpr int kCodes[] = {0,   1,   2,   3,   5,   6,   8,   10,   20,   30,   40,   41,   42,   50,   62,   66,  67,
                          70,  71,  72,  73,  74,  75,  90,  91,   92,   93,   97,   98,   100,  102,  105,  160, 210,
                          290, 310, 330, 340, 350, 360, 999, 1000, 1001, 1002, 1004, 1005, 1010, 1040, 1070, 1071};

void mutateOnce(std::vector<std::string>& groups, fuzz::Dice& dice) {
  const std::size_t place = dice.below(groups.size());
  const std::size_t other = dice.below(groups.size());
  switch (dice.below(9)) {
    case 0:
      groups.erase(groups.begin() + std::ptrdiff_t(place));
      break;
    case 1:
      groups.insert(groups.begin() + std::ptrdiff_t(other), std::string(groups[place]));
      break;
    case 2:
      std::swap(groups[place], groups[other]);
      break;
    case 3:
      giveValue(groups[place], kValues[dice.below(std::size(kValues))]);
      break;
    case 4:
      giveCode(groups[place], kCodes[dice.below(std::size(kCodes))]);
      break;
    case 5: {  // another group's value: handles and names that stand elsewhere
      const std::string& from = groups[other];
      const std::size_t code = std::min(from.find('\n'), from.size() - 1) + 1;
      giveValue(groups[place],
                std::string_view(from).substr(code, std::min(from.find_last_not_of("\r\n") + 1, from.size()) -
                                                        std::min(code, from.find_last_not_of("\r\n") + 1)));
      break;
    }
    case 6: {  // a whole object, elsewhere once more
      const auto [first, last] = objectAround(groups, place);
      const std::vector<std::string> object(groups.begin() + std::ptrdiff_t(first),
                                            groups.begin() + std::ptrdiff_t(last));
      groups.insert(groups.begin() + std::ptrdiff_t(objectAround(groups, other).first), object.begin(), object.end());
      break;
    }
    case 7: {
      const auto [first, last] = objectAround(groups, place);
      groups.erase(groups.begin() + std::ptrdiff_t(first), groups.begin() + std::ptrdiff_t(last));
      break;
    }
    default:
      groups.insert(groups.begin() + std::ptrdiff_t(place), std::to_string(kCodes[dice.below(std::size(kCodes))]) +
                                                                "\n" + kValues[dice.below(std::size(kValues))] + "\n");
  }
}

}  // namespace

/// Three times of four whole groups and objects are changed, so that most inputs are still files.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
  fuzz::Dice dice(seed);
  if (dice.below(4) == 0) return LLVMFuzzerMutate(data, size, maxSize);
  std::vector<std::string> groups = groupsOf({reinterpret_cast<const char*>(data), size});
  for (std::size_t times = 1 + dice.below(4); times > 0 && !groups.empty(); --times) mutateOnce(groups, dice);
  std::size_t length = 0;
  for (const std::string& group : groups) {
    if (length + group.size() > maxSize) break;
    std::memcpy(data + length, group.data(), group.size());
    length += group.size();
  }
  return length;
}
