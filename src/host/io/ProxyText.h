#pragma once

#include <string>
#include <string_view>

/// Text in the stream of a picture: in Windows-1252 with \U+XXXX for all else, up to a zero, filled up to a multiple of
/// 4 bytes.
namespace krio::proxy {

std::string paddedText(std::wstring_view text);

/// The text of the bytes up to their end or the first zero.
std::wstring fromText(std::string_view bytes);

}  // namespace krio::proxy
