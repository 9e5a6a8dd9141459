#include "host/companion/KrConfigSection.h"

#include <algorithm>
#include <string_view>

#include "host/os/os.h"

namespace {

std::wstring_view trimmed(std::wstring_view text) {
  constexpr std::wstring_view kBlanks = L" \t\r\n";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::wstring_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::wstring folded(std::wstring_view key) {
  std::wstring text(key);
  std::transform(text.begin(), text.end(), text.begin(), os::lowerCase);
  return text;
}

bool isComment(std::wstring_view line) {
  return line.front() == L';' || line.front() == L'#';
}

bool isHeading(std::wstring_view line) {
  return line.front() == L'[' && line.back() == L']';
}

}  // namespace

int KrConfigSection::Load(const wchar_t* path) {
  os::TextReader file;
  if (!file.open(path)) return 0;
  bool isFound = false;
  bool isInside = false;
  std::wstring whole;
  while (file.line(whole)) {
    const std::wstring_view line = trimmed(whole);
    if (line.empty() || isComment(line)) continue;
    if (isHeading(line)) {
      isInside = os::compareNoCase(trimmed(line.substr(1, line.size() - 2)), name_.c_str()) == 0;
      isFound = isFound || isInside;
      continue;
    }
    const std::size_t sign = line.find(L'=');
    if (!isInside || sign == std::wstring_view::npos) continue;
    values_[folded(trimmed(line.substr(0, sign)))] = std::wstring(trimmed(line.substr(sign + 1)));
  }
  return isFound ? 1 : 0;
}

int KrConfigSection::getVar(const KrString& key, KrString& value) const {
  const auto found = values_.find(folded(key.c_str()));
  if (found == values_.end()) return 0;
  value = found->second.c_str();
  return 1;
}
