#pragma once

#include <vector>

#include "host/db/AcDbObject.h"

namespace edhost {

/// The object's groups as a chain that acutRelRb frees, group 0 first; null on failure.
resbuf* chainOf(const AcDbObject& object);

/// The entities of the current space that aren't erased, in order.
std::vector<AcDbObjectId> entitiesOfSpace();

}  // namespace edhost
