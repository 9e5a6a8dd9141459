#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Text in drawing files: bytes in the drawing's code page, and \U+XXXX for what the page lacks.
namespace krio {

class CodePage {
 public:
  /// By its name in DXF ("ANSI_1252", without regard to case) or by its number in DWG. A page that isn't known is read
  /// and written as ANSI_1252 with every letter beyond ASCII escaped, and keeps its name or number.
  static CodePage named(std::string_view name);
  static CodePage numbered(int number);
  /// ANSI_1252.
  CodePage();

  static constexpr int kAnsi1252 = 30;
  /// The number in DWG.
  int number() const { return number_; }
  /// The name in DXF.
  const std::string& name() const { return name_; }

  /// Appends the text that the bytes stand for: \U+XXXX and \M+nXXXX are read as the letters that they name. A byte
  /// without a letter becomes U+FFFD.
  void decode(std::string_view bytes, std::wstring& text) const;
  std::wstring decode(std::string_view bytes) const {
    std::wstring text;
    decode(bytes, text);
    return text;
  }
  /// Appends the bytes of the text. A zero ends it.
  void encode(std::wstring_view text, std::string& bytes) const;
  std::string encode(std::wstring_view text) const {
    std::string bytes;
    encode(text, bytes);
    return bytes;
  }

 private:
  enum class Kind : std::uint8_t { kSingle, kDouble, kUtf8 };
  /// The letters of the bytes from 0x80 on, and of pairs of bytes; 0 where there is none.
  struct Letters {
    std::array<char16_t, 128> single{};
    std::vector<char16_t> pairs;  // by (first - 0x80) * 256 + second; empty for a page of single bytes
  };
  static const Letters* lettersOf(std::size_t page);
  static std::size_t decodeEscape(std::string_view bytes, std::wstring& text);

  std::size_t decodeLetter(std::string_view bytes, std::wstring& text) const;
  void encodeLetter(wchar_t letter, std::string& bytes) const;

  int number_ = kAnsi1252;
  Kind kind_ = Kind::kSingle;
  bool escapesAll_ = false;
  const Letters* letters_;
  std::string name_ = "ANSI_1252";
};

}  // namespace krio
