#include "host/io/ProxyText.h"

#include <array>
#include <charconv>

#include "host/os/Text.h"

namespace krio::proxy {
namespace {

constexpr wchar_t kHighFirst = 0x80;
constexpr wchar_t kHighEnd = 0xA0;
constexpr wchar_t kBytes = 0x100;
constexpr std::size_t kAlignment = 4;

using HighRow = std::array<wchar_t, kHighEnd - kHighFirst>;

/// What the bytes 0x80 to 0x9F mean. A byte of that kind by itself is no UTF-8, so that it is read by the code page.
HighRow readHighRow() {
  HighRow row{};
  for (wchar_t byte = kHighFirst; byte < kHighEnd; ++byte) {
    const char single = static_cast<char>(byte);
    row[static_cast<std::size_t>(byte - kHighFirst)] = os::toWide(std::string_view(&single, 1)).front();
  }
  return row;
}

const HighRow& highRow() {
  static const HighRow row = readHighRow();
  return row;
}

/// The byte of a character; -1 when the code page lacks it.
int byteOf(wchar_t c) {
  if (c > 0 && c < kBytes && (c < kHighFirst || c >= kHighEnd)) return c;
  const HighRow& row = highRow();
  for (std::size_t i = 0; i < row.size(); ++i)
    if (row[i] == c) return kHighFirst + static_cast<int>(i);
  return -1;
}

void appendEscape(std::string& bytes, unsigned unit) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  bytes += "\\U+";
  for (int shift = 12; shift >= 0; shift -= 4) bytes += kDigits[unit >> shift & 0xFU];
}

/// The number of a \U+XXXX at the place; -1 when there is none.
int escapeAt(std::string_view bytes, std::size_t place) {
  constexpr std::size_t kEscape = 7;
  if (bytes.size() - place < kEscape || bytes.substr(place, 3) != "\\U+") return -1;
  unsigned value = 0;
  const char* const first = bytes.data() + place + 3;
  const char* const last = bytes.data() + place + kEscape;
  const auto [end, error] = std::from_chars(first, last, value, 16);
  return error == std::errc() && end == last ? static_cast<int>(value) : -1;
}

}  // namespace

std::string paddedText(std::wstring_view text) {
  std::string bytes;
  for (const wchar_t c : text) {
    if (c == 0) break;
    const auto value = static_cast<char32_t>(c);
    constexpr char32_t kPlane = 0x10000;
    if (const int byte = byteOf(c); byte >= 0) {
      bytes += static_cast<char>(byte);
    } else if (value < kPlane) {
      appendEscape(bytes, static_cast<unsigned>(value));
    } else {
      appendEscape(bytes, 0xD800U + ((value - kPlane) >> 10 & 0x3FFU));
      appendEscape(bytes, 0xDC00U + ((value - kPlane) & 0x3FFU));
    }
  }
  bytes.resize((bytes.size() / kAlignment + 1) * kAlignment, '\0');
  return bytes;
}

std::wstring fromText(std::string_view bytes) {
  bytes = bytes.substr(0, bytes.find('\0'));
  std::wstring text;
  text.reserve(bytes.size());
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (const int value = escapeAt(bytes, i); value > 0) {
      constexpr std::size_t kRest = 6;
      i += kRest;
      const wchar_t high = text.empty() ? L'\0' : text.back();
      const bool pairs = value >= 0xDC00 && value < 0xE000 && high >= 0xD800 && high < 0xDC00;
      if (pairs) {
        text.back() = static_cast<wchar_t>(0x10000 + ((high - 0xD800) << 10) + (value - 0xDC00));
      } else {
        text += static_cast<wchar_t>(value);
      }
      continue;
    }
    const auto byte = static_cast<unsigned char>(bytes[i]);
    text += byte >= kHighFirst && byte < kHighEnd ? highRow()[byte - std::size_t(kHighFirst)] : wchar_t(byte);
  }
  return text;
}

}  // namespace krio::proxy
