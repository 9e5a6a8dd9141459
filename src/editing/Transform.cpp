// Moving, turning, mirroring a member by a matrix.

#include "object/KrObject.h"

Acad::ErrorStatus KrObject::subTransformBy(const AcGeMatrix3d& xform) {
  return AcDbEntity::subTransformBy(xform);
}
