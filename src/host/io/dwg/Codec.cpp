#include "host/io/dwg/Codec.h"

namespace krio::dwg {

void Decoder::tv(std::wstring& text) {
  std::size_t length = data.bs();
  text.clear();
  if (!data.fits(length, 8)) return;
  constexpr std::size_t kShort = 256;
  char shortBytes[kShort];
  std::string longBytes;
  char* bytes = shortBytes;
  if (length > kShort) {
    longBytes.resize(length);
    bytes = longBytes.data();
  }
  data.bytes(bytes, length);
  bool plain = true;
  for (std::size_t i = 0; i < length; ++i) {
    const char c = bytes[i];
    if (c == '\0') {
      length = i;  // hosts count a terminator, and what may stand behind it isn't text
      break;
    }
    plain &= c > 0 && c != '\\';
  }
  if (plain) {
    text.resize(length);
    for (std::size_t i = 0; i < length; ++i) text[i] = wchar_t(bytes[i]);
  } else {
    text = context_.codePage().decode({bytes, length});
  }
}

}  // namespace krio::dwg
