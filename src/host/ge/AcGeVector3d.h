#pragma once

#include <cmath>

#include "host/ge/AcGeVector2d.h"

class AcGeMatrix3d;
class AcGePlanarEnt;
class AcGePoint3d;

/// A displacement in space. Comparisons take the vector tolerance; a vector no longer than it has no direction.
class AcGeVector3d {
 public:
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;

  static const AcGeVector3d kIdentity;  ///< The zero vector.
  static const AcGeVector3d kXAxis;
  static const AcGeVector3d kYAxis;
  static const AcGeVector3d kZAxis;

  constexpr AcGeVector3d() = default;
  constexpr AcGeVector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
  /// The vector with the coordinates v in the plane's frame.
  inline AcGeVector3d(const AcGePlanarEnt& plane, const AcGeVector2d& v);

  constexpr double operator[](unsigned int i) const { return i == 0 ? x : (i == 1 ? y : z); }
  constexpr double& operator[](unsigned int i) { return i == 0 ? x : (i == 1 ? y : z); }
  constexpr AcGeVector3d& set(double xx, double yy, double zz) {
    x = xx;
    y = yy;
    z = zz;
    return *this;
  }

  constexpr AcGeVector3d operator+(const AcGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
  constexpr AcGeVector3d operator-(const AcGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
  constexpr AcGeVector3d operator-() const { return {-x, -y, -z}; }
  constexpr AcGeVector3d operator*(double s) const { return {x * s, y * s, z * s}; }
  constexpr AcGeVector3d operator/(double s) const { return {x / s, y / s, z / s}; }
  constexpr AcGeVector3d& operator+=(const AcGeVector3d& v) { return *this = *this + v; }
  constexpr AcGeVector3d& operator-=(const AcGeVector3d& v) { return *this = *this - v; }
  constexpr AcGeVector3d& operator*=(double s) { return *this = *this * s; }
  constexpr AcGeVector3d& operator/=(double s) { return *this = *this / s; }
  friend constexpr AcGeVector3d operator*(double s, const AcGeVector3d& v) { return v * s; }
  constexpr AcGeVector3d& setToSum(const AcGeVector3d& a, const AcGeVector3d& b) { return *this = a + b; }

  bool operator==(const AcGeVector3d& v) const { return isEqualTo(v) != 0; }
  bool operator!=(const AcGeVector3d& v) const { return !(*this == v); }
  /// True when the difference is no longer than the vector tolerance.
  Adesk::Boolean isEqualTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const {
    return (*this - v).isZeroLength(tol);
  }

  constexpr double dotProduct(const AcGeVector3d& v) const { return x * v.x + y * v.y + z * v.z; }
  constexpr AcGeVector3d crossProduct(const AcGeVector3d& v) const {
    return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x};
  }
  constexpr double lengthSqrd() const { return x * x + y * y + z * z; }
  double length() const { return std::sqrt(lengthSqrd()); }
  Adesk::Boolean isZeroLength(const AcGeTol& tol = AcGeContext::gTol) const {
    return lengthSqrd() <= tol.equalVector() * tol.equalVector();
  }
  Adesk::Boolean isUnitLength(const AcGeTol& tol = AcGeContext::gTol) const {
    return std::fabs(length() - 1.0) <= tol.equalVector();
  }
  /// The index of the coordinate largest in absolute value; the first of equals.
  unsigned int largestElement() const {
    const double ax = std::fabs(x);
    const double ay = std::fabs(y);
    const double az = std::fabs(z);
    if (ax >= ay && ax >= az) return 0;
    return ay >= az ? 1 : 2;
  }

  /// The unsigned angle to v, in [0, pi]. 0 when either is the zero vector.
  double angleTo(const AcGeVector3d& v) const { return std::atan2(crossProduct(v).length(), dotProduct(v)); }
  /// The angle to v counter-clockwise as seen against ref, in [0, 2 pi): the unsigned angle when the cross product
  /// points to ref's side or lies square to it, 2 pi less it otherwise.
  double angleTo(const AcGeVector3d& v, const AcGeVector3d& ref) const {
    const AcGeVector3d cross = crossProduct(v);
    const double angle = std::atan2(cross.length(), dotProduct(v));
    if (cross.dotProduct(ref) >= 0.0) return angle;
    return kAcGeTwoPi - angle < kAcGeTwoPi ? kAcGeTwoPi - angle : 0.0;
  }
  /// The angle of the vector's image in the plane, from the plane's first axis, in [0, 2 pi).
  inline double angleOnPlane(const AcGePlanarEnt& plane) const;

  /// The unit vector of the same direction; the vector itself when it has no direction.
  AcGeVector3d normal(const AcGeTol& tol = AcGeContext::gTol) const {
    return isZeroLength(tol) ? *this : *this / length();
  }
  AcGeVector3d& normalize(const AcGeTol& tol = AcGeContext::gTol) { return *this = normal(tol); }
  /// As above; flag tells k0This when there is no direction.
  AcGeVector3d& normalize(const AcGeTol& tol, AcGeError& flag) {
    flag = isZeroLength(tol) ? AcGe::k0This : AcGe::kOk;
    return normalize(tol);
  }
  constexpr AcGeVector3d& negate() { return *this = -*this; }

  /// A unit vector square to this one: the X axis of the arbitrary axis rule for this normal. It is the cross product
  /// of the world's Y axis with the normal when that lies within 1/64 of the Z axis, of the world's Z axis otherwise.
  AcGeVector3d perpVector() const {
    constexpr double kNearZ = 1.0 / 64.0;
    const double size = length();
    if (size == 0.0) return kXAxis;
    const bool nearZ = std::fabs(x) < kNearZ * size && std::fabs(y) < kNearZ * size;
    const AcGeVector3d axis = nearZ ? AcGeVector3d(z, 0.0, -x) : AcGeVector3d(-y, x, 0.0);
    return axis / axis.length();
  }
  /// This vector without its part along the given normal of a plane.
  AcGeVector3d orthoProject(const AcGeVector3d& planeNormal) const {
    const double squared = planeNormal.lengthSqrd();
    return squared == 0.0 ? *this : *this - planeNormal * (dotProduct(planeNormal) / squared);
  }
  /// This vector brought along direction into the plane of the given normal; unchanged when direction lies in it.
  AcGeVector3d project(const AcGeVector3d& planeNormal, const AcGeVector3d& direction) const {
    const double along = direction.dotProduct(planeNormal);
    return along == 0.0 ? *this : *this - direction * (dotProduct(planeNormal) / along);
  }

  /// Same direction, either sense. A vector without direction is parallel to none.
  Adesk::Boolean isParallelTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const {
    return isCodirectionalTo(v, tol) || isCodirectionalTo(-v, tol);
  }
  /// Same direction and sense: the unit vectors are equal.
  Adesk::Boolean isCodirectionalTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const {
    if (isZeroLength(tol) || v.isZeroLength(tol)) return Adesk::kFalse;
    return (*this / length()).isEqualTo(v / v.length(), tol);
  }
  Adesk::Boolean isPerpendicularTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const {
    if (isZeroLength(tol) || v.isZeroLength(tol)) return Adesk::kFalse;
    return std::fabs(dotProduct(v)) <= tol.equalVector() * length() * v.length();
  }

  /// Turns the vector by angle, in radians, right-handed about axis. A zero axis leaves it.
  AcGeVector3d& rotateBy(double angle, const AcGeVector3d& axis) {
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    if (axis.x == 0.0 && axis.y == 0.0) {
      if (axis.z == 0.0) return *this;
      const double turn = axis.z > 0.0 ? s : -s;
      return set(x * c - y * turn, x * turn + y * c, z);
    }
    const AcGeVector3d unit = axis / axis.length();
    return *this = *this * c + unit.crossProduct(*this) * s + unit * (unit.dotProduct(*this) * (1.0 - c));
  }
  /// Mirrors the vector in the plane of the given normal.
  AcGeVector3d& mirror(const AcGeVector3d& planeNormal) {
    const double squared = planeNormal.lengthSqrd();
    if (squared == 0.0) return *this;
    return *this -= planeNormal * (2.0 * dotProduct(planeNormal) / squared);
  }
  inline AcGeVector3d& transformBy(const AcGeMatrix3d& m);
  /// The coordinates of the vector's image in the plane's frame.
  inline AcGeVector2d convert2d(const AcGePlanarEnt& plane) const;
  constexpr AcGeVector2d convert2d() const { return {x, y}; }
  constexpr AcGePoint3d asPoint() const;
};

inline constexpr AcGeVector3d AcGeVector3d::kIdentity(0.0, 0.0, 0.0);
inline constexpr AcGeVector3d AcGeVector3d::kXAxis(1.0, 0.0, 0.0);
inline constexpr AcGeVector3d AcGeVector3d::kYAxis(0.0, 1.0, 0.0);
inline constexpr AcGeVector3d AcGeVector3d::kZAxis(0.0, 0.0, 1.0);
