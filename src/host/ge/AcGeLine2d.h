#pragma once

#include "host/ge/AcGeLinearEnt2d.h"

/// A line without end. A new one is the X axis.
class AcGeLine2d : public AcGeLinearEnt2d {
 public:
  static const AcGeLine2d kXAxis;
  static const AcGeLine2d kYAxis;

  constexpr AcGeLine2d() : AcGeLine2d(AcGePoint2d::kOrigin, AcGeVector2d::kXAxis) {}
  constexpr AcGeLine2d(const AcGePoint2d& p, const AcGeVector2d& direction)
      : AcGeLinearEnt2d(AcGe::kLine2d, p, direction, p + direction) {}
  constexpr AcGeLine2d(const AcGePoint2d& p1, const AcGePoint2d& p2)
      : AcGeLinearEnt2d(AcGe::kLine2d, p1, p2 - p1, p2) {}

  constexpr AcGeLine2d& set(const AcGePoint2d& p, const AcGeVector2d& direction) {
    return *this = AcGeLine2d(p, direction);
  }
  constexpr AcGeLine2d& set(const AcGePoint2d& p1, const AcGePoint2d& p2) { return *this = AcGeLine2d(p1, p2); }
  AcGeLine2d& transformBy(const AcGeMatrix2d& m) {
    AcGeLinearEnt2d::transformBy(m);
    return *this;
  }
};

inline constexpr AcGeLine2d AcGeLine2d::kXAxis{};
inline constexpr AcGeLine2d AcGeLine2d::kYAxis(AcGePoint2d::kOrigin, AcGeVector2d::kYAxis);

inline void AcGeLinearEnt2d::getLine(AcGeLine2d& line) const {
  line.set(m_start, m_step);
}
inline void AcGeLinearEnt2d::getPerpLine(const AcGePoint2d& p, AcGeLine2d& perpendicular) const {
  perpendicular.set(p, direction().perpVector());
}
inline Adesk::Boolean AcGeLinearEnt2d::isColinearTo(const AcGeLinearEnt2d& other, const AcGeTol& tol) const {
  return isParallelTo(other, tol) && AcGeLine2d(m_start, m_step).isOn(other.m_start, tol);
}
inline AcGeLinearEnt2d& AcGeLinearEnt2d::mirror(const AcGeLine2d& line) {
  return transformBy(AcGeMatrix2d::mirroring(line));
}

inline AcGeMatrix2d& AcGeMatrix2d::setToMirroring(const AcGeLine2d& line) {
  const AcGeVector2d d = line.direction();
  setToIdentity();
  if (d.x == 0.0 && d.y == 0.0) return *this;
  setLinear({d.x * d.x - d.y * d.y, 2.0 * d.x * d.y}, {2.0 * d.x * d.y, d.y * d.y - d.x * d.x});
  return keep(line.pointOnLine());
}
inline AcGeMatrix2d AcGeMatrix2d::mirroring(const AcGeLine2d& line) {
  return AcGeMatrix2d().setToMirroring(line);
}

/// A line without direction leaves the point where it is.
inline AcGePoint2d& AcGePoint2d::mirror(const AcGeLine2d& line) {
  const AcGePoint2d base = line.pointOnLine();
  return *this = base + (*this - base).mirror(line.direction());
}
