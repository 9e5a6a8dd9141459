#pragma once

#include "host/ge/AcGePlanarEnt.h"

/// An unbounded plane. A new one is the XY plane.
class AcGePlane : public AcGePlanarEnt {
 public:
  static const AcGePlane kXYPlane;
  static const AcGePlane kYZPlane;
  static const AcGePlane kZXPlane;

  constexpr AcGePlane() = default;
  AcGePlane(const AcGePoint3d& origin, const AcGeVector3d& normal) { set(origin, normal); }
  /// Through three points: origin is the middle one, the axes run from it.
  AcGePlane(const AcGePoint3d& uPoint, const AcGePoint3d& origin, const AcGePoint3d& vPoint) {
    set(uPoint, origin, vPoint);
  }
  AcGePlane(const AcGePoint3d& origin, const AcGeVector3d& uAxis, const AcGeVector3d& vAxis) {
    set(origin, uAxis, vAxis);
  }
  AcGePlane(double a, double b, double c, double d) { set(a, b, c, d); }

  AcGePlane& set(const AcGePoint3d& origin, const AcGeVector3d& normal) {
    setPlane(origin, normal);
    return *this;
  }
  AcGePlane& set(const AcGePoint3d& uPoint, const AcGePoint3d& origin, const AcGePoint3d& vPoint) {
    return set(origin, uPoint - origin, vPoint - origin);
  }
  /// The axes needn't be square to each other: the second is squared to the first. Parallel axes give a plane whose
  /// normal is the zero vector.
  AcGePlane& set(const AcGePoint3d& origin, const AcGeVector3d& uAxis, const AcGeVector3d& vAxis) {
    setPlane(origin, uAxis, uAxis.crossProduct(vAxis));
    return *this;
  }
  /// a x + b y + c z + d = 0. The origin is the plane's point nearest to the world's. With a, b and c all 0 the plane
  /// has no normal.
  AcGePlane& set(double a, double b, double c, double d) {
    const AcGeVector3d given(a, b, c);
    const AcGeVector3d normal = unit(given);
    const bool asGiven = normal.x == a && normal.y == b && normal.z == c;
    const double offset = asGiven ? d : d / given.length();
    setPlane(AcGePoint3d::kOrigin - normal * offset, normal);
    m_d = offset;
    return *this;
  }

  /// The distance of p, positive on the side to which the normal points.
  double signedDistanceTo(const AcGePoint3d& p) const { return signedDistance(p); }
  AcGePlane& reverseNormal() {
    m_normal.negate();
    m_vAxis.negate();
    m_d = -m_d;
    return *this;
  }

  using AcGePlanarEnt::intersectWith;
  /// The line that two planes share; false, and line left alone, when they are parallel.
  Adesk::Boolean intersectWith(const AcGePlane& other, AcGeLine3d& line, const AcGeTol& tol = AcGeContext::gTol) const {
    if (m_normal.lengthSqrd() == 0.0 || other.m_normal.lengthSqrd() == 0.0 || isParallelTo(other, tol)) {
      return Adesk::kFalse;
    }
    const AcGeVector3d along = m_normal.crossProduct(other.m_normal);
    // From this plane's origin, in this plane, straight to the other one.
    const AcGeVector3d across = along.crossProduct(m_normal);
    const double steps = -other.signedDistance(m_origin) / across.dotProduct(other.m_normal);
    line.set(m_origin + across * steps, along / along.length());
    return Adesk::kTrue;
  }

  /// A mirroring keeps the plane's points and turns its normal as the axes ask.
  AcGePlane& transformBy(const AcGeMatrix3d& m) { return set(m * m_origin, m * m_uAxis, m * m_vAxis); }
  AcGePlane& translateBy(const AcGeVector3d& v) { return transformBy(AcGeMatrix3d::translation(v)); }
  AcGePlane& rotateBy(double angle, const AcGeVector3d& axis, const AcGePoint3d& centre = AcGePoint3d::kOrigin) {
    return transformBy(AcGeMatrix3d::rotation(angle, axis, centre));
  }

