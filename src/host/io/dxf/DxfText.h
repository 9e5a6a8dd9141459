#pragma once

#include <string>
#include <string_view>

#include "host/io/CodePage.h"

/// Text in the lines of a file: in the drawing's code page with escapes for letters (\U+XXXX), and ^ with a letter for
/// control characters (^J a line feed, "^ " the caret itself).
namespace krio::dxf {

/// Replaces `text` by what the bytes stand for.
void decodeText(const CodePage& page, std::string_view bytes, std::wstring& text);
/// Appends the bytes.
void encodeText(const CodePage& page, std::wstring_view text, std::string& bytes);

/// Appends the bytes that hexadecimal digits stand for. False when they aren't pairs of digits.
bool decodeHex(std::string_view digits, std::string& bytes);

}  // namespace krio::dxf
