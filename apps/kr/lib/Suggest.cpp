#include "Suggest.h"

#include <algorithm>
#include <vector>

namespace kr {
namespace {

constexpr std::size_t kReadableList = 12;
constexpr unsigned kMostEdits = 4;
constexpr std::size_t kLongestCompared = 64;  // file data bounds no work here

char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

unsigned editsAllowed(std::size_t letters) {
  return std::min(kMostEdits, 1 + static_cast<unsigned>(letters > 0 ? (letters - 1) / 4 : 0));
}

}  // namespace

std::string inQuotes(std::string_view text) {
  return "\"" + std::string(text) + "\"";
}

unsigned editDistance(std::string_view a, std::string_view b, unsigned limit) {
  const std::size_t gap = a.size() > b.size() ? a.size() - b.size() : b.size() - a.size();
  if (gap > limit || a.size() > kLongestCompared || b.size() > kLongestCompared) return limit + 1;
  std::vector<unsigned> before(b.size() + 1), last(b.size() + 1), row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) last[j] = static_cast<unsigned>(j);
  for (std::size_t i = 1; i <= a.size(); ++i) {
    row[0] = static_cast<unsigned>(i);
    unsigned best = row[0];
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const unsigned change = lower(a[i - 1]) == lower(b[j - 1]) ? 0 : 1;
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + change});
      const bool swapped = i > 1 && j > 1 && lower(a[i - 1]) == lower(b[j - 2]) && lower(a[i - 2]) == lower(b[j - 1]);
      if (swapped) row[j] = std::min(row[j], before[j - 2] + 1);
      best = std::min(best, row[j]);
    }
    if (best > limit) return limit + 1;
    before.swap(last);
    last.swap(row);
  }
  return std::min(last[b.size()], limit + 1);
}

std::string_view nearest(std::string_view text, std::span<const std::string_view> words) {
  unsigned limit = editsAllowed(text.size());
  std::string_view found;
  for (const std::string_view word : words) {
    const unsigned distance = editDistance(text, word, limit);
    if (distance > limit || (!found.empty() && distance >= limit)) continue;
    found = word;
    limit = distance;
  }
  return found;
}

std::string suggestion(std::string_view text, std::span<const std::string_view> words, std::string_view otherwise) {
  if (const std::string_view near = nearest(text, words); !near.empty()) {
    return "did you mean " + inQuotes(near) + "?";
  }
  if (words.empty() || words.size() > kReadableList) return std::string(otherwise);
  std::string list = "known are ";
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (i > 0) list += ", ";
    list += inQuotes(words[i]);
  }
  return list;
}

}  // namespace kr
