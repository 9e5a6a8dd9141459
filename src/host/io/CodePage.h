#pragma once

#include <string>
#include <string_view>

#include "host/os/CodePage.h"

namespace krio {

/// The code page of a drawing, by its name in DXF and its number in DWG.
class CodePage {
 public:
  /// By its name in DXF ("ANSI_1252", without regard to case) or by its number in DWG. A page that isn't known is read
  /// and written as ANSI_1252 and keeps its name or number.
  static CodePage named(std::string_view name);
  static CodePage numbered(int number);
  /// ANSI_1252.
  CodePage();

  static constexpr int kAnsi1252 = 30;
  /// The number in DWG; 0 when there is none.
  int number() const { return number_; }
  /// The name in DXF; empty when there is none.
  const std::string& name() const { return name_; }

  /// The text that the bytes stand for, escapes included (os::CodePage::decode).
  std::wstring decode(std::string_view bytes) const;
  /// The bytes of the text; what the page lacks is escaped.
  std::string encode(std::wstring_view text) const { return page_->encode(text); }

 private:
  int number_ = kAnsi1252;
  bool isUtf8_ = false;
  const os::CodePage* page_;
  std::string name_ = "ANSI_1252";
};

}  // namespace krio
