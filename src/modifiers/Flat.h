#pragma once

#include "host/ge/ge.h"

/// Points of the drawing's plane and points of space at Z 0.
inline AcGePoint2d flat(const AcGePoint3d& p) {
  return {p.x, p.y};
}
inline AcGePoint3d raised(const AcGePoint2d& p) {
  return {p.x, p.y, 0};
}
