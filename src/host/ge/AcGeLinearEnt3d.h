#pragma once

#include "host/ge/AcGeCurve3d.h"
#include "host/ge/AcGeIntersect.h"

class AcGePlanarEnt;

/// A line, a ray or a segment of space: a start, a step, and limits told by type(). A parameter counts steps from the
/// start, so that a segment runs from 0 to 1 and a ray from 0 on. One whose step is zero is a point: it has no
/// direction, is parallel to nothing, and meets what passes through it.
class AcGeLinearEnt3d : public AcGeCurve3d {
 public:
  /// Some point of the entity: the one it was made from.
  constexpr AcGePoint3d pointOnLine() const { return m_start; }
  /// The unit vector along the entity; the zero vector when it has no length.
  AcGeVector3d direction() const {
    const double size = m_step.length();
    return size == 0.0 ? m_step : m_step / size;
  }
  /// The length that one unit of the parameter covers.
  double stepLength() const { return m_step.length(); }
  inline void getLine(AcGeLine3d& line) const;
  /// The plane through p square to this entity.
  inline void getPerpPlane(const AcGePoint3d& p, AcGePlane& plane) const;

  constexpr AcGePoint3d evalPoint(double param) const {
    return param == 1.0 && m_type == AcGe::kLineSeg3d ? m_end : m_start + m_step * param;
  }
  /// The parameter of the point of the unbounded line nearest to p; 0 without a length.
  constexpr double paramOf(const AcGePoint3d& p) const {
    const double squared = m_step.lengthSqrd();
    return squared == 0.0 ? 0.0 : (p - m_start).dotProduct(m_step) / squared;
  }
  constexpr AcGePoint3d closestPointTo(const AcGePoint3d& p) const { return evalPoint(limits().clamp(paramOf(p))); }
  /// The point of this entity that looks nearest to p for one who looks along direction.
  AcGePoint3d projClosestPointTo(const AcGePoint3d& p, const AcGeVector3d& lookingAlong) const {
    const AcGeVector3d seen = m_step.orthoProject(lookingAlong);
    const double squared = seen.lengthSqrd();
    if (squared == 0.0) return m_start;
    return evalPoint(limits().clamp((p - m_start).dotProduct(seen) / squared));
  }
  double distanceTo(const AcGePoint3d& p) const { return closestPointTo(p).distanceTo(p); }
  /// True when p lies within the point tolerance of the entity, its ends included.
  Adesk::Boolean isOn(const AcGePoint3d& p, const AcGeTol& tol = AcGeContext::gTol) const {
    return closestPointTo(p).isEqualTo(p, tol);
  }
  Adesk::Boolean isOn(const AcGePoint3d& p, double& param, const AcGeTol& tol = AcGeContext::gTol) const {
    param = limits().clamp(paramOf(p));
    return isOn(p, tol);
  }
  /// True when the whole entity lies in the plane.
  inline Adesk::Boolean isOn(const AcGePlane& plane, const AcGeTol& tol = AcGeContext::gTol) const;
  constexpr Adesk::Boolean hasStartPoint(AcGePoint3d& p) const {
    if (m_type != AcGe::kLine3d) p = m_start;
    return m_type != AcGe::kLine3d;
  }
  constexpr Adesk::Boolean hasEndPoint(AcGePoint3d& p) const {
    if (m_type == AcGe::kLineSeg3d) p = m_end;
    return m_type == AcGe::kLineSeg3d;
  }

