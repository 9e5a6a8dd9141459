#include "host/db/AcDbHandle.h"

namespace {

template <class C>
Adesk::UInt64 hexValue(const C* text) {
  if (text == nullptr || *text == 0) return 0;
  Adesk::UInt64 value = 0;
  int digits = 0;
  for (; *text != 0; ++text, ++digits) {
    const C c = *text;
    int digit = 0;
    if (c >= '0' && c <= '9') {
      digit = int(c - '0');
    } else if (c >= 'a' && c <= 'f') {
      digit = int(c - 'a') + 10;
    } else if (c >= 'A' && c <= 'F') {
      digit = int(c - 'A') + 10;
    } else {
      return 0;
    }
    if (value >> 60 != 0) return 0;
    value = value << 4 | Adesk::UInt64(digit);
  }
  return value;
}

template <class C>
bool writeHex(Adesk::UInt64 value, C* buffer, std::size_t size) {
  std::size_t digits = 1;
  while (digits < 16 && value >> (4 * digits) != 0) ++digits;
  if (buffer == nullptr || size < digits + 1) return false;
  for (std::size_t i = 0; i < digits; ++i) buffer[i] = C("0123456789ABCDEF"[value >> (4 * (digits - 1 - i)) & 15U]);
  buffer[digits] = 0;
  return true;
}

}  // namespace

AcDbHandle::AcDbHandle(const char* text) : value_(hexValue(text)) {}

AcDbHandle& AcDbHandle::operator=(const ACHAR* text) {
  value_ = hexValue(text);
  return *this;
}

bool AcDbHandle::getIntoAsciiBuffer(ACHAR* buffer, std::size_t size) const {
  return writeHex(value_, buffer, size);
}

bool AcDbHandle::getIntoAsciiBuffer(char* buffer, std::size_t size) const {
  return writeHex(value_, buffer, size);
}
