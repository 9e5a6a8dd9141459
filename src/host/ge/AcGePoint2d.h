#pragma once

#include "host/ge/AcGeVector2d.h"

class AcGeLine2d;

/// A place in the plane. Two points no farther apart than the point tolerance are equal.
class AcGePoint2d {
 public:
  double x = 0.0;
  double y = 0.0;

  static const AcGePoint2d kOrigin;

  constexpr AcGePoint2d() = default;
  constexpr AcGePoint2d(double xx, double yy) : x(xx), y(yy) {}

  constexpr double operator[](unsigned int i) const { return i == 0 ? x : y; }
  constexpr double& operator[](unsigned int i) { return i == 0 ? x : y; }
  constexpr AcGePoint2d& set(double xx, double yy) {
    x = xx;
    y = yy;
    return *this;
  }
  constexpr AcGeVector2d asVector() const { return {x, y}; }

  constexpr AcGePoint2d operator+(const AcGeVector2d& v) const { return {x + v.x, y + v.y}; }
  constexpr AcGePoint2d operator-(const AcGeVector2d& v) const { return {x - v.x, y - v.y}; }
  constexpr AcGeVector2d operator-(const AcGePoint2d& p) const { return {x - p.x, y - p.y}; }
  constexpr AcGePoint2d operator*(double s) const { return {x * s, y * s}; }
  constexpr AcGePoint2d operator/(double s) const { return {x / s, y / s}; }
  constexpr AcGePoint2d& operator+=(const AcGeVector2d& v) { return *this = *this + v; }
  constexpr AcGePoint2d& operator-=(const AcGeVector2d& v) { return *this = *this - v; }
  constexpr AcGePoint2d& operator*=(double s) { return *this = *this * s; }
  constexpr AcGePoint2d& operator/=(double s) { return *this = *this / s; }
  friend constexpr AcGePoint2d operator*(double s, const AcGePoint2d& p) { return p * s; }

  double distanceTo(const AcGePoint2d& p) const { return (*this - p).length(); }
  constexpr double distanceSqrdTo(const AcGePoint2d& p) const { return (*this - p).lengthSqrd(); }
  bool operator==(const AcGePoint2d& p) const { return isEqualTo(p) != 0; }
  bool operator!=(const AcGePoint2d& p) const { return !(*this == p); }
  Adesk::Boolean isEqualTo(const AcGePoint2d& p, const AcGeTol& tol = AcGeContext::gTol) const {
    return distanceSqrdTo(p) <= tol.equalPoint() * tol.equalPoint();
  }

  /// Turns the point counter-clockwise by angle, in radians, about a centre.
  AcGePoint2d& rotateBy(double angle, const AcGePoint2d& centre = kOrigin) {
    return *this = centre + (*this - centre).rotateBy(angle);
  }
  constexpr AcGePoint2d& scaleBy(double factor, const AcGePoint2d& centre = kOrigin) {
    return *this = centre + (*this - centre) * factor;
  }
  inline AcGePoint2d& mirror(const AcGeLine2d& line);
  inline AcGePoint2d& transformBy(const AcGeMatrix2d& m);
};

inline constexpr AcGePoint2d AcGePoint2d::kOrigin(0.0, 0.0);

constexpr AcGePoint2d AcGeVector2d::asPoint() const {
  return {x, y};
}
