#pragma once

#include <cmath>

#include "host/ge/ge.h"

/// An arc edge of a polygon, by its circle and its two ends.
struct PolygonArc {
  /// The two ends differ, and the bulge isn't 0.
  PolygonArc(const AcGePoint2d& from, const AcGePoint2d& to, double tangent)
      : curve(from, to, tangent),
        toStart(from - curve.center()),
        toEnd(to - curve.center()),
        sense(tangent < 0.0 ? -1.0 : 1.0),
        bulge(std::fabs(tangent)) {}

  /// Whether the arc passes the direction `d` from its centre before its end, given that `d` lies less than a half turn
  /// ahead of the start (`first`) or from there to the full turn.
  bool passes(const AcGeVector2d& d, bool first) const {
    // The bulge tells a half turn exactly, where the ends are rounded.
    if (bulge >= 1.0 && first) return true;
    if (bulge <= 1.0 && !first) return false;
    return sense * d.crossProduct(toEnd) > 0.0;
  }

  AcGeCircArc2d curve;
  AcGeVector2d toStart;
  AcGeVector2d toEnd;
  double sense;  ///< 1 counter-clockwise, -1 clockwise
  double bulge;  ///< without its sign
};
