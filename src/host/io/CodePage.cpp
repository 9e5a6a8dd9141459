#include "host/io/CodePage.h"

#include <iconv.h>

#include <algorithm>
#include <cctype>
#include <memory>

#include "host/os/os.h"

namespace krio {

namespace {

/// A code page as the two formats and the system's converter name it.
struct PageName {
  int number;
  std::string_view name;
  const char* converter;
  bool isDouble;
};

constexpr PageName kPages[] = {
    {1, "ASCII", "ASCII", false},          {2, "ISO8859-1", "ISO8859-1", false},  {3, "ISO8859-2", "ISO8859-2", false},
    {4, "ISO8859-3", "ISO8859-3", false},  {5, "ISO8859-4", "ISO8859-4", false},  {6, "ISO8859-5", "ISO8859-5", false},
    {7, "ISO8859-6", "ISO8859-6", false},  {8, "ISO8859-7", "ISO8859-7", false},  {9, "ISO8859-8", "ISO8859-8", false},
    {10, "ISO8859-9", "ISO8859-9", false}, {11, "DOS437", "CP437", false},        {12, "DOS850", "CP850", false},
    {13, "DOS852", "CP852", false},        {14, "DOS855", "CP855", false},        {15, "DOS857", "CP857", false},
    {16, "DOS860", "CP860", false},        {17, "DOS861", "CP861", false},        {18, "DOS863", "CP863", false},
    {19, "DOS864", "CP864", false},        {20, "DOS865", "CP865", false},        {21, "DOS869", "CP869", false},
    {22, "DOS932", "CP932", true},         {23, "MACINTOSH", "MACINTOSH", false}, {24, "BIG5", "BIG5", true},
    {25, "KSC5601", "CP949", true},        {26, "JOHAB", "JOHAB", true},          {27, "DOS866", "CP866", false},
    {28, "ANSI_1250", "CP1250", false},    {29, "ANSI_1251", "CP1251", false},    {30, "ANSI_1252", "CP1252", false},
    {31, "GB2312", "CP936", true},         {32, "ANSI_1253", "CP1253", false},    {33, "ANSI_1254", "CP1254", false},
    {34, "ANSI_1255", "CP1255", false},    {35, "ANSI_1256", "CP1256", false},    {36, "ANSI_1257", "CP1257", false},
    {37, "ANSI_874", "CP874", false},      {38, "ANSI_932", "CP932", true},       {39, "ANSI_936", "CP936", true},
    {40, "ANSI_949", "CP949", true},       {41, "ANSI_950", "CP950", true},       {42, "ANSI_1361", "JOHAB", true},
    {44, "ANSI_1258", "CP1258", false},
};
constexpr std::size_t kFallback = 29;
static_assert(kPages[kFallback].number == CodePage::kAnsi1252);

/// The number of the page that \M+n names by n.
constexpr int kDoublePages[] = {0, 38, 41, 40, 42, 39};

constexpr wchar_t kNoLetter = 0xFFFD;

// The letters of Windows-1252 from 0x80 to 0x9F; the rest of its upper half is that of Latin-1. Kept here so that the
// usual page needs no converter of the system.
constexpr char16_t kUpper1252[] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                   0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                   0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                   0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

/// A converter of the system, from bytes to letters one at a time.
class Converter {
 public:
  explicit Converter(const char* page) : opened_(iconv_open("UCS-4LE", page)) {}
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;
  ~Converter() {
    if (opened_ != iconv_t(-1)) iconv_close(opened_);
  }
  /// 0 when the bytes are no letter of the page.
  char16_t letter(std::initializer_list<int> bytes) const {
    if (opened_ == iconv_t(-1)) return 0;
    char input[4] = {};
    std::size_t left = 0;
    for (const int byte : bytes) input[left++] = char(byte);
    char* from = input;
    unsigned char code[8] = {};
    char* to = reinterpret_cast<char*>(code);
    std::size_t room = sizeof code;
    iconv(opened_, nullptr, nullptr, nullptr, nullptr);
    const bool read = iconv(opened_, &from, &left, &to, &room) != std::size_t(-1) && left == 0 && room == 4;
    return read && code[2] == 0 && code[3] == 0 ? char16_t(code[0] | code[1] << 8) : char16_t(0);
  }