 private:
  constexpr AcGePlane(const AcGeVector3d& uAxis, const AcGeVector3d& vAxis, const AcGeVector3d& normal) {
    m_uAxis = uAxis;
    m_vAxis = vAxis;
    m_normal = normal;
  }
};

inline constexpr AcGePlane AcGePlane::kXYPlane{};
inline constexpr AcGePlane AcGePlane::kYZPlane(AcGeVector3d::kYAxis, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis);
inline constexpr AcGePlane AcGePlane::kZXPlane(AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, AcGeVector3d::kYAxis);

inline void AcGeLinearEnt3d::getPerpPlane(const AcGePoint3d& p, AcGePlane& plane) const {
  plane.set(p, direction());
}
inline Adesk::Boolean AcGeLinearEnt3d::isOn(const AcGePlane& plane, const AcGeTol& tol) const {
  const bool parallel = m_step.lengthSqrd() == 0.0 || isParallelTo(plane, tol);
  return parallel && plane.isOn(m_start, tol) && (m_type != AcGe::kLineSeg3d || plane.isOn(m_end, tol));
}
inline AcGeLinearEnt3d& AcGeLinearEnt3d::mirror(const AcGePlane& plane) {
  return transformBy(AcGeMatrix3d::mirroring(plane));
}

inline AcGePoint3d& AcGePoint3d::mirror(const AcGePlane& plane) {
  return *this -= plane.normal() * (2.0 * plane.signedDistanceTo(*this));
}
inline AcGePoint3d AcGePoint3d::orthoProject(const AcGePlane& plane) const {
  return plane.closestPointTo(*this);
}
inline AcGePoint3d AcGePoint3d::project(const AcGePlane& plane, const AcGeVector3d& direction) const {
  return plane.projClosestPointTo(*this, direction);
}

inline AcGeMatrix3d& AcGeMatrix3d::setToMirroring(const AcGePlane& plane) {
  setToIdentity();
  setLinear(AcGeVector3d(AcGeVector3d::kXAxis).mirror(plane.normal()),
            AcGeVector3d(AcGeVector3d::kYAxis).mirror(plane.normal()),
            AcGeVector3d(AcGeVector3d::kZAxis).mirror(plane.normal()));
  return keep(plane.pointOnPlane());
}
inline AcGeMatrix3d& AcGeMatrix3d::setToProjection(const AcGePlane& plane, const AcGeVector3d& direction) {
  setToIdentity();
  setLinear(AcGeVector3d::kXAxis.project(plane.normal(), direction),
            AcGeVector3d::kYAxis.project(plane.normal(), direction),
            AcGeVector3d::kZAxis.project(plane.normal(), direction));
  return keep(plane.pointOnPlane());
}
inline AcGeMatrix3d& AcGeMatrix3d::setToPlaneToWorld(const AcGePlane& plane) {
  AcGePoint3d origin;
  AcGeVector3d uAxis;
  AcGeVector3d vAxis;
  plane.get(origin, uAxis, vAxis);
  return setCoordSystem(origin, uAxis, vAxis, plane.normal());
}
inline AcGeMatrix3d& AcGeMatrix3d::setToWorldToPlane(const AcGePlane& plane) {
  return setToPlaneToWorld(plane).invert();
}
inline AcGeMatrix3d AcGeMatrix3d::mirroring(const AcGePlane& plane) {
  return AcGeMatrix3d().setToMirroring(plane);
}
inline AcGeMatrix3d AcGeMatrix3d::projection(const AcGePlane& plane, const AcGeVector3d& direction) {
  return AcGeMatrix3d().setToProjection(plane, direction);
}
inline AcGeMatrix3d AcGeMatrix3d::planeToWorld(const AcGePlane& plane) {
  return AcGeMatrix3d().setToPlaneToWorld(plane);
}
inline AcGeMatrix3d AcGeMatrix3d::worldToPlane(const AcGePlane& plane) {
  return AcGeMatrix3d().setToWorldToPlane(plane);
}
