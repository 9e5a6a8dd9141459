#include "host/db/entities/MTextCodes.h"

namespace {

constexpr wchar_t kFixedSpace = 0xa0;

int hexDigit(wchar_t c) {
  if (c >= L'0' && c <= L'9') return c - L'0';
  if (c >= L'a' && c <= L'f') return c - L'a' + 10;
  if (c >= L'A' && c <= L'F') return c - L'A' + 10;
  return -1;
}

/// "\U+00E7": the character of four hexadecimal digits; 0 when they aren't there.
wchar_t unicodeSign(std::wstring_view digits) {
  constexpr std::size_t kDigits = 4;
  if (digits.size() < kDigits + 1 || digits[0] != L'+') return 0;
  int value = 0;
  for (std::size_t i = 1; i <= kDigits; ++i) {
    const int digit = hexDigit(digits[i]);
    if (digit < 0) return 0;
    value = value * 16 + digit;
  }
  return static_cast<wchar_t>(value);
}

/// The value of a code: up to the next semicolon.
std::wstring_view valueOf(std::wstring_view rest) {
  return rest.substr(0, rest.find(L';'));
}

/// A stacked fraction on one line: "1#2" and "1^2" read as one over the other too.
std::wstring unstacked(std::wstring_view value) {
  std::wstring text;
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value[i] == L'\\' && i + 1 < value.size()) {
      text += value[++i];
    } else {
      text += value[i] == L'^' || value[i] == L'#' ? L'/' : value[i];
    }
  }
  return text;
}

}  // namespace

namespace entities {

std::wstring plainMText(std::wstring_view contents) {
  constexpr std::wstring_view kSwitches = L"LlOoKk";       // on and off, without a value
  constexpr std::wstring_view kWithValue = L"ACcfFHQTWp";  // up to a semicolon
  std::wstring text;
  for (std::size_t i = 0; i < contents.size(); ++i) {
    const wchar_t c = contents[i];
    if (c == L'{' || c == L'}') continue;
    if (c != L'\\' || i + 1 == contents.size()) {
      text += c;
      continue;
    }
    const wchar_t code = contents[++i];
    const std::wstring_view rest = contents.substr(i + 1);
    if (code == L'P' || code == L'X' || code == L'N') {
      text += L'\n';
    } else if (code == L'~') {
      text += kFixedSpace;
    } else if (code == L'S') {
      text += unstacked(valueOf(rest));
      i += valueOf(rest).size() + 1;
    } else if (code == L'U' && unicodeSign(rest) != 0) {
      text += unicodeSign(rest);
      i += 5;
    } else if (kWithValue.find(code) != std::wstring_view::npos) {
      i += valueOf(rest).size() + 1;
    } else if (kSwitches.find(code) == std::wstring_view::npos) {
      text += code;  // \\ \{ \} stand for themselves, as does what is no code
    }
  }
  return text;
}

}  // namespace entities