 private:
  iconv_t opened_;
};

bool sameName(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    return std::toupper(static_cast<unsigned char>(x)) == std::toupper(static_cast<unsigned char>(y));
  });
}

/// The value of hexadecimal digits; -1 for other text.
int hexValue(std::string_view digits) {
  int value = 0;
  for (const char c : digits) {
    if (std::isxdigit(static_cast<unsigned char>(c)) == 0) return -1;
    value = value * 16 + (c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10);
  }
  return value;
}

constexpr std::size_t kEscapeLength = 7;  // \U+XXXX
constexpr std::size_t kDoubleEscape = 8;  // \M+nXXXX

bool isHighSurrogate(int unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}
bool isLowSurrogate(int unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

int escapedUnit(std::string_view bytes) {
  const bool is =
      bytes.size() >= kEscapeLength && bytes[0] == '\\' && (bytes[1] == 'U' || bytes[1] == 'u') && bytes[2] == '+';
  return is ? hexValue(bytes.substr(3, 4)) : -1;
}

void appendEscape(unsigned unit, std::string& bytes) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  bytes += "\\U+";
  for (int shift = 12; shift >= 0; shift -= 4) bytes.push_back(kDigits[(unit >> shift) & 0xF]);
}

const PageName* pageNumbered(int number) {
  const auto* const found =
      std::find_if(std::begin(kPages), std::end(kPages), [&](const PageName& page) { return page.number == number; });
  return found != std::end(kPages) ? found : nullptr;
}

}  // namespace

const CodePage::Letters* CodePage::lettersOf(std::size_t page) {
  static std::array<std::unique_ptr<const Letters>, std::size(kPages)> made;
  if (made[page] != nullptr) return made[page].get();
  auto letters = std::make_unique<Letters>();
  if (page == kFallback) {
    for (std::size_t i = 0; i < letters->single.size(); ++i) {
      letters->single[i] = i < std::size(kUpper1252) ? kUpper1252[i] : char16_t(0x80 + i);
    }
  } else {
    const Converter converter(kPages[page].converter);
    for (int byte = 0x80; byte <= 0xFF; ++byte) letters->single[std::size_t(byte - 0x80)] = converter.letter({byte});
    if (kPages[page].isDouble) {
      letters->pairs.resize(0x80 * 0x100);
      for (int first = 0x81; first < 0xFF; ++first) {
        if (letters->single[std::size_t(first - 0x80)] != 0) continue;
        for (int second = 0x31; second < 0xFF; ++second) {
          letters->pairs[std::size_t((first - 0x80) * 0x100 + second)] = converter.letter({first, second});
        }
      }
    }
  }
  made[page] = std::move(letters);
  return made[page].get();
}

CodePage::CodePage() : letters_(lettersOf(kFallback)) {}

CodePage CodePage::numbered(int number) {
  CodePage page;
  page.number_ = number;
  const PageName* const known = pageNumbered(number);
  if (known == nullptr) {
    page.escapesAll_ = true;
    return page;
  }
  page.letters_ = lettersOf(std::size_t(known - kPages));
  page.name_ = known->name;
  // Pairs of bytes are read only: which of several a letter had can't be told from the letter.
  page.escapesAll_ = known->isDouble;
  if (known->isDouble) page.kind_ = Kind::kDouble;
  return page;
}

CodePage CodePage::named(std::string_view name) {
  for (const PageName& known : kPages) {
    if (sameName(known.name, name)) return numbered(known.number);
  }
  CodePage page;
  page.name_ = name;
  page.escapesAll_ = true;
  if (sameName(name, "UTF-8") || sameName(name, "UTF8")) page.kind_ = Kind::kUtf8;
  return page;
}