  Adesk::Boolean isParallelTo(const AcGeLinearEnt3d& other, const AcGeTol& tol = AcGeContext::gTol) const {
    return direction().isParallelTo(other.direction(), tol);
  }
  Adesk::Boolean isPerpendicularTo(const AcGeLinearEnt3d& other, const AcGeTol& tol = AcGeContext::gTol) const {
    return direction().isPerpendicularTo(other.direction(), tol);
  }
  inline Adesk::Boolean isParallelTo(const AcGePlanarEnt& plane, const AcGeTol& tol = AcGeContext::gTol) const;
  inline Adesk::Boolean isPerpendicularTo(const AcGePlanarEnt& plane, const AcGeTol& tol = AcGeContext::gTol) const;
  /// Parallel, and on the same unbounded line.
  inline Adesk::Boolean isColinearTo(const AcGeLinearEnt3d& other, const AcGeTol& tol = AcGeContext::gTol) const;

  /// The one point in which the two meet, ends included; they may pass each other at the point tolerance. False, and p
  /// left alone, when there is none and when they are parallel, on one line or not.
  Adesk::Boolean intersectWith(const AcGeLinearEnt3d& other, AcGePoint3d& p,
                               const AcGeTol& tol = AcGeContext::gTol) const {
    AcGePoint3d onOther;
    return crossing(other, m_step.crossProduct(other.m_step), tol.equalPoint(), p, onOther, tol);
  }
  /// The one point in which the entity meets the plane, its ends included. False, and p left alone, when there is none
  /// and when it is parallel to the plane or in it.
  inline Adesk::Boolean intersectWith(const AcGePlanarEnt& plane, AcGePoint3d& p,
                                      const AcGeTol& tol = AcGeContext::gTol) const;
  /// The point of each in which the two meet for one who looks along direction. False, and both left alone, when they
  /// don't, when they look parallel, and when one is seen end on.
  Adesk::Boolean projIntersectWith(const AcGeLinearEnt3d& other, const AcGeVector3d& lookingAlong, AcGePoint3d& onThis,
                                   AcGePoint3d& onOther, const AcGeTol& tol = AcGeContext::gTol) const;

  AcGeLinearEnt3d& transformBy(const AcGeMatrix3d& m) { return assign(m * m_start, m * m_step, m * m_end); }
  AcGeLinearEnt3d& translateBy(const AcGeVector3d& v) { return assign(m_start + v, m_step, m_end + v); }
  AcGeLinearEnt3d& rotateBy(double angle, const AcGeVector3d& axis, const AcGePoint3d& centre = AcGePoint3d::kOrigin) {
    return transformBy(AcGeMatrix3d::rotation(angle, axis, centre));
  }
  AcGeLinearEnt3d& scaleBy(double factor, const AcGePoint3d& centre = AcGePoint3d::kOrigin) {
    return transformBy(AcGeMatrix3d::scaling(factor, centre));
  }
  inline AcGeLinearEnt3d& mirror(const AcGePlane& plane);

  constexpr AcGeIntersect::Limits limits() const { return {m_type != AcGe::kLine3d, m_type == AcGe::kLineSeg3d}; }

 protected:
  constexpr AcGeLinearEnt3d(AcGe::EntityId type, const AcGePoint3d& start, const AcGeVector3d& step,
                            const AcGePoint3d& end)
      : AcGeCurve3d(type), m_start(start), m_step(step), m_end(end) {}

  constexpr AcGeLinearEnt3d& assign(const AcGePoint3d& start, const AcGeVector3d& step, const AcGePoint3d& end) {
    m_start = start;
    m_step = step;
    m_end = end;
    return *this;
  }

  AcGePoint3d m_start;
  AcGeVector3d m_step;
  AcGePoint3d m_end;  ///< Kept beside the step, so that a segment gives back the very end it was given.

 private:
  /// Solves the crossing seen along square, which is at right angles to both steps (as they are seen), with the two
  /// points no farther apart than gap.
  inline Adesk::Boolean crossing(const AcGeLinearEnt3d& other, const AcGeVector3d& square, double gap, AcGePoint3d& p,
                                 AcGePoint3d& q, const AcGeTol& tol) const;
  inline Adesk::Boolean crossingAtPoint(const AcGeLinearEnt3d& other, AcGePoint3d& p, AcGePoint3d& q,
                                        const AcGeTol& tol) const;
};

