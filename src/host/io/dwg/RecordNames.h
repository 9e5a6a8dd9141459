#pragma once

#include <string>
#include <unordered_map>

#include "host/db/db.h"

namespace krio::dwg {

/// Gives records of one table that share a name names of their own: the name with $1, $2, ... behind it. However many
/// share one, each number is tried once.
class RecordNames {
 public:
  /// The next of the names made of this one that is free.
  template <class IsFree>
  std::wstring make(const std::wstring& name, IsFree isFree) {
    int& last = last_[acdbFoldedName(name.c_str())];
    std::wstring made;
    do {
      made = name + L"$" + std::to_wstring(++last);
    } while (!isFree(made));
    return made;
  }

 private:
  std::unordered_map<std::wstring, int> last_;
};

}  // namespace krio::dwg
