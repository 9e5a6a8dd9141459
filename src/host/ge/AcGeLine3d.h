#pragma once

#include "host/ge/AcGeLinearEnt3d.h"

/// A line without end. A new one is the X axis.
class AcGeLine3d : public AcGeLinearEnt3d {
 public:
  static const AcGeLine3d kXAxis;
  static const AcGeLine3d kYAxis;
  static const AcGeLine3d kZAxis;

  constexpr AcGeLine3d() : AcGeLine3d(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis) {}
  constexpr AcGeLine3d(const AcGePoint3d& p, const AcGeVector3d& direction)
      : AcGeLinearEnt3d(AcGe::kLine3d, p, direction, p + direction) {}
  constexpr AcGeLine3d(const AcGePoint3d& p1, const AcGePoint3d& p2)
      : AcGeLinearEnt3d(AcGe::kLine3d, p1, p2 - p1, p2) {}

  constexpr AcGeLine3d& set(const AcGePoint3d& p, const AcGeVector3d& direction) {
    return *this = AcGeLine3d(p, direction);
  }
  constexpr AcGeLine3d& set(const AcGePoint3d& p1, const AcGePoint3d& p2) { return *this = AcGeLine3d(p1, p2); }
  AcGeLine3d& transformBy(const AcGeMatrix3d& m) {
    AcGeLinearEnt3d::transformBy(m);
    return *this;
  }
};

inline constexpr AcGeLine3d AcGeLine3d::kXAxis{};
inline constexpr AcGeLine3d AcGeLine3d::kYAxis(AcGePoint3d::kOrigin, AcGeVector3d::kYAxis);
inline constexpr AcGeLine3d AcGeLine3d::kZAxis(AcGePoint3d::kOrigin, AcGeVector3d::kZAxis);

inline void AcGeLinearEnt3d::getLine(AcGeLine3d& line) const {
  line.set(m_start, m_step);
}
inline Adesk::Boolean AcGeLinearEnt3d::isColinearTo(const AcGeLinearEnt3d& other, const AcGeTol& tol) const {
  return isParallelTo(other, tol) && AcGeLine3d(m_start, m_step).isOn(other.m_start, tol);
}

/// A line without direction leaves things where they are.
inline AcGeMatrix3d& AcGeMatrix3d::setToMirroring(const AcGeLine3d& line) {
  const AcGeVector3d d = line.direction();
  setToIdentity();
  if (d.lengthSqrd() == 0.0) return *this;
  setLinear(d * (2.0 * d.x) - AcGeVector3d::kXAxis, d * (2.0 * d.y) - AcGeVector3d::kYAxis,
            d * (2.0 * d.z) - AcGeVector3d::kZAxis);
  return keep(line.pointOnLine());
}
inline AcGeMatrix3d AcGeMatrix3d::mirroring(const AcGeLine3d& line) {
  return AcGeMatrix3d().setToMirroring(line);
}
