#include "host/db/HandleLimit.h"

Adesk::UInt64 nextHandle(const AcDbDatabase& database) {
  const Adesk::UInt64 seed = database.handseed().value();
  if (isPossibleHandle(seed)) return seed;
  const AcDbHandleTable& table = database.handleTable();
  Adesk::UInt64 handle = table.stubs().empty() ? 0 : table.stubs().back().handle;
  do {
    handle = handle < kMaxHandle ? handle + 1 : 1;
  } while (table.find(handle) != nullptr);
  return handle;
}
