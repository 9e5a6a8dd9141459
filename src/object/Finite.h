#pragma once

#include <algorithm>
#include <cmath>

#include "host/ge/ge.h"
#include "host/rx/rx.h"
#include "records/KrVector.h"

/// Whether values consist of numbers alone that can be reckoned with. What doesn't is refused where it comes in, so
/// that no list ever holds it.

/// The square of what is larger than this is no number any more, and so its distance from anything isn't either.
inline constexpr double kLargestNumber = 1e150;

inline bool isFinite(double number) {
  return std::fabs(number) <= kLargestNumber;
}

/// A factor whose effect can be undone: a member is drawn at real size and then brought to its scale.
inline bool canBeUndone(double factor) {
  return isFinite(factor) && factor != 0 && isFinite(1 / factor);
}

inline bool isFinite(const AcGePoint2d& p) {
  return isFinite(p.x) && isFinite(p.y);
}

inline bool isFinite(const AcGePoint3d& p) {
  return isFinite(p.x) && isFinite(p.y) && isFinite(p.z);
}

inline bool isFinite(const AcGeVector3d& v) {
  return isFinite(v.x) && isFinite(v.y) && isFinite(v.z);
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
         std::all_of(bulges.begin(), bulges.end(), [](double b) { return isFinite(b); });
}

inline bool isFinite(const KrVector& v) {
  return isFinite(v.startPoint()) && isFinite(v.midPoint()) && isFinite(v.endPoint()) && isFinite(v.direction()) &&
         isFinite(v.storedLength()) && isFinite(v.radius()) && isFinite(v.folga()) && isFinite(v.furoAux());
}
