#include <string_view>

#include "host/ed/acut.h"
#include "host/os/os.h"

// A pattern is matched by walking it once, trying every tail of the text for each star; patterns of names are short.

namespace {

bool isLetter(wchar_t c) {
  return os::lowerCase(c) != os::upperCase(c);
}

bool isDigit(wchar_t c) {
  return c >= L'0' && c <= L'9';
}

/// Matches one character against the set that begins behind '['; moves `pattern` behind ']'. A set without end matches
/// nothing.
bool matchesSet(wchar_t c, std::wstring_view& pattern) {
  const std::size_t end = pattern.find(L']', 1);
  if (end == std::wstring_view::npos) {
    pattern = {};
    return false;
  }
  std::wstring_view set = pattern.substr(0, end);
  pattern.remove_prefix(end + 1);
  const bool negated = set.size() > 1 && set.front() == L'~';
  if (negated) set.remove_prefix(1);
  for (std::size_t i = 0; i < set.size(); ++i) {
    const bool range = i + 2 < set.size() && set[i + 1] == L'-';
    if (range ? c >= set[i] && c <= set[i + 2] : c == set[i]) return !negated;
    if (range) i += 2;
  }
  return negated;
}

bool matches(std::wstring_view text, std::wstring_view pattern) {
  while (!pattern.empty()) {
    const wchar_t p = pattern.front();
    pattern.remove_prefix(1);
    if (p == L'*') {
      for (std::size_t skip = 0; skip <= text.size(); ++skip) {
        if (matches(text.substr(skip), pattern)) return true;
      }
      return false;
    }
    if (text.empty()) return false;
    const wchar_t c = text.front();
    text.remove_prefix(1);
    bool fits = false;
    if (p == L'?') {
      fits = true;
    } else if (p == L'#') {
      fits = isDigit(c);
    } else if (p == L'@') {
      fits = isLetter(c);
    } else if (p == L'.') {
      fits = !isLetter(c) && !isDigit(c);
    } else if (p == L'[') {
      fits = matchesSet(c, pattern);
    } else if (p == L'`' && !pattern.empty()) {
      fits = c == pattern.front();
      pattern.remove_prefix(1);
    } else {
      fits = c == p;
    }
    if (!fits) return false;
  }
  return text.empty();
}

/// The part of the pattern up to a comma that stands in no set and isn't taken literally.
std::size_t alternativeEnd(std::wstring_view pattern) {
  bool inSet = false;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i] == L'`')
      ++i;
    else if (pattern[i] == L'[')
      inSet = true;
    else if (pattern[i] == L']')
      inSet = false;
    else if (pattern[i] == L',' && !inSet)
      return i;
  }
  return pattern.size();
}

}  // namespace

int acutWcMatch(const wchar_t* text, const wchar_t* pattern) {
  if (text == nullptr || pattern == nullptr) return RTERROR;
  std::wstring_view rest = pattern;
  while (true) {
    const std::size_t end = alternativeEnd(rest);
    std::wstring_view alternative = rest.substr(0, end);
    const bool negated = !alternative.empty() && alternative.front() == L'~';
    if (negated) alternative.remove_prefix(1);
    if (matches(text, alternative) != negated) return RTNORM;
    if (end == rest.size()) return RTERROR;
    rest.remove_prefix(end + 1);
  }
}
