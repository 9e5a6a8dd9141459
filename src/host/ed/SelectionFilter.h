#pragma once

#include "host/db/AcDbEntity.h"

namespace edhost {

/// Whether the entity passes the filter of acedSSGet; anything passes none.
bool passesFilter(const AcDbEntity& entity, const resbuf* filter);

}  // namespace edhost
