#pragma once

#include "host/ge/AcGePoint2d.h"
#include "host/ge/AcGeVector3d.h"

class AcGePlane;

/// A place in space. Two points no farther apart than the point tolerance are equal.
class AcGePoint3d {
 public:
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;

  static const AcGePoint3d kOrigin;

  constexpr AcGePoint3d() = default;
  constexpr AcGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
  /// The point with the coordinates p in the plane's frame.
  inline AcGePoint3d(const AcGePlanarEnt& plane, const AcGePoint2d& p);

  constexpr double operator[](unsigned int i) const { return i == 0 ? x : (i == 1 ? y : z); }
  constexpr double& operator[](unsigned int i) { return i == 0 ? x : (i == 1 ? y : z); }
  constexpr AcGePoint3d& set(double xx, double yy, double zz) {
    x = xx;
    y = yy;
    z = zz;
    return *this;
  }
  constexpr AcGeVector3d asVector() const { return {x, y, z}; }

  constexpr AcGePoint3d operator+(const AcGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
  constexpr AcGePoint3d operator-(const AcGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
  constexpr AcGeVector3d operator-(const AcGePoint3d& p) const { return {x - p.x, y - p.y, z - p.z}; }
  constexpr AcGePoint3d operator*(double s) const { return {x * s, y * s, z * s}; }
  constexpr AcGePoint3d operator/(double s) const { return {x / s, y / s, z / s}; }
  constexpr AcGePoint3d& operator+=(const AcGeVector3d& v) { return *this = *this + v; }
  constexpr AcGePoint3d& operator-=(const AcGeVector3d& v) { return *this = *this - v; }
  constexpr AcGePoint3d& operator*=(double s) { return *this = *this * s; }
  constexpr AcGePoint3d& operator/=(double s) { return *this = *this / s; }
  friend constexpr AcGePoint3d operator*(double s, const AcGePoint3d& p) { return p * s; }
  constexpr AcGePoint3d& setToSum(const AcGePoint3d& p, const AcGeVector3d& v) { return *this = p + v; }

  double distanceTo(const AcGePoint3d& p) const { return (*this - p).length(); }
  constexpr double distanceSqrdTo(const AcGePoint3d& p) const { return (*this - p).lengthSqrd(); }
  bool operator==(const AcGePoint3d& p) const { return isEqualTo(p) != 0; }
  bool operator!=(const AcGePoint3d& p) const { return !(*this == p); }
  Adesk::Boolean isEqualTo(const AcGePoint3d& p, const AcGeTol& tol = AcGeContext::gTol) const {
    return distanceSqrdTo(p) <= tol.equalPoint() * tol.equalPoint();
  }

  /// Turns the point by angle, in radians, right-handed about the axis through centre.
  AcGePoint3d& rotateBy(double angle, const AcGeVector3d& axis, const AcGePoint3d& centre = kOrigin) {
    return *this = centre + (*this - centre).rotateBy(angle, axis);
  }
  constexpr AcGePoint3d& scaleBy(double factor, const AcGePoint3d& centre = kOrigin) {
    return *this = centre + (*this - centre) * factor;
  }
  inline AcGePoint3d& mirror(const AcGePlane& plane);
  inline AcGePoint3d& transformBy(const AcGeMatrix3d& m);
  /// The nearest point of the plane.
  inline AcGePoint3d orthoProject(const AcGePlane& plane) const;
  /// The point where the line along direction meets the plane; the point itself when direction lies in the plane.
  inline AcGePoint3d project(const AcGePlane& plane, const AcGeVector3d& direction) const;
  /// The coordinates of the nearest point of the plane, in the plane's frame.
  inline AcGePoint2d convert2d(const AcGePlanarEnt& plane) const;
  constexpr AcGePoint2d convert2d() const { return {x, y}; }
};

inline constexpr AcGePoint3d AcGePoint3d::kOrigin(0.0, 0.0, 0.0);

constexpr AcGePoint3d AcGeVector3d::asPoint() const {
  return {x, y, z};
}
