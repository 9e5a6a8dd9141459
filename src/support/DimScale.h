#pragma once

#include "host/db/db.h"

/// The scale of dimensions, DIMSCALE.

/// The scale itself; for 0, which means "scale from the current viewport", the viewport's height in the model over its
/// height on paper, or 1 when no paper viewport can be opened.
double krAdjustDimScale(double s);

/// The working database's DIMSCALE through krAdjustDimScale; 1 without a database.
double GetScale();

/// Stores GetScale() in rb as a real. RTNORM, or RTERROR for a null rb or without a database, and then rb stays as it
/// was.
int curDimScale(resbuf* rb);

/// The DIMSCALE of a dimension style, 1 for one that can't be opened; through krAdjustDimScale with ajustar non-zero.
double getDimscale(AcDbObjectId dimStyle, int ajustar);
