#pragma once

#include "editing/PointScale.h"
#include "host/db/db.h"

/// Scales what an aligned, rotated or ordinate dimension, or a leader, is made of; entities of any other class stay.
/// A dimension without a text of its own is given its measure as one, in the format of its style: it tells the real
/// size whatever size it is drawn at. `asDrawn` brings it, once scaled, to where it lies in the drawing at 1:1. The
/// entity is open for write.
void scaleDimension(AcDbEntity& entity, const PointScale& scale, const AcGeMatrix3d& asDrawn);
