#include "Problem.h"

#include <algorithm>

namespace kr {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool startsCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

}  // namespace

void placeProblems(std::string_view text, std::vector<Problem>& problems) {
  std::stable_sort(problems.begin(), problems.end(),
                   [](const Problem& a, const Problem& b) { return a.offset < b.offset; });
  std::size_t at = text.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
  std::size_t line = 1;
  std::size_t column = 1;
  for (Problem& problem : problems) {
    for (; at < problem.offset && at < text.size(); ++at) {
      if (text[at] == '\n') {
        ++line;
        column = 1;
      } else if (startsCharacter(text[at])) {
        ++column;
      }
    }
    problem.line = line;
    problem.column = column;
  }
}

std::string describe(std::string_view file, const Problem& problem) {
  std::string out(file);
  out += ":" + std::to_string(problem.line) + ":" + std::to_string(problem.column) + ": ";
  if (!problem.path.empty()) out += problem.path + ": ";
  return out + problem.message;
}

}  // namespace kr
