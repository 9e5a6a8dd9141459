#pragma once

#include <span>
#include <string>
#include <string_view>

namespace kr {

/// The text between double quotes, as messages name things.
std::string inQuotes(std::string_view text);

/// The number of insertions, removals, changes and swaps of neighbours that turn `a` into `b`, letter case apart, or
/// `limit` + 1 as soon as it is known to be more than `limit`.
unsigned editDistance(std::string_view a, std::string_view b, unsigned limit);

/// The word of `words` nearest to `text`, or an empty view when none is near enough to be what was meant: one edit for
/// up to 4 letters, and one more for every further 4, at most 4. The first of equals wins.
std::string_view nearest(std::string_view text, std::span<const std::string_view> words);

/// "did you mean "chord"?" when a word is near; else "known are "a", "b"" when the list is short enough to read; else
/// `otherwise`.
std::string suggestion(std::string_view text, std::span<const std::string_view> words, std::string_view otherwise = {});

}  // namespace kr
