#pragma once

#include <cstddef>
#include <deque>
#include <unordered_map>
#include <vector>

#include "host/db/AcDbStub.h"

/// The stubs of a database by handle: a plain vector for handles that lie close, as they do in nearly every drawing, a
/// hash for the others. Stubs never move.
class AcDbHandleTable {
 public:
  AcDbHandleTable() = default;
  AcDbHandleTable(const AcDbHandleTable&) = delete;
  AcDbHandleTable& operator=(const AcDbHandleTable&) = delete;

  /// Null when the handle is unknown.
  AcDbStub* find(Adesk::UInt64 handle) const {
    if (handle < dense_.size()) return dense_[std::size_t(handle)];
    return sparse_.empty() ? nullptr : findSparse(handle);
  }
  /// A new stub for a handle that isn't in the table.
  AcDbStub* add(Adesk::UInt64 handle) {
    AcDbStub& stub = stubs_.emplace_back();
    stub.handle = handle;
    if (handle >= dense_.size()) {
      addBeyond(stub);
    } else {
      dense_[std::size_t(handle)] = &stub;
    }
    return &stub;
  }
  /// Makes room for about `count` stubs with handles below `end`, as far as these lie close.
  void reserve(std::size_t count, Adesk::UInt64 end);

  std::size_t size() const { return stubs_.size(); }
  /// All stubs in the order in which they were made.
  const std::deque<AcDbStub>& stubs() const { return stubs_; }
  std::deque<AcDbStub>& stubs() { return stubs_; }

 private:
  struct Mixed {
    std::size_t operator()(Adesk::UInt64 handle) const {
      handle = (handle ^ (handle >> 31)) * 0x9E3779B97F4A7C15ULL;
      return std::size_t(handle ^ (handle >> 29));
    }
  };
  /// Handles below this may be kept in the vector, for so many stubs.
  static Adesk::UInt64 denseLimit(std::size_t count) { return 8 * Adesk::UInt64(count) + 4096; }
  AcDbStub* findSparse(Adesk::UInt64 handle) const;
  void addBeyond(AcDbStub& stub);
  void growDense(std::size_t size);

  std::vector<AcDbStub*> dense_;  // by handle
  std::unordered_map<Adesk::UInt64, AcDbStub*, Mixed> sparse_;
  std::deque<AcDbStub> stubs_;
};
