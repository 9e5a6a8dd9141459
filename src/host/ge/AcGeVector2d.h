#pragma once

#include <cmath>

#include "host/ge/AcGeTol.h"

class AcGeMatrix2d;
class AcGePoint2d;

/// A displacement in the plane. Comparisons take the vector tolerance; a vector no longer than it has no direction.
class AcGeVector2d {
 public:
  double x = 0.0;
  double y = 0.0;

  static const AcGeVector2d kIdentity;  ///< The zero vector.
  static const AcGeVector2d kXAxis;
  static const AcGeVector2d kYAxis;

  constexpr AcGeVector2d() = default;
  constexpr AcGeVector2d(double xx, double yy) : x(xx), y(yy) {}

  constexpr double operator[](unsigned int i) const { return i == 0 ? x : y; }
  constexpr double& operator[](unsigned int i) { return i == 0 ? x : y; }
  constexpr AcGeVector2d& set(double xx, double yy) {
    x = xx;
    y = yy;
    return *this;
  }

  constexpr AcGeVector2d operator+(const AcGeVector2d& v) const { return {x + v.x, y + v.y}; }
  constexpr AcGeVector2d operator-(const AcGeVector2d& v) const { return {x - v.x, y - v.y}; }
  constexpr AcGeVector2d operator-() const { return {-x, -y}; }
  constexpr AcGeVector2d operator*(double s) const { return {x * s, y * s}; }
  constexpr AcGeVector2d operator/(double s) const { return {x / s, y / s}; }
  constexpr AcGeVector2d& operator+=(const AcGeVector2d& v) { return *this = *this + v; }
  constexpr AcGeVector2d& operator-=(const AcGeVector2d& v) { return *this = *this - v; }
  constexpr AcGeVector2d& operator*=(double s) { return *this = *this * s; }
  constexpr AcGeVector2d& operator/=(double s) { return *this = *this / s; }
  friend constexpr AcGeVector2d operator*(double s, const AcGeVector2d& v) { return v * s; }

  bool operator==(const AcGeVector2d& v) const { return isEqualTo(v) != 0; }
  bool operator!=(const AcGeVector2d& v) const { return !(*this == v); }
  /// True when the difference is no longer than the vector tolerance.
  Adesk::Boolean isEqualTo(const AcGeVector2d& v, const AcGeTol& tol = AcGeContext::gTol) const {
    return (*this - v).isZeroLength(tol);
  }

  constexpr double dotProduct(const AcGeVector2d& v) const { return x * v.x + y * v.y; }
  /// The z of the cross product: positive when v lies to the left.
  constexpr double crossProduct(const AcGeVector2d& v) const { return x * v.y - y * v.x; }
  constexpr double lengthSqrd() const { return x * x + y * y; }
  double length() const { return std::sqrt(lengthSqrd()); }
  Adesk::Boolean isZeroLength(const AcGeTol& tol = AcGeContext::gTol) const {
    return lengthSqrd() <= tol.equalVector() * tol.equalVector();
  }
  Adesk::Boolean isUnitLength(const AcGeTol& tol = AcGeContext::gTol) const {
    return std::fabs(length() - 1.0) <= tol.equalVector();
  }

  /// The angle from the X axis, counter-clockwise, in [0, 2 pi). 0 for the zero vector.
  double angle() const {
    const double a = std::atan2(y, x);
    if (a >= 0.0) return a;
    return a + kAcGeTwoPi < kAcGeTwoPi ? a + kAcGeTwoPi : 0.0;
  }
  /// The unsigned angle to v, in [0, pi].
  double angleTo(const AcGeVector2d& v) const { return std::atan2(std::fabs(crossProduct(v)), dotProduct(v)); }

  /// The unit vector of the same direction; the vector itself when it has no direction.
  AcGeVector2d normal(const AcGeTol& tol = AcGeContext::gTol) const {
    return isZeroLength(tol) ? *this : *this / length();
  }
  AcGeVector2d& normalize(const AcGeTol& tol = AcGeContext::gTol) { return *this = normal(tol); }
  /// As above; flag tells k0This when there is no direction.
  AcGeVector2d& normalize(const AcGeTol& tol, AcGeError& flag) {
    flag = isZeroLength(tol) ? AcGe::k0This : AcGe::kOk;
    return normalize(tol);
  }
  constexpr AcGeVector2d& negate() { return *this = -*this; }
  /// This vector turned by a quarter turn to the left.
  constexpr AcGeVector2d perpVector() const { return {-y, x}; }

  /// Same direction, either sense. A vector without direction is parallel to none.
  Adesk::Boolean isParallelTo(const AcGeVector2d& v, const AcGeTol& tol = AcGeContext::gTol) const {
    return isCodirectionalTo(v, tol) || isCodirectionalTo(-v, tol);
  }
  /// Same direction and sense: the unit vectors are equal.
  Adesk::Boolean isCodirectionalTo(const AcGeVector2d& v, const AcGeTol& tol = AcGeContext::gTol) const {
    if (isZeroLength(tol) || v.isZeroLength(tol)) return Adesk::kFalse;
    return (*this / length()).isEqualTo(v / v.length(), tol);
  }
  Adesk::Boolean isPerpendicularTo(const AcGeVector2d& v, const AcGeTol& tol = AcGeContext::gTol) const {
    if (isZeroLength(tol) || v.isZeroLength(tol)) return Adesk::kFalse;
    return std::fabs(dotProduct(v)) <= tol.equalVector() * length() * v.length();
  }

  /// Turns the vector counter-clockwise by angle, in radians.
  AcGeVector2d& rotateBy(double angle) {
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    return set(x * c - y * s, x * s + y * c);
  }
  /// Mirrors the vector in the given direction.
  AcGeVector2d& mirror(const AcGeVector2d& line) {
    const double squared = line.lengthSqrd();
    if (squared == 0.0) return *this;
    return *this = line * (2.0 * dotProduct(line) / squared) - *this;
  }
  inline AcGeVector2d& transformBy(const AcGeMatrix2d& m);
  constexpr AcGePoint2d asPoint() const;
};

inline constexpr AcGeVector2d AcGeVector2d::kIdentity(0.0, 0.0);
inline constexpr AcGeVector2d AcGeVector2d::kXAxis(1.0, 0.0);
inline constexpr AcGeVector2d AcGeVector2d::kYAxis(0.0, 1.0);
