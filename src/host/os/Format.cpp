#include "host/os/Format.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "host/os/Text.h"

namespace {

enum class Length { none, narrowest, narrow, wide, wide64, longDouble };

/// One conversion of a format: what stands between the percent sign and its letter.
struct Conversion {
  bool left = false;
  bool zero = false;
  bool plus = false;
  bool blank = false;
  bool alternate = false;
  bool widthIsArgument = false;
  bool precisionIsArgument = false;
  int width = 0;
  int precision = -1;
  Length length = Length::none;
};

// Wider fields than this are a mistake in the format, not a wish.
constexpr int kWidestField = 1 << 16;
// A double in %f has at most 309 digits before the point; kMostDecimals bounds those behind it.
constexpr int kMostDecimals = 1100;
constexpr int kDefaultDecimals = 6;
constexpr int kPointerDigits = 16;

bool isDigit(wchar_t c) {
  return c >= L'0' && c <= L'9';
}

int readNumber(const wchar_t*& place) {
  int value = 0;
  for (; isDigit(*place); ++place) value = std::min(value * 10 + (*place - L'0'), kWidestField);
  return value;
}

void readFlags(const wchar_t*& place, Conversion& c) {
  for (;; ++place) {
    switch (*place) {
      case L'-':
        c.left = true;
        continue;
      case L'0':
        c.zero = true;
        continue;
      case L'+':
        c.plus = true;
        continue;
      case L' ':
        c.blank = true;
        continue;
      case L'#':
        c.alternate = true;
        continue;
      default:
        return;
    }
  }
}

bool skip(const wchar_t*& place, const wchar_t* text) {
  const std::size_t size = std::wcslen(text);
  if (std::wcsncmp(place, text, size) != 0) return false;
  place += size;
  return true;
}

Length readLength(const wchar_t*& place) {
  if (skip(place, L"I64") || skip(place, L"ll") || skip(place, L"j") || skip(place, L"z") || skip(place, L"t"))
    return Length::wide64;
  if (skip(place, L"I32")) return Length::none;
  if (skip(place, L"I")) return Length::wide64;
  if (skip(place, L"hh")) return Length::narrowest;
  if (skip(place, L"h")) return Length::narrow;
  if (skip(place, L"L")) return Length::longDouble;
  return skip(place, L"l") || skip(place, L"w") ? Length::wide : Length::none;
}

// Moves `place` to the conversion's letter.
Conversion readConversion(const wchar_t*& place) {
  Conversion c;
  readFlags(place, c);
  if (*place == L'*') {
    c.widthIsArgument = true;
    ++place;
  } else {
    c.width = readNumber(place);
  }
  if (*place == L'.') {
    ++place;
    if (*place == L'*') {
      c.precisionIsArgument = true;
      ++place;
    } else {
      c.precision = readNumber(place);
    }
  }
  c.length = readLength(place);
  return c;
}

/// Formats one text: the format being walked, its arguments and what has been written.
class Formatter {
 public:
  Formatter(std::wstring& out, std::va_list arguments) : out_(out) { va_copy(arguments_, arguments); }
  Formatter(const Formatter&) = delete;
  Formatter& operator=(const Formatter&) = delete;
  ~Formatter() { va_end(arguments_); }

  void run(const wchar_t* format) {
    for (const wchar_t* place = format; *place != 0; ++place) {
      if (*place != L'%') {
        out_.push_back(*place);
        continue;
      }
      ++place;
      Conversion c = readConversion(place);
      if (*place == 0) return;
      convert(*place, c);
    }
  }

 private:
  void convert(wchar_t letter, Conversion& c) {
    // An unknown letter must read nothing, so the starred fields are read only once the letter is known to be good.
    if (letter == 0 || std::wcschr(L"diuoxXpcCsSeEfFgGaA", letter) == nullptr) {
      out_.push_back(letter);
      return;
    }
    readStars(c);
    switch (letter) {
      case L'd':
      case L'i':
        signedNumber(c);
        return;
      case L'u':
        unsignedNumber(c, 10, false);
        return;
      case L'o':
        unsignedNumber(c, 8, false);
        return;
      case L'x':
        unsignedNumber(c, 16, false);
        return;
      case L'X':
        unsignedNumber(c, 16, true);
        return;
      case L'p':
        pointer(c);
        return;
      case L'c':
        character(c, isNarrow(c));
        return;
      case L'C':
        character(c, c.length != Length::wide);
        return;
      case L's':
        text(c, isNarrow(c));
        return;
      case L'S':
        text(c, c.length != Length::wide);
        return;
      default:
        real(c, letter);
        return;
    }
  }

