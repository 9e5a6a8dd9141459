#pragma once

#include "host/ge/AcGeLine3d.h"

/// A flat thing in space: an origin, a unit normal and two axes. The first axis follows from the normal by the
/// arbitrary axis rule unless it was given.
class AcGePlanarEnt {
 public:
  constexpr AcGe::EntityId type() const { return AcGe::kPlane; }

  constexpr AcGePoint3d pointOnPlane() const { return m_origin; }
  /// The unit normal; the zero vector for a plane made of too little.
  constexpr AcGeVector3d normal() const { return m_normal; }
  /// a x + b y + c z + d = 0 with (a, b, c) the unit normal. A plane set from such coefficients gives them back to the
  /// last bit.
  constexpr void getCoefficients(double& a, double& b, double& c, double& d) const {
    a = m_normal.x;
    b = m_normal.y;
    c = m_normal.z;
    d = m_d;
  }
  constexpr void get(AcGePoint3d& origin, AcGeVector3d& uAxis, AcGeVector3d& vAxis) const {
    origin = m_origin;
    uAxis = m_uAxis;
    vAxis = m_vAxis;
  }
  constexpr void getCoordSystem(AcGePoint3d& origin, AcGeVector3d& axis1, AcGeVector3d& axis2) const {
    get(origin, axis1, axis2);
  }
  constexpr double paramU(const AcGePoint3d& p) const { return (p - m_origin).dotProduct(m_uAxis); }
  constexpr double paramV(const AcGePoint3d& p) const { return (p - m_origin).dotProduct(m_vAxis); }

  AcGePoint3d closestPointTo(const AcGePoint3d& p) const { return p - m_normal * signedDistance(p); }
  /// The point where the line through p along direction meets the plane; p itself when direction lies in the plane.
  AcGePoint3d projClosestPointTo(const AcGePoint3d& p, const AcGeVector3d& direction) const {
    const double along = direction.dotProduct(m_normal);
    return along == 0.0 ? p : p - direction * (signedDistance(p) / along);
  }
  double distanceTo(const AcGePoint3d& p) const { return std::fabs(signedDistance(p)); }
  Adesk::Boolean isOn(const AcGePoint3d& p, const AcGeTol& tol = AcGeContext::gTol) const {
    return distanceTo(p) <= tol.equalPoint();
  }

  Adesk::Boolean isParallelTo(const AcGeLinearEnt3d& line, const AcGeTol& tol = AcGeContext::gTol) const {
    return m_normal.isPerpendicularTo(line.direction(), tol);
  }
  Adesk::Boolean isParallelTo(const AcGePlanarEnt& other, const AcGeTol& tol = AcGeContext::gTol) const {
    return m_normal.isParallelTo(other.m_normal, tol);
  }
  Adesk::Boolean isPerpendicularTo(const AcGeLinearEnt3d& line, const AcGeTol& tol = AcGeContext::gTol) const {
    return m_normal.isParallelTo(line.direction(), tol);
  }
  Adesk::Boolean isPerpendicularTo(const AcGePlanarEnt& other, const AcGeTol& tol = AcGeContext::gTol) const {
    return m_normal.isPerpendicularTo(other.m_normal, tol);
  }
  /// Parallel, and at no distance.
  Adesk::Boolean isCoplanarTo(const AcGePlanarEnt& other, const AcGeTol& tol = AcGeContext::gTol) const {
    return isParallelTo(other, tol) && isOn(other.m_origin, tol);
  }
  /// The one point in which the line meets the plane: see AcGeLinearEnt3d.
  inline Adesk::Boolean intersectWith(const AcGeLinearEnt3d& line, AcGePoint3d& p,
                                      const AcGeTol& tol = AcGeContext::gTol) const;

 protected:
  constexpr AcGePlanarEnt() = default;

  /// The origin's part along the normal, and not d, is what distances are measured from: it is exact for a plane
  /// through a given point.
  constexpr double signedDistance(const AcGePoint3d& p) const { return (p - m_origin).dotProduct(m_normal); }

