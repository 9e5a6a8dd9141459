#pragma once

#include "host/ge/AcGeLinearEnt3d.h"

/// A line with a start and no end. A new one is the positive X axis.
class AcGeRay3d : public AcGeLinearEnt3d {
 public:
  constexpr AcGeRay3d() : AcGeRay3d(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis) {}
  constexpr AcGeRay3d(const AcGePoint3d& start, const AcGeVector3d& direction)
      : AcGeLinearEnt3d(AcGe::kRay3d, start, direction, start + direction) {}
  /// From start through the other point.
  constexpr AcGeRay3d(const AcGePoint3d& start, const AcGePoint3d& through)
      : AcGeLinearEnt3d(AcGe::kRay3d, start, through - start, through) {}

  constexpr AcGeRay3d& set(const AcGePoint3d& start, const AcGeVector3d& direction) {
    return *this = AcGeRay3d(start, direction);
  }
  constexpr AcGeRay3d& set(const AcGePoint3d& start, const AcGePoint3d& through) {
    return *this = AcGeRay3d(start, through);
  }
  AcGeRay3d& transformBy(const AcGeMatrix3d& m) {
    AcGeLinearEnt3d::transformBy(m);
    return *this;
  }
};
