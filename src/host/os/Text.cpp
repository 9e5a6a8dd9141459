#include "host/os/Text.h"

#include <charconv>
#include <climits>
#include <cwchar>

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kLastCharacter = 0x10FFFF;

// What the bytes 0x80 to 0x9F mean in Windows-1252; the five that mean nothing there keep their own value.
constexpr wchar_t kWindows1252High[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                          0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                          0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                          0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr bool isSurrogate(char32_t c) {
  return c >= 0xD800 && c <= 0xDFFF;
}

// Reads one character at `place` and moves past it; false when the bytes are no well-formed UTF-8.
bool readCharacter(std::string_view bytes, std::size_t& place, char32_t& character) {
  const auto lead = static_cast<unsigned char>(bytes[place]);
  if (lead < 0x80) {
    character = lead;
    ++place;
    return true;
  }
  const std::size_t more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
  if (lead < 0xC2 || lead > 0xF4 || bytes.size() - place <= more) return false;
  character = lead & (0x3FU >> more);
  for (std::size_t i = 1; i <= more; ++i) {
    const auto next = static_cast<unsigned char>(bytes[place + i]);
    if ((next & 0xC0U) != 0x80) return false;
    character = (character << 6U) | (next & 0x3FU);
  }
  constexpr char32_t kLeast[] = {0, 0x80, 0x800, 0x10000};
  if (character < kLeast[more] || character > kLastCharacter || isSurrogate(character)) return false;
  place += more + 1;
  return true;
}

void appendCharacter(std::string& bytes, char32_t c) {
  const auto put = [&](char32_t value) { bytes.push_back(static_cast<char>(value)); };
  const auto putTail = [&](char32_t value) { put(0x80 | (value & 0x3F)); };
  if (c < 0x80) {
    put(c);
  } else if (c < 0x800) {
    put(0xC0 | (c >> 6));
    putTail(c);
  } else if (c < 0x10000) {
    put(0xE0 | (c >> 12));
    putTail(c >> 6);
    putTail(c);
  } else {
    put(0xF0 | (c >> 18));
    putTail(c >> 12);
    putTail(c >> 6);
    putTail(c);
  }
}

std::wstring fromWindows1252(std::string_view bytes) {
  std::wstring text;
  text.reserve(bytes.size());
  for (const char each : bytes) {
    const auto byte = static_cast<unsigned char>(each);
    text.push_back(byte >= 0x80 && byte < 0xA0 ? kWindows1252High[byte - 0x80] : wchar_t(byte));
  }
  return text;
}

bool isBlank(wchar_t c) {
  return c == L' ' || (c >= L'\t' && c <= L'\r');
}

}  // namespace

