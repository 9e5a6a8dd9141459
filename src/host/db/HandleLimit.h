#pragma once

#include "host/db/AcDbDatabase.h"

/// The highest handle that an object can have. Files can tell of any; a drawing takes those only that leave room above
/// for the next one (addAcDbObject refuses others with eInvalidInput, getAcDbObjectId with eUnknownHandle), so that
/// whatever one form of file holds, the others can keep.
inline constexpr Adesk::UInt64 kMaxHandle = Adesk::UInt64(1) << 60;

/// Whether a number can be the handle of an object: 0 can't.
constexpr bool isPossibleHandle(Adesk::UInt64 handle) {
  return handle != 0 && handle <= kMaxHandle;
}

/// The handle for the next new object: the one behind all others, or where that is beyond the limit the first one
/// behind the handle given last that nothing in the drawing has or refers to.
Adesk::UInt64 nextHandle(const AcDbDatabase& database);
