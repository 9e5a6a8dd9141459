#pragma once

#include "host/ge/AcGeCurve2d.h"
#include "host/ge/AcGeIntersect.h"

/// A line, a ray or a segment of the plane: a start, a step, and limits told by type(). A parameter counts steps from
/// the start, so that a segment runs from 0 to 1 and a ray from 0 on. One whose step is zero is a point: it has no
/// direction, is parallel to nothing, and meets what passes through it.
class AcGeLinearEnt2d : public AcGeCurve2d {
 public:
  /// Some point of the entity: the one it was made from.
  constexpr AcGePoint2d pointOnLine() const { return m_start; }
  /// The unit vector along the entity; the zero vector when it has no length.
  AcGeVector2d direction() const {
    const double size = m_step.length();
    return size == 0.0 ? m_step : m_step / size;
  }
  /// The length that one unit of the parameter covers.
  double stepLength() const { return m_step.length(); }
  inline void getLine(AcGeLine2d& line) const;
  /// The line through p square to this one.
  inline void getPerpLine(const AcGePoint2d& p, AcGeLine2d& perpendicular) const;

  constexpr AcGePoint2d evalPoint(double param) const {
    return param == 1.0 && m_type == AcGe::kLineSeg2d ? m_end : m_start + m_step * param;
  }
  /// The parameter of the point of the unbounded line nearest to p; 0 without a length.
  constexpr double paramOf(const AcGePoint2d& p) const {
    const double squared = m_step.lengthSqrd();
    return squared == 0.0 ? 0.0 : (p - m_start).dotProduct(m_step) / squared;
  }
  constexpr AcGePoint2d closestPointTo(const AcGePoint2d& p) const { return evalPoint(limits().clamp(paramOf(p))); }
  double distanceTo(const AcGePoint2d& p) const { return closestPointTo(p).distanceTo(p); }
  /// True when p lies within the point tolerance of the entity, its ends included.
  Adesk::Boolean isOn(const AcGePoint2d& p, const AcGeTol& tol = AcGeContext::gTol) const {
    return closestPointTo(p).isEqualTo(p, tol);
  }
  Adesk::Boolean isOn(const AcGePoint2d& p, double& param, const AcGeTol& tol = AcGeContext::gTol) const {
    param = limits().clamp(paramOf(p));
    return isOn(p, tol);
  }
  constexpr Adesk::Boolean hasStartPoint(AcGePoint2d& p) const {
    if (m_type != AcGe::kLine2d) p = m_start;
    return m_type != AcGe::kLine2d;
  }
  constexpr Adesk::Boolean hasEndPoint(AcGePoint2d& p) const {
    if (m_type == AcGe::kLineSeg2d) p = m_end;
    return m_type == AcGe::kLineSeg2d;
  }

  Adesk::Boolean isParallelTo(const AcGeLinearEnt2d& other, const AcGeTol& tol = AcGeContext::gTol) const {
    return direction().isParallelTo(other.direction(), tol);
  }
  Adesk::Boolean isPerpendicularTo(const AcGeLinearEnt2d& other, const AcGeTol& tol = AcGeContext::gTol) const {
    return direction().isPerpendicularTo(other.direction(), tol);
  }
  /// Parallel, and on the same unbounded line.
  inline Adesk::Boolean isColinearTo(const AcGeLinearEnt2d& other, const AcGeTol& tol = AcGeContext::gTol) const;

  /// The one point in which the two meet, ends included. False, and p left alone, when there is none and when they are
  /// parallel, on one line or not: overlap tells those apart. Where a limit lies within the tolerance of the crossing,
  /// the point is that limit exactly.
  inline Adesk::Boolean intersectWith(const AcGeLinearEnt2d& other, AcGePoint2d& p,
                                      const AcGeTol& tol = AcGeContext::gTol) const;
  /// The stretch that two segments on one line share, possibly a single point; false when there is none.
  inline Adesk::Boolean overlap(const AcGeLinearEnt2d& other, AcGeLinearEnt2d& shared,
                                const AcGeTol& tol = AcGeContext::gTol) const;

