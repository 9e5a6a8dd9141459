#pragma once

#include "host/ge/AcGeLine2d.h"

/// A piece of a line between two points, both on it. A new one runs from the origin to (1, 0).
class AcGeLineSeg2d : public AcGeLinearEnt2d {
 public:
  constexpr AcGeLineSeg2d() : AcGeLineSeg2d(AcGePoint2d::kOrigin, AcGeVector2d::kXAxis) {}
  constexpr AcGeLineSeg2d(const AcGePoint2d& start, const AcGePoint2d& end)
      : AcGeLinearEnt2d(AcGe::kLineSeg2d, start, end - start, end) {}
  constexpr AcGeLineSeg2d(const AcGePoint2d& start, const AcGeVector2d& step)
      : AcGeLinearEnt2d(AcGe::kLineSeg2d, start, step, start + step) {}

  constexpr AcGeLineSeg2d& set(const AcGePoint2d& start, const AcGePoint2d& end) {
    return *this = AcGeLineSeg2d(start, end);
  }
  constexpr AcGeLineSeg2d& set(const AcGePoint2d& start, const AcGeVector2d& step) {
    return *this = AcGeLineSeg2d(start, step);
  }
  constexpr AcGePoint2d startPoint() const { return m_start; }
  constexpr AcGePoint2d endPoint() const { return m_end; }
  constexpr AcGePoint2d midPoint() const { return m_start + (m_end - m_start) / 2.0; }
  double length() const { return m_step.length(); }
  /// The length between two parameters.
  double length(double from, double to) const { return std::fabs(to - from) * length(); }
  /// The line of the points equally far from both ends.
  void getBisector(AcGeLine2d& line) const { getPerpLine(midPoint(), line); }
  AcGeLineSeg2d& transformBy(const AcGeMatrix2d& m) {
    AcGeLinearEnt2d::transformBy(m);
    return *this;
  }
};

inline Adesk::Boolean AcGeLinearEnt2d::overlap(const AcGeLinearEnt2d& other, AcGeLinearEnt2d& shared,
                                               const AcGeTol& tol) const {
  if (m_type != AcGe::kLineSeg2d || other.m_type != AcGe::kLineSeg2d || !isColinearTo(other, tol)) {
    return Adesk::kFalse;
  }
  const double slack = tol.equalPoint() / m_step.length();
  const double a = paramOf(other.m_start);
  const double b = paramOf(other.m_end);
  const double from = std::max(0.0, std::min(a, b));
  const double to = std::min(1.0, std::max(a, b));
  if (from > to + slack) return Adesk::kFalse;
  shared = AcGeLineSeg2d(evalPoint(from), evalPoint(std::max(from, to)));
  return Adesk::kTrue;
}
