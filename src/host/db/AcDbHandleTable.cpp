#include "host/db/AcDbHandleTable.h"

#include <algorithm>

AcDbStub* AcDbHandleTable::findSparse(Adesk::UInt64 handle) const {
  const auto entry = sparse_.find(handle);
  return entry != sparse_.end() ? entry->second : nullptr;
}

void AcDbHandleTable::addBeyond(AcDbStub& stub) {
  const Adesk::UInt64 limit = denseLimit(stubs_.size());
  if (stub.handle >= limit) {
    sparse_.emplace(stub.handle, &stub);
    return;
  }
  growDense(std::size_t(std::min(limit, std::max<Adesk::UInt64>(stub.handle + 1, 2 * dense_.size()))));
  dense_[std::size_t(stub.handle)] = &stub;
}

void AcDbHandleTable::growDense(std::size_t size) {
  dense_.resize(size, nullptr);
  for (auto entry = sparse_.begin(); entry != sparse_.end();) {
    if (entry->first < size) {
      dense_[std::size_t(entry->first)] = entry->second;
      entry = sparse_.erase(entry);
    } else {
      ++entry;
    }
  }
}

void AcDbHandleTable::reserve(std::size_t count, Adesk::UInt64 end) {
  const std::size_t size = std::size_t(std::min(end, denseLimit(count)));
  if (size > dense_.size()) growDense(size);
}
