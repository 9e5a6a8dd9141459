#pragma once

#include "host/ge/AcGeLine3d.h"

/// A piece of a line between two points, both on it. A new one runs from the origin to (1, 0, 0).
class AcGeLineSeg3d : public AcGeLinearEnt3d {
 public:
  constexpr AcGeLineSeg3d() : AcGeLineSeg3d(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis) {}
  constexpr AcGeLineSeg3d(const AcGePoint3d& start, const AcGePoint3d& end)
      : AcGeLinearEnt3d(AcGe::kLineSeg3d, start, end - start, end) {}
  constexpr AcGeLineSeg3d(const AcGePoint3d& start, const AcGeVector3d& step)
      : AcGeLinearEnt3d(AcGe::kLineSeg3d, start, step, start + step) {}

  constexpr AcGeLineSeg3d& set(const AcGePoint3d& start, const AcGePoint3d& end) {
    return *this = AcGeLineSeg3d(start, end);
  }
  constexpr AcGeLineSeg3d& set(const AcGePoint3d& start, const AcGeVector3d& step) {
    return *this = AcGeLineSeg3d(start, step);
  }
  constexpr AcGePoint3d startPoint() const { return m_start; }
  constexpr AcGePoint3d endPoint() const { return m_end; }
  constexpr AcGePoint3d midPoint() const { return m_start + (m_end - m_start) / 2.0; }
  double length() const { return m_step.length(); }
  /// The length between two parameters.
  double length(double from, double to) const { return std::fabs(to - from) * length(); }
  AcGeLineSeg3d& transformBy(const AcGeMatrix3d& m) {
    AcGeLinearEnt3d::transformBy(m);
    return *this;
  }
};
