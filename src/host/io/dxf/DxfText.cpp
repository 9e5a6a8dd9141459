#include "host/io/dxf/DxfText.h"

#include <algorithm>

namespace krio::dxf {

namespace {

constexpr wchar_t kCaret = L'^';
constexpr wchar_t kControlBase = 64;

bool isPlain(char c) {
  return c >= ' ' && c != '^' && c != '\\';
}

void resolveCarets(std::wstring& text) {
  std::size_t to = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    wchar_t letter = text[i];
    if (letter == kCaret && i + 1 < text.size()) {
      const wchar_t next = text[i + 1];
      const bool isControl = next > kControlBase && next < kControlBase + L' ';
      if (next == L' ' || isControl) {
        letter = isControl ? wchar_t(next - kControlBase) : kCaret;
        ++i;
      }
    }
    text[to++] = letter;
  }
  text.resize(to);
}

}  // namespace

void decodeText(const CodePage& page, std::string_view bytes, std::wstring& text) {
  if (std::all_of(bytes.begin(), bytes.end(), isPlain)) {
    text.assign(bytes.begin(), bytes.end());
    return;
  }
  text.clear();
  // A zero ends a text wherever text is kept.
  page.decode(bytes.substr(0, bytes.find('\0')), text);
  if (text.find(kCaret) != std::wstring::npos) resolveCarets(text);
}

void encodeText(const CodePage& page, std::wstring_view text, std::string& bytes) {
  std::size_t run = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const wchar_t letter = text[i];
    if (letter != kCaret && letter >= L' ') continue;
    page.encode(text.substr(run, i - run), bytes);
    run = i + 1;
    if (letter == L'\0') return;
    bytes.push_back('^');
    bytes.push_back(letter == kCaret ? ' ' : char(letter + kControlBase));
  }
  page.encode(text.substr(run), bytes);
}

bool decodeHex(std::string_view digits, std::string& bytes) {
  while (!digits.empty() && digits.back() == ' ') digits.remove_suffix(1);
  while (!digits.empty() && digits.front() == ' ') digits.remove_prefix(1);
  if (digits.size() % 2 != 0) return false;
  const auto valueOf = [](char c) {
    if (c >= '0' && c <= '9') return c - '0';
    const char lower = char(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
  };
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    const int high = valueOf(digits[i]);
    const int low = valueOf(digits[i + 1]);
    if (high < 0 || low < 0) return false;
    bytes.push_back(char(high << 4 | low));
  }
  return true;
}

}  // namespace krio::dxf
