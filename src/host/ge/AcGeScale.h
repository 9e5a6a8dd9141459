#pragma once

#include "host/ge/AcGeMatrix2d.h"
#include "host/ge/AcGeMatrix3d.h"

/// Two factors along the axes of the plane.
class AcGeScale2d {
 public:
  double sx = 1.0;
  double sy = 1.0;

  constexpr AcGeScale2d() = default;
  constexpr explicit AcGeScale2d(double factor) : sx(factor), sy(factor) {}
  constexpr AcGeScale2d(double xFactor, double yFactor) : sx(xFactor), sy(yFactor) {}

  constexpr AcGeScale2d& set(double xFactor, double yFactor) { return *this = AcGeScale2d(xFactor, yFactor); }
  constexpr AcGeScale2d inverse() const { return {1.0 / sx, 1.0 / sy}; }
  constexpr void getMatrix(AcGeMatrix2d& m) const { m.setCoordSystem(AcGePoint2d::kOrigin, {sx, 0.0}, {0.0, sy}); }
};

/// Three factors along the axes of space.
class AcGeScale3d {
 public:
  double sx = 1.0;
  double sy = 1.0;
  double sz = 1.0;

  constexpr AcGeScale3d() = default;
  constexpr explicit AcGeScale3d(double factor) : sx(factor), sy(factor), sz(factor) {}
  constexpr AcGeScale3d(double xFactor, double yFactor, double zFactor) : sx(xFactor), sy(yFactor), sz(zFactor) {}

  constexpr AcGeScale3d& set(double xFactor, double yFactor, double zFactor) {
    return *this = AcGeScale3d(xFactor, yFactor, zFactor);
  }
  constexpr AcGeScale3d inverse() const { return {1.0 / sx, 1.0 / sy, 1.0 / sz}; }
  constexpr void getMatrix(AcGeMatrix3d& m) const {
    m.setCoordSystem(AcGePoint3d::kOrigin, {sx, 0.0, 0.0}, {0.0, sy, 0.0}, {0.0, 0.0, sz});
  }
};
