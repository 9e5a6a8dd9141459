#pragma once

#include <string>
#include <string_view>

#include "host/os/os.h"

/// Text in the stream of a picture: in the drawing's code page, up to a zero, filled up to a multiple of 4 bytes.
namespace krio::proxy {

inline constexpr std::size_t kTextAlignment = 4;

inline const os::CodePage& textPage() {
  static const os::CodePage& page = os::CodePage::named("CP1252");
  return page;
}

inline std::string paddedText(std::wstring_view text) {
  std::string bytes = textPage().encode(text.substr(0, text.find(L'\0')));
  bytes.resize((bytes.size() / kTextAlignment + 1) * kTextAlignment, '\0');
  return bytes;
}

}  // namespace krio::proxy
