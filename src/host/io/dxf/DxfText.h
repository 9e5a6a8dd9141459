#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "host/io/CodePage.h"

/// Text in the lines of a file: in the drawing's code page with escapes for letters (\U+XXXX), and ^ with a letter for
/// control characters (^J a line feed, "^ " the caret itself).
namespace krio::dxf {

/// Whether a text consists of letters below 128 alone, none of them 0 or the end of a line: it is the same in every
/// code page and in UTF-8, and stands in a line as it is.
inline bool isPlainAscii(std::string_view text) {
  constexpr std::uint64_t kOnes = 0x0101010101010101;
  constexpr std::uint64_t kHigh = 0x8080808080808080;
  constexpr std::uint64_t kReturns = kOnes * '\r';
  const char* p = text.data();
  std::size_t left = text.size();
  for (std::uint64_t eight = 0; left >= sizeof eight; p += sizeof eight, left -= sizeof eight) {
    std::memcpy(&eight, p, sizeof eight);
    // Of letters below 128 one less has the high bit for a 0 alone, and so has what differs from a return in nothing.
    if (((eight | (eight - kOnes) | ((eight ^ kReturns) - kOnes)) & kHigh) != 0) return false;
  }
  for (; left > 0; ++p, --left)
    if (static_cast<signed char>(*p) <= 0 || *p == '\r') return false;
  return true;
}

/// Replaces `text` by what the bytes stand for.
void decodeText(const CodePage& page, std::string_view bytes, std::wstring& text);
/// Appends the bytes.
void encodeText(const CodePage& page, std::wstring_view text, std::string& bytes);

/// Appends the bytes that hexadecimal digits stand for. False when they aren't pairs of digits.
bool decodeHex(std::string_view digits, std::string& bytes);

}  // namespace krio::dxf
