#pragma once

#include <cmath>
#include <cstdarg>

#include "host/db/resbuf.h"

// Text, value and plane geometry services. The value chains (acutBuildList, acutRelRb, ...) stand in host/db/resbuf.h.

inline constexpr double kAcutPi = 3.14159265358979323846;

/// Writes to the editor's terminal. The format has the wide meaning of the interface: %s takes a wchar_t*, %S a char*.
/// RTNORM, or RTERROR for a null format.
int acutPrintf(const wchar_t* format, ...);
int acutVPrintf(const wchar_t* format, std::va_list arguments);

/// The angle of p2 - p1 in the XY plane, 0 to 2 pi, counterclockwise from X; 0 for points one above the other.
inline ads_real acutAngle(const ads_real* p1, const ads_real* p2) {
  const double angle = std::atan2(p2[1] - p1[1], p2[0] - p1[0]);
  return angle < 0.0 ? angle + 2.0 * kAcutPi : angle;
}

/// The distance in space.
inline ads_real acutDistance(const ads_real* p1, const ads_real* p2) {
  const double x = p2[0] - p1[0];
  const double y = p2[1] - p1[1];
  const double z = p2[2] - p1[2];
  return std::sqrt(x * x + y * y + z * z);
}

/// The point at `distance` from `from` in the direction `angle` (radians) of the XY plane, at the height of `from`.
inline void acutPolar(const ads_real* from, ads_real angle, ads_real distance, ads_real* to) {
  const double x = from[0] + distance * std::cos(angle);
  const double y = from[1] + distance * std::sin(angle);
  const double z = from[2];
  to[0] = x, to[1] = y, to[2] = z;
}

/// Does `text` match `pattern`? Wildcards: * any text, ? one character, # a digit, @ a letter, . another character,
/// [abc] [a-z] [~abc] sets, ~ in front negates, a comma separates alternatives, ` takes the next one literally.
/// RTNORM when it matches, else RTERROR.
int acutWcMatch(const wchar_t* text, const wchar_t* pattern);
