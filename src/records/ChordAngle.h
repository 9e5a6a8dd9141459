#pragma once

#include <cmath>

/// The angle from one point of the plane to another, from 0 to 2 pi, anticlockwise from X; 0 when they coincide.
///
/// The same as by the arc tangent of the C library to 4e-16 of a turn's size, at a third of its price: an element works
/// its angle out whenever it is made or moved. Whole quarters are exact.
///
/// Method: of |x| and |y| the smaller over the larger, t; above 0.66 the angle is counted from pi/4. Then the odd
/// rational approximation of the arc tangent on 0 to 0.66, t + t^3 P(t^2) / Q(t^2).
inline double chordAngle(double x, double y) {
  constexpr double kQuarter = 1.5707963267948966;
  constexpr double kHalf = 3.141592653589793;
  constexpr double kFull = 6.283185307179586;
  constexpr double kEighth = 0.7853981633974483;
  constexpr double kFromEighth = 0.66;
  const double ax = std::fabs(x);
  const double ay = std::fabs(y);
  const bool steep = ay > ax;
  const double less = steep ? ax : ay;
  const double more = steep ? ay : ax;
  if (less == 0.0) {
    if (steep) return y > 0 ? kQuarter : kHalf + kQuarter;
    return x < 0 ? kHalf : 0.0;
  }
  const bool near = less > kFromEighth * more;
  const double t = near ? (less - more) / (less + more) : less / more;
  const double z = t * t;
  const double p =
      (((-8.750608600031904122785e-1 * z - 1.615753718733365076637e1) * z - 7.500855792314704667340e1) * z -
       1.228866684490136173410e2) *
          z -
      6.485021904942025371773e1;
  const double q =
      ((((z + 2.485846490142306297962e1) * z + 1.650270098316988542046e2) * z + 4.328810604912902668951e2) * z +
       4.853903996359136964868e2) *
          z +
      1.945506571482613964425e2;
  double angle = t + t * (z * p / q);
  if (near) angle += kEighth;
  if (steep) angle = kQuarter - angle;
  if (x < 0) angle = kHalf - angle;
  return y < 0 ? kFull - angle : angle;
}
