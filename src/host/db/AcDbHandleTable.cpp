#include "host/db/AcDbHandleTable.h"

AcDbStub* AcDbHandleTable::add(Adesk::UInt64 handle) {
  if (2 * (stubs_.size() + 1) > slots_.size()) rehash();
  AcDbStub& stub = stubs_.emplace_back();
  stub.handle = handle;
  std::size_t i = handle & mask();
  while (slots_[i] != nullptr) i = (i + 1) & mask();
  slots_[i] = &stub;
  return &stub;
}

void AcDbHandleTable::rehash() {
  constexpr std::size_t kFirstSize = 256;
  slots_.assign(slots_.empty() ? kFirstSize : 2 * slots_.size(), nullptr);
  for (AcDbStub& stub : stubs_) {
    std::size_t i = stub.handle & mask();
    while (slots_[i] != nullptr) i = (i + 1) & mask();
    slots_[i] = &stub;
  }
}