  static bool isNarrow(const Conversion& c) { return c.length == Length::narrow || c.length == Length::narrowest; }

  void readStars(Conversion& c) {
    if (c.widthIsArgument) {
      const int width = va_arg(arguments_, int);
      c.left = c.left || width < 0;
      c.width = static_cast<int>(std::min<long long>(std::llabs(width), kWidestField));
    }
    if (c.precisionIsArgument) c.precision = std::min(va_arg(arguments_, int), kWidestField);
  }

  // A plain l is 32 bits wide on the product's platform, but the compilers here pass a long of 64: both read the same
  // register, so the whole is read and only what a caller could have meant is kept.
  std::int64_t readSigned(Length length) {
    switch (length) {
      case Length::wide64:
        return va_arg(arguments_, long long);
      case Length::wide:
        return va_arg(arguments_, long);
      case Length::narrow:
        return static_cast<short>(va_arg(arguments_, int));
      case Length::narrowest:
        return static_cast<signed char>(va_arg(arguments_, int));
      default:
        return va_arg(arguments_, int);
    }
  }
  std::uint64_t readUnsigned(Length length) {
    switch (length) {
      case Length::wide64:
        return va_arg(arguments_, unsigned long long);
      case Length::wide:
        return va_arg(arguments_, unsigned long);
      case Length::narrow:
        return static_cast<unsigned short>(va_arg(arguments_, unsigned));
      case Length::narrowest:
        return static_cast<unsigned char>(va_arg(arguments_, unsigned));
      default:
        return va_arg(arguments_, unsigned);
    }
  }

  void signedNumber(const Conversion& c) {
    const std::int64_t value = readSigned(c.length);
    const bool negative = value < 0;
    const std::uint64_t size = negative ? ~static_cast<std::uint64_t>(value) + 1 : static_cast<std::uint64_t>(value);
    digits(c, size, 10, false, signOf(c, negative));
  }

  void unsignedNumber(const Conversion& c, int base, bool capitals) {
    const std::uint64_t value = readUnsigned(c.length);
    const char* prefix = "";
    if (c.alternate && value != 0 && base == 16) prefix = capitals ? "0X" : "0x";
    if (c.alternate && value != 0 && base == 8) prefix = "0";
    digits(c, value, base, capitals, prefix);
  }

  void pointer(Conversion& c) {
    const auto value = reinterpret_cast<std::uintptr_t>(va_arg(arguments_, void*));
    c.precision = kPointerDigits;
    digits(c, value, 16, true, "");
  }

  static const char* signOf(const Conversion& c, bool negative) {
    return negative ? "-" : c.plus ? "+" : c.blank ? " " : "";
  }

  void digits(const Conversion& c, std::uint64_t value, int base, bool capitals, std::string_view prefix) {
    char buffer[66];
    char* end = std::to_chars(buffer, std::end(buffer), value, base).ptr;
    // An explicit precision of 0 prints nothing for the number 0.
    if (c.precision == 0 && value == 0) end = buffer;
    if (capitals) capitalise(buffer, end);
    const int zeros = std::max(0, c.precision - static_cast<int>(end - buffer));
    // A precision says how many zeros are wanted, so the zero flag then has no say.
    number(c, prefix, zeros, {buffer, end}, c.zero && c.precision < 0);
  }

  void real(const Conversion& c, wchar_t letter) {
    const double value = c.length == Length::longDouble ? static_cast<double>(va_arg(arguments_, long double))
                                                        : va_arg(arguments_, double);
    const bool capitals = letter < L'a';
    const auto form = static_cast<wchar_t>(capitals ? letter + (L'a' - L'A') : letter);
    char buffer[kMostDecimals + 320];
    char* const end = realDigits(buffer, std::end(buffer), std::fabs(value), form, c);
    if (capitals) capitalise(buffer, end);
    char prefix[3];
    char* prefixEnd = prefix;
    for (const char* sign = signOf(c, std::signbit(value)); *sign != 0; ++sign) *prefixEnd++ = *sign;
    if (form == L'a' && std::isfinite(value)) prefixEnd = std::copy_n(capitals ? "0X" : "0x", 2, prefixEnd);
    number(c, {prefix, prefixEnd}, 0, {buffer, end}, c.zero && std::isfinite(value));
  }

