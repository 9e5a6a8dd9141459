#include "host/os/Environment.h"

#include <cstdlib>
#include <map>
#include <string>

#include "host/os/Text.h"

const wchar_t* _wgetenv(const wchar_t* name) {
  const char* value = std::getenv(os::toUtf8(name).c_str());
  if (value == nullptr) return nullptr;
  // Kept for good, since callers hold the pointer; never destroyed, since they may do so while the process ends.
  static auto* const kept = new std::map<std::wstring, std::wstring>;
  std::wstring wide = os::toWide(value);
  std::wstring& slot = (*kept)[name];
  if (slot != wide) slot = std::move(wide);
  return slot.c_str();
}
