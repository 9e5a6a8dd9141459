#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kr {

/// Something wrong in an input file: where, and what would be right.
struct Problem {
  std::size_t offset = 0;  ///< of the value's first byte in the text
  std::size_t line = 0;    ///< from 1
  std::size_t column = 0;  ///< from 1, in characters
  std::string path;        ///< JSON pointer, "/members/3/profile"; "" is the whole
  std::string message;
};

/// Sorts by place and works out lines and columns from the offsets, in one walk over the text.
void placeProblems(std::string_view text, std::vector<Problem>& problems);

/// "roof.json:12:15: /members/3/profile: unknown profile ..." without a newline.
std::string describe(std::string_view file, const Problem& problem);

}  // namespace kr