namespace os {

bool isUtf8(std::string_view bytes) {
  char32_t character = 0;
  for (std::size_t place = 0; place < bytes.size();) {
    if (!readCharacter(bytes, place, character)) return false;
  }
  return true;
}

std::wstring toWide(std::string_view bytes) {
  std::wstring text;
  text.reserve(bytes.size());
  char32_t character = 0;
  for (std::size_t place = 0; place < bytes.size();) {
    if (!readCharacter(bytes, place, character)) return fromWindows1252(bytes);
    text.push_back(static_cast<wchar_t>(character));
  }
  return text;
}

std::string toUtf8(std::wstring_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (const wchar_t each : text) {
    const auto character = static_cast<char32_t>(each);
    appendCharacter(bytes, character > kLastCharacter || isSurrogate(character) ? kReplacement : character);
  }
  return bytes;
}

wchar_t lowerCase(wchar_t c) {
  if (c >= L'A' && c <= L'Z') return c + (L'a' - L'A');
  if (c < 0xC0) return c;
  // Latin-1: capitals stand 32 before their small letters; the multiplication sign has none.
  if (c <= 0xDE) return c == 0xD7 ? c : wchar_t(c + 32);
  if (c >= 0x100 && c <= 0x137) return c == 0x130 ? L'i' : wchar_t(c | 1);
  if (c >= 0x139 && c <= 0x148) return (c & 1) != 0 ? wchar_t(c + 1) : c;
  if (c >= 0x14A && c <= 0x177) return wchar_t(c | 1);
  if (c == 0x178) return 0xFF;
  if (c >= 0x179 && c <= 0x17E) return (c & 1) != 0 ? wchar_t(c + 1) : c;
  // Greek and Cyrillic.
  if (c >= 0x391 && c <= 0x3A9 && c != 0x3A2) return wchar_t(c + 32);
  if (c >= 0x410 && c <= 0x42F) return wchar_t(c + 32);
  if (c >= 0x400 && c <= 0x40F) return wchar_t(c + 80);
  return c;
}

wchar_t upperCase(wchar_t c) {
  if (c >= L'a' && c <= L'z') return c - (L'a' - L'A');
  if (c < 0xE0) return c;
  if (c <= 0xFE) return c == 0xF7 ? c : wchar_t(c - 32);
  if (c == 0xFF) return 0x178;
  if (c >= 0x100 && c <= 0x137) return c == 0x131 ? L'I' : wchar_t(c & ~1);
  if (c >= 0x139 && c <= 0x148) return (c & 1) == 0 ? wchar_t(c - 1) : c;
  if (c >= 0x14A && c <= 0x177) return wchar_t(c & ~1);
  if (c >= 0x179 && c <= 0x17E) return (c & 1) == 0 ? wchar_t(c - 1) : c;
  if (c >= 0x3B1 && c <= 0x3C9 && c != 0x3C2) return wchar_t(c - 32);
  if (c >= 0x430 && c <= 0x44F) return wchar_t(c - 32);
  if (c >= 0x450 && c <= 0x45F) return wchar_t(c - 80);
  return c;
}

int compareNoCase(std::wstring_view a, std::wstring_view b) {
  const std::size_t shared = a.size() < b.size() ? a.size() : b.size();
  for (std::size_t i = 0; i < shared; ++i) {
    if (a[i] == b[i]) continue;
    const wchar_t left = lowerCase(a[i]);
    const wchar_t right = lowerCase(b[i]);
    if (left != right) return left < right ? -1 : 1;
  }
  return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

}  // namespace os

int _wcsicmp(const wchar_t* a, const wchar_t* b) {
  for (;; ++a, ++b) {
    if (*a != *b) {
      const wchar_t left = os::lowerCase(*a);
      const wchar_t right = os::lowerCase(*b);
      if (left != right) return left < right ? -1 : 1;
    }
    if (*a == 0) return 0;
  }
}

int _wtoi(const wchar_t* text) {
  while (isBlank(*text)) ++text;
  const bool negative = *text == L'-';
  if (*text == L'-' || *text == L'+') ++text;
  long long value = 0;
  for (; *text >= L'0' && *text <= L'9'; ++text) {
    value = value * 10 + (*text - L'0');
    if (value > -static_cast<long long>(INT_MIN)) value = -static_cast<long long>(INT_MIN);
  }
  if (negative) return static_cast<int>(-value);
  return value > INT_MAX ? INT_MAX : static_cast<int>(value);
}

double _wtof(const wchar_t* text) {
  while (isBlank(*text)) ++text;
  if (*text == L'+' && text[1] != L'-') ++text;
  std::string digits;
  for (; *text > 0 && *text < 0x7F; ++text) digits.push_back(static_cast<char>(*text));
  double value = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return read.ec == std::errc::invalid_argument ? 0 : value;
}

wchar_t* _itow(int value, wchar_t* buffer, int base) {
  char digits[sizeof(int) * CHAR_BIT + 1] = {};
  // Only decimal numbers have a sign; in other bases the bits count.
  const auto written = base == 10 ? std::to_chars(digits, std::end(digits), value)
                                  : std::to_chars(digits, std::end(digits), static_cast<unsigned>(value), base);
  wchar_t* place = buffer;
  for (const char* each = digits; each != written.ptr; ++each) *place++ = static_cast<wchar_t>(*each);
  *place = 0;
  return buffer;
}

wchar_t* wcstok(wchar_t* text, const wchar_t* separators) {
  static wchar_t* rest = nullptr;
  return std::wcstok(text, separators, &rest);
}
