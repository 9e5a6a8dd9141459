#pragma once

#include <algorithm>
#include <cmath>

/// The arithmetic that the calculators of the plane and of space have in common.
namespace AcGeIntersect {

/// How far a parameter may run: a segment from 0 to 1, a ray from 0 on, a line without end.
struct Limits {
  bool atStart;
  bool atEnd;

  constexpr double clamp(double t) const {
    if (atStart && t < 0.0) return 0.0;
    return atEnd && t > 1.0 ? 1.0 : t;
  }
  /// True when t lies in the limits or no more than slack past them.
  constexpr bool admit(double t, double slack) const {
    return (!atStart || t >= -slack) && (!atEnd || t <= 1.0 + slack);
  }
};

/// Where a line meets a circle, as places along the line from the foot of the centre. distance is the centre's from
/// the line. Within tol of touching, the line touches, in its foot. Returns the count of places.
inline int lineAndCircle(double distance, double radius, double tol, double along[2]) {
  if (distance > radius + tol) return 0;
  if (std::fabs(distance - radius) <= tol) {
    along[0] = 0.0;
    return 1;
  }
  const double half = std::sqrt((radius - distance) * (radius + distance));
  along[0] = -half;
  along[1] = half;
  return 2;
}

/// Where two circles meet, as a place along the line of centres, from the first, and a distance square to it, to both
/// sides when the count is 2. Within tol of touching they touch. Circles that coincide meet in no single point: 0.
inline int circleAndCircle(double centres, double r1, double r2, double tol, double& along, double& aside) {
  aside = 0.0;
  if (centres > r1 + r2 + tol || centres < std::fabs(r1 - r2) - tol) return 0;
  if (centres <= tol) return 0;
  if (centres >= r1 + r2 - tol) {
    along = r1 + (centres - r1 - r2) / 2.0;
    return 1;
  }
  if (centres <= std::fabs(r1 - r2) + tol) {
    along = r1 >= r2 ? r1 : -r1;
    return 1;
  }
  along = (centres + (r1 - r2) * (r1 + r2) / centres) / 2.0;
  aside = std::sqrt(std::max(0.0, (r1 - along) * (r1 + along)));
  return 2;
}

}  // namespace AcGeIntersect