std::size_t CodePage::decodeEscape(std::string_view bytes, std::wstring& text) {
  const int unit = escapedUnit(bytes);
  if (unit >= 0) {
    if (isHighSurrogate(unit)) {
      const int low = escapedUnit(bytes.substr(kEscapeLength));
      if (low >= 0 && isLowSurrogate(low)) {
        text.push_back(wchar_t(0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00)));
        return 2 * kEscapeLength;
      }
    }
    text.push_back(unit == 0 || isHighSurrogate(unit) || isLowSurrogate(unit) ? kNoLetter : wchar_t(unit));
    return kEscapeLength;
  }
  if (bytes.size() < kDoubleEscape || bytes[1] != 'M' || bytes[2] != '+' || bytes[3] < '1' || bytes[3] > '5') return 0;
  const int pair = hexValue(bytes.substr(4, 4));
  if (pair < 0) return 0;
  const PageName* const page = pageNumbered(kDoublePages[bytes[3] - '0']);
  const Letters& letters = *lettersOf(std::size_t(page - kPages));
  const char16_t letter = pair >= 0x8000 ? letters.pairs[std::size_t(pair - 0x8000)] : char16_t(0);
  text.push_back(letter != 0 ? wchar_t(letter) : kNoLetter);
  return kDoubleEscape;
}

std::size_t CodePage::decodeLetter(std::string_view bytes, std::wstring& text) const {
  const auto first = static_cast<unsigned char>(bytes[0]);
  if (first < 0x80) {
    text.push_back(wchar_t(first));
    return 1;
  }
  if (kind_ == Kind::kDouble && bytes.size() > 1 && letters_->single[first - 0x80U] == 0) {
    const auto second = static_cast<unsigned char>(bytes[1]);
    const char16_t letter = letters_->pairs[(first - 0x80U) * 0x100U + second];
    if (letter != 0) {
      text.push_back(wchar_t(letter));
      return 2;
    }
  }
  const char16_t letter = letters_->single[first - 0x80U];
  text.push_back(letter != 0 ? wchar_t(letter) : kNoLetter);
  return 1;
}

void CodePage::decode(std::string_view bytes, std::wstring& text) const {
  if (kind_ == Kind::kUtf8 && std::any_of(bytes.begin(), bytes.end(), [](char c) { return c < 0; })) {
    // Escapes are ASCII: they stay as they are, one character each byte, and are read in the second pass.
    const std::wstring wide = os::toWide(bytes);
    std::string ascii;
    for (std::size_t i = 0; i < wide.size();) {
      ascii.clear();
      for (std::size_t k = i; k < wide.size() && k < i + 2 * kEscapeLength && wide[k] < 0x80; ++k)
        ascii += char(wide[k]);
      const std::size_t length = !ascii.empty() && ascii[0] == '\\' ? decodeEscape(ascii, text) : 0;
      if (length == 0) text.push_back(wide[i]);
      i += length != 0 ? length : 1;
    }
    return;
  }
  while (!bytes.empty()) {
    const std::size_t escape = bytes[0] == '\\' ? decodeEscape(bytes, text) : 0;
    bytes.remove_prefix(escape != 0 ? escape : decodeLetter(bytes, text));
  }
}

void CodePage::encodeLetter(wchar_t letter, std::string& bytes) const {
  const auto code = char32_t(letter);
  if (!escapesAll_ && code <= 0xFFFF) {
    const auto& single = letters_->single;
    const auto found = std::find(single.begin(), single.end(), char16_t(code));
    if (found != single.end()) {
      bytes.push_back(char(0x80 + (found - single.begin())));
      return;
    }
  }
  if (code <= 0xFFFF) {
    appendEscape(code, bytes);
    return;
  }
  const char32_t offset = code - 0x10000;
  appendEscape(0xD800 + ((offset >> 10) & 0x3FF), bytes);
  appendEscape(0xDC00 + (offset & 0x3FF), bytes);
}

void CodePage::encode(std::wstring_view text, std::string& bytes) const {
  for (const wchar_t letter : text) {
    if (letter == L'\0') return;
    if (letter > L'\0' && letter < 0x80) {
      bytes.push_back(char(letter));
    } else {
      encodeLetter(letter, bytes);
    }
  }
}

}  // namespace krio
