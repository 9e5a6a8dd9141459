#pragma once

#include <algorithm>
#include <cmath>

#include "host/ge/ge.h"
#include "host/rx/rx.h"
#include "records/KrVector.h"

/// Whether values consist of numbers alone. What isn't one is refused where it comes in, so that no list ever holds it.

inline bool isFinite(double number) {
  return std::isfinite(number);
}

inline bool isFinite(const AcGePoint2d& p) {
  return std::isfinite(p.x) && std::isfinite(p.y);
}

inline bool isFinite(const AcGePoint3d& p) {
  return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
}

inline bool isFinite(const AcGeVector3d& v) {
  return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

inline bool isFinite(const AcGeMatrix3d& m) {
  double sum = 0;
  for (const auto& row : m.entry)
    for (const double e : row) sum += e * 0.0;
  return sum == 0.0;
}

/// A polygon with its bulges and the point that tells its side.
inline bool isFinite(const AcArray<AcGePoint2d>& points, const AcArray<double>& bulges, const AcGePoint2d& side) {
  return isFinite(side) &&
         std::all_of(points.begin(), points.end(), [](const AcGePoint2d& p) { return isFinite(p); }) &&
         std::all_of(bulges.begin(), bulges.end(), [](double b) { return std::isfinite(b); });
}

inline bool isFinite(const KrVector& v) {
  return isFinite(v.startPoint()) && isFinite(v.midPoint()) && isFinite(v.endPoint()) && std::isfinite(v.direction()) &&
         std::isfinite(v.radius()) && std::isfinite(v.folga());
}
