#pragma once

#include "host/db/AcDbStub.h"

/// Whether an object is owned by what is owned by it in the end, or by something in such a circle. Owners lie a few
/// steps apart; a climb that goes on and on is taken for a circle.
inline bool isInOwnerCircle(const AcDbStub& stub) {
  constexpr int kMostSteps = 256;
  const AcDbStub* at = stub.owner;
  for (int i = 0; at != nullptr && i < kMostSteps; ++i) at = at->owner;
  return at != nullptr;
}