inline Adesk::Boolean AcGeLinearEnt3d::crossingAtPoint(const AcGeLinearEnt3d& other, AcGePoint3d& p, AcGePoint3d& q,
                                                       const AcGeTol& tol) const {
  const bool mine = m_step.lengthSqrd() == 0.0;
  const AcGePoint3d point = mine ? m_start : other.m_start;
  if (!(mine ? other : *this).isOn(point, tol)) return Adesk::kFalse;
  p = q = point;
  return Adesk::kTrue;
}

inline Adesk::Boolean AcGeLinearEnt3d::crossing(const AcGeLinearEnt3d& other, const AcGeVector3d& square, double gap,
                                                AcGePoint3d& p, AcGePoint3d& q, const AcGeTol& tol) const {
  const AcGeIntersect::Limits mine = limits();
  const AcGeIntersect::Limits theirs = other.limits();
  const double size1 = m_step.lengthSqrd();
  const double size2 = other.m_step.lengthSqrd();
  const double squared = square.lengthSqrd();
  if (squared <= tol.equalVector() * tol.equalVector() * size1 * size2) {
    if (size1 != 0.0 && size2 != 0.0) return Adesk::kFalse;
    return crossingAtPoint(other, p, q, tol);
  }
  const AcGeVector3d apart = other.m_start - m_start;
  const double away = apart.dotProduct(square);
  if (away * away > gap * gap * squared) return Adesk::kFalse;
  const double t = apart.crossProduct(other.m_step).dotProduct(square) / squared;
  const double s = apart.crossProduct(m_step).dotProduct(square) / squared;
  // An end within the tolerance of the other line may lie tol / sin(angle) short of the crossing.
  const double reach = tol.equalPoint() / std::sqrt(squared);
  if (!mine.admit(t, reach * std::sqrt(size2)) || !theirs.admit(s, reach * std::sqrt(size1))) return Adesk::kFalse;
  const bool pastMine = !mine.admit(t, 0.0);
  const bool pastTheirs = !theirs.admit(s, 0.0);
  const AcGePoint3d limit1 =
      pastTheirs && !pastMine ? closestPointTo(other.evalPoint(theirs.clamp(s))) : evalPoint(mine.clamp(t));
  const AcGePoint3d limit2 = pastMine ? other.closestPointTo(limit1) : other.evalPoint(theirs.clamp(s));
  if ((pastMine || pastTheirs) && limit1.distanceSqrdTo(limit2) > tol.equalPoint() * tol.equalPoint()) {
    return Adesk::kFalse;
  }
  p = limit1;
  q = limit2;
  return Adesk::kTrue;
}

inline Adesk::Boolean AcGeLinearEnt3d::projIntersectWith(const AcGeLinearEnt3d& other, const AcGeVector3d& lookingAlong,
                                                         AcGePoint3d& onThis, AcGePoint3d& onOther,
                                                         const AcGeTol& tol) const {
  AcGeLinearEnt3d seen1 = *this;
  AcGeLinearEnt3d seen2 = other;
  const AcGeVector3d shift = (other.m_start - m_start).orthoProject(lookingAlong);
  seen1.assign(m_start, m_step.orthoProject(lookingAlong), m_start + (m_end - m_start).orthoProject(lookingAlong));
  seen2.assign(m_start + shift, other.m_step.orthoProject(lookingAlong),
               m_start + (other.m_end - m_start).orthoProject(lookingAlong));
  if (seen1.m_step.isZeroLength(tol) || seen2.m_step.isZeroLength(tol)) return Adesk::kFalse;
  AcGePoint3d p;
  if (!seen1.intersectWith(seen2, p, tol)) return Adesk::kFalse;
  onThis = evalPoint(limits().clamp(seen1.paramOf(p)));
  onOther = other.evalPoint(other.limits().clamp(seen2.paramOf(p)));
  return Adesk::kTrue;
}
