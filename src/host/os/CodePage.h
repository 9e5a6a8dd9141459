#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace os {

/// Text of one code page, as drawings hold it: the 128 characters of ASCII always stand for themselves, and a character
/// that the page lacks is written \U+XXXX (two of them above U+FFFF). No byte is refused and none is lost: one that is
/// no character of the page becomes the control character of its number, and goes back as that byte.
class CodePage {
 public:
  /// The page by its usual name ("CP1252", "BIG5"); an unknown name gives Windows-1252. Lives as long as the program.
  static const CodePage& named(const std::string& name);

  /// Takes \U+XXXX and \M+nXXXX (a double-byte character of page n: 1 932, 2 950, 3 949, 4 1361, 5 936) for the
  /// characters they tell of; a backslash ahead keeps them as they stand.
  std::wstring decode(std::string_view bytes) const;
  std::string encode(std::wstring_view text) const;

 private:
  explicit CodePage(const std::string& name);
  wchar_t decodePair(unsigned char lead, unsigned char trail) const;

  using Trails = std::array<wchar_t, 256>;
  std::array<wchar_t, 256> single_{};                 // 0: the first of two bytes
  std::array<std::unique_ptr<Trails>, 256> pairs_{};  // by the first byte; 0: no character
  std::unordered_map<wchar_t, unsigned short> bytes_;
};

}  // namespace os