  AcGeLinearEnt2d& transformBy(const AcGeMatrix2d& m) { return assign(m * m_start, m * m_step, m * m_end); }
  AcGeLinearEnt2d& translateBy(const AcGeVector2d& v) { return assign(m_start + v, m_step, m_end + v); }
  AcGeLinearEnt2d& rotateBy(double angle, const AcGePoint2d& centre = AcGePoint2d::kOrigin) {
    return transformBy(AcGeMatrix2d::rotation(angle, centre));
  }
  AcGeLinearEnt2d& scaleBy(double factor, const AcGePoint2d& centre = AcGePoint2d::kOrigin) {
    return transformBy(AcGeMatrix2d::scaling(factor, centre));
  }
  inline AcGeLinearEnt2d& mirror(const AcGeLine2d& line);

  constexpr AcGeIntersect::Limits limits() const { return {m_type != AcGe::kLine2d, m_type == AcGe::kLineSeg2d}; }

 protected:
  constexpr AcGeLinearEnt2d(AcGe::EntityId type, const AcGePoint2d& start, const AcGeVector2d& step,
                            const AcGePoint2d& end)
      : AcGeCurve2d(type), m_start(start), m_step(step), m_end(end) {}

  constexpr AcGeLinearEnt2d& assign(const AcGePoint2d& start, const AcGeVector2d& step, const AcGePoint2d& end) {
    m_start = start;
    m_step = step;
    m_end = end;
    return *this;
  }
  constexpr void setPoints(const AcGePoint2d& start, const AcGePoint2d& end) { assign(start, end - start, end); }
  constexpr void setPointAndStep(const AcGePoint2d& start, const AcGeVector2d& step) {
    assign(start, step, start + step);
  }

  AcGePoint2d m_start;
  AcGeVector2d m_step;
  AcGePoint2d m_end;  ///< Kept beside the step, so that a segment gives back the very end it was given.
};

inline Adesk::Boolean AcGeLinearEnt2d::intersectWith(const AcGeLinearEnt2d& other, AcGePoint2d& p,
                                                     const AcGeTol& tol) const {
  const AcGeIntersect::Limits mine = limits();
  const AcGeIntersect::Limits theirs = other.limits();
  const double cross = m_step.crossProduct(other.m_step);
  const double size1 = m_step.lengthSqrd();
  const double size2 = other.m_step.lengthSqrd();
  if (cross * cross <= tol.equalVector() * tol.equalVector() * size1 * size2) {
    if (size1 != 0.0 && size2 != 0.0) return Adesk::kFalse;
    const AcGeLinearEnt2d& point = size1 == 0.0 ? *this : other;
    if (!(size1 == 0.0 ? other : *this).isOn(point.m_start, tol)) return Adesk::kFalse;
    p = point.m_start;
    return Adesk::kTrue;
  }
  const AcGeVector2d gap = other.m_start - m_start;
  const double t = gap.crossProduct(other.m_step) / cross;
  const double s = gap.crossProduct(m_step) / cross;
  if (mine.admit(t, 0.0) && theirs.admit(s, 0.0)) {
    // A vertex that both share comes out exactly, whichever of the two it ends.
    p = theirs.atStart && s == 0.0 ? other.m_start : (theirs.atEnd && s == 1.0 ? other.m_end : evalPoint(t));
    return Adesk::kTrue;
  }
  // An end within the tolerance of the other line may lie tol / sin(angle) short of the crossing.
  const double reach = tol.equalPoint() / std::fabs(cross);
  if (!mine.admit(t, reach * std::sqrt(size2)) || !theirs.admit(s, reach * std::sqrt(size1))) return Adesk::kFalse;
  const bool past = !mine.admit(t, 0.0);
  const AcGePoint2d limit = past ? evalPoint(mine.clamp(t)) : other.evalPoint(theirs.clamp(s));
  if (!isOn(limit, tol) || !other.isOn(limit, tol)) return Adesk::kFalse;
  p = limit;
  return Adesk::kTrue;
}
