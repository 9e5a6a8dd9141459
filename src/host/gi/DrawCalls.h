#pragma once

#include <string>

#include "host/ge/ge.h"
#include "host/gi/AcGiEnums.h"
#include "host/gi/AcGiTextStyle.h"

namespace gi {

/// An arc or circle as it was asked for, in the model's coordinates: centre + cos(t) u + sin(t) v, t from 0 to sweep.
struct ArcCall {
  AcGePoint3d center;
  AcGeVector3d u;  ///< Radius vector of the start.
  AcGeVector3d v;  ///< Radius vector a quarter turn on.
  double sweep = 0.0;
  bool isCircle = false;
  AcGiArcType type = kAcGiArcSimple;
  bool byPoints = false;  ///< Whether it was asked for by three points, then in `given`.
  AcGePoint3d given[3];
};

/// A text as it was asked for. Direction is a unit vector; `up` is square to it.
struct TextCall {
  AcGePoint3d position;
  AcGeVector3d direction;
  AcGeVector3d up;
  std::wstring text;
  bool raw = true;
  AcGiTextStyle style;
};

/// The arc through three points, from the first to the last. False when they lie on a line or are not finite.
bool arcThrough(const AcGePoint3d& start, const AcGePoint3d& point, const AcGePoint3d& end, ArcCall& arc);

}  // namespace gi
