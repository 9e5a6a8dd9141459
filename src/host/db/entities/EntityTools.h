#pragma once

#include "host/db/AcDbDxfFiler.h"
#include "host/ge/ge.h"

// What the sources of the entities share.

namespace entities {

/// Reads the groups of one subclass: `take` is given each group and answers whether it knows it. Groups that nobody
/// knows are passed over. The subclass ends at the next marker, at extended data and at the end of the object.
/// eBadDxfSequence when the marker isn't there.
template <class Take>
Acad::ErrorStatus readSubclass(AcDbDxfFiler* filer, const ACHAR* name, Take take) {
  constexpr int kFirstExtendedCode = 1000;
  if (!filer->atSubclassData(name)) return Acad::eBadDxfSequence;
  resbuf group{};
  while (!filer->atEndOfObject() && !filer->atEOF() && filer->readItem(&group) == Acad::eOk) {
    if (group.restype == AcDb::kDxfSubclass || group.restype >= kFirstExtendedCode) {
      filer->pushBackItem();
      break;
    }
    take(group);
  }
  return filer->filerStatus();
}

inline AcGePoint3d pointOf(const resbuf& group) {
  const ads_real* p = group.resval.rpoint;
  return {p[0], p[1], p[2]};
}

inline AcGeVector3d vectorOf(const resbuf& group) {
  return pointOf(group).asVector();
}

inline const ACHAR* textOf(const resbuf& group) {
  return group.resval.rstring != nullptr ? group.resval.rstring : L"";
}

/// Prints "\n<label><x>, <y>, <z>" in the current units, and a length likewise.
void listPoint(const ACHAR* label, const AcGePoint3d& p);
void listLength(const ACHAR* label, double value);
void listAngle(const ACHAR* label, double radians);

/// From the frame of a normal to the world and back. Under the Z axis nothing is reckoned, so that no bit changes.
inline AcGePoint3d fromPlane(const AcGePoint3d& p, const AcGeVector3d& normal) {
  if (normal.x == 0.0 && normal.y == 0.0 && normal.z == 1.0) return p;
  return AcGeMatrix3d::planeToWorld(normal) * p;
}
inline AcGePoint3d toPlane(const AcGePoint3d& p, const AcGeVector3d& normal) {
  if (normal.x == 0.0 && normal.y == 0.0 && normal.z == 1.0) return p;
  return AcGeMatrix3d::worldToPlane(normal) * p;
}

/// The angle in the plane of a normal, from the X axis of its frame.
double angleInPlane(const AcGeVector3d& direction, const AcGeVector3d& normal);
/// The unit vector at an angle in that frame.
AcGeVector3d directionAt(double angle, const AcGeVector3d& normal);
/// An angle brought to 0 up to 2 pi, 2 pi left out.
double wrapped(double angle);

/// A rigid motion with one scale, mirrored or not: what circles, arcs and texts can follow.
bool isSimilarity(const AcGeMatrix3d& xform);

}  // namespace entities
