#include "host/companion/KrString.h"

KrString& KrString::operator=(const wchar_t* text) {
  // A copy first: the text may be part of this very string.
  text_ = std::wstring(text != nullptr ? text : L"");
  return *this;
}

KrString& KrString::operator+=(const wchar_t* text) {
  if (text != nullptr) text_.append(std::wstring(text));
  return *this;
}

KrString KrString::operator+(const wchar_t* text) const {
  KrString sum(*this);
  sum += text;
  return sum;
}
