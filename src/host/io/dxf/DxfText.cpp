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
  // A zero ends a text wherever text is kept.
  text = page.decode(bytes.substr(0, bytes.find('\0')));
  if (text.find(kCaret) != std::wstring::npos) resolveCarets(text);
}

void encodeText(const CodePage& page, std::wstring_view text, std::string& bytes) {
  constexpr wchar_t kFirstOutsideAscii = 0x80;
  const auto plain = [](wchar_t c) { return c >= L' ' && c < kFirstOutsideAscii && c != kCaret && c != L'\\'; };
  if (std::all_of(text.begin(), text.end(), plain)) {
    const std::size_t before = bytes.size();
    bytes.resize(before + text.size());
    std::transform(text.begin(), text.end(), bytes.begin() + std::ptrdiff_t(before), [](wchar_t c) { return char(c); });
    return;
  }
  text = text.substr(0, text.find(L'\0'));
  std::wstring escaped;
  for (const wchar_t letter : text) {
    const bool control = letter < L' ' && letter >= 0;
    if (letter == kCaret || control) escaped.push_back(kCaret);
    escaped.push_back(letter == kCaret ? L' ' : control ? wchar_t(letter + kControlBase) : letter);
  }
  bytes += page.encode(escaped);
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
