#pragma once

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <ostream>

#include "host/ge/ge.h"

// Values of geometry for the tests: how they print, how they are drawn at random, and the global tolerance for a while.

inline std::ostream& operator<<(std::ostream& out, const AcGePoint2d& p) {
  return out << '(' << p.x << ", " << p.y << ')';
}
inline std::ostream& operator<<(std::ostream& out, const AcGeVector2d& v) {
  return out << v.asPoint();
}
inline std::ostream& operator<<(std::ostream& out, const AcGePoint3d& p) {
  return out << '(' << p.x << ", " << p.y << ", " << p.z << ')';
}
inline std::ostream& operator<<(std::ostream& out, const AcGeVector3d& v) {
  return out << v.asPoint();
}

namespace getest {

inline constexpr double kPi = 3.141592653589793;

/// A tolerance of the tests, apart from the one under test.
inline AcGeTol within(double distance) {
  AcGeTol tol;
  tol.setEqualPoint(distance);
  tol.setEqualVector(distance);
  return tol;
}

/// Sets the global tolerance, and puts the old one back at the end.
class GlobalTolerance {
 public:
  explicit GlobalTolerance(double distance) { AcGeContext::gTol = within(distance); }
  ~GlobalTolerance() { AcGeContext::gTol = m_before; }
  GlobalTolerance(const GlobalTolerance&) = delete;
  GlobalTolerance& operator=(const GlobalTolerance&) = delete;

 private:
  AcGeTol m_before = AcGeContext::gTol;
};

/// A number from low to high, in steps that often fall together.
inline double number(double low, double high) {
  constexpr int kSteps = 20000;
  return low + (high - low) * *rc::gen::inRange(0, kSteps + 1) / kSteps;
}
inline AcGePoint2d point2d() {
  const double x = number(-100, 100);
  return {x, number(-100, 100)};
}
inline AcGePoint3d point3d() {
  const double x = number(-100, 100);
  const double y = number(-100, 100);
  return {x, y, number(-100, 100)};
}
/// A vector that has a direction.
inline AcGeVector3d direction3d() {
  const AcGeVector3d v = point3d().asVector();
  RC_PRE(v.length() > 1.0);
  return v;
}
inline AcGeVector2d direction2d() {
  const AcGeVector2d v = point2d().asVector();
  RC_PRE(v.length() > 1.0);
  return v;
}

}  // namespace getest
