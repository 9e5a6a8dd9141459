#include "host/companion/CloseInChar.h"

#include <cwchar>

wchar_t* CloseInChar(wchar_t* text, const wchar_t* characters) {
  text[std::wcscspn(text, characters)] = 0;
  return text;
}
