#pragma once

#include "host/db/AcDbEntity.h"

namespace entities {

/// The box of what an entity draws, for entities whose extents follow from nothing simpler. eNullExtents when it draws
/// nothing.
Acad::ErrorStatus drawnExtents(const AcDbEntity& entity, AcDbExtents& extents);

}  // namespace entities
