#pragma once

#include "host/ge/ge.h"
#include "host/gi/AcGiEnums.h"
#include "host/rx/AcRxObject.h"

class AcGiDrawable;
class AcGiTextStyle;

/// The figures that can be drawn. Coordinates are those of the model, which the pushed transforms carry to the world.
/// Each drawing call answers false to go on; true asks the drawable to stop.
class AcGiGeometry : public AcRxObject {
 public:
  /// Product of all transforms pushed: model to world, and back.
  virtual void getModelToWorldTransform(AcGeMatrix3d& matrix) const = 0;
  virtual void getWorldToModelTransform(AcGeMatrix3d& matrix) const = 0;
  /// From the frame that the arbitrary axis rule gives a normal.
  virtual Adesk::Boolean pushModelTransform(const AcGeVector3d& normal) = 0;
  /// What follows is drawn in the frame from which the matrix leads to the one before.
  virtual Adesk::Boolean pushModelTransform(const AcGeMatrix3d& matrix) = 0;
  /// Takes the last transform back; false when none was pushed.
  virtual Adesk::Boolean popModelTransform() = 0;

  virtual Adesk::Boolean circle(const AcGePoint3d& center, const double radius, const AcGeVector3d& normal) const = 0;
  /// Through three points; draws nothing when they lie on a line.
  virtual Adesk::Boolean circle(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3) const = 0;
  /// Counter-clockwise about the normal, from the start vector through the sweep angle in radians.
  virtual Adesk::Boolean circularArc(const AcGePoint3d& center, const double radius, const AcGeVector3d& normal,
                                     const AcGeVector3d& startVector, const double sweepAngle,
                                     const AcGiArcType arcType = kAcGiArcSimple) const = 0;
  /// From start through point to end; points on a line draw the line through them.
  virtual Adesk::Boolean circularArc(const AcGePoint3d& start, const AcGePoint3d& point, const AcGePoint3d& end,
                                     const AcGiArcType arcType = kAcGiArcSimple) const = 0;
  virtual Adesk::Boolean polyline(const Adesk::UInt32 count, const AcGePoint3d* vertices,
                                  const AcGeVector3d* normal = nullptr, Adesk::LongPtr baseSubEntMarker = -1) const = 0;
  /// Closed; filled when the traits say so, else its outline.
  virtual Adesk::Boolean polygon(const Adesk::UInt32 count, const AcGePoint3d* vertices) const = 0;

  /// Raw: the characters stand for themselves, in the page's own font. The oblique angle is in radians, the width is a
  /// factor.
  virtual Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d& normal, const AcGeVector3d& direction,
                              const double height, const double width, const double oblique,
                              const ACHAR* message) const = 0;
  /// Styled. `length` characters, or all when it is negative. Unless raw, %%c, %%d, %%p, %%o, %%u and %%nnn are read
  /// as what they stand for.
  virtual Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d& normal, const AcGeVector3d& direction,
                              const ACHAR* message, const Adesk::Int32 length, const Adesk::Boolean raw,
                              const AcGiTextStyle& style) const = 0;

  /// Draws another drawable as a part of this one: its colour, layer and so on by block are this one's.
  virtual Adesk::Boolean draw(AcGiDrawable* drawable) const = 0;
};
