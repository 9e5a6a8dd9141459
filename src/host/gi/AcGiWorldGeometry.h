#pragma once

#include "host/gi/AcGiGeometry.h"

/// Figures that look the same in every view.
class AcGiWorldGeometry : public AcGiGeometry {
 public:
  /// Makes a box, given by two corners, part of the drawing's extents without drawing anything.
  virtual void setExtents(AcGePoint3d* corners) const = 0;
};