  static char* realDigits(char* buffer, char* end, double value, wchar_t form, const Conversion& c) {
    if (!std::isfinite(value)) return std::copy_n(std::isnan(value) ? "nan" : "inf", 3, buffer);
    const int precision = c.precision < 0 ? kDefaultDecimals : std::min(c.precision, kMostDecimals);
    char* written = nullptr;
    switch (form) {
      case L'f':
        written = std::to_chars(buffer, end, value, std::chars_format::fixed, precision).ptr;
        break;
      case L'e':
        written = std::to_chars(buffer, end, value, std::chars_format::scientific, precision).ptr;
        break;
      case L'g':
        written = std::to_chars(buffer, end, value, std::chars_format::general, precision).ptr;
        break;
      default:
        written = c.precision < 0 ? std::to_chars(buffer, end, value, std::chars_format::hex).ptr
                                  : std::to_chars(buffer, end, value, std::chars_format::hex, precision).ptr;
        break;
    }
    if (!c.alternate || form == L'g' || precision != 0) return written;
    char* const exponent = std::find_if(buffer, written, [](char each) { return each == 'e' || each == 'p'; });
    std::copy_backward(exponent, written, written + 1);
    *exponent = '.';
    return written + 1;
  }

  static void capitalise(char* first, const char* last) {
    for (; first != last; ++first) {
      if (*first >= 'a' && *first <= 'z') *first = static_cast<char>(*first - ('a' - 'A'));
    }
  }

  void number(const Conversion& c, std::string_view prefix, int zeros, std::string_view body, bool zeroFilled) {
    const int missing = std::max(0, c.width - static_cast<int>(prefix.size() + body.size()) - zeros);
    const bool fillsWithZeros = zeroFilled && !c.left;
    if (!c.left && !fillsWithZeros) out_.append(static_cast<std::size_t>(missing), L' ');
    out_.append(prefix.begin(), prefix.end());
    out_.append(static_cast<std::size_t>(fillsWithZeros ? missing : zeros), L'0');
    out_.append(body.begin(), body.end());
    if (c.left) out_.append(static_cast<std::size_t>(missing), L' ');
  }

  void character(const Conversion& c, bool narrow) {
    const int value = va_arg(arguments_, int);
    const wchar_t wide = narrow ? static_cast<wchar_t>(static_cast<unsigned char>(value)) : static_cast<wchar_t>(value);
    field(c, std::wstring_view(&wide, 1));
  }

  void text(const Conversion& c, bool narrow) {
    const std::size_t most = c.precision < 0 ? std::wstring::npos : static_cast<std::size_t>(c.precision);
    if (narrow) {
      const char* value = va_arg(arguments_, const char*);
      if (value == nullptr) value = "(null)";
      const std::wstring wide = os::toWide(std::string_view(value, std::min(std::strlen(value), most)));
      field(c, wide);
      return;
    }
    const wchar_t* value = va_arg(arguments_, const wchar_t*);
    if (value == nullptr) value = L"(null)";
    // A text with a precision need not be ended.
    std::size_t size = 0;
    while (size < most && value[size] != 0) ++size;
    field(c, std::wstring_view(value, size));
  }

  void field(const Conversion& c, std::wstring_view value) {
    const auto width = static_cast<std::size_t>(c.width);
    const std::size_t missing = width > value.size() ? width - value.size() : 0;
    if (!c.left) out_.append(missing, c.zero ? L'0' : L' ');
    out_.append(value);
    if (c.left) out_.append(missing, L' ');
  }

  std::wstring& out_;
  std::va_list arguments_;
};

}  // namespace

namespace os {

void formatWide(std::wstring& out, const wchar_t* format, std::va_list arguments) {
  Formatter(out, arguments).run(format);
}

std::wstring formatted(const wchar_t* format, ...) {
  std::wstring text;
  std::va_list arguments;
  va_start(arguments, format);
  formatWide(text, format, arguments);
  va_end(arguments);
  return text;
}

}  // namespace os

int _snwprintf(wchar_t* buffer, std::size_t capacity, const wchar_t* format, ...) {
  std::wstring text;
  std::va_list arguments;
  va_start(arguments, format);
  os::formatWide(text, format, arguments);
  va_end(arguments);
  if (capacity == 0) return -1;
  const std::size_t length = std::min(text.size(), capacity - 1);
  std::copy_n(text.data(), length, buffer);
  buffer[length] = 0;
  return length == text.size() ? static_cast<int>(length) : -1;
}
