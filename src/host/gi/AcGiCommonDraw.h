#pragma once

#include "host/ge/ge.h"
#include "host/gi/AcGiContext.h"
#include "host/gi/AcGiEnums.h"
#include "host/gi/AcGiSubEntityTraits.h"

class AcGiGeometry;

/// What drawing into the world and into one view have in common.
class AcGiCommonDraw : public AcRxObject {
 public:
  virtual AcGiRegenType regenType() const = 0;
  /// Whether the drawing was called off: a drawable then returns as soon as it can.
  virtual Adesk::Boolean regenAbort() const = 0;
  virtual AcGiSubEntityTraits& subEntityTraits() const = 0;
  virtual AcGiGeometry* rawGeometry() const = 0;
  /// Whether the drawing follows a drag. Filled figures are drawn as outlines then.
  virtual Adesk::Boolean isDragging() const = 0;
  /// How far, in the drawing's units, an approximation of a curve at the point may lie from the curve.
  virtual double deviation(const AcGiDeviationType type, const AcGePoint3d& point) const = 0;
  /// The number of lines by which a curved face is told.
  virtual Adesk::UInt32 numberOfIsolines() const = 0;
  virtual AcGiContext* context() = 0;
};
