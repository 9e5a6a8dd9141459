#pragma once

#include "host/ge/AcGeLinearEnt2d.h"

/// A line with a start and no end. A new one is the positive X axis.
class AcGeRay2d : public AcGeLinearEnt2d {
 public:
  constexpr AcGeRay2d() : AcGeRay2d(AcGePoint2d::kOrigin, AcGeVector2d::kXAxis) {}
  constexpr AcGeRay2d(const AcGePoint2d& start, const AcGeVector2d& direction)
      : AcGeLinearEnt2d(AcGe::kRay2d, start, direction, start + direction) {}
  /// From start through the other point.
  constexpr AcGeRay2d(const AcGePoint2d& start, const AcGePoint2d& through)
      : AcGeLinearEnt2d(AcGe::kRay2d, start, through - start, through) {}

  constexpr AcGeRay2d& set(const AcGePoint2d& start, const AcGeVector2d& direction) {
    return *this = AcGeRay2d(start, direction);
  }
  constexpr AcGeRay2d& set(const AcGePoint2d& start, const AcGePoint2d& through) {
    return *this = AcGeRay2d(start, through);
  }
  AcGeRay2d& transformBy(const AcGeMatrix2d& m) {
    AcGeLinearEnt2d::transformBy(m);
    return *this;
  }
};
