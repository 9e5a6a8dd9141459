#pragma once

#include "Job.h"
#include "host/ge/ge.h"

namespace kr {

/// How a bar lies in space: unit vectors. A section is drawn in `across` (its X) and `up` (its Y) as it is seen from
/// the bar's start.
struct BarFrame {
  AcGeVector3d along;
  AcGeVector3d across;
  AcGeVector3d up;
};

/// The frame of a bar in that direction, its section not turned: up is as near to Z as the bar allows. For an upright
/// bar it is X, so that the webs of a frame that stands in the X, Z plane lie in that plane.
BarFrame barFrame(const AcGeVector3d& direction);

/// From one point to another.
AcGeVector3d fromTo(const JobPoint& from, const JobPoint& to);

}  // namespace kr
