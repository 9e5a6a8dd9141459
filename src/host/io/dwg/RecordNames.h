#pragma once

#include <string>

namespace krio::dwg {

/// The first of the names made of this one that is free.
template <class IsFree>
std::wstring freeName(const std::wstring& name, IsFree isFree) {
  for (int i = 1;; ++i) {
    std::wstring made = name + L"$" + std::to_wstring(i);
    if (isFree(made)) return made;
  }
}

}  // namespace krio::dwg
