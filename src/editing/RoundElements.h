#pragma once

#include "records/KrVector.h"

/// Multiplies the radius of a circle, or half the width of the band of a hole seen edge on; other elements stay. Such a
/// measure is no point, so that no transformation of points reaches it.
inline void scaleRadius(KrVector& v, double factor) {
  if (v.type() == KR_VT_FURO_LINHA && factor != 1) return v.setRaio(v.radius() * factor);
  if (v.type() != KR_VT_CIRCULO) return;
  const int hidden = v.hidden();
  const int index = v.IndexFur();
  v.set(v.midPoint(), v.radius() * factor);
  v.setHidden(hidden);
  v.setIndexFur(index);
}

/// Transforms an element with its radius. The record's own transformation scales a hole seen face on, and makes a
/// circle forget the radius that it is drawn with.
inline void transformElement(KrVector& v, const AcGeMatrix3d& m, double factor) {
  v.transformBy(m);
  scaleRadius(v, factor);
}
