#pragma once

/// The entities.
#include "host/db/entities/AcDbArc.h"
#include "host/db/entities/AcDbCircle.h"
#include "host/db/entities/AcDbLine.h"
#include "host/db/entities/AcDbMText.h"
#include "host/db/entities/AcDbPolyline.h"
#include "host/db/entities/AcDbText.h"
