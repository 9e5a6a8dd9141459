#include "host/db/db.h"
#include "host/ed/ed.h"

// Every frame is a matrix to the world; a passage goes through the world.

namespace {

enum Frame : short { kWorld = 0, kUcs = 1, kDisplay = 2, kPaperDisplay = 3 };

AcDbDatabase* database(AcDbDatabase* given = nullptr) {
  return given != nullptr ? given : acdbHostApplicationServices()->workingDatabase();
}

AcGeMatrix3d ucsToWorld(AcDbDatabase* given = nullptr) {
  AcGeMatrix3d matrix;
  if (const AcDbDatabase* drawing = database(given); drawing != nullptr) {
    const AcGeVector3d x = drawing->ucsxdir();
    const AcGeVector3d y = drawing->ucsydir();
    matrix.setCoordSystem(drawing->ucsorg(), x, y, x.crossProduct(y));
  }
  return matrix;
}

/// The matrix to the world of the frame that a resbuf names. The display is seen from above, so its frame is the UCS's
/// world. False for one that names none.
bool frameToWorld(const resbuf& frame, AcGeMatrix3d& matrix) {
  if (frame.restype == RTSHORT) {
    if (frame.resval.rint < kWorld || frame.resval.rint > kPaperDisplay) return false;
    matrix = frame.resval.rint == kUcs ? ucsToWorld() : AcGeMatrix3d();
    return true;
  }
  if (frame.restype == RT3DPOINT) {
    matrix.setToPlaneToWorld(asVec3d(frame.resval.rpoint));
    return true;
  }
  AcDbObjectId id;
  if (frame.restype != RTENAME || acdbGetObjectId(id, frame.resval.rlname) != Acad::eOk) return false;
  AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
  if (entity.openStatus() != Acad::eOk) return false;
  entity->getEcs(matrix);
  return true;
}

void pass(const ads_real* from, ads_real* to, const AcGeMatrix3d& matrix, bool vector) {
  if (vector) {
    asVec3d(to) = matrix * asVec3d(from);
  } else {
    asPnt3d(to) = matrix * asPnt3d(from);
  }
}

}  // namespace

int acedTrans(const ads_real* point, const resbuf* from, const resbuf* to, int vector, ads_real* result) {
  AcGeMatrix3d source;
  AcGeMatrix3d target;
  if (point == nullptr || from == nullptr || to == nullptr || result == nullptr) return RTERROR;
  if (!frameToWorld(*from, source) || !frameToWorld(*to, target)) return RTERROR;
  pass(point, result, target.inverse() * source, vector != 0);
  return RTNORM;
}

bool acdbUcsMatrix(AcGeMatrix3d& matrix, AcDbDatabase* given) {
  if (database(given) == nullptr) return false;
  matrix = ucsToWorld(given);
  return true;
}

Acad::ErrorStatus acedGetCurrentUCS(AcGeMatrix3d& matrix) {
  return acdbUcsMatrix(matrix) ? Acad::eOk : Acad::eNoDatabase;
}

Acad::ErrorStatus acedSetCurrentUCS(const AcGeMatrix3d& matrix) {
  AcDbDatabase* const drawing = database();
  if (drawing == nullptr) return Acad::eNoDatabase;
  AcGePoint3d origin;
  AcGeVector3d x;
  AcGeVector3d y;
  AcGeVector3d z;
  matrix.getCoordSystem(origin, x, y, z);
  if (!matrix.isUniScaledOrtho() || !z.isEqualTo(x.crossProduct(y))) return Acad::eInvalidInput;
  return drawing->setUcs(origin, x, y);
}

bool acdbUcs2Wcs(const ads_real* from, ads_real* to, bool vector) {
  pass(from, to, ucsToWorld(), vector);
  return true;
}

bool acdbWcs2Ucs(const ads_real* from, ads_real* to, bool vector) {
  pass(from, to, ucsToWorld().inverse(), vector);
  return true;
}

bool acdbWcs2Ecs(const ads_real* from, ads_real* to, const AcGeVector3d& normal, bool vector) {
  pass(from, to, AcGeMatrix3d::worldToPlane(normal), vector);
  return true;
}

bool acdbEcs2Wcs(const ads_real* from, ads_real* to, const AcGeVector3d& normal, bool vector) {
  pass(from, to, AcGeMatrix3d::planeToWorld(normal), vector);
  return true;
}

bool acdbUcs2Ecs(const ads_real* from, ads_real* to, const AcGeVector3d& normal, bool vector) {
  pass(from, to, AcGeMatrix3d::worldToPlane(normal) * ucsToWorld(), vector);
  return true;
}

bool acdbEcs2Ucs(const ads_real* from, ads_real* to, const AcGeVector3d& normal, bool vector) {
  pass(from, to, ucsToWorld().inverse() * AcGeMatrix3d::planeToWorld(normal), vector);
  return true;
}

AcDbObjectId acedGetCurViewportObjectId() {
  AcDbDatabase* const drawing = database();
  AcDbViewportTable* table = nullptr;
  AcDbObjectId id;
  if (drawing == nullptr || drawing->getViewportTable(table) != Acad::eOk) return id;
  if (table->getAt(L"*Active", id) != Acad::eOk) id = AcDbObjectId::kNull;
  table->close();
  return id;
}
