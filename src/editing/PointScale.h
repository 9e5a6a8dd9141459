#pragma once

#include "host/ge/ge.h"

/// The scaling of points about one of them, per axis.
struct PointScale {
  AcGePoint3d operator()(const AcGePoint3d& p) const {
    return {base.x + (p.x - base.x) * a, base.y + (p.y - base.y) * b, base.z + (p.z - base.z) * c};
  }
  AcGePoint2d operator()(const AcGePoint2d& p) const {
    return {base.x + (p.x - base.x) * a, base.y + (p.y - base.y) * b};
  }

  AcGePoint3d base;
  double a, b, c;
};
