#pragma once

#include <string>

#include "host/db/AcDbDwgFiler.h"

/// Text in and out of records.
namespace dbtext {

/// A copy that acutDelString frees.
inline ACHAR* newText(const std::wstring& text) {
  ACHAR* copy = nullptr;
  acutNewString(text.c_str(), copy);
  return copy;
}

/// The next field; empty on failure, which the filer's status tells.
inline std::wstring readText(AcDbDwgFiler& filer) {
  ACHAR* text = nullptr;
  filer.readString(&text);
  std::wstring result(text != nullptr ? text : L"");
  acutDelString(text);
  return result;
}

inline std::wstring orEmpty(const ACHAR* text) {
  return text != nullptr ? text : L"";
}

}  // namespace dbtext
