#pragma once

#include <cstddef>
#include <deque>
#include <vector>

#include "host/db/AcDbStub.h"

/// The stubs of a database by handle: an open hash of pointers over stubs that never move.
class AcDbHandleTable {
 public:
  AcDbHandleTable() = default;
  AcDbHandleTable(const AcDbHandleTable&) = delete;
  AcDbHandleTable& operator=(const AcDbHandleTable&) = delete;

  /// Null when the handle is unknown.
  AcDbStub* find(Adesk::UInt64 handle) const {
    if (slots_.empty()) return nullptr;
    for (std::size_t i = handle & mask();; i = (i + 1) & mask()) {
      if (slots_[i] == nullptr || slots_[i]->handle == handle) return slots_[i];
    }
  }
  /// A new stub for a handle that isn't in the table.
  AcDbStub* add(Adesk::UInt64 handle);

  std::size_t size() const { return stubs_.size(); }
  /// All stubs in the order in which they were made.
  const std::deque<AcDbStub>& stubs() const { return stubs_; }
  std::deque<AcDbStub>& stubs() { return stubs_; }

 private:
  std::size_t mask() const { return slots_.size() - 1; }
  void rehash();

  std::vector<AcDbStub*> slots_;  // a power of two of them, at most half in use; handles run on, so they are their hash
  std::deque<AcDbStub> stubs_;
};