  void setPlane(const AcGePoint3d& origin, const AcGeVector3d& uAxis, const AcGeVector3d& normal) {
    m_origin = origin;
    m_normal = unit(normal);
    m_uAxis = unit(uAxis);
    m_vAxis = m_normal.crossProduct(m_uAxis);
    m_d = -m_normal.dotProduct(origin.asVector());
  }
  void setPlane(const AcGePoint3d& origin, const AcGeVector3d& normal) {
    setPlane(origin, normal.perpVector(), normal);
  }
  /// A vector that is a unit but for rounding stays as it is, so that reading what was written changes nothing.
  static AcGeVector3d unit(const AcGeVector3d& v) {
    constexpr double kRounding = 1e-15;
    const double squared = v.lengthSqrd();
    return squared == 0.0 || std::fabs(squared - 1.0) <= kRounding ? v : v / std::sqrt(squared);
  }

  AcGePoint3d m_origin;
  AcGeVector3d m_uAxis = AcGeVector3d(1.0, 0.0, 0.0);
  AcGeVector3d m_vAxis = AcGeVector3d(0.0, 1.0, 0.0);
  AcGeVector3d m_normal = AcGeVector3d(0.0, 0.0, 1.0);
  double m_d = 0.0;
};

inline Adesk::Boolean AcGeLinearEnt3d::isParallelTo(const AcGePlanarEnt& plane, const AcGeTol& tol) const {
  return plane.isParallelTo(*this, tol);
}
inline Adesk::Boolean AcGeLinearEnt3d::isPerpendicularTo(const AcGePlanarEnt& plane, const AcGeTol& tol) const {
  return plane.isPerpendicularTo(*this, tol);
}

inline Adesk::Boolean AcGeLinearEnt3d::intersectWith(const AcGePlanarEnt& plane, AcGePoint3d& p,
                                                     const AcGeTol& tol) const {
  const AcGeVector3d normal = plane.normal();
  const double along = m_step.dotProduct(normal);
  const double size = m_step.length();
  if (std::fabs(along) <= tol.equalVector() * size) {
    if (size != 0.0 || !plane.isOn(m_start, tol)) return Adesk::kFalse;
    p = m_start;
    return Adesk::kTrue;
  }
  const double t = (plane.pointOnPlane() - m_start).dotProduct(normal) / along;
  // An end at most the tolerance off the plane still meets it.
  if (!limits().admit(t, tol.equalPoint() / std::fabs(along))) return Adesk::kFalse;
  p = evalPoint(limits().clamp(t));
  return Adesk::kTrue;
}
inline Adesk::Boolean AcGePlanarEnt::intersectWith(const AcGeLinearEnt3d& line, AcGePoint3d& p,
                                                   const AcGeTol& tol) const {
  return line.intersectWith(*this, p, tol);
}

inline AcGeVector3d::AcGeVector3d(const AcGePlanarEnt& plane, const AcGeVector2d& v) {
  AcGePoint3d origin;
  AcGeVector3d uAxis;
  AcGeVector3d vAxis;
  plane.get(origin, uAxis, vAxis);
  *this = uAxis * v.x + vAxis * v.y;
}
inline AcGePoint3d::AcGePoint3d(const AcGePlanarEnt& plane, const AcGePoint2d& p) {
  *this = plane.pointOnPlane() + AcGeVector3d(plane, p.asVector());
}
inline AcGeVector2d AcGeVector3d::convert2d(const AcGePlanarEnt& plane) const {
  AcGePoint3d origin;
  AcGeVector3d uAxis;
  AcGeVector3d vAxis;
  plane.get(origin, uAxis, vAxis);
  return {dotProduct(uAxis), dotProduct(vAxis)};
}
inline double AcGeVector3d::angleOnPlane(const AcGePlanarEnt& plane) const {
  return convert2d(plane).angle();
}
inline AcGePoint2d AcGePoint3d::convert2d(const AcGePlanarEnt& plane) const {
  return {plane.paramU(*this), plane.paramV(*this)};
}
