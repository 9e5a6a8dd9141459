#pragma once

#include <string_view>

#include "host/rx/AcRxClass.h"

namespace krio {

/// Whether a class is one of the host, which name one of two applications, rather than of a module.
inline bool isHosts(const AcRxClass& rxClass) {
  const std::wstring_view application = rxClass.appName() != nullptr ? rxClass.appName() : L"";
  return application == L"ObjectDBX Classes" || application == L"krhost";
}

}  // namespace krio
