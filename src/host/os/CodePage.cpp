#include "host/os/CodePage.h"

#include <iconv.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <optional>

namespace os {

namespace {

constexpr wchar_t kFirstOutsideAscii = 0x80;

/// One character at a time from a page to wide text.
class Converter {
 public:
  explicit Converter(const std::string& name) : handle_(iconv_open("WCHAR_T", name.c_str())) {}
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;
  ~Converter() {
    if (good()) iconv_close(handle_);
  }
  bool good() const { return handle_ != iconv_t(-1); }
  /// The one character that the bytes are.
  std::optional<wchar_t> character(std::initializer_list<unsigned char> bytes) {
    char in[2];
    std::transform(bytes.begin(), bytes.end(), in, [](unsigned char byte) { return char(byte); });
    char* from = in;
    std::size_t left = bytes.size();
    wchar_t out[2] = {};
    auto* to = reinterpret_cast<char*>(out);
    std::size_t room = sizeof out;
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    if (iconv(handle_, &from, &left, &to, &room) == std::size_t(-1) || left != 0) return {};
    // Pages with accents set apart keep a letter back until they know that none follows.
    if (room == sizeof out) iconv(handle_, nullptr, nullptr, &to, &room);
    if (room != sizeof(wchar_t)) return {};
    return out[0];
  }

 private:
  iconv_t handle_;
};

int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

/// The number of four hexadecimal digits at `at`.
std::optional<unsigned> fourDigits(std::string_view text, std::size_t at) {
  if (at + 4 > text.size()) return {};
  unsigned value = 0;
  for (std::size_t i = at; i < at + 4; ++i) {
    const int digit = hexDigit(text[i]);
    if (digit < 0) return {};
    value = value << 4 | unsigned(digit);
  }
  return value;
}

void appendEscape(std::string& out, unsigned unit) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  out += "\\U+";
  for (int shift = 12; shift >= 0; shift -= 4) out += kDigits[unit >> shift & 0xf];
}

bool isHighSurrogate(wchar_t c) {
  return c >= 0xd800 && c < 0xdc00;
}
bool isLowSurrogate(wchar_t c) {
  return c >= 0xdc00 && c < 0xe000;
}

void appendUnit(std::wstring& out, wchar_t unit) {
  if (isLowSurrogate(unit) && !out.empty() && isHighSurrogate(out.back())) {
    out.back() = wchar_t(0x10000 + ((out.back() - 0xd800) << 10) + (unit - 0xdc00));
  } else {
    out += unit;
  }
}

const char* pageOfDigit(char digit) {
  static constexpr const char* kPages[] = {"CP932", "CP950", "CP949", "JOHAB", "CP936"};
  return digit >= '1' && digit <= '5' ? kPages[digit - '1'] : nullptr;
}

}  // namespace

const CodePage& CodePage::named(const std::string& name) {
  static auto& pages = *new std::map<std::string, std::unique_ptr<const CodePage>>;
  std::unique_ptr<const CodePage>& page = pages[name];
  if (page == nullptr) page.reset(new CodePage(name));
  return *page;
}

CodePage::CodePage(const std::string& name) {
  std::optional<Converter> converter(name);
  if (!converter->good()) converter.emplace("CP1252");
  for (unsigned byte = 0; byte < 256; ++byte) {
    if (byte < unsigned(kFirstOutsideAscii)) {
      single_[byte] = wchar_t(byte);
      continue;
    }
    const auto own = converter->good() ? converter->character({static_cast<unsigned char>(byte)}) : std::nullopt;
    single_[byte] = own.value_or(wchar_t(byte));
    if (own) {
      bytes_.emplace(*own, static_cast<unsigned short>(byte));
      continue;
    }
    for (unsigned trail = 0x21; converter->good() && trail < 256; ++trail) {
      const auto pair = converter->character({static_cast<unsigned char>(byte), static_cast<unsigned char>(trail)});
      if (!pair || *pair < kFirstOutsideAscii) continue;
      if (pairs_[byte] == nullptr) pairs_[byte] = std::make_unique<Trails>();
      (*pairs_[byte])[trail] = *pair;
      bytes_.emplace(*pair, static_cast<unsigned short>(byte << 8 | trail));
    }
  }
  for (unsigned byte = unsigned(kFirstOutsideAscii); byte < 256; ++byte) {
    if (single_[byte] == wchar_t(byte)) bytes_.emplace(wchar_t(byte), static_cast<unsigned short>(byte));
  }
}

wchar_t CodePage::decodePair(unsigned char lead, unsigned char trail) const {
  return pairs_[lead] != nullptr ? (*pairs_[lead])[trail] : L'\0';
}

std::wstring CodePage::decode(std::string_view bytes) const {
  std::wstring text;
  text.reserve(bytes.size());
  bool escaped = false;  // whether a backslash that isn't itself escaped stands ahead
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    if (byte == '\\' && !escaped && i + 2 < bytes.size() && bytes[i + 2] == '+' && bytes[i + 1] == 'U') {
      if (const auto unit = fourDigits(bytes, i + 3); unit && *unit != 0) {
        appendUnit(text, wchar_t(*unit));
        i += 6;
        continue;
      }
    }
    if (byte == '\\' && !escaped && i + 3 < bytes.size() && bytes[i + 2] == '+' && bytes[i + 1] == 'M') {
      const char* const page = pageOfDigit(bytes[i + 3]);
      const auto pair = page != nullptr ? fourDigits(bytes, i + 4) : std::nullopt;
      const wchar_t character =
          pair ? named(page).decodePair(static_cast<unsigned char>(*pair >> 8), static_cast<unsigned char>(*pair))
               : L'\0';
      if (character != L'\0') {
        text += character;
        i += 7;
        continue;
      }
    }
    escaped = byte == '\\' && !escaped;
    if (i + 1 < bytes.size()) {
      if (const wchar_t pair = decodePair(byte, static_cast<unsigned char>(bytes[i + 1])); pair != L'\0') {
        text += pair;
        ++i;
        continue;
      }
    }
    text += single_[byte];
  }
  return text;
}

std::string CodePage::encode(std::wstring_view text) const {
  std::string out;
  out.reserve(text.size());
  for (const wchar_t c : text) {
    if (c >= 0 && c < kFirstOutsideAscii) {
      out += char(c);
      continue;
    }
    if (const auto found = bytes_.find(c); found != bytes_.end()) {
      if (found->second > 0xff) out += char(found->second >> 8);
      out += char(found->second);
      continue;
    }
    const auto value = unsigned(c);
    if (value <= 0xffff) {
      appendEscape(out, value);
    } else if (value <= 0x10ffff) {
      appendEscape(out, 0xd800 + ((value - 0x10000) >> 10));
      appendEscape(out, 0xdc00 + ((value - 0x10000) & 0x3ff));
    } else {
      appendEscape(out, 0xfffd);
    }
  }
  return out;
}

}  // namespace os
