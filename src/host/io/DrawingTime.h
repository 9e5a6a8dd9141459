#pragma once

#include "host/db/db.h"

namespace krio {

/// Gives a drawing that has no time of creation yet one, and the same as its last update: SOURCE_DATE_EPOCH's, or
/// 2000-01-01 when that isn't set. A drawing that was read keeps its times.
void stampNewDrawing(AcDbDatabase& database);

}  // namespace krio
