#include "host/db/entities/AcDbPoint.h"

#include "host/db/StructFiling.h"
#include "host/db/entities/EntityTools.h"
#include "host/gi/gi.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbPoint, AcDbEntity, 0, 0, 0, POINT, ObjectDBX Classes)
KR_DB_FILE_STRUCT(AcDbPoint, AcDbEntity, data_)

Acad::ErrorStatus AcDbPoint::setNormal(const AcGeVector3d& normal) {
  if (normal.lengthSqrd() == 0.0) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.normal = normal / normal.length();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPoint::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer); es != Acad::eOk) return es;
  filer->writeSubclass(L"AcDbPoint");
  filer->writeItem(10, data_.position);
  if (data_.thickness != 0.0) filer->writeItem(39, data_.thickness);
  if (data_.normal != AcGeVector3d::kZAxis) filer->writeItem(210, data_.normal);
  if (data_.ecsRotation != 0.0) filer->writeItem(50, data_.ecsRotation);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbPoint::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer); es != Acad::eOk) return es;
  return entities::readSubclass(filer, L"AcDbPoint", [this](const resbuf& group) {
    if (group.restype == 10) data_.position = entities::pointOf(group);
    if (group.restype == 39) data_.thickness = group.resval.rreal;
    if (group.restype == 210) data_.normal = entities::vectorOf(group);
    if (group.restype == 50) data_.ecsRotation = group.resval.rreal;
  });
}

Adesk::Boolean AcDbPoint::subWorldDraw(AcGiWorldDraw* draw) {
  assertReadEnabled();
  const AcGePoint3d ends[] = {data_.position, data_.position};
  draw->geometry().polyline(2, ends);
  return Adesk::kTrue;
}

Acad::ErrorStatus AcDbPoint::subTransformBy(const AcGeMatrix3d& xform) {
  data_.position.transformBy(xform);
  const AcGeVector3d turned = xform * data_.normal;
  if (turned.lengthSqrd() == 0.0) return Acad::eOk;
  data_.thickness *= turned.length();
  data_.normal = turned / turned.length();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPoint::subGetGeomExtents(AcDbExtents& extents) const {
  return extents.set(data_.position, data_.position);
}

Acad::ErrorStatus AcDbPoint::subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker, const AcGePoint3d&,
                                               const AcGePoint3d&, const AcGeMatrix3d&, AcGePoint3dArray& snapPoints,
                                               AcDbIntArray&) const {
  if (mode == AcDb::kOsModeNode) snapPoints.append(data_.position);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPoint::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&, AcDbIntArray&) const {
  points.append(data_.position);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbPoint::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) {
  if (indices.length() > 0) data_.position += offset;
  return Acad::eOk;
}
