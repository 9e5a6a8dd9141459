#pragma once

#include <vector>

#include "object/ElevationOutline.h"
#include "records/KrGeratriz.h"

/// Lays an outline out for the elevation generator, as `ElevationOutline::assignPrepared` tells: counted nodes, then
/// the reference node. `out` is appended to.
void prepareOutline(const KrGeratriz& outline, std::vector<ElevationOutline::Node>& out);
